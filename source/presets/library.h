// All presets that there are, as every tag holds them.
#pragma once

#include <memory>
#include <vector>

#include "c4d.h"

// A preset with shake in it.
struct ShakingPreset {
    // Of its file: its place below the built-in ones, the same wherever the module lies, or the whole path of a user's.
    String id;
    BaseContainer preset;
};

struct PresetLibrary {
    LONG count;
    BaseContainer categories, indices, presets;  // key n: category of preset n, its place there, the preset
    std::vector<ShakingPreset> shaking;
};

// Presets of the category folders below `root` in reading order, then of the user's folder as one category more.
// Read anew only where a folder has changed. Never changed afterwards, so that every thread may hold it; a value of it
// is copied before a host is asked to look into it.
std::shared_ptr<const PresetLibrary> ReadPresetLibrary(const Filename &root);

// Read anew the next time: for whoever changed a file, or must see what others did to one.
void ForgetPresetLibrary();
