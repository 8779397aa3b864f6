// What built-in presets imitate, in one sentence each.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tremolux {

// By the preset's name, from the list beside the module; empty where there is none. Throws a Failure for a list that
// cannot be understood.
std::map<std::string, std::string> ReadPresetSentences(const std::filesystem::path &module_file);

}  // namespace tremolux
