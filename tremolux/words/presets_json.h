// Presets for programs: each one JSON object.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "library/parameters/shown_values.h"
#include "library/presets/catalog.h"
#include "library/presets/facts.h"

namespace tremolux {

// With what each imitates, by its name, and the files that are in no list with the reason.
std::string PresetListJson(const std::vector<CatalogEntry> &catalog, const std::map<std::string, PresetFacts> &facts,
                           const std::vector<std::string> &left_out);
// What a preset sets.
std::string PresetJson(const std::string &preset, const std::vector<ShownValue> &values);
// The settings in which two presets differ: both list the same ones.
std::string PresetDifferenceJson(const std::vector<std::string> &presets, const std::vector<ShownValue> &a,
                                 const std::vector<ShownValue> &b);

}  // namespace tremolux
