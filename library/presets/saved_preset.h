// A preset as the module saves it, from settings alone.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/value/container.h"

namespace tremolux {

// Settings "LABEL=VALUE" on a new tag, saved by its button under that name into `home`, which is emptied before. No host must
// run. Throws a Failure.
host::Container SavedPreset(const std::filesystem::path &module_file, const std::filesystem::path &home,
                            const std::string &name, const std::vector<std::string> &settings, int frames_per_second);

}  // namespace tremolux
