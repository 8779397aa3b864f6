// All presets that there are, as every tag holds them.
#pragma once

#include <vector>

#include "presets/cache.h"

struct PresetLibrary {
    LONG count;
    BaseContainer categories, indices, presets;  // key n: category of preset n, its place there, the preset
    std::vector<BaseContainer> shaking;          // those with shake in them
};

// Presets of the category folders below `root` in reading order, then of the user's folder as one category more.
// Read anew only where a folder has changed.
const PresetLibrary &ReadPresetLibrary(const Filename &root);

// Read anew the next time: for whoever changed a file, or must see what others did to one.
void ForgetPresetLibrary();
