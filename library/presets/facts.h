// What is known of built-in presets beside their settings.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tremolux {

struct PresetFacts {
    std::string about;             // what it imitates, in one sentence
    double frames_per_second = 0;  // that it was made at; 0: not known
};

// By the preset's name, from the list beside the module; empty where there is none. Throws a Failure for a list that
// cannot be understood.
std::map<std::string, PresetFacts> ReadPresetFacts(const std::filesystem::path &module_file);

}  // namespace tremolux
