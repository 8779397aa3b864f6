/** The waveform of a sound that was dropped, and jolts on its beats. */
import { useEffect, useRef } from 'preact/hooks';
import { signal } from '@preact/signals';
import { sound, studio, visible } from '../app.ts';
import { withJolts } from '../model/look.ts';
import { secondsAt } from '../model/timecode.ts';
import { words } from '../words.ts';

const sensitivity = signal(50);

/** The largest and smallest sample of each column of pixels. */
export function waveform(samples: Float32Array, from: number, until: number, columns: number): [number, number][] {
    return Array.from({ length: columns }, (_, column) => {
        const begin = Math.floor(from + ((until - from) * column) / columns), end = Math.ceil(from + ((until - from) * (column + 1)) / columns);
        let low = 0, high = 0;
        for (let at = Math.max(0, begin); at < Math.min(end, samples.length); ++at) {
            low = Math.min(low, samples[at] as number);
            high = Math.max(high, samples[at] as number);
        }
        return [low, high];
    });
}

async function takeBeats(): Promise<void> {
    const heard = sound.peek();
    if (heard === null) return;
    try {
        const { events, outside } = await studio.engine.call('events',
            { name: heard.name, bytes: heard.bytes, sensitivity: sensitivity.peek(), band: 0 });
        if (events.length === 0) return studio.say(words.timeline.noEvents(heard.name), true);
        studio.edit((look) => withJolts(look, events));
        if (outside > 0) studio.say(words.timeline.eventsOutside(outside));
    } catch (error) {
        studio.tell(error);
    }
}

export function SoundLane() {
    const canvas = useRef<HTMLCanvasElement>(null);
    const heard = sound.value, { first, last } = visible.value, rate = studio.rate.value;
    useEffect(() => {
        const target = canvas.current?.getContext('2d');
        if (canvas.current === null || target === null || target === undefined || heard?.samples == null) return;
        const { clientWidth, clientHeight } = canvas.current;
        canvas.current.width = clientWidth;
        canvas.current.height = clientHeight;
        target.fillStyle = getComputedStyle(canvas.current).color;
        const at = (frame: number) => secondsAt(frame, rate) * heard.samplesPerSecond;
        waveform(heard.samples, at(first), at(last), clientWidth).forEach(([low, high], x) =>
            target.fillRect(x, (1 - high) * clientHeight / 2, 1, Math.max(1, (high - low) * clientHeight / 2)));
    }, [heard, first, last, rate]);
    if (heard === null) return null;
    return (
        <div class="lane">
            <span class="lane-name" title={heard.name}>{words.timeline.sound}</span>
            <div class="line sound"><canvas ref={canvas} aria-hidden="true" /></div>
            <span class="lane-tools">
                <label>{words.timeline.sensitivity} <input type="range" min={0} max={100} value={sensitivity.value}
                    onInput={(event) => { sensitivity.value = Number(event.currentTarget.value); }} /></label>
                <button type="button" onClick={() => void takeBeats()}>{words.timeline.joltsOnBeats}</button>
            </span>
        </div>
    );
}
