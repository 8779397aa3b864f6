// Random numbers of the module's buttons; no motion depends on them.
#pragma once

#include "c4d.h"

constexpr LONG kLargestRandom = 32767;

// The next number of the module's one sequence, 0 to kLargestRandom. It starts anew each time the module is loaded and
// is the same on every platform. Drawn on the main thread alone, so that no other one changes what comes next.
// Source: linear congruential generator, state * 214013 + 2531011 modulo 2^32, bits 16 to 30.
LONG NextRandom();
