// Camera tables: one row a frame, lengths in scene units, angles in degrees.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

// Columns by their names in the header line, in any order: frame, x, y, z, h, p, b; focal_length (mm, else 36) and
// focus_distance (scene units, else 2000) may be missing. A header of a recording is read as one.
CameraMove ReadCsv(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteCsv(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
