/** The lines of each plot, from the frames. */
import type { LayerTrace } from '../engine/protocol.ts';
import { addedCurve, curveOf, FOCAL_LENGTH, FOCUS_DISTANCE, length, POSITION, ROTATION, speedOf } from '../model/channels.ts';
import type { Channel } from '../model/channels.ts';
import type { Shown } from '../model/studio.ts';
import { spectrumOf } from '../model/spectrum.ts';
import { words } from '../words.ts';
import type { Line } from './plot.ts';

export const COLOURS = ['#d1493f', '#2e8b57', '#3a7bd5'] as const;
const LAYER_COLOURS: Record<string, string> = {
    smoothed: '#7a6ff0', overshoot: '#e0a100', shake: '#d1493f', jolt: '#3a7bd5',
};
export const GROUPS: Record<'position' | 'rotation' | 'lens', readonly Channel[]> = {
    position: POSITION, rotation: ROTATION, lens: [FOCAL_LENGTH, FOCUS_DISTANCE],
};
export type GroupName = keyof typeof GROUPS;
export interface Which {
    readonly input: boolean;
    readonly shaken: boolean;
    readonly added: boolean;
}

export function groupLines({ move, numbers }: Shown, group: GroupName, which: Which): Line[] {
    return GROUPS[group].flatMap((channel, place): Line[] => {
        const colour = COLOURS[place % 3] as string;
        return [
            ...(which.input ? [{ label: `${channel.name} ${words.curves.input.toLowerCase()}`, values: curveOf(move.numbers, channel), colour, dash: [4, 3], width: 1 }] : []),
            ...(which.shaken ? [{ label: channel.name, values: curveOf(numbers, channel), colour }] : []),
            ...(which.added ? [{ label: `${channel.name} ${words.curves.added.toLowerCase()}`, values: addedCurve(move.numbers, numbers, channel), colour, width: 2 }] : []),
        ];
    });
}

/** How fast input and shaken camera are, over ground and about any axis, by the differences of frames. */
export function speedLines({ move, numbers }: Shown, framesPerSecond: number, turns: boolean): Line[] {
    const group = turns ? ROTATION : POSITION;
    const fast = (of: Float64Array) => length(group.map((channel) => speedOf(curveOf(of, channel), framesPerSecond)));
    return [
        { label: words.curves.input, values: fast(move.numbers), colour: COLOURS[2], dash: [4, 3], width: 1 },
        { label: words.curves.shaken, values: fast(numbers), colour: COLOURS[0] },
    ];
}

/** RMS of what was added by frequency, from 0 to half the rate or 15 hertz, each line relative to its own strongest. */
export function spectrumLines({ move, numbers }: Shown, framesPerSecond: number): { hertz: number[]; lines: Line[] } {
    const channels = [...POSITION, ...ROTATION];
    const spectra = channels.map((channel) => spectrumOf(addedCurve(move.numbers, numbers, channel), framesPerSecond));
    const step = spectra[0]?.step ?? 1;
    const count = Math.min(spectra[0]?.power.length ?? 0, Math.floor(15 / step) + 1);
    const hertz = Array.from({ length: count }, (_, at) => at * step);
    const lines = channels.map((channel, place): Line => {
        const amplitudes = [...(spectra[place]?.power.subarray(0, count) ?? [])].map(Math.sqrt);
        const most = Math.max(...amplitudes, 1e-12);
        return {
            label: channel.name, values: amplitudes.map((amplitude) => amplitude / most), colour: COLOURS[place % 3] as string,
            ...(place >= 3 ? { dash: [5, 3] } : {}),
        };
    });
    return { hertz, lines };
}

/** What each layer adds to one axis, stacked on those before it. The last line is the sum. */
export function layerLines(trace: LayerTrace, channel: 'position' | 'rotation', axis: number): Line[] {
    const layers = trace[channel];
    const input = layers.input ?? [];
    let sum = new Float64Array(input.length);
    return ['smoothed', 'overshoot', 'shake', 'jolt'].filter((layer) => layers[layer] !== undefined).map((layer) => {
        const values = layers[layer] as number[][];
        sum = sum.map((before, frame) => {
            let share = values[frame]?.[axis] ?? 0;
            // What smoothing adds is the difference to the input, angles by the shorter way.
            if (layer === 'smoothed') share -= input[frame]?.[axis] ?? 0;
            if (layer === 'smoothed' && channel === 'rotation') share -= 360 * Math.round(share / 360);
            return before + share;
        });
        return { label: layer, values: sum, colour: LAYER_COLOURS[layer] as string, width: layer === 'jolt' ? 2 : 1.2 };
    });
}
