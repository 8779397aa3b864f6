// Lists in random order.
#pragma once

#include <vector>

#include "c4d.h"
#include "tag/random.h"

// Longer ones are not shuffled: close to the number of different draws some slots would be met by none, for a draw is
// placed in single precision.
constexpr LONG kLongestShuffle = 32000;

// Where a draw falls in a list. `length` itself when the draw was the largest.
inline LONG SlotOf(LONG drawn, LONG length) {
    const SReal share = (SReal)drawn / (SReal)kLargestRandom;
    return (LONG)(share * (SReal)length);
}

// Each entry goes to a slot that is drawn until a free one comes; at most kLongestShuffle entries.
template <class Entry>
std::vector<Entry> Shuffled(const std::vector<Entry> &entries) {
    const LONG length = (LONG)entries.size();
    std::vector<Entry> shuffled(length);
    std::vector<char> is_taken(length);
    for (const Entry &entry : entries) {
        LONG slot = length;
        while (slot >= length || is_taken[slot]) slot = SlotOf(NextRandom(), length);
        shuffled[slot] = entry;
        is_taken[slot] = 1;
    }
    return shuffled;
}
