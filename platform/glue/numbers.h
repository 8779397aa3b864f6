// Conversions between the kinds of numbers that are defined for every input.
#pragma once

#include "ge_types.h"

// Cut toward zero and to the range; no number is 0.
inline LONG RealToWhole(Real value) {
    if (value != value) return 0;
    if (value >= 2147483647.0) return 2147483647;
    if (value <= -2147483648.0) return -2147483647 - 1;
    return static_cast<LONG>(value);
}

inline LLONG RealToWhole64(Real value) {
    if (value != value) return 0;
    if (value >= 9223372036854775807.0) return 9223372036854775807LL;
    if (value <= -9223372036854775808.0) return -9223372036854775807LL - 1;
    return static_cast<LLONG>(value);
}

inline LONG WholeFrom64(LLONG value) {
    return value > 2147483647 ? 2147483647 : value < -2147483647 - 1 ? -2147483647 - 1 : static_cast<LONG>(value);
}
