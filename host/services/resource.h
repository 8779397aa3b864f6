// A module's resource folder.
#pragma once

#include <filesystem>

namespace host {

// A folder with a c4d_symbols.h in it.
bool IsResourceFolder(const std::filesystem::path &folder);

}  // namespace host
