/** The numbers of a camera by channel, as curves and readouts want them. */
export const PER_FRAME = 8;
const DEGREES = 180 / Math.PI;

export interface Channel {
    /** "X" */
    readonly name: string;
    readonly unit: 'cm' | 'deg' | 'mm';
    /** Its place among a frame's numbers, and what a number is multiplied by. */
    readonly place: number;
    readonly factor: number;
    readonly turns: boolean;
}
export const POSITION: readonly Channel[] = ['X', 'Y', 'Z'].map((name, place) => ({ name, unit: 'cm', place, factor: 1, turns: false }));
export const ROTATION: readonly Channel[] = ['H', 'P', 'B'].map((name, at) =>
    ({ name, unit: 'deg', place: 3 + at, factor: DEGREES, turns: true }));
export const FOCAL_LENGTH: Channel = { name: 'Focal length', unit: 'mm', place: 6, factor: 1, turns: false };
export const FOCUS_DISTANCE: Channel = { name: 'Focus', unit: 'cm', place: 7, factor: 1, turns: false };

/** One number a frame. Angles go on where they would leap from half a turn to the other side. */
export function curveOf(numbers: Float64Array, channel: Channel): Float64Array {
    const count = numbers.length / PER_FRAME;
    const curve = new Float64Array(count);
    for (let frame = 0; frame < count; ++frame) {
        let value = (numbers[frame * PER_FRAME + channel.place] as number) * channel.factor;
        if (channel.turns && frame > 0) value -= 360 * Math.round((value - (curve[frame - 1] as number)) / 360);
        curve[frame] = value;
    }
    return curve;
}

/** What the shake added, angles by the shorter way. */
export function addedCurve(input: Float64Array, shaken: Float64Array, channel: Channel): Float64Array {
    const count = Math.min(input.length, shaken.length) / PER_FRAME;
    const curve = new Float64Array(count);
    for (let frame = 0; frame < count; ++frame) {
        const place = frame * PER_FRAME + channel.place;
        const value = ((shaken[place] as number) - (input[place] as number)) * channel.factor;
        curve[frame] = channel.turns ? value - 360 * Math.round(value / 360) : value;
    }
    return curve;
}

/** Units a second, by the differences of neighbours; the first frame has its neighbour's. */
export function speedOf(curve: Float64Array, framesPerSecond: number): Float64Array {
    const speed = new Float64Array(curve.length);
    for (let frame = 1; frame < curve.length; ++frame)
        speed[frame] = ((curve[frame] as number) - (curve[frame - 1] as number)) * framesPerSecond;
    if (curve.length > 1) speed[0] = speed[1] as number;
    return speed;
}

export const rms = (values: ArrayLike<number>): number => {
    let sum = 0;
    for (let i = 0; i < values.length; ++i) sum += (values[i] as number) ** 2;
    return values.length > 0 ? Math.sqrt(sum / values.length) : 0;
};
export const peak = (values: ArrayLike<number>): number => {
    let most = 0;
    for (let i = 0; i < values.length; ++i) most = Math.max(most, Math.abs(values[i] as number));
    return most;
};

/** Root of the sum of squares, frame by frame. */
export const length = (curves: readonly Float64Array[]): Float64Array =>
    Float64Array.from(curves[0] ?? [], (_, frame) => Math.hypot(...curves.map((curve) => curve[frame] as number)));
