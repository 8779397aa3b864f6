/** The page: its parts, what is dropped on it, and what it opens with. */
import { effect, signal } from '@preact/signals';
import { render } from 'preact';
import 'uplot/dist/uPlot.min.css';
import './style.css';
import { playhead, studio } from './app.ts';
import { Bar, showsKeys } from './bar.tsx';
import { Curves } from './curves/curves.tsx';
import { openFile, sample, SAMPLES } from './in/open.ts';
import { addressOf, readAddress } from './model/address.ts';
import { keep, kept } from './model/keep.ts';
import { readSession } from './model/session.ts';
import type { ShotState } from './model/session.ts';
import { FRESH_LOOK } from './model/look.ts';
import { Save } from './out/save.tsx';
import { Takes } from './out/takes.tsx';
import { Panel } from './panel/panel.tsx';
import { bringThumbnails, Presets } from './panel/presets.tsx';
import { listen } from './shortcuts.ts';
import { Timeline } from './timeline/timeline.tsx';
import { Views } from './views/views.tsx';
import { words } from './words.ts';

const isDraggedOver = signal(false);
/** Short computing is not worth a word. */
const SLOW = 400, KEEP_AFTER = 800;
const isSlow = signal(false);

function Status() {
    const message = studio.message.value;
    return (
        <div class="status" role="status" aria-live="polite">
            {isSlow.value && <p>{words.computing} <button type="button" class="small" onClick={() => void studio.stop()}>{words.stop}</button></p>}
            {message !== null && <p class={message.isBad ? 'bad' : ''}>{message.text}{' '}
                <button type="button" class="small" onClick={() => { studio.message.value = null; }}>{words.dismiss}</button></p>}
        </div>
    );
}

function Keys() {
    if (!showsKeys.value) return null;
    return (
        <section aria-label={words.help}>
            <dl class="keys">{words.keys.map(([key, text]) => <div key={key}><dt>{key}</dt><dd>{text}</dd></div>)}</dl>
        </section>
    );
}

function Page() {
    if (studio.facts.value === null) return <p class="starting">{words.starting}</p>;
    return (
        <>
            <Bar />
            <Status />
            <Keys />
            <Save />
            <Takes />
            <main>
                <Views />
                <Timeline />
                <Curves />
                <Presets />
                <Panel />
            </main>
            {isDraggedOver.value && <p class="drop" aria-hidden="true">{words.drop}</p>}
        </>
    );
}

function listenForDrops(): void {
    addEventListener('dragover', (event) => {
        event.preventDefault();
        isDraggedOver.value = true;
    });
    addEventListener('dragleave', (event) => { if (event.relatedTarget === null) isDraggedOver.value = false; });
    addEventListener('drop', async (event) => {
        event.preventDefault();
        isDraggedOver.value = false;
        for (const file of [...event.dataTransfer?.files ?? []]) await openFile(file);
    });
}

/** What the program wrote into the page, else the address, else the last shot, else a sample that moves. */
function firstShot(): { shot: ShotState; problem?: unknown } {
    const opening = document.getElementById('opening')?.textContent?.trim() ?? 'null';
    const fresh: ShotState = { move: sample('push_in.csv'), look: { ...FRESH_LOOK, base: { kind: 'preset', name: 'Hand-held/Conversation' } } };
    try {
        if (opening !== 'null') return { shot: readSession(opening) };
        const address = readAddress(location.hash);
        if (address !== undefined)
            return { shot: { move: sample(SAMPLES.includes(address.sample) ? address.sample : 'push_in.csv'), look: address.look } };
    } catch (problem) {
        return { shot: fresh, problem };
    }
    const last = kept();
    if (last === undefined) return { shot: fresh };
    return { shot: { move: last.move.sample && SAMPLES.includes(last.move.name) ? sample(last.move.name) : last.move, look: last.look } };
}

function setAddress(address: string): void {
    try {
        history.replaceState(null, '', address);
    } catch {
        location.replace(address);
    }
}

/** The last shot and its look are kept once nothing changes for a moment. */
function keepShots(): void {
    let timer: ReturnType<typeof setTimeout> | undefined, wasTooLarge = false;
    effect(() => {
        const shot = studio.shot.value;
        if (shot === null) return;
        clearTimeout(timer);
        timer = setTimeout(() => {
            setAddress(addressOf({ sample: shot.move.sample ? shot.move.name : '', look: shot.look }));
            const isKept = keep(shot);
            if (!isKept && !wasTooLarge) studio.say(words.tooLargeToKeep);
            wasTooLarge = !isKept;
        }, KEEP_AFTER);
    });
    addEventListener('hashchange', () => {
        try {
            const address = readAddress(location.hash);
            if (address !== undefined && addressOf({ sample: '', look: address.look }) !== addressOf({ sample: '', look: studio.look.peek() }))
                studio.edit(() => address.look);
        } catch (error) {
            studio.tell(error);
        }
    });
}

/** For those who watch the page from outside: programs that test it, or film it. */
function tellWhenSettled(): void {
    effect(() => { document.documentElement.dataset.settled = String(studio.isSettled.value); });
}

function watchSlowWork(): void {
    let timer: ReturnType<typeof setTimeout> | undefined;
    effect(() => {
        clearTimeout(timer);
        if (studio.busySince.value === null) isSlow.value = false;
        else timer = setTimeout(() => { isSlow.value = true; }, SLOW);
    });
}

async function begin(): Promise<void> {
    render(<Page />, document.getElementById('studio') as HTMLElement);
    watchSlowWork();
    tellWhenSettled();
    listen();
    listenForDrops();
    try {
        await studio.start();
        const { shot, problem } = firstShot();
        if (!await studio.open(shot.move, shot.look)) {
            const refusal = studio.message.peek();
            await studio.open(sample('push_in.csv'), FRESH_LOOK);
            studio.message.value = refusal;
        }
        if (problem !== undefined) studio.tell(problem);
        if (!matchMedia('(prefers-reduced-motion: reduce)').matches) playhead.play(1);
        keepShots();
        await bringThumbnails();
    } catch (error) {
        studio.tell(error);
    }
}

void begin();
