// The order in which "I'm Feeling Lucky" shows the presets: each once, then a new round of all. It is remembered with
// the tag by what the presets' files are called, and so outlives every reading of the files, a save, a copy and an
// undo.
#pragma once

#include <vector>

#include "presets/library.h"

std::vector<String> IdsOf(const PresetLibrary &library);

// Empty where the container has none.
std::vector<String> ReadLuckyOrder(const BaseContainer &data);
void WriteLuckyOrder(const std::vector<String> &order, BaseContainer *data);

// The place of the next preset in `order`, which becomes what it must be for that: what is there no more leaves those
// that wait, what is new joins them, and when none waits a new round begins. `last` is the place of the one that was
// shown last, -1 for none; any other number that is no place begins a new round. `present` must not be empty.
LONG NextInLuckyOrder(const std::vector<String> &present, LONG last, std::vector<String> *order);
