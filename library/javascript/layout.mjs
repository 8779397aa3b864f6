// How the C interface lays out what it is handed: 32-bit pointers, each value at a multiple of its own size.

const KINDS = {
    size: { bytes: 4, read: (view, at) => view.getUint32(at, true), write: (view, at, value) => view.setUint32(at, value, true) },
    int32: { bytes: 4, read: (view, at) => view.getInt32(at, true), write: (view, at, value) => view.setInt32(at, value, true) },
    // Switches and texts are only ever read.
    switch: { bytes: 4, read: (view, at) => view.getInt32(at, true) !== 0 },
    // Frame numbers, of which the interface takes no greater ones than a number can be.
    int64: {
        bytes: 8,
        read: (view, at) => Number(view.getBigInt64(at, true)),
        write: (view, at, value) => view.setBigInt64(at, BigInt(value), true),
    },
    double: { bytes: 8, read: (view, at) => view.getFloat64(at, true), write: (view, at, value) => view.setFloat64(at, value, true) },
    text: { bytes: 4, read: (view, at, textAt) => textAt(view.getUint32(at, true)) },
};

/**
 * A C struct whose first field is its size. A single value is a struct of one field, without the size.
 * @param {Record<string, keyof typeof KINDS>} fields in the order of the header
 * @param {boolean} [saysItsSize]
 */
export function struct(fields, saysItsSize = true) {
    const all = Object.entries(saysItsSize ? { size: 'size', ...fields } : fields);
    const places = [];
    let end = 0;
    let alignment = 1;
    const up = (value, multiple) => Math.ceil(value / multiple) * multiple;
    for (const [name, kind] of all) {
        const { bytes } = KINDS[kind];
        const at = up(end, bytes);
        places.push({ name, at, kind: KINDS[kind] });
        end = at + bytes;
        alignment = Math.max(alignment, bytes);
    }
    const bytes = up(end, alignment);
    return {
        bytes,
        write(view, at, values) {
            if (saysItsSize) KINDS.size.write(view, at, bytes);
            for (const place of places)
                if (values[place.name] !== undefined) place.kind.write(view, at + place.at, values[place.name]);
        },
        read(view, at, textAt) {
            const values = {};
            for (const place of places) values[place.name] = place.kind.read(view, at + place.at, textAt);
            if (saysItsSize) delete values.size;
            return values;
        },
    };
}
