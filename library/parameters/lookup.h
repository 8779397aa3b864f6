// Finding a parameter by what a user typed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "library/parameters/parameter.h"

namespace tremolux {

// By id, by label whatever its case and the blanks around it, or by both ("6154 Overshoot Fade"). Throws a Failure for
// a label that several parameters share, with their ids, and for an unknown one, with the nearest.
// `place` is where the name was typed.
const Parameter &FindParameter(const std::vector<Parameter> &parameters, std::string_view name,
                               const std::string &place = "--set");

// A name as it is compared: without the blanks around it, in small letters.
std::string Folded(std::string_view text);

// How many letters have to be added, removed or changed to turn one text into the other (Levenshtein).
std::size_t EditDistance(std::string_view a, std::string_view b);

}  // namespace tremolux
