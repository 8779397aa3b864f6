// A preset as the bytes of its file. The module reads and writes them, as those of a user's presets: through a folder in
// memory, which is empty before and after.
#pragma once

#include <string>
#include <string_view>

#include "host/scene/tag.h"

namespace tremolux {

// The tag's settings under that name; the tag stays as it is. Throws a Failure for a name that no file can have, and where
// the module saves none.
std::string WritePresetFile(const std::string &name, host::Tag *tag);

// As if the user chose the preset; afterwards the tag's lists show the category that they showed. Throws a Failure for
// bytes that the module does not take for a preset.
void ApplyPresetFile(std::string_view bytes, host::Tag *tag);

}  // namespace tremolux
