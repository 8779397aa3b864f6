// A list of frames on which a jolt fires, and the text that it was read from.
#pragma once

#include <algorithm>
#include <vector>

#include "c4d.h"

struct Trigger {
    String text;               // the placeholder for an empty list; empty: nothing was read yet
    std::vector<LONG> frames;  // ascending, none negative

    Bool Has(LONG frame) const { return std::binary_search(frames.begin(), frames.end(), frame); }
};
