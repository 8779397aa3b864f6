/** Whatever somebody drops: a camera, a recording, a sound, a table of events, a preset, a session, a scene. */
import { gunzipSync } from 'fflate';
import push_in from 'embedded:push_in.csv';
import standing from 'embedded:standing.csv';
import whip from 'embedded:whip.csv';
import { sound, studio } from '../app.ts';
import { fromBase64, toBase64 } from '../model/base64.ts';
import { withBase, withJolts } from '../model/look.ts';
import { isSession, MOST_BYTES, readSession } from '../model/session.ts';
import type { MoveFile } from '../model/session.ts';
import { nearest } from '../panel/presets.tsx';
import { ownScene } from '../views/views.tsx';
import { words } from '../words.ts';

const PACKED: Record<string, string> = { 'push_in.csv': push_in, 'whip.csv': whip, 'standing.csv': standing };
export const SAMPLES = Object.keys(PACKED);
const opened = new Map<string, MoveFile>();

/** The same one each time, so that it is known to be open. */
export function sample(name: string): MoveFile {
    const known = opened.get(name);
    if (known !== undefined) return known;
    const file: MoveFile = { name, bytes: gunzipSync(fromBase64(PACKED[name] ?? push_in)), sample: true };
    opened.set(name, file);
    return file;
}

const SOUNDS = ['wav', 'mp3', 'ogg', 'flac', 'm4a', 'aac'], EVENTS = ['mid', 'midi', 'edl'];
/** With it begins a preset file; its name is the preset's, without an extension. */
const PRESET_START = 'TXHF';
const MOST_SESSION = 512 * 1024 * 1024, MOST_PRESET = 1024 * 1024;

const extensionOf = (name: string): string => name.toLowerCase().split('.').at(-1) ?? '';
const isPreset = (bytes: Uint8Array): boolean => new TextDecoder('latin1').decode(bytes.subarray(0, 4)) === PRESET_START;

function openPreset(name: string, bytes: Uint8Array): void {
    if (bytes.length > MOST_PRESET) return studio.say(words.tooLarge(name, MOST_PRESET), true);
    studio.edit((look) => withBase(look, { kind: 'file', name, data: toBase64(bytes) }));
}

async function openSound(name: string, bytes: Uint8Array<ArrayBuffer>): Promise<void> {
    let samples: Float32Array | null = null, samplesPerSecond = 1;
    try {
        const context = new OfflineAudioContext(1, 1, 44100);
        const decoded = await context.decodeAudioData(bytes.slice().buffer);
        samples = decoded.getChannelData(0);
        samplesPerSecond = decoded.sampleRate;
    } catch {
        // The engine reads .wav on its own; without samples there is no waveform.
    }
    sound.value = { name, bytes: wavOf(name, bytes, samples, samplesPerSecond), samples, samplesPerSecond };
}

/** What the engine reads: .wav files as they are, others as what the browser made of them. */
function wavOf(name: string, bytes: Uint8Array, samples: Float32Array | null, rate: number): Uint8Array {
    if (extensionOf(name) === 'wav' || samples === null) return bytes;
    const wav = new DataView(new ArrayBuffer(44 + samples.length * 2));
    const letters = (at: number, text: string) => [...text].forEach((letter, index) => wav.setUint8(at + index, letter.charCodeAt(0)));
    letters(0, 'RIFF');
    wav.setUint32(4, 36 + samples.length * 2, true);
    letters(8, 'WAVEfmt ');
    [[16, 16, 4], [20, 1, 2], [22, 1, 2], [24, rate, 4], [28, rate * 2, 4], [32, 2, 2], [34, 16, 2]].forEach(([at, value, size]) =>
        (size === 4 ? wav.setUint32(at as number, value as number, true) : wav.setUint16(at as number, value as number, true)));
    letters(36, 'data');
    wav.setUint32(40, samples.length * 2, true);
    samples.forEach((sample, index) => wav.setInt16(44 + index * 2, Math.round(Math.min(1, Math.max(-1, sample)) * 32767), true));
    return new Uint8Array(wav.buffer);
}

async function openEvents(name: string, bytes: Uint8Array): Promise<void> {
    const { events, outside } = await studio.engine.call('events', { name, bytes, sensitivity: 50, band: 0 });
    if (events.length === 0) return studio.say(words.timeline.noEvents(name), true);
    studio.edit((look) => withJolts(look, events));
    if (outside > 0) studio.say(words.timeline.eventsOutside(outside));
}

/** A camera, or else what a file of the same kind can be: events, a scene. */
async function openMove(name: string, bytes: Uint8Array<ArrayBuffer>): Promise<void> {
    const extension = extensionOf(name);
    if (await studio.open({ name, bytes, sample: false })) {
        if (extension === 'glb') ownScene.value = bytes.slice().buffer;
        return;
    }
    const refusal = studio.message.peek();
    try {
        if (extension === 'glb') {
            ownScene.value = bytes.slice().buffer;
            studio.message.value = null;
        } else if (extension === 'csv' || extension === 'txt') {
            await openEvents(name, bytes);
        }
    } catch {
        // The camera's reader knows best what a camera file lacks.
        studio.message.value = refusal;
    }
}

export async function openFile(file: File): Promise<void> {
    const { name, size } = file, extension = extensionOf(name);
    try {
        const most = extension === 'json' ? MOST_SESSION : MOST_BYTES;
        if (size > most) return studio.say(words.tooLarge(name, most), true);
        const bytes = new Uint8Array(await file.arrayBuffer());
        if (isPreset(bytes)) return openPreset(name, bytes);
        if (SOUNDS.includes(extension)) return await openSound(name, bytes);
        if (EVENTS.includes(extension)) return await openEvents(name, bytes);
        if (extension === 'json') {
            const text = new TextDecoder().decode(bytes);
            if (isSession(text)) {
                const { move, look } = readSession(text);
                await studio.open(move.sample && SAMPLES.includes(move.name) ? sample(move.name) : move, look);
                return;
            }
        }
        await openMove(name, bytes);
    } catch (error) {
        studio.tell(error);
    }
}

/** Which presets are nearest to it; the shot stays. */
export async function compareWith(file: File): Promise<void> {
    if (file.size > MOST_BYTES) return studio.say(words.tooLarge(file.name, MOST_BYTES), true);
    studio.say(words.presets.reading(file.name));
    try {
        const bytes = new Uint8Array(await file.arrayBuffer());
        nearest.value = { of: file.name, presets: await studio.engine.call('nearest', { name: file.name, bytes }) };
        studio.message.value = null;
    } catch (error) {
        studio.tell(error);
    }
}
