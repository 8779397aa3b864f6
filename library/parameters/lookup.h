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

}  // namespace tremolux
