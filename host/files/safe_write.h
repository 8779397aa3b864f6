// Files are replaced only by complete new ones.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host {

// Writes beside the target and renames over it. false with one line in `error`; the target is then untouched.
bool WriteFileSafely(const std::filesystem::path &file, std::string_view bytes, std::string *error);
// The whole file; false with one line in `error`.
bool ReadFile(const std::filesystem::path &file, std::string *bytes, std::string *error);

}  // namespace host
