#include "tag/random.h"

#include <atomic>

namespace {

std::atomic<ULONG> state{1};

ULONG After(ULONG number) { return number * 214013u + 2531011u; }  // wraps, hence unsigned

}  // namespace

LONG NextRandom() {
    ULONG last = state.load();
    while (!state.compare_exchange_weak(last, After(last))) continue;
    return (LONG)(After(last) >> 16 & 0x7FFF);
}
