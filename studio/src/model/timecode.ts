/** Frames as people read them. */

export interface Rate {
    readonly numerator: number;
    readonly denominator: number;
}
export const perSecond = (rate: Rate): number => rate.numerator / rate.denominator;
export const secondsAt = (frame: number, rate: Rate): number => (frame * rate.denominator) / rate.numerator;

const two = (number: number) => String(number).padStart(2, '0');

/** Whether numbers of frames are left out so that the timecode keeps up with the clock: 29.97 and 59.94 (SMPTE ST 12-1). */
const dropsFrames = ({ numerator, denominator }: Rate) => denominator === 1001 && (numerator === 30000 || numerator === 60000);

/** HH:MM:SS:FF, at drop-frame rates HH:MM:SS;FF, negative frames with a minus. */
export function timecode(frame: number, rate: Rate): string {
    if (frame < 0) return `-${timecode(-frame, rate)}`;
    const whole = Math.round(perSecond(rate));
    const drops = dropsFrames(rate);
    let number = frame;
    if (drops) {
        // The first numbers of each minute are left out, but not of every tenth.
        const left = whole / 15, perMinute = whole * 60 - left, perTen = perMinute * 10 + left;
        const tens = Math.floor(frame / perTen), rest = frame % perTen;
        number += tens * 9 * left + (rest >= whole * 60 ? left * (1 + Math.floor((rest - whole * 60) / perMinute)) : 0);
    }
    const seconds = Math.floor(number / whole);
    const clock = [Math.floor(seconds / 3600), Math.floor(seconds / 60) % 60, seconds % 60].map(two).join(':');
    return `${clock}${drops ? ';' : ':'}${two(number % whole)}`;
}
