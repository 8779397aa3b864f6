// Numbers to and from texts. Never through the C library's formats: those follow the system's language.
#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "platform/glue/handles.h"
#include "platform/glue/numbers.h"

namespace {

// Digits that RealToString makes up its mind about by itself.
const int kAutomaticDecimals = 3;
// No value has more digits that mean something; more room would only be zeros.
const int kMostDecimals = 60;
const LONG kMostFill = 400;
// From here on, and below its inverse, a text with exponent is shorter.
const Real kLargePlain = 1.0e10, kSmallPlain = 1.0e-4;
// The sign, 309 digits before the point, the point and the decimals.
const int kRoom = 400;

template <class Whole>
String WholeToString(Whole value) {
    char text[24];
    const std::to_chars_result end = std::to_chars(text, text + sizeof(text) - 1, value);
    *end.ptr = 0;
    return String(text);
}

struct Parts {
    char digits[kRoom];  // without sign and exponent
    char exponent[16];   // empty, or e+20
    bool negative;
};

void WriteReal(Real value, LONG after, bool exponent, Parts *parts) {
    const int decimals = after < 0               ? kAutomaticDecimals
                         : after > kMostDecimals ? kMostDecimals
                                                 : static_cast<int>(after);
    char *end = exponent ? fmt::format_to_n(parts->digits, kRoom - 1, "{:.{}e}", std::fabs(value), decimals).out
                         : fmt::format_to_n(parts->digits, kRoom - 1, "{:.{}f}", std::fabs(value), decimals).out;
    *end = 0;
    parts->exponent[0] = 0;
    char *point = NULL;
    for (char *c = parts->digits; *c; ++c) {
        if (*c == '.') point = c;
        if (*c != 'e') continue;
        std::size_t length = 0;
        for (const char *e = c; *e && length + 1 < sizeof(parts->exponent); ++e) parts->exponent[length++] = *e;
        parts->exponent[length] = 0;
        *c = 0;
        end = c;
        break;
    }
    if (after < 0 && point) {
        while (end[-1] == '0') *--end = 0;
        if (end[-1] == '.') *--end = 0;
    }
    // What is rounded to 0 has no sign.
    parts->negative = false;
    for (const char *c = parts->digits; *c; ++c)
        if (*c >= '1' && *c <= '9') parts->negative = std::signbit(value);
}

}  // namespace

String LongToString(LONG value) { return WholeToString(value); }

String RealToString(Real value, LONG before, LONG after, Bool exponent, UWORD fill) {
    if (value != value) return "nan";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    const Real size = std::fabs(value);
    Parts parts;
    WriteReal(value, after, exponent && size != 0.0 && (size >= kLargePlain || size < kSmallPlain), &parts);

    LONG whole_digits = 0;
    while (parts.digits[whole_digits] >= '0' && parts.digits[whole_digits] <= '9') ++whole_digits;
    String text(parts.negative ? "-" : "");
    if (before > whole_digits) text += String((before < kMostFill ? before : kMostFill) - whole_digits, fill);
    text += parts.digits;
    text += parts.exponent;
    return text;
}
