// Parameters from the command line, written into a tag.
#pragma once

#include <string>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

// Each of the form "LABEL=VALUE" or "ID=VALUE". All are checked before the first is written; of several for one
// parameter the last holds. Throws a Failure.
void ApplySettings(const std::vector<std::string> &settings, int frames_per_second, host::Tag *tag);

// Of settings that can be applied: a line for each that lies beyond its slider, each parameter once, by its last value.
std::vector<std::string> SliderNotes(const std::vector<std::string> &settings, int frames_per_second,
                                     const host::Tag &tag);

}  // namespace tremolux
