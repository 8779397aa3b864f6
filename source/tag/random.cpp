#include "tag/random.h"

namespace {

ULONG state = 1;

}  // namespace

LONG NextRandom() {
    state = state * 214013u + 2531011u;  // wraps, hence unsigned
    return (LONG)(state >> 16 & 0x7FFF);
}
