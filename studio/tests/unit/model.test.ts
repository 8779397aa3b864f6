import { expect, test } from 'vitest';
import { addressOf, readAddress } from '../../src/model/address.ts';
import { begun, edited, redone, undone } from '../../src/model/history.ts';
import { FRESH_LOOK, withJolt, withJoltMoved, withKey, withKeyMoved, withoutKey } from '../../src/model/look.ts';
import { poseAt, verticalField } from '../../src/model/pose.ts';
import { NotALook, readLook } from '../../src/model/read_look.ts';
import { readSession, sessionText } from '../../src/model/session.ts';
import { bandRms, spectrumOf, strongest } from '../../src/model/spectrum.ts';
import { timecode } from '../../src/model/timecode.ts';
import { shownValue, typedValue } from '../../src/model/units.ts';
import { Vector3 } from 'three';

test('drop-frame timecode leaves out two numbers a minute, but not in every tenth', () => {
    const rate = { numerator: 30000, denominator: 1001 };
    expect([1799, 1800, 17981, 17982, 107892].map((frame) => timecode(frame, rate)))
        .toEqual(['00:00:59;29', '00:01:00;02', '00:09:59;29', '00:10:00;00', '01:00:00;00']);
    expect(timecode(3600, { numerator: 60000, denominator: 1001 })).toBe('00:01:00;04');
    expect(timecode(-25, { numerator: 25, denominator: 1 })).toBe('-00:00:01:00');
});

test('numbers are typed with a unit or without', () => {
    const PERCENT = 1, ANGLE = 2, SECONDS = 4;
    expect(typedValue('150%', PERCENT, 30)).toBe(1.5);
    expect(typedValue('90', ANGLE, 30)).toBeCloseTo(Math.PI / 2, 15);
    expect(typedValue('45f', SECONDS, 30)).toBe(1.5);
    expect(typedValue('1,5', 0, 30)).toBe(1.5);
    for (const text of ['', 'x', '12 apples', '5f', 'NaN', '1e999']) expect(typedValue(text, PERCENT, 30)).toBeUndefined();
    expect(shownValue(0.3, PERCENT)).toBe('30');
    expect(shownValue(-0.00000001, 0)).toBe('0');
});

test('a gesture is one step, and undo has no end', () => {
    let history = begun(0);
    for (let step = 1; step <= 1000; ++step) history = edited(history, step);
    history = edited(edited(history, 1001, 'drag'), 1002, 'drag');
    history = undone(history);
    expect(history.present).toBe(1000);
    expect(redone(history).present).toBe(1002);
    for (let step = 0; step < 1000; ++step) history = undone(history);
    expect(history.present).toBe(0);
    expect(undone(history)).toBe(history);
});

test('a mark that lands on another takes its place, and the last key takes its list along', () => {
    const key = (frame: number) => ({ frame, value: frame, ease: 'linear' as const });
    const look = withKey(withKey(FRESH_LOOK, 7, key(9)), 7, key(3));
    expect(look.keys[7]?.map(({ frame }) => frame)).toEqual([3, 9]);
    expect(withKeyMoved(look, 7, 3, 9).keys[7]).toEqual([{ ...key(3), frame: 9 }]);
    expect(withoutKey(withoutKey(look, 7, 3), 7, 9).keys).toEqual({});
    const jolts = withJolt(withJolt(FRESH_LOOK, { frame: 5, strength: 1 }), { frame: 2, strength: 0.5 });
    expect(withJoltMoved(jolts, 2, 8).jolts.map(({ frame }) => frame)).toEqual([5, 8]);
});

test('the views look where the reference pose looks', () => {
    const degree = Math.PI / 180;
    const { position, rotation } = poseAt(Float64Array.of(10, 150, -300, 30 * degree, -10 * degree, 5 * degree, 36, 500), 0);
    const ahead = new Vector3(0, 0, -1).applyQuaternion(rotation), right = new Vector3(1, 0, 0).applyQuaternion(rotation);
    for (const [found, wanted] of [[ahead, [-0.4924, -0.17365, -0.85287]], [right, [0.8703, -0.08583, -0.48499]], [position, [10, 150, 300]]] as const)
        found.toArray().forEach((value, axis) => expect(value).toBeCloseTo(wanted[axis] as number, 4));
    expect(verticalField(36, 36, 16 / 9)).toBeCloseTo(31.4173, 4);
});

test('the spectrum has a sine at its frequency, with its RMS', () => {
    const sine = Float64Array.from({ length: 300 }, (_, frame) => 2 * Math.sin((2 * Math.PI * 1.7 * frame) / 30));
    const spectrum = spectrumOf(sine, 30);
    expect(Math.abs((strongest(spectrum) ?? 0) - 1.7)).toBeLessThan(0.1);
    expect(bandRms(spectrum, 0.5, 3)).toBeCloseTo(Math.SQRT2, 1);
    expect(bandRms(spectrum, 3, 12)).toBeLessThan(0.01);
    expect(strongest(spectrumOf(new Float64Array(100), 30))).toBeUndefined();
});

test('looks go through addresses and sessions unchanged', () => {
    const look = withJolt(withKey({ ...FRESH_LOOK, settings: { 6020: 1.25 }, base: { kind: 'preset', name: 'A/B' } }, 6021,
        { frame: 4, value: 0.1 + 0.2, ease: 'hold' }), { frame: 9, strength: 0.3 });
    expect(readAddress(addressOf({ sample: 'whip.csv', look }))).toEqual({ sample: 'whip.csv', look });
    const move = { name: 'a.csv', bytes: Uint8Array.of(1, 2, 3), sample: false };
    expect(readSession(sessionText({ move, look }))).toEqual({ move, look });
    expect(readAddress('')).toBeUndefined();
});

test('damaged looks are refused in one line with the place', () => {
    const refusal = (value: unknown) => {
        try {
            readLook(value);
        } catch (error) {
            return error instanceof NotALook ? error.message : String(error);
        }
        return 'taken';
    };
    expect(refusal({ keys: { 5: [{ frame: 0.5, value: 1, ease: 'linear' }] } })).toBe('keys.5[0].frame: found 0.5, expected a whole frame');
    expect(refusal({ jolts: [{ frame: 1, strength: 2 }] })).toBe('jolts[0].strength: found 2, expected a number from 0 to 1');
    expect(refusal({ settings: { x: 1 } })).toBe('settings: found "x", expected the number of a parameter');
    expect(refusal({ base: { kind: 'other' } })).toBe('base.kind: found "other", expected defaults, preset, mix or file');
    expect(refusal([])).toBe('look: found [], expected an object');
    for (const text of ['{', '[]', '{"format":2}', '{"format":1,"move":{"name":"a","data":"AAAA"},"look":{}}']) expect(() => readSession(text)).toThrow(NotALook);
    expect(() => readAddress('#????')).toThrow(NotALook);
});
