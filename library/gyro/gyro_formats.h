// Recorded motion as camera files: the readers that the table of formats has.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "library/formats/format.h"
#include "library/formats/source_text.h"

namespace tremolux {

CameraMove ReadFilm(const std::string &file, std::string_view bytes, const FormatOptions &options);
// By its index, whatever its size.
CameraMove ReadFilmFile(const std::filesystem::path &file, const FormatOptions &options);
CameraMove ReadPayloads(const std::string &file, std::string_view bytes, const FormatOptions &options);
CameraMove ReadGcsvMove(const std::string &file, std::string_view bytes, const FormatOptions &options);
// Of a phone app or a tracker; nothing where the table is another one.
std::optional<CameraMove> ReadSensorTable(const std::string &file, const SourceText &source, const FormatOptions &options);

}  // namespace tremolux
