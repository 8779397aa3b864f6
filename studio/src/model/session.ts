/** A shot, move and look, as a file. */
import { gunzipSync, gzipSync } from 'fflate';
import { fromBase64, toBase64 } from './base64.ts';
import type { Look } from './look.ts';
import { NotALook, readLook } from './read_look.ts';

/** A camera file, or one of the page's samples. */
export interface MoveFile {
    readonly name: string;
    readonly bytes: Uint8Array;
    readonly sample: boolean;
}
export interface ShotState {
    readonly move: MoveFile;
    readonly look: Look;
}

const KIND = 'tremolux studio', FORMAT = 1;
/** Of a move in a session, unpacked: more is refused before it is unpacked further. */
export const MOST_BYTES = 256 * 1024 * 1024;

export const sessionText = ({ move, look }: ShotState): string =>
    JSON.stringify({
        kind: KIND, format: FORMAT, move: { name: move.name, sample: move.sample, data: toBase64(gzipSync(move.bytes, { mtime: 0 })) },
        look,
    });

export const isSession = (text: string): boolean => text.startsWith(`{"kind":"${KIND}"`);

/** @throws NotALook: one line, with the place and what was expected. */
export function readSession(text: string): ShotState {
    let session: { format?: unknown; move?: { name?: unknown; sample?: unknown; data?: unknown }; look?: unknown };
    try {
        session = JSON.parse(text) as typeof session;
    } catch {
        throw new NotALook('session: found text that is no JSON, expected a session of the studio');
    }
    if (session?.format !== FORMAT)
        throw new NotALook(`format: found ${JSON.stringify(session?.format)}, expected ${FORMAT}: a newer studio may open it`);
    const { name, data, sample } = session.move ?? {};
    if (typeof name !== 'string' || typeof data !== 'string') throw new NotALook('move: found none, expected a name and its data');
    return { move: { name, bytes: unpacked(data), sample: sample === true }, look: readLook(session.look) };
}

function unpacked(data: string): Uint8Array {
    try {
        const packed = fromBase64(data);
        // The last four bytes of gzip say how many there were (RFC 1952).
        const size = new DataView(packed.buffer).getUint32(packed.length - 4, true);
        if (size > MOST_BYTES) throw new Error();
        return gunzipSync(packed, { out: new Uint8Array(size) });
    } catch {
        throw new NotALook('move.data: found damaged data, expected a packed file');
    }
}
