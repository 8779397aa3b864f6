// Types of tremolux.mjs. What each function does is said in library/include/tremolux/tremolux.h.
export const NUMBERS_PER_FRAME: 8;
export const Status: { OK: 0; INTERNAL: 1; INPUT: 2; MODULE: 3; HANDLE: 5; BUSY: 6; CANCELLED: 130 };
export const Kind: { NUMBER: 1; SWITCH: 2; TIME: 3; TEXT: 4; CHOICE: 5; LINK: 6; BUTTON: 7 };
export const Unit: { NONE: 0; PERCENT: 1; ANGLE: 2; FRAMES: 3; SECONDS: 4 };
export const PanelKind: { GROUP: 1; SEPARATOR: 2; PARAMETER: 3 };
export const Interpolation: { SMOOTH: 1; LINEAR: 2; HOLD: 3 };
export const Bake: { QUICKLY: 1; BY_BRUTE_FORCE: 2 };
export const Band: { ALL: 0; LOW: 1; MID: 2; HIGH: 3 };

export class TremoluxError extends Error {
    readonly status: number;
}

export interface Parameter {
    id: number;
    kind: number;
    unit: number;
    label: string;
    minimum: number;
    maximum: number;
    defaultValue: number;
    group: number;
    tab: string;
    section: string;
    sentence: string;
    sliderMinimum: number;
    sliderMaximum: number;
    step: number;
}
export interface PanelEntry {
    kind: number;
    id: number;
    group: number;
    columns: number;
    isOpen: boolean;
    hasLine: boolean;
    title: string;
}
export interface Choice {
    value: number;
    label: string;
}
export interface Preset {
    category: string;
    name: string;
    sentence: string;
    /** Frames a second; 0: not known. */
    madeFor: number;
    isPair: boolean;
}
/** What is left out: the whole shake, on every frame. Switches are 0 or 1. */
export interface Direction {
    from?: number;
    until?: number;
    fadeIn?: number;
    fadeOut?: number;
    mix?: number;
    position?: number;
    rotation?: number;
    lens?: number;
    lensAware?: number;
    focalLength?: number;
}
export interface Events {
    events: { frame: number; strength: number }[];
    outside: number;
    curve?: { step: number; novelty: number[] };
}
export interface NearPreset {
    category: string;
    name: string;
    distance: number;
}
export interface MoveInfo {
    firstFrame: number;
    frameCount: number;
    rateNumerator: number;
    rateDenominator: number;
    apertureWidth: number;
}
export interface Measures {
    positionRms: number;
    positionPeak: number;
    turnRms: number;
    turnPeak: number;
    positionPeakFrame: number;
    turnPeakFrame: number;
    swayRms: number;
    bankRms: number;
}
/** `false` cancels. */
export type Progress = (done: number, frames: number) => boolean | void;

export interface Move {
    readonly info: MoveInfo;
    numbers(): Float64Array;
    toBytes(name: string): Uint8Array;
    events(name: string, bytes: Uint8Array, options?: { sensitivity?: number; band?: number }): Events;
    nearestPresets(progress?: Progress): NearPreset[];
    free(): void;
}
export interface MoveClass {
    /** What `info` leaves out: all frames of `numbers` from frame 0 on, 30 a second, a film back of 36 mm. */
    fromNumbers(info: Partial<MoveInfo>, numbers: ArrayLike<number>): Move;
    fromBytes(name: string, bytes: Uint8Array): Move;
}

export interface Shot {
    set(parameter: number, value: number): void;
    get(parameter: number): number;
    setText(setting: string): void;
    isEnabled(parameter: number): boolean;
    applyPreset(preset: string): void;
    applyMix(preset: string, second: string, share: number): void;
    keepHertz(madeFor: number): void;
    choices(parameter: number): Choice[];
    applyPresetBytes(bytes: Uint8Array): void;
    presetToBytes(name: string): Uint8Array;
    /** Whether there was a step to take back, or to make again. */
    undo(): boolean;
    redo(): boolean;
    press(button: number): void;
    setTarget(points: Move): void;
    setFocusObject(points: Move): void;
    play(progress?: Progress): void;
    playFrom(frame: number, progress?: Progress): void;
    cancel(): void;
    numbers(): Float64Array;
    numbersAt(frame: number): Float64Array;
    result(): Move;
    layers(frame: number): object;
    measure(): Measures;
    key(parameter: number, frame: number, value: number, interpolation: number): void;
    unkey(parameter: number, frame: number): void;
    /** Each event is a frame and a strength, 0 to 1. */
    jolts(events: [number, number][], positionIntensity: number, rotationIntensity: number): void;
    /** `null`: as it is played. */
    direct(direction: Direction | null): void;
    trace(progress?: Progress): object[];
    bake(kind: number): void;
    free(): void;
}
export interface ShotClass {
    new (move: Move): Shot;
}

export interface Tremolux {
    Move: MoveClass;
    Shot: ShotClass;
    version: string;
    parameters(): Parameter[];
    panel(): PanelEntry[];
    presets(): Preset[];
    /** How much memory the engine has taken, for everything. */
    readonly memoryBytes: number;
}

/** Starts the engine; `wasm` is the bytes of tremolux_engine.wasm, without which the file beside the module is fetched. */
export function load(options?: { wasm?: BufferSource }): Promise<Tremolux>;
