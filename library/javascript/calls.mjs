// Calls of the C interface with JavaScript's own values.
import { struct } from './layout.mjs';

/** What the library refused: the line is the message, `status` the interface's number. */
export class TremoluxError extends Error {
    constructor(line, status) {
        super(line);
        this.name = 'TremoluxError';
        this.status = status;
    }
}

/** An argument that the library writes to: the call answers with what it wrote. */
class Out {
    constructor(layout, finish = (values) => values, values = {}) {
        Object.assign(this, { layout, finish, values });
    }
}

const single = (kind) => new Out(struct({ value: kind }, false), ({ value }) => value);
export const out = {
    int32: single('int32'),
    double: single('double'),
    size: single('size'),
    switch: single('switch'),
    struct: (layout) => new Out(layout),
    /** The bytes of a tremolux_buffer, which is freed. */
    bytes: new Out(struct({ bytes: 'size', size: 'size', owner: 'size' }, false), ({ bytes, size }, calls, at) => {
        const copy = calls.engine.HEAPU8.slice(bytes, bytes + size);
        calls.engine._tremolux_buffer_free(at);
        return copy;
    }),
    /** `count` numbers. */
    numbers: (count) => new Out({ bytes: 8 * count, write() {} }, (_, calls, at) => calls.engine.HEAPF64.slice(at / 8, at / 8 + count)),
    /** A handle of a class of ours. */
    handle: (Type) => new Out(struct({ value: 'size' }, false), ({ value }) => Type.ofHandle(value)),
};

/** A struct that the library reads. */
export class In {
    constructor(layout, values) {
        Object.assign(this, { layout, values });
    }
}

/** A frame number, which is 64 bits wide. */
export const frameNumber = (value) => {
    if (!Number.isSafeInteger(value)) throw new TypeError(`frame: found ${value}, expected a whole number`);
    return BigInt(value);
};

export class Calls {
    constructor(engine) {
        this.engine = engine;
    }

    textAt = (address) => this.engine.UTF8ToString(address);

    /** The memory's bytes, which move when it grows. */
    get #view() {
        return new DataView(this.engine.HEAPU8.buffer);
    }

    /** A function that answers with a value of its own. */
    plain(name, ...given) {
        return this.#with((take) => this.engine[`_${name}`](...given.flatMap(take)));
    }

    /** A function that answers with a status; `handle` is the one whose error it sets. Answers with what it wrote. */
    checked(name, handle, ...given) {
        const written = [];
        return this.#with((take) => {
            const flat = given.flatMap((value) => take(value, written));
            const status = this.engine[`_${name}`](...flat);
            if (status !== 0) throw new TremoluxError(this.textAt(this.engine._tremolux_last_error(handle)), status);
            const results = written.map(({ kind, at }) =>
                kind.finish(kind.layout.read?.(this.#view, at, this.textAt), this, at));
            return results[0];
        });
    }

    /** Runs `work`, and frees what its arguments took. */
    #with(work) {
        const addresses = [];
        const callbacks = [];
        const thrown = [];
        const reserve = (bytes) => {
            // A block that may be empty is still one: NULL means that there is none.
            const at = this.engine._malloc(Math.max(bytes, 1));
            if (at === 0) throw new TremoluxError('there is not enough memory', 1);
            addresses.push(at);
            return at;
        };
        const take = (value, written = []) => {
            if (value === null || value === undefined) return [0];
            if (typeof value === 'string') {
                const bytes = this.engine.lengthBytesUTF8(value) + 1;
                const at = reserve(bytes);
                this.engine.stringToUTF8(value, at, bytes);
                return [at];
            }
            if (typeof value === 'function') {
                // What it throws must not unwind the engine: it cancels the call, and is thrown again behind it.
                const at = this.engine.addFunction((done, frames) => {
                    try {
                        return value(Number(done), Number(frames)) === false ? 1 : 0;
                    } catch (error) {
                        thrown.push(error);
                        return 1;
                    }
                }, 'ijji');
                callbacks.push(at);
                return [at];
            }
            if (value instanceof Float64Array || value instanceof Uint8Array) {
                const at = reserve(value.byteLength);
                this.engine.HEAPU8.set(new Uint8Array(value.buffer, value.byteOffset, value.byteLength), at);
                return [at, value.length];
            }
            if (value instanceof In || value instanceof Out) {
                const at = reserve(value.layout.bytes);
                this.engine.HEAPU8.fill(0, at, at + value.layout.bytes);
                value.layout.write(this.#view, at, value.values);
                if (value instanceof Out) written.push({ kind: value, at });
                return [at];
            }
            return [value];
        };
        try {
            return work(take);
        } catch (error) {
            throw thrown.length > 0 ? thrown[0] : error;
        } finally {
            addresses.forEach((at) => this.engine._free(at));
            callbacks.forEach((at) => this.engine.removeFunction(at));
        }
    }
}
