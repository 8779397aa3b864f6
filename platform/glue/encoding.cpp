// Texts to and from bytes.
#include "c4d_string.h"

namespace {

const ULONG kReplacement = 0xFFFD;

Bool IsHighSurrogate(ULONG unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
Bool IsLowSurrogate(ULONG unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
Bool IsUtf8(STRINGENCODING encoding) { return encoding != STRINGENCODING_8BIT && encoding != STRINGENCODING_7BIT; }

// The code point at text[*position]; a lone surrogate is replaced. Moves on.
ULONG NextCodePoint(const UWORD *text, LONG length, LONG *position) {
    const ULONG unit = text[(*position)++];
    if (IsLowSurrogate(unit)) return kReplacement;
    if (!IsHighSurrogate(unit)) return unit;
    if (*position >= length || !IsLowSurrogate(text[*position])) return kReplacement;
    return 0x10000 + ((unit - 0xD800) << 10) + (text[(*position)++] - 0xDC00u);
}

// Bytes of one code point; how many.
LONG PutCodePoint(ULONG point, STRINGENCODING encoding, UCHAR out[4]) {
    if (!IsUtf8(encoding)) {
        const ULONG limit = encoding == STRINGENCODING_8BIT ? 0x100 : 0x80;
        out[0] = point < limit ? UCHAR(point) : UCHAR('?');
        return 1;
    }
    if (point < 0x80) {
        out[0] = UCHAR(point);
        return 1;
    }
    const LONG count = point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    for (LONG i = count - 1; i > 0; --i) {
        out[i] = UCHAR(0x80 | (point & 0x3F));
        point >>= 6;
    }
    const UCHAR lead[5] = {0, 0, 0xC0, 0xE0, 0xF0};
    out[0] = UCHAR(lead[count] | point);
    return count;
}

// Writes whole characters into `room` bytes; their number. Without a buffer the number of all bytes.
VLONG Encode(const UWORD *text, LONG length, STRINGENCODING encoding, CHAR *buffer, VLONG room) {
    VLONG written = 0;
    for (LONG i = 0; i < length;) {
        UCHAR bytes[4];
        const LONG count = PutCodePoint(NextCodePoint(text, length, &i), encoding, bytes);
        if (buffer) {
            if (written + count > room) break;
            CopyMem(bytes, buffer + written, count);
        }
        written += count;
    }
    return written;
}

// The code point at bytes[*position] by the rules of the Unicode standard, table 3-7. Of an invalid sequence the part
// that could have begun a valid one is replaced as a whole. Moves on.
ULONG NextUtf8(const UCHAR *bytes, LONG length, LONG *position) {
    const UCHAR lead = bytes[(*position)++];
    if (lead < 0x80) return lead;
    const LONG more = lead >= 0xC2 && lead <= 0xDF   ? 1
                      : (lead & 0xF0) == 0xE0        ? 2
                      : lead >= 0xF0 && lead <= 0xF4 ? 3
                                                     : 0;
    if (more == 0) return kReplacement;
    ULONG point = lead & (0x3Fu >> more);
    UCHAR low = lead == 0xE0   ? 0xA0
                : lead == 0xF0 ? 0x90
                               : 0x80,
          high = lead == 0xED   ? 0x9F
                 : lead == 0xF4 ? 0x8F
                                : 0xBF;
    for (LONG i = 0; i < more; ++i) {
        if (*position >= length || bytes[*position] < low || bytes[*position] > high) return kReplacement;
        point = (point << 6) | (bytes[(*position)++] & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    return point;
}

LONG PutUnits(ULONG point, UWORD out[2]) {
    if (point < 0x10000) {
        out[0] = UWORD(point);
        return 1;
    }
    out[0] = UWORD(0xD800 + ((point - 0x10000) >> 10));
    out[1] = UWORD(0xDC00 + ((point - 0x10000) & 0x3FF));
    return 2;
}

}  // namespace

LONG String::GetCStringLen(STRINGENCODING encoding) const {
    const VLONG bytes = Encode(text_, length_, encoding, NULL, 0);
    return bytes > 2147483647 ? 2147483647 : static_cast<LONG>(bytes);
}

LONG String::GetCString(CHAR *buffer, LONG bytes, STRINGENCODING encoding) const {
    if (!buffer || bytes <= 0) return 0;
    const LONG written = static_cast<LONG>(Encode(text_, length_, encoding, buffer, bytes - 1));
    buffer[written] = 0;
    return written;
}

void String::SetCString(const CHAR *text, LONG count, STRINGENCODING encoding) {
    const std::size_t longest = 0x7FFFFFF0;
    std::size_t bytes = 0;
    while (text && bytes < longest && (count < 0 || bytes < static_cast<std::size_t>(count)) && text[bytes]) ++bytes;
    const LONG length = static_cast<LONG>(bytes);
    String result;
    // No encoding needs more units than bytes.
    if (length > 0 && result.Reserve(length)) {
        const UCHAR *in = reinterpret_cast<const UCHAR *>(text);
        for (LONG i = 0; i < length;) {
            const ULONG limit = encoding == STRINGENCODING_7BIT ? 0x80 : 0x100;
            ULONG point;
            if (IsUtf8(encoding))
                point = NextUtf8(in, length, &i);
            else
                point = in[i] < limit ? in[i] : kReplacement, ++i;
            result.length_ += PutUnits(point, result.text_ + result.length_);
        }
        result.text_[result.length_] = 0;
    }
    *this = result;
}

void String::SetUcBlock(const UWORD *text, LONG count) {
    String result;
    result.Append(text, count);
    *this = result;
}
