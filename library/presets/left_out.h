// Presets that lie in a folder and stand in no list.
#pragma once

#include <string>
#include <vector>

namespace tremolux {

// Of the lines that the module printed, those that tell of such a preset: its file and the reason.
std::vector<std::string> LeftOutPresets(const std::vector<std::string> &console_lines);

}  // namespace tremolux
