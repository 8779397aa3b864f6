/** The same look with other seeds, in a row. */
import { signal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';
import { studio } from '../app.ts';
import { addedCurve, peak, ROTATION } from '../model/channels.ts';
import { withSetting } from '../model/look.ts';
import type { Shown } from '../model/studio.ts';
import { words } from '../words.ts';

const TAKES = 6, SEEDS = 100_000;

export const isOpen = signal(false);
const takes = signal<{ readonly of: Shown; readonly seeds: readonly number[]; readonly numbers: readonly Float64Array[] } | null>(null);

const seedParameter = () => studio.facts.peek()?.parameters.find(({ label }) => label === 'Seed')?.id ?? 0;

export async function bringTakes(): Promise<void> {
    const shown = studio.shown.peek(), id = seedParameter();
    if (shown === null) return;
    const seeds = Array.from({ length: TAKES }, () => Math.floor(Math.random() * SEEDS));
    try {
        takes.value = { of: shown, seeds, numbers: await studio.engine.call('takes', { look: shown.look, seedParameter: id, seeds }) };
        isOpen.value = true;
    } catch (error) {
        studio.tell(error);
    }
}

/** The way of the picture's middle: heading across, pitch upwards. */
function Trail({ input, numbers }: { input: Float64Array; numbers: Float64Array }) {
    const canvas = useRef<HTMLCanvasElement>(null);
    useEffect(() => {
        const context = canvas.current?.getContext('2d');
        if (canvas.current === null || context == null) return;
        const { width, height } = canvas.current;
        const [across, up] = [ROTATION[0], ROTATION[1]].map((channel) => addedCurve(input, numbers, channel as NonNullable<typeof channel>)) as [Float64Array, Float64Array];
        const scale = (0.45 * Math.min(width, height)) / Math.max(peak(across), peak(up), 1e-9);
        context.clearRect(0, 0, width, height);
        context.strokeStyle = getComputedStyle(canvas.current).color;
        context.beginPath();
        across.forEach((x, frame) => context.lineTo(width / 2 - x * scale, height / 2 - (up[frame] as number) * scale));
        context.stroke();
    }, [input, numbers]);
    return <canvas ref={canvas} width={110} height={70} aria-hidden="true" />;
}

export function Takes() {
    const now = takes.value;
    if (!isOpen.value || now === null) return null;
    return (
        <section class="takes" aria-label={words.regions.takes}>
            <div class="tiles row-of-tiles">
                {now.seeds.map((seed, index) => (
                    <button key={seed} type="button" class="tile" onClick={() => studio.edit((look) => withSetting(look, seedParameter(), seed))}>
                        <Trail input={now.of.move.numbers} numbers={now.numbers[index] as Float64Array} />
                        <span>{words.takes.seed(seed)}</span>
                    </button>))}
            </div>
            <div class="row"><button type="button" onClick={() => void bringTakes()}>{words.takes.more}</button>
                <button type="button" onClick={() => { isOpen.value = false; }}>{words.out.close}</button></div>
        </section>
    );
}
