/** The worker: the engine, the move that is open, and the look that was played last. */
import { gunzipSync } from 'fflate';
import { load } from 'tremolux';
import type { Move, Tremolux } from 'tremolux';
import wasm from 'embedded:engine.wasm';
import { fromBase64 } from '../model/base64.ts';
import { FRESH_LOOK } from '../model/look.ts';
import { PlayedLook } from './played_look.ts';
import type { Answer, CallName, Calls, LayerTrace, Request } from './protocol.ts';

const THUMBNAIL_RATE = 24;

let started: Promise<Tremolux> | undefined;
const start = () => (started ??= load({ wasm: gunzipSync(fromBase64(wasm)) }));

interface Opened {
    move: Move;
    played: PlayedLook;
}
let opened: Opened | undefined;

function theOpened(): Opened {
    if (opened === undefined) throw new Error('found no move, expected one to be open');
    return opened;
}
function readOther<Result>(engine: Tremolux, name: string, bytes: Uint8Array, use: (move: Move) => Result): Result {
    const move = engine.Move.fromBytes(name, bytes);
    try {
        return use(move);
    } finally {
        move.free();
    }
}

/** The layers of every frame by channel and layer, each three numbers. */
function byLayer(frames: readonly object[]): LayerTrace {
    const trace: LayerTrace = { position: {}, rotation: {} };
    for (const frame of frames as Record<'position' | 'rotation', Record<string, unknown>>[]) {
        for (const channel of ['position', 'rotation'] as const) {
            for (const [layer, value] of Object.entries(frame[channel]))
                if (Array.isArray(value)) (trace[channel][layer] ??= []).push(value as number[]);
        }
    }
    return trace;
}

type Handlers = { [Name in CallName]: (asked: Calls[Name]['asked']) => Promise<Calls[Name]['answered']> };
const handlers: Handlers = {
    async start() {
        const engine = await start();
        return { version: engine.version, parameters: engine.parameters(), panel: engine.panel(), presets: engine.presets() };
    },
    async open({ name, bytes }) {
        const engine = await start();
        const move = engine.Move.fromBytes(name, bytes);
        opened?.played.free();
        opened?.move.free();
        opened = { move, played: new PlayedLook(engine, move) };
        return { name, info: move.info, numbers: move.numbers() };
    },
    async play({ look }) {
        return theOpened().played.play(look).numbers();
    },
    async details({ look }) {
        const { played } = theOpened();
        const shot = played.play(look);
        const engine = await start();
        return {
            measures: shot.measure(),
            values: Object.fromEntries(played.parameters.map(({ id }) => [id, shot.get(id)])),
            base: Object.fromEntries(played.baseValues()),
            disabled: engine.parameters().filter(({ id }) => !shot.isEnabled(id)).map(({ id }) => id),
        };
    },
    async press({ look, button }) {
        return theOpened().played.pressed(look, button);
    },
    async trace({ look }) {
        return byLayer(theOpened().played.play(look).trace());
    },
    /** Cameras within the time that a shutter is open around a frame. */
    async between({ look, frame, shutter, count }) {
        const { move, played } = theOpened();
        const { firstFrame, frameCount } = move.info;
        const shot = played.play(look);
        const numbers = new Float64Array(count * 8);
        for (let i = 0; i < count; ++i) {
            const at = frame + shutter * ((i + 0.5) / count - 0.5);
            numbers.set(shot.numbersAt(Math.min(Math.max(at, firstFrame), firstFrame + frameCount - 1)), i * 8);
        }
        return numbers;
    },
    async write({ look, name, of }) {
        const { move, played } = theOpened();
        if (of === 'input') return move.toBytes(name);
        const result = played.play(look).result();
        try {
            return result.toBytes(name);
        } finally {
            result.free();
        }
    },
    async writePreset({ look, name }) {
        return theOpened().played.brought(look).presetToBytes(name);
    },
    async takes({ look, seedParameter, seeds }) {
        const { move } = theOpened();
        const take = new PlayedLook(await start(), move);
        try {
            return seeds.map((seed) =>
                take.play({ ...look, settings: { ...look.settings, [seedParameter]: seed } }).numbers());
        } finally {
            take.free();
        }
    },
    /** Each preset on a camera that stands still at the origin. */
    async thumbnails({ presets, frames }) {
        const engine = await start();
        const still = Array.from({ length: frames }, () => [0, 0, 0, 0, 0, 0, 36, 500]).flat();
        const move = engine.Move.fromNumbers({ rateNumerator: THUMBNAIL_RATE }, still);
        const played = new PlayedLook(engine, move);
        try {
            return presets.map((name) => played.play({ ...FRESH_LOOK, base: { kind: 'preset', name } }).numbers());
        } finally {
            played.free();
            move.free();
        }
    },
    async events({ name, bytes, sensitivity, band }) {
        return theOpened().move.events(name, bytes, { sensitivity, band });
    },
    async nearest({ name, bytes }) {
        return readOther(await start(), name, bytes, (recording) => recording.nearestPresets());
    },
};

/** The memory of typed arrays is handed over, not copied. */
function handedOver(answered: unknown): Transferable[] {
    const values = Array.isArray(answered) ? answered : answered instanceof Object ? [answered, ...Object.values(answered)] : [];
    return values.filter(ArrayBuffer.isView).map((view) => view.buffer as ArrayBuffer);
}

async function answerTo({ number, call, asked }: Request): Promise<Answer> {
    try {
        return { number, answered: await (handlers[call] as (asked: unknown) => Promise<unknown>)(asked) };
    } catch (error) {
        return { number, failed: error instanceof Error ? error.message : String(error) };
    }
}

let last: Promise<void> = Promise.resolve();
self.onmessage = ({ data }: MessageEvent<Request>) => {
    last = last.then(async () => {
        const answer = await answerTo(data);
        self.postMessage(answer, { transfer: handedOver(answer.answered) });
    });
};
