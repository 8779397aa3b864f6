// Built-in presets as the text files that they are kept in.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace presets {

struct PresetText {
    std::string name, about;
    double frames_per_second = 24;      // of the section [motion]
    std::vector<std::string> settings;  // "LABEL=VALUE" each
    std::vector<std::string> then;      // the same of a second camera, whose input is the first; empty: there is none
};

// "name = ..." and "about = ...", then the sections "[settings]" and "[then]" (one parameter in a line), "[aim]" (what
// real cameras do), "[measured]" and "[motion]" (what the preset's motion measures). Lines that begin with "#" are
// comments. Throws a tremolux::Failure that names the file and the line.
PresetText ReadPresetText(const std::filesystem::path &file);

}  // namespace presets
