// Recorded motion as camera files: the readers that the table of formats has.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

CameraMove ReadFilm(const std::string &file, std::string_view bytes, const FormatOptions &options);
// By its index, whatever its size.
CameraMove ReadFilmFile(const std::filesystem::path &file, const FormatOptions &options);
CameraMove ReadPayloads(const std::string &file, std::string_view bytes, const FormatOptions &options);

}  // namespace tremolux
