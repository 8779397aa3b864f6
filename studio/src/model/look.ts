/** Everything that makes a move hand-held, as plain values: the same look on the same move gives the same frames. A look is never
 * changed: each edit makes a new one, so that undo, takes and comparisons are lists of looks. */

/** What the settings begin with. */
export type Base =
    | { readonly kind: 'defaults' }
    | { readonly kind: 'preset'; readonly name: string }
    | { readonly kind: 'mix'; readonly name: string; readonly second: string; readonly share: number }
    /** A preset file: `data` is its bytes in base64. */
    | { readonly kind: 'file'; readonly name: string; readonly data: string };

/** How a value goes on to the next key. */
export type Ease = 'smooth' | 'linear' | 'hold';
export const EASES: readonly Ease[] = ['linear', 'smooth', 'hold'];

export interface Key {
    readonly frame: number;
    readonly value: number;
    readonly ease: Ease;
}
export interface Jolt {
    readonly frame: number;
    /** 0 to 1. */
    readonly strength: number;
}
/** When, where and how much a move is shaken; frames. */
export interface Range {
    readonly from: number | null;
    readonly until: number | null;
    readonly fadeIn: number;
    readonly fadeOut: number;
    /** 0 to 1. */
    readonly mix: number;
    readonly position: boolean;
    readonly rotation: boolean;
    readonly lens: boolean;
    /** 0 to 1: how much of a turn stays the same in the picture when the lens changes. */
    readonly lensAware: number;
}
/** Scene units. */
export type Point = readonly [number, number, number];

export interface Look {
    readonly base: Base;
    /** A built-in preset's frequencies are kept at the move's rate. */
    readonly keepHertz: boolean;
    /** Parameter to value, of what differs from the base. Fractions, radians, seconds. */
    readonly settings: Readonly<Record<number, number>>;
    /** Parameter to its keys, in the order of their frames; never an empty list. */
    readonly keys: Readonly<Record<number, readonly Key[]>>;
    /** In the order of their frames. */
    readonly jolts: readonly Jolt[];
    readonly range: Range;
    readonly target: Point | null;
    readonly focusObject: Point | null;
}

export const WHOLE_RANGE: Range = {
    from: null, until: null, fadeIn: 0, fadeOut: 0, mix: 1, position: true, rotation: true, lens: true, lensAware: 0,
};
export const FRESH_LOOK: Look = {
    base: { kind: 'defaults' }, keepHertz: true, settings: {}, keys: {}, jolts: [], range: WHOLE_RANGE, target: null,
    focusObject: null,
};

const without = <Value>(record: Readonly<Record<number, Value>>, key: number): Record<number, Value> => {
    const { [key]: _, ...rest } = record;
    return rest;
};
const inOrder = <Item extends { readonly frame: number }>(items: readonly Item[]): Item[] =>
    [...items].sort((a, b) => a.frame - b.frame);

/** Another base: settings and keys of the old one go, what belongs to the shot stays. */
export const withBase = (look: Look, base: Base): Look => ({ ...look, base, settings: {}, keys: {} });

export const withSetting = (look: Look, parameter: number, value: number): Look =>
    ({ ...look, settings: { ...look.settings, [parameter]: value } });
export const withSettings = (look: Look, settings: Readonly<Record<number, number>>): Look => ({ ...look, settings });
export const withoutSetting = (look: Look, parameter: number): Look =>
    ({ ...look, settings: without(look.settings, parameter), keys: without(look.keys, parameter) });
export const withRange = (look: Look, change: Partial<Range>): Look => ({ ...look, range: { ...look.range, ...change } });

/** In place of the key that is on its frame. */
export const withKey = (look: Look, parameter: number, key: Key): Look => {
    const others = (look.keys[parameter] ?? []).filter((other) => other.frame !== key.frame);
    return { ...look, keys: { ...look.keys, [parameter]: inOrder([...others, key]) } };
};
export const withoutKey = (look: Look, parameter: number, frame: number): Look => {
    const rest = (look.keys[parameter] ?? []).filter((key) => key.frame !== frame);
    return { ...look, keys: rest.length > 0 ? { ...look.keys, [parameter]: rest } : without(look.keys, parameter) };
};
/** A key on its way lands in place of what is there. */
export const withKeyMoved = (look: Look, parameter: number, from: number, to: number): Look => {
    const key = look.keys[parameter]?.find((one) => one.frame === from);
    return key === undefined || from === to ? look : withKey(withoutKey(look, parameter, from), parameter, { ...key, frame: to });
};

/** In place of the jolt that is on its frame. */
export const withJolt = (look: Look, jolt: Jolt): Look =>
    ({ ...look, jolts: inOrder([...look.jolts.filter((other) => other.frame !== jolt.frame), jolt]) });
export const withJolts = (look: Look, jolts: readonly Jolt[]): Look =>
    jolts.reduce(withJolt, { ...look, jolts: [] });
export const withoutJolt = (look: Look, frame: number): Look =>
    ({ ...look, jolts: look.jolts.filter((jolt) => jolt.frame !== frame) });
export const withJoltMoved = (look: Look, from: number, to: number): Look => {
    const jolt = look.jolts.find((one) => one.frame === from);
    return jolt === undefined || from === to ? look : withJolt(withoutJolt(look, from), { ...jolt, frame: to });
};

/** What of the look another move can have: keys and jolts beyond its frames go. */
export const fitted = (look: Look, firstFrame: number, lastFrame: number): Look => {
    const isThere = ({ frame }: { readonly frame: number }) => frame >= Math.max(0, firstFrame) && frame <= lastFrame;
    const keys: Record<number, readonly Key[]> = {};
    for (const [parameter, list] of Object.entries(look.keys)) {
        const kept = list.filter(({ frame }) => frame >= firstFrame && frame <= lastFrame);
        if (kept.length > 0) keys[Number(parameter)] = kept;
    }
    const within = (frame: number | null) => (frame === null ? null : Math.min(Math.max(frame, firstFrame), lastFrame));
    return {
        ...look, keys, jolts: look.jolts.filter(isThere),
        range: { ...look.range, from: within(look.range.from), until: within(look.range.until) },
    };
};
