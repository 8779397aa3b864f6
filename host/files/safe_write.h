// Files are replaced only by complete new ones.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace host {

// The file that a symbolic link of this name leads to, which may not be there yet; the name itself where it is no link.
// Nothing when links lead in a circle.
std::optional<std::filesystem::path> FileBehindLinks(const std::filesystem::path &name);
// A complete new file takes the place of another, whose mode it gets, in one step; false when nothing changed.
bool TakePlaceOf(const std::filesystem::path &fresh, const std::filesystem::path &file);
// Writes beside the target and lets that take its place: of a symbolic link, too, which is not followed. false with one
// line in `error`; the target is then untouched, as one is that is write-protected.
bool WriteFileSafely(const std::filesystem::path &file, std::string_view bytes, std::string *error);
// The whole file; false with one line in `error`.
bool ReadFile(const std::filesystem::path &file, std::string *bytes, std::string *error);

}  // namespace host
