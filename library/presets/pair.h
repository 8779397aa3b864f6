// Presets of two cameras: the second one's input is the first one's output, so that two motions of different pace add up,
// each with ratios of its own. A preset file holds the second one's settings inside the first one's; the application takes the
// first ones from it and knows nothing of the others.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "host/scene/tag.h"
#include "host/value/container.h"
#include "library/presets/catalog.h"

namespace tremolux {

// A preset file's settings by its bytes; `file` stands in the message. Throws a Failure for bytes that are none.
host::Container PresetOfBytes(const std::string &file, std::string_view bytes);
host::Container ReadPresetFile(const std::filesystem::path &file);  // the same
std::string BytesOfPreset(const host::Container &preset);
std::string NameOfPreset(const host::Container &preset);

// The second camera's settings, where there are some.
std::optional<host::Container> SecondOf(const host::Container &preset);
host::Container WithSecond(const host::Container &first, const host::Container &second);

// Sets what the preset has, as if the user had typed it.
void ApplyPresetValues(const host::Container &preset, host::Tag *tag);

// The file that the module has the entry from, its own or the user's; empty for none.
std::filesystem::path FileOfPreset(const CatalogEntry &entry, const std::filesystem::path &module_file,
                                   const host::Tag &tag);
// The second camera's settings of that entry's file, where it has some. Throws a Failure for a file that cannot be read.
std::optional<host::Container> SecondOfEntry(const CatalogEntry &entry, const std::filesystem::path &module_file,
                                             const host::Tag &tag);

// A second camera takes the first as it is: no smoothing, no overshoot, no target.
void FollowExactly(host::Tag *tag);

}  // namespace tremolux
