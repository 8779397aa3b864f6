// Presets mixed by weight.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "library/presets/catalog.h"
#include "library/presets/facts.h"

namespace tremolux {

struct PresetShare {
    CatalogEntry preset;
    double share = 1;
};

// Of texts such as "Documentary" or "Nervous=0.4": what is left after those that say their share, 0 to 1 or in per cent, is
// parted among the others. Throws a Failure: an unknown preset, or shares that do not make a whole; `place` is where they were typed.
std::vector<PresetShare> ReadPresetShares(const std::vector<CatalogEntry> &catalog, const std::vector<std::string> &texts,
                                          const std::string &place);

// Chooses the first, then sets what the others have a say in: numbers by weight, switches and choices as the larger share has
// them; seeds and texts are the first's. Throws a Failure.
void ChooseMix(const std::vector<PresetShare> &mix, host::Tag *tag);

// Frames a second that built-in presets were made at; 0 where they differ, or one of them is none.
double RateOf(const std::vector<PresetShare> &mix, const std::map<std::string, PresetFacts> &facts);

// "Documentary", or "Documentary 60%, Nervous 40%".
std::string MixName(const std::vector<PresetShare> &mix);

}  // namespace tremolux
