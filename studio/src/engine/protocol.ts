/** What page and worker say to each other. A request is answered once, in the order of asking. */
import type { Direction, Measures, MoveInfo, NearPreset, PanelEntry, Parameter, Preset } from 'tremolux';
import type { Look } from '../model/look.ts';

export type { Direction, Measures, MoveInfo, NearPreset, PanelEntry, Parameter, Preset };

export interface EngineFacts {
    version: string;
    parameters: Parameter[];
    panel: PanelEntry[];
    presets: Preset[];
}
export interface OpenMove {
    name: string;
    info: MoveInfo;
    /** 8 a frame: x, y, z in scene units, heading, pitch, bank in radians, focal length in millimetres, focus distance. */
    numbers: Float64Array;
}
/** What the panel shows of a look. */
export interface Details {
    measures: Measures;
    /** By parameter: what it has on the last frame, and without the look's settings. */
    values: Record<number, number>;
    base: Record<number, number>;
    disabled: number[];
}
/** One layer's share on every frame. */
export interface LayerTrace {
    position: Record<string, number[][]>;
    rotation: Record<string, number[][]>;
}
export interface FoundEvents {
    events: { frame: number; strength: number }[];
    outside: number;
}

/** By name: what is asked, and what is answered. */
export interface Calls {
    start: { asked: Record<string, never>; answered: EngineFacts };
    open: { asked: { name: string; bytes: Uint8Array }; answered: OpenMove };
    play: { asked: { look: Look }; answered: Float64Array };
    details: { asked: { look: Look }; answered: Details };
    press: { asked: { look: Look; button: number }; answered: Record<number, number> };
    trace: { asked: { look: Look }; answered: LayerTrace };
    between: { asked: { look: Look; frame: number; shutter: number; count: number }; answered: Float64Array };
    write: { asked: { look: Look; name: string; of: 'shaken' | 'input' }; answered: Uint8Array };
    writePreset: { asked: { look: Look; name: string }; answered: Uint8Array };
    takes: { asked: { look: Look; seedParameter: number; seeds: number[] }; answered: Float64Array[] };
    thumbnails: { asked: { presets: string[]; frames: number }; answered: Float64Array[] };
    events: { asked: { name: string; bytes: Uint8Array; sensitivity: number; band: number }; answered: FoundEvents };
    nearest: { asked: { name: string; bytes: Uint8Array }; answered: NearPreset[] };
}
export type CallName = keyof Calls;

export interface Request {
    number: number;
    call: CallName;
    asked: unknown;
}
export interface Answer {
    number: number;
    answered?: unknown;
    /** The engine's own line. */
    failed?: string;
}
