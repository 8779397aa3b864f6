// A preset that a user named, by its name or by its file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/scene/tag.h"
#include "host/value/container.h"

namespace tremolux {

struct ChosenPreset {
    std::string name;
    std::optional<host::Container> second;  // settings of a second camera
    double made_for = 0;                    // frames a second; 0: not known, or as it is
};

// Applies the file of that name to the tag. Nothing where there is none, or a preset in the panel has this very name. Throws
// a Failure for a file that is no preset.
std::optional<ChosenPreset> OpenPresetFile(const std::string &text, host::Tag *tag);

// The file, or the panel's preset that the text means. Throws a Failure; `place` is where the text was typed.
ChosenPreset ChooseNamedPreset(const std::string &text, const std::string &place, const std::filesystem::path &module_file,
                               host::Tag *tag);

}  // namespace tremolux
