/** How much of a motion happens at which frequency. */
import FFT from 'fft.js';

export interface Spectrum {
    /** Hertz from one entry to the next; the first is 0 Hz. */
    readonly step: number;
    /** Mean square of the samples that belongs to each frequency. */
    readonly power: Float64Array;
}
/** Hertz: sway, steps and corrections, tremor. */
export const BANDS: readonly (readonly [number, number])[] = [[0, 0.5], [0.5, 3], [3, 12]];

const powerOfTwo = (count: number): number => 2 ** Math.ceil(Math.log2(Math.max(2, count)));

/** Of samples about their mean: a Hann window, then a Fourier transform, with zeros behind up to a power of two. Parseval's theorem
 * makes the powers add up to the windowed mean square. */
export function spectrumOf(samples: Float64Array, framesPerSecond: number): Spectrum {
    const count = samples.length, size = powerOfTwo(count);
    if (count < 2) return { step: framesPerSecond / size, power: new Float64Array(1) };
    let mean = 0;
    for (const sample of samples) mean += sample / count;
    const windowed: number[] = new Array<number>(size).fill(0);
    let gain = 0;
    for (let i = 0; i < count; ++i) {
        const weight = 0.5 - 0.5 * Math.cos((2 * Math.PI * (i + 0.5)) / count);
        gain += weight * weight;
        windowed[i] = ((samples[i] as number) - mean) * weight;
    }
    const transform = new FFT(size);
    const out = transform.createComplexArray() as number[];
    transform.realTransform(out, windowed);
    const power = new Float64Array(size / 2 + 1);
    for (let i = 0; i <= size / 2; ++i) {
        const isAlone = i === 0 || i === size / 2;
        const [re, im] = [out[2 * i] as number, out[2 * i + 1] as number];
        power[i] = ((re * re + im * im) * (isAlone ? 1 : 2)) / (gain * size);
    }
    return { step: framesPerSecond / size, power };
}

/** Root mean square of what lies above `low` and up to `high` hertz. */
export function bandRms({ step, power }: Spectrum, low: number, high: number): number {
    let sum = 0;
    for (let i = 1; i < power.length; ++i) if (i * step > low && i * step <= high) sum += power[i] as number;
    return Math.sqrt(sum);
}

/** Hertz of the strongest entry; nothing: nothing moves. */
export function strongest({ step, power }: Spectrum): number | undefined {
    let at = 0;
    for (let i = 1; i < power.length; ++i) if ((power[i] as number) > (power[at] as number) || at === 0) at = i;
    return (power[at] ?? 0) > 1e-18 && at > 0 ? at * step : undefined;
}
