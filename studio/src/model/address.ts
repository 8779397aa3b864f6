/** A look in the page's address: a link is a shot's look. */
import { Inflate, deflateSync, strFromU8, strToU8 } from 'fflate';
import { fromAddressText, toAddressText } from './base64.ts';
import type { Look } from './look.ts';
import { NotALook, readLook } from './read_look.ts';

/** The sample that the look is on; empty: a move of one's own, which an address does not hold. */
export interface Address {
    readonly sample: string;
    readonly look: Look;
}
const MOST_LETTERS = 4_000_000;

export const addressOf = ({ sample, look }: Address): string =>
    `#${toAddressText(deflateSync(strToU8(JSON.stringify({ sample, look })), { level: 9 }))}`;

/** Nothing: the page has no look in its address. @throws NotALook */
export function readAddress(hash: string): Address | undefined {
    if (hash.length < 2) return undefined;
    let read: { sample?: unknown; look?: unknown };
    try {
        read = JSON.parse(strFromU8(inflated(fromAddressText(hash.slice(1))))) as typeof read;
    } catch {
        throw new NotALook('address: found text that is no look, expected a link of the studio');
    }
    return { sample: typeof read?.sample === 'string' ? read.sample : '', look: readLook(read?.look) };
}

/** A short text can stand for a very long one: what goes beyond the limit is not unpacked. */
function inflated(bytes: Uint8Array): Uint8Array {
    const parts: Uint8Array[] = [];
    let size = 0;
    const inflate = new Inflate((part) => {
        size += part.length;
        if (size > MOST_LETTERS) throw new Error('too long');
        parts.push(part);
    });
    inflate.push(bytes, true);
    const whole = new Uint8Array(size);
    let at = 0;
    for (const part of parts) {
        whole.set(part, at);
        at += part.length;
    }
    return whole;
}
