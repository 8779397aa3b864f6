/** The one shot of the page, its playhead, and what is heard in it. */
import { effect, signal } from '@preact/signals';
import { perSecond } from './model/timecode.ts';
import { Playhead } from './model/playhead.ts';
import { Studio } from './model/studio.ts';

export const studio = new Studio();
export const playhead = new Playhead();

/** A sound that was dropped: its samples for the waveform, its bytes for the engine's onsets. */
export interface Sound {
    readonly name: string;
    readonly bytes: Uint8Array;
    /** Mono, -1 to 1; nothing: the browser does not decode it. */
    readonly samples: Float32Array | null;
    readonly samplesPerSecond: number;
}
export const sound = signal<Sound | null>(null);

/** The frames that timeline and curves show. */
export const visible = signal<{ readonly first: number; readonly last: number }>({ first: 0, last: 1 });

effect(() => {
    const first = studio.firstFrame.value, last = studio.lastFrame.value;
    playhead.setRange(first, last, perSecond(studio.rate.value));
    visible.value = { first, last: Math.max(last, first + 1) };
});
