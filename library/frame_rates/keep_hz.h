// Settings that were made at one frame rate, carried to another: the module counts frames, not seconds.
#pragma once

#include <string>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

// Changes the tag's settings so that its motion at `frames_per_second` has the frequencies that it had at
// `made_for`, as far as the module's formulas allow. In the running host, which plays the module's filters on a stage
// of its own to learn them. Returns a line for everything that could not be carried over. Throws a Failure.
std::vector<std::string> KeepHertz(double made_for, double frames_per_second, host::Tag *tag);

}  // namespace tremolux
