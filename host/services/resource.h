// A module's resource folder: symbols and texts.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace host {

// A folder with a c4d_symbols.h in it.
bool IsResourceFolder(const std::filesystem::path &folder);
// The text of a number, UTF-8; empty when the folder has none.
std::string ResourceString(const std::filesystem::path &folder, std::int32_t id);

}  // namespace host
