#include "host/value/memory.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace host {

namespace {

std::atomic<int> passes_left{0}, refusals_left{0};

// Takes one away where there is one left.
bool UseUp(std::atomic<int> *left) {
    int now = left->load();
    while (now > 0 && !left->compare_exchange_weak(now, now - 1)) continue;
    return now > 0;
}

// A block of no bytes still needs an address of its own, and a size must fit the system's size type.
bool BlockSize(std::int64_t bytes, std::size_t *size) {
    if (bytes < 0 || static_cast<std::uint64_t>(bytes) > std::numeric_limits<std::size_t>::max() / 2) return false;
    *size = bytes == 0 ? 1 : static_cast<std::size_t>(bytes);
    return true;
}

}  // namespace

void *Allocate(std::int64_t bytes) {
    std::size_t size = 0;
    return BlockSize(bytes, &size) ? std::calloc(1, size) : nullptr;
}

void *AllocateUncleared(std::int64_t bytes) {
    std::size_t size = 0;
    return BlockSize(bytes, &size) ? std::malloc(size) : nullptr;
}

void Release(void *memory) { std::free(memory); }

void RefuseCustomData(int successes, int refusals) {
    passes_left = successes;
    refusals_left = refusals;
}

bool CustomDataRefused() { return !UseUp(&passes_left) && UseUp(&refusals_left); }

}  // namespace host
