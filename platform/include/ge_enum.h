// How a group of constants becomes a type of its own: unscoped, but with operators that keep the type.
//
//     enum COPYFLAGS : LONG { COPYFLAGS_0 = 0, COPYFLAGS_NO_BITS = (1 << 4) } ENUM_END_FLAGS(COPYFLAGS);
#pragma once

#include "ge_types.h"

// Closes an enumeration whose values exclude each other.
#define ENUM_END_LIST(X)

// Closes a set of bits: |, &, ^, ~ and their assignments answer X again.
#define ENUM_END_FLAGS(X)                                            \
    ;                                                                \
    constexpr X operator|(X a, X b) { return X(LONG(a) | LONG(b)); } \
    constexpr X operator&(X a, X b) { return X(LONG(a) & LONG(b)); } \
    constexpr X operator^(X a, X b) { return X(LONG(a) ^ LONG(b)); } \
    constexpr X operator~(X a) { return X(~LONG(a)); }               \
    inline X &operator|=(X &a, X b) { return a = a | b; }            \
    inline X &operator&=(X &a, X b) { return a = a & b; }            \
    inline X &operator^=(X &a, X b) { return a = a ^ b; }            \
    constexpr X operator~(X a)
