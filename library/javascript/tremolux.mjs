/** The engine for JavaScript: a camera move and settings in, frames of a hand-held camera out. It runs in Node, in a page and
 * in a worker. Each function of library/include/tremolux/tremolux.h, which says what it does, has one line here. */
import { Calls, In, TremoluxError, frameNumber, out } from './calls.mjs';
import { struct } from './layout.mjs';
import startEngine from './tremolux_engine.mjs';

export { TremoluxError };

export const NUMBERS_PER_FRAME = 8;
export const Status = { OK: 0, INTERNAL: 1, INPUT: 2, MODULE: 3, HANDLE: 5, BUSY: 6, CANCELLED: 130 };
export const Kind = { NUMBER: 1, SWITCH: 2, TIME: 3, TEXT: 4, CHOICE: 5, LINK: 6, BUTTON: 7 };
export const Unit = { NONE: 0, PERCENT: 1, ANGLE: 2, FRAMES: 3, SECONDS: 4 };
export const PanelKind = { GROUP: 1, SEPARATOR: 2, PARAMETER: 3 };
export const Interpolation = { SMOOTH: 1, LINEAR: 2, HOLD: 3 };
export const Bake = { QUICKLY: 1, BY_BRUTE_FORCE: 2 };
export const Band = { ALL: 0, LOW: 1, MID: 2, HIGH: 3 };

// The structs of the header.
const PARAMETER = struct({
    id: 'int32', kind: 'int32', unit: 'int32', label: 'text', minimum: 'double', maximum: 'double', defaultValue: 'double',
    group: 'int32', tab: 'text', section: 'text', sentence: 'text', sliderMinimum: 'double', sliderMaximum: 'double',
    step: 'double',
});
const PANEL_ENTRY = struct({
    kind: 'int32', id: 'int32', group: 'int32', columns: 'int32', isOpen: 'switch', hasLine: 'switch', title: 'text',
});
const CHOICE = struct({ value: 'int32', label: 'text' });
const PRESET = struct({
    category: 'text', name: 'text', sentence: 'text', madeFor: 'double', isPair: 'switch',
});
const DIRECTION = struct({
    from: 'int64', until: 'int64', fadeIn: 'int64', fadeOut: 'int64', mix: 'double', position: 'int32', rotation: 'int32',
    lens: 'int32', lensAware: 'double', focalLength: 'double',
});
const MOVE_INFO = struct({
    firstFrame: 'int64', frameCount: 'int64', rateNumerator: 'int32', rateDenominator: 'int32', apertureWidth: 'double',
});
const MEASURES = struct({
    positionRms: 'double', positionPeak: 'double', turnRms: 'double', turnPeak: 'double', positionPeakFrame: 'int64',
    turnPeakFrame: 'int64', swayRms: 'double', bankRms: 'double',
});
const USUAL_INFO = { firstFrame: 0, rateNumerator: 30, rateDenominator: 1, apertureWidth: 36 };

// The whole shake, on every frame that there can be.
const WHOLE_DIRECTION = {
    from: -1e12, until: 1e12, fadeIn: 0, fadeOut: 0, mix: 1, position: 1, rotation: 1, lens: 1, lensAware: 0, focalLength: 36,
};

const jsonOf = (bytes) => JSON.parse(new TextDecoder().decode(bytes));
const bytesOf = (source) =>
    ArrayBuffer.isView(source) ? new Uint8Array(source.buffer, source.byteOffset, source.byteLength) : new Uint8Array(source);

/**
 * Starts the engine. Without `wasm`, which is for those who embed it, the file beside this module is fetched.
 * @param {{wasm?: BufferSource}} [options] the bytes of tremolux_engine.wasm
 */
export async function load({ wasm } = {}) {
    const calls = new Calls(await startEngine(wasm ? { wasmBinary: bytesOf(wasm) } : {}));
    const all = (name, layout) => Array.from({ length: calls.plain(`tremolux_${name}_count`) }, (_, index) =>
        calls.checked(`tremolux_${name}_at`, 0, index, out.struct(layout)));

    // What a handle stands for, until free(). Handles are never given out twice: a freed one is told.
    class Owner {
        #handle;
        static ofHandle(handle) {
            const made = new this();
            made.#handle = handle;
            return made;
        }
        static handleOf(owner) {
            return owner.#handle;
        }
        _call(name, ...given) {
            return calls.checked(`tremolux_${name}`, this.#handle, this.#handle, ...given);
        }
    }

    class Move extends Owner {
        static fromNumbers(info, numbers) {
            const whole = { ...USUAL_INFO, frameCount: Math.floor(numbers.length / NUMBERS_PER_FRAME), ...info };
            return calls.checked('tremolux_move_from_numbers', 0, new In(MOVE_INFO, whole), Float64Array.from(numbers), out.handle(Move));
        }
        static fromBytes(name, bytes) { return calls.checked('tremolux_move_from_bytes', 0, name, bytes, out.handle(Move)); }
        get info() { return this._call('move_info_of', out.struct(MOVE_INFO)); }
        numbers(count = this.info.frameCount * NUMBERS_PER_FRAME) { return this._call('move_numbers', out.numbers(count), count); }
        events(name, bytes, { sensitivity = 50, band = Band.ALL } = {}) {
            return jsonOf(this._call('events_from_bytes', name, bytes, sensitivity, band, out.bytes));
        }
        nearestPresets(progress) { return jsonOf(this._call('nearest_presets', progress, null, out.bytes)); }
        toBytes(name) { return this._call('move_to_bytes', name, out.bytes); }
        free() { this._call('move_free'); }
    }

    class Shot extends Owner {
        #count; // of the numbers of all frames
        constructor(move) {
            super();
            if (move === undefined) return;
            const shot = calls.checked('tremolux_shot_new', Owner.handleOf(move), Owner.handleOf(move), out.handle(Shot));
            shot.#count = move.info.frameCount * NUMBERS_PER_FRAME;
            return shot;
        }
        set(parameter, value) { this._call('shot_set', parameter, value); }
        get(parameter) { return this._call('shot_get', parameter, out.double); }
        setText(setting) { this._call('shot_set_text', setting); }
        isEnabled(parameter) { return this._call('shot_is_enabled', parameter, out.switch); }
        applyPreset(preset) { this._call('shot_apply_preset', preset); }
        applyMix(preset, second, share) { this._call('shot_apply_mix', preset, second, share); }
        keepHertz(madeFor) { this._call('shot_keep_hertz', madeFor); }
        choices(parameter) {
            const count = this._call('shot_choice_count', parameter, out.size);
            return Array.from({ length: count }, (_, index) => this._call('shot_choice_at', parameter, index, out.struct(CHOICE)));
        }
        applyPresetBytes(bytes) { this._call('shot_apply_preset_bytes', bytes); }
        presetToBytes(name) { return this._call('shot_preset_to_bytes', name, out.bytes); }
        undo() { return this._call('shot_undo', out.switch); }
        redo() { return this._call('shot_redo', out.switch); }
        press(button) { this._call('shot_press', button); }
        setTarget(points) { this._call('shot_set_target', Owner.handleOf(points)); }
        setFocusObject(points) { this._call('shot_set_focus_object', Owner.handleOf(points)); }
        play(progress) { this._call('shot_play', progress, null); }
        playFrom(frame, progress) { this._call('shot_play_from', frameNumber(frame), progress, null); }
        cancel() { this._call('shot_cancel'); }
        numbers() { return this._call('shot_numbers', out.numbers(this.#count), this.#count); }
        numbersAt(frame) { return this._call('shot_numbers_at', frame, out.numbers(NUMBERS_PER_FRAME)); }
        result() { return this._call('shot_result', out.handle(Move)); }
        layers(frame) { return jsonOf(this._call('shot_layers', frameNumber(frame), out.bytes)); }
        measure() { return this._call('shot_measure', out.struct(MEASURES)); }
        key(parameter, frame, value, interpolation) { this._call('shot_key', parameter, frameNumber(frame), value, interpolation); }
        unkey(parameter, frame) { this._call('shot_unkey', parameter, frameNumber(frame)); }
        jolts(events, positionIntensity, rotationIntensity) {
            this._call('shot_jolts', Float64Array.from(events.flat()), positionIntensity, rotationIntensity);
        }
        direct(direction) {
            this._call('shot_direct', direction && new In(DIRECTION, { ...WHOLE_DIRECTION, ...direction }));
        }
        trace(progress) { return jsonOf(this._call('shot_trace', progress, null, out.bytes)); }
        bake(kind) { this._call('shot_bake', kind); }
        free() { this._call('shot_free'); }
    }

    return {
        Move,
        Shot,
        version: calls.textAt(calls.plain('tremolux_version')),
        parameters: () => all('parameter', PARAMETER),
        panel: () => all('panel', PANEL_ENTRY),
        presets: () => all('preset', PRESET),
        /** How much memory the engine has taken, for everything. */
        get memoryBytes() { return calls.engine.HEAPU8.length; },
    };
}
