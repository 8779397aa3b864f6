/** Values of settings as people read and type them. */

/** How a setting's number is meant, as in the engine's table. */
export const PERCENT = 1, ANGLE = 2, FRAMES = 3, SECONDS = 4;

const FACTORS: Record<number, number> = { [PERCENT]: 100, [ANGLE]: 180 / Math.PI };
const SIGNS: Record<number, string> = { [PERCENT]: '%', [ANGLE]: '°', [FRAMES]: 'f', [SECONDS]: 's' };

export const unitSign = (unit: number): string => SIGNS[unit] ?? '';
/** A value times this is what is shown. */
export const shownFactor = (unit: number): number => FACTORS[unit] ?? 1;

/** Up to four digits behind the point, and no zeros at the end. */
export function shownValue(value: number, unit: number): string {
    const text = (value * shownFactor(unit)).toFixed(4);
    return text.replace(/\.?0+$/, '').replace(/^-0$/, '0');
}

/** What somebody typed: a number, perhaps with a unit; a time in frames too ("45f"). Nothing: it is none. */
export function typedValue(text: string, unit: number, framesPerSecond: number): number | undefined {
    const match = /^\s*([+-]?(?:\d+\.?\d*|\.\d+)(?:e[+-]?\d+)?)\s*(%|°|deg|f|s)?\s*$/i.exec(text.replace(',', '.'));
    if (match === null) return undefined;
    const number = Number(match[1]), sign = match[2]?.toLowerCase();
    const fits: Record<number, string[]> = { [PERCENT]: ['%'], [ANGLE]: ['°', 'deg'], [FRAMES]: ['f'], [SECONDS]: ['s', 'f'] };
    if (sign !== undefined && !(fits[unit] ?? []).includes(sign)) return undefined;
    const value = unit === SECONDS && sign === 'f' ? number / framesPerSecond : number / shownFactor(unit);
    return Number.isFinite(value) ? value : undefined;
}
