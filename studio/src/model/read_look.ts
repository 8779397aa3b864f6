/** Looks from outside: sessions, addresses and what the program writes into the page. Nothing of them is trusted. */
import { EASES, FRESH_LOOK, WHOLE_RANGE } from './look.ts';
import type { Base, Jolt, Key, Look, Point, Range } from './look.ts';

/** What the module takes at most. */
const LARGEST = 1e12;
const MOST_KEYS = 100_000;
/** Of a preset file in base64: the module reads files of at most 1 MiB. */
const MOST_PRESET = 1_500_000;

export class NotALook extends Error {}

type Unknown = Record<string, unknown>;

function refuse(place: string, found: unknown, expected: string): never {
    const text = JSON.stringify(found) ?? 'nothing';
    throw new NotALook(`${place}: found ${text.length > 60 ? `${text.slice(0, 60)}...` : text}, expected ${expected}`);
}
function objectAt(place: string, value: unknown): Unknown {
    if (typeof value !== 'object' || value === null || Array.isArray(value)) refuse(place, value, 'an object');
    return value as Unknown;
}
function listAt(place: string, value: unknown): unknown[] {
    if (!Array.isArray(value) || value.length > MOST_KEYS) refuse(place, value, `a list of at most ${MOST_KEYS}`);
    return value as unknown[];
}
function numberAt(place: string, value: unknown, low = -LARGEST, high = LARGEST): number {
    if (typeof value !== 'number' || !(value >= low && value <= high)) refuse(place, value, `a number from ${low} to ${high}`);
    return value as number;
}
function frameAt(place: string, value: unknown): number {
    const frame = numberAt(place, value);
    if (!Number.isInteger(frame)) refuse(place, value, 'a whole frame');
    return frame;
}
function switchAt(place: string, value: unknown): boolean {
    if (typeof value !== 'boolean') refuse(place, value, 'true or false');
    return value as boolean;
}
function textAt(place: string, value: unknown, longest = 400): string {
    if (typeof value !== 'string' || value.length > longest) refuse(place, value, `a text of at most ${longest} letters`);
    return value as string;
}
function parameterAt(place: string, text: string): number {
    const id = Number(text);
    if (!Number.isInteger(id) || id <= 0 || id > 0x7fffffff) refuse(place, text, 'the number of a parameter');
    return id;
}

function baseAt(value: unknown): Base {
    const base = objectAt('base', value);
    switch (base.kind) {
        case 'defaults': return { kind: 'defaults' };
        case 'preset': return { kind: 'preset', name: textAt('base.name', base.name) };
        case 'mix': return {
            kind: 'mix', name: textAt('base.name', base.name), second: textAt('base.second', base.second),
            share: numberAt('base.share', base.share, 0, 1),
        };
        case 'file': return {
            kind: 'file', name: textAt('base.name', base.name), data: textAt('base.data', base.data, MOST_PRESET),
        };
        default: return refuse('base.kind', base.kind, 'defaults, preset, mix or file');
    }
}
function keyAt(place: string, value: unknown): Key {
    const key = objectAt(place, value);
    const ease = EASES.find((one) => one === key.ease) ?? refuse(`${place}.ease`, key.ease, EASES.join(', '));
    return { frame: frameAt(`${place}.frame`, key.frame), value: numberAt(`${place}.value`, key.value), ease };
}
function joltAt(place: string, value: unknown): Jolt {
    const jolt = objectAt(place, value);
    return { frame: frameAt(`${place}.frame`, jolt.frame), strength: numberAt(`${place}.strength`, jolt.strength, 0, 1) };
}
function rangeAt(value: unknown): Range {
    const range = { ...WHOLE_RANGE, ...objectAt('range', value) } as Unknown;
    const edge = (name: string) => (range[name] === null ? null : frameAt(`range.${name}`, range[name]));
    return {
        from: edge('from'), until: edge('until'),
        fadeIn: Math.max(0, frameAt('range.fadeIn', range.fadeIn)), fadeOut: Math.max(0, frameAt('range.fadeOut', range.fadeOut)),
        mix: numberAt('range.mix', range.mix, 0, 1), position: switchAt('range.position', range.position),
        rotation: switchAt('range.rotation', range.rotation), lens: switchAt('range.lens', range.lens),
        lensAware: numberAt('range.lensAware', range.lensAware, 0, 1),
    };
}
function pointAt(place: string, value: unknown): Point | null {
    if (value === null) return null;
    const [x, y, z, ...more] = listAt(place, value);
    if (more.length > 0) refuse(place, value, 'three numbers');
    return [numberAt(place, x), numberAt(place, y), numberAt(place, z)];
}
const inOrder = <Item extends { readonly frame: number }>(items: Item[]) => items.sort((a, b) => a.frame - b.frame);

/** What is left out is a fresh look's. @throws NotALook: one line, with the place and what was expected. */
export function readLook(value: unknown): Look {
    const look = { ...FRESH_LOOK, ...objectAt('look', value) } as Unknown;
    const settings: Record<number, number> = {};
    for (const [id, setting] of Object.entries(objectAt('settings', look.settings)))
        settings[parameterAt('settings', id)] = numberAt(`settings.${id}`, setting);
    const keys: Record<number, Key[]> = {};
    for (const [id, list] of Object.entries(objectAt('keys', look.keys))) {
        const read = listAt(`keys.${id}`, list).map((key, index) => keyAt(`keys.${id}[${index}]`, key));
        if (read.length > 0) keys[parameterAt('keys', id)] = inOrder(read);
    }
    return {
        base: baseAt(look.base), keepHertz: switchAt('keepHertz', look.keepHertz), settings, keys,
        jolts: inOrder(listAt('jolts', look.jolts).map((jolt, index) => joltAt(`jolts[${index}]`, jolt))),
        range: rangeAt(look.range), target: pointAt('target', look.target), focusObject: pointAt('focusObject', look.focusObject),
    };
}
