// The JavaScript module over the library: its table against the header, and a call of each form.
import assert from 'node:assert/strict';
import { readFileSync, readdirSync } from 'node:fs';
import path from 'node:path';
import { test } from 'node:test';
import { pathToFileURL } from 'node:url';

const { TREMOLUX_JAVASCRIPT: folder, TREMOLUX_SOURCE: source } = process.env;
const { load, TremoluxError, Status, NUMBERS_PER_FRAME } = await import(pathToFileURL(path.join(folder, 'tremolux.mjs')));
const tremolux = await load({ wasm: readFileSync(path.join(folder, 'tremolux_engine.wasm')) });
const { Move, Shot } = tremolux;

// A camera that goes forward, 3 a frame.
function straightMove(frames) {
    const numbers = new Float64Array(frames * NUMBERS_PER_FRAME);
    for (let frame = 0; frame < frames; ++frame) numbers.set([0, 160, 3 * frame, 0, 0, 0, 35, 500], frame * NUMBERS_PER_FRAME);
    return Move.fromNumbers({ firstFrame: -2, rateNumerator: 25 }, numbers);
}
const shakenShot = (frames) => {
    const shot = new Shot(straightMove(frames));
    shot.applyPreset('Documentary');
    return shot;
};
const idOf = (label) => tremolux.parameters().find((parameter) => parameter.label === label).id;
const refusal = (status, line) => (error) => {
    assert.ok(error instanceof TremoluxError, `${error}`);
    assert.equal(error.status, status);
    assert.match(error.message, line);
    return true;
};

test('every function of the header is called by the module', () => {
    const header = readFileSync(path.join(source, 'library/include/tremolux/tremolux.h'), 'utf8');
    const declared = [...header.matchAll(/^TREMOLUX_API [^(]*?\*?tremolux_(\w+)\(/gm)].map((match) => match[1]);
    assert.ok(declared.length >= 30);
    const javascript = path.join(source, 'library/javascript');
    const text = readdirSync(javascript).filter((name) => name.endsWith('.mjs'))
        .map((name) => readFileSync(path.join(javascript, name), 'utf8')).join('\n');
    const named = (name) => new RegExp(`['_]${name}\\b`).test(text);
    const listed = (name) => /_(count|at)$/.test(name) && new RegExp(`all\\('${name.replace(/_(count|at)$/, '')}'`).test(text);
    assert.deepEqual(declared.filter((name) => !named(name) && !listed(name)), []);
});

test('tables come with their texts', () => {
    assert.equal(tremolux.presets().length, 64);
    assert.ok(tremolux.presets().every(({ category, name, sentence }) => category && name && sentence));
    const { id, kind, unit, minimum, maximum, defaultValue, tab, sliderMaximum, step } =
        tremolux.parameters().find(({ label }) => label === 'Initial Pos Smooth');
    assert.deepEqual([id, kind, unit, minimum, maximum, defaultValue, tab, sliderMaximum, step],
        [6155, 1, 1, 0, 1, 0.25, 'TremoluxCam', 1, 0.01]);
    assert.deepEqual(tremolux.panel().filter(({ group }) => group === 0).map(({ title }) => title),
        ['Basic', 'TremoluxCam', 'Target', 'Zoom', 'Focus', 'Advanced']);
});

test('a move gives back what it was made from', () => {
    const move = straightMove(5);
    assert.deepEqual(move.info, { firstFrame: -2, frameCount: 5, rateNumerator: 25, rateDenominator: 1, apertureWidth: 36 });
    assert.deepEqual([...move.numbers().slice(8, 16)], [0, 160, 3, 0, 0, 0, 35, 500]);
});

test('a move goes through the bytes of a file', () => {
    const move = straightMove(5);
    const copy = Move.fromBytes('move.json', move.toBytes('move.json'));
    assert.deepEqual(copy.info, move.info);
    assert.deepEqual(copy.numbers(), move.numbers());
});

test('a shot shakes, and its result is a move', () => {
    const shot = shakenShot(30);
    const still = straightMove(30).numbers();
    shot.play();
    const shaken = shot.numbers();
    assert.equal(shaken.length, 30 * NUMBERS_PER_FRAME);
    assert.notDeepEqual(shaken, still);
    assert.deepEqual(shot.result().numbers(), shaken);
    assert.deepEqual(shot.numbersAt(7), shaken.slice(9 * NUMBERS_PER_FRAME, 10 * NUMBERS_PER_FRAME));
    assert.ok(shot.measure().positionPeak > 0);
    assert.deepEqual(Object.keys(shot.layers(3)), ['position', 'rotation', 'zoom', 'focus']);
});

test('settings are set, read, typed and refused', () => {
    const shot = shakenShot(3);
    const speed = idOf('Shake Speed');
    shot.set(speed, 1.5);
    assert.equal(shot.get(speed), 1.5);
    shot.setText('Shake Speed=50%');
    assert.equal(shot.get(speed), 0.5);
    assert.equal(shot.undo(), true);
    assert.equal(shot.get(speed), 1.5);
    assert.equal(shot.redo(), true);
    assert.equal(shot.redo(), false);
    assert.equal(shot.get(speed), 0.5);
    assert.throws(() => shot.set(speed, NaN), refusal(Status.INPUT, /expected/));
    assert.throws(() => shot.set(1, 1), refusal(Status.INPUT, /expected/));
    // Texts go as UTF-8, of which a refusal quotes each byte beyond ASCII as a question mark: two of this letter.
    assert.throws(() => shot.applyPreset('Ω no such'), refusal(Status.INPUT, /'\?\? no such'/));
    assert.equal(typeof shot.isEnabled(speed), 'boolean');
});

test('a preset goes from shot to shot as bytes', () => {
    const [mine, other] = [shakenShot(3), shakenShot(3)];
    mine.setText('Shake Speed=150%');
    other.applyPresetBytes(mine.presetToBytes('In a hurry'));
    assert.equal(other.get(idOf('Shake Speed')), 1.5);
    assert.throws(() => other.applyPresetBytes(new Uint8Array([1, 2, 3])), refusal(Status.INPUT, /expected/));
});

test('a list has the entries that the panel shows', () => {
    const entries = shakenShot(3).choices(idOf('Category')).map(({ label }) => label);
    for (const { category } of tremolux.presets()) assert.ok(entries.includes(category), category);
});

test('a target turns the camera', () => {
    const shot = new Shot(straightMove(10));
    shot.play();
    const before = shot.numbers();
    shot.setTarget(Move.fromNumbers({ firstFrame: -2 }, [1000, 160, 0, 0, 0, 0, 35, 500]));
    shot.play();
    assert.notDeepEqual(shot.numbers(), before);
});

test('progress is told frame by frame, and cancels', () => {
    const shot = shakenShot(6);
    const told = [];
    shot.play((done, frames) => void told.push([done, frames]));
    assert.deepEqual(told, [1, 2, 3, 4, 5, 6].map((done) => [done, 6]));
    assert.throws(() => shot.play((done) => done < 4), refusal(Status.CANCELLED, /^cancelled after 4 of 6 frames$/));
});

test('what a progress function throws is thrown by play, and the shot goes on', () => {
    const shot = shakenShot(6);
    const mistake = new Error('mine');
    assert.throws(() => shot.play(() => { throw mistake; }), mistake);
    shot.play();
});

test('keys and bakes are played', () => {
    const shot = shakenShot(12);
    shot.play();
    const before = shot.numbers();
    shot.key(idOf('Shake Speed'), 0, 0.5, 2);
    shot.play();
    assert.notDeepEqual(shot.numbers(), before);
    shot.bake(2);
    assert.throws(() => shot.key(idOf('Shake Speed'), 0.5, 2, 2), TypeError);
});

test('a shot is directed, and shows the input where it is not shaken', () => {
    const shot = shakenShot(12);
    shot.play();
    const [shaken, input] = [shot.numbers(), straightMove(12).numbers()];
    shot.direct({ from: 4 });
    const shown = shot.numbers();
    assert.deepEqual(shown.slice(0, 6 * 8), input.slice(0, 6 * 8));
    assert.deepEqual(shown.slice(6 * 8), shaken.slice(6 * 8));
    assert.throws(() => shot.direct({ mix: 2 }), refusal(Status.INPUT, /expected 0 to 1/));
    shot.direct(null);
    assert.deepEqual(shot.numbers(), shaken);
});

test('jolts hit frames, and a key is taken away', () => {
    const shot = shakenShot(12);
    shot.setText('Jolt=off');
    shot.play();
    const before = shot.numbers();
    shot.jolts([[4, 1], [8, 0.5]], 1, 1);
    shot.play();
    assert.notDeepEqual(shot.numbers(), before);
    shot.jolts([], 1, 1);
    shot.setText('Jolt=off');
    shot.key(idOf('Overall Scale'), 3, 2, 2);
    shot.unkey(idOf('Overall Scale'), 3);
    assert.throws(() => shot.unkey(idOf('Overall Scale'), 3), refusal(Status.INPUT, /expected a frame with a key/));
});

test('presets are mixed, carried to the rate, and said to be pairs', () => {
    const known = tremolux.presets();
    assert.ok(known.some(({ isPair }) => isPair) && known.some(({ isPair }) => !isPair));
    assert.ok(known.every(({ madeFor }) => madeFor >= 1));
    const speedOf = (share) => {
        const shot = shakenShot(3);
        shot.applyMix(known[0].name, known[1].name, share);
        return shot.get(idOf('Shake Speed'));
    };
    assert.ok(Math.abs(speedOf(0.5) - (speedOf(0) + speedOf(1)) / 2) < 1e-12);
    const shot = shakenShot(3);
    shot.keepHertz(60);
    assert.throws(() => shot.keepHertz(0), refusal(Status.INPUT, /1 to 2500/));
});

test('a trace has a line for every frame', () => {
    const trace = shakenShot(5).trace();
    assert.equal(trace.length, 5);
    assert.deepEqual(trace[4], shakenShot(5).layers(2));
});

test('events and the nearest presets come as values', () => {
    const events = straightMove(40).events('hits.csv', new TextEncoder().encode('frame\n5\n9\n99\n'));
    assert.deepEqual(events, { events: [{ frame: 5, strength: 1 }, { frame: 9, strength: 1 }], outside: 1 });
    const shot = shakenShot(120);
    shot.applyPreset('Earthquake');
    shot.play();
    const near = shot.result().nearestPresets();
    assert.equal(near.length, tremolux.presets().length);
    assert.ok(near[0].distance <= near[1].distance);
});

test('what was freed is told', () => {
    const shot = shakenShot(3);
    shot.free();
    assert.throws(() => shot.play(), refusal(Status.HANDLE, /expected one of a shot/));
});

test('bytes of no camera file are refused with the file and the place', () => {
    assert.throws(() => Move.fromBytes('bad.csv', new TextEncoder().encode('frame,x\n')), refusal(Status.INPUT, /^bad\.csv/));
    assert.throws(() => Move.fromBytes('empty.csv', new Uint8Array()), refusal(Status.INPUT, /^empty\.csv/));
});

test('a thousand shots leave the memory as large as a few', () => {
    const cycle = () => {
        const move = straightMove(4);
        const shot = new Shot(move);
        shot.play(() => true);
        shot.numbers();
        shot.free();
        move.free();
    };
    for (let i = 0; i < 20; ++i) cycle();
    const before = tremolux.memoryBytes;
    for (let i = 0; i < 1000; ++i) cycle();
    assert.equal(tremolux.memoryBytes, before);
});
