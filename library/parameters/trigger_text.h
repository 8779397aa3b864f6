// The text of a parameter that lists the frames on which a jolt hits.
#pragma once

#include <string_view>

#include "library/parameters/parameter.h"

namespace tremolux {

bool ListsFrames(const Parameter &parameter);
constexpr const char *kExpectedFrameList = "frames from 0 to 9999999, separated by commas (12,48)";
// Whether the module takes every frame of the text; an empty text and the words that its panel shows then are a list of none.
bool IsFrameList(std::string_view text);

}  // namespace tremolux
