// Channel files of compositing programs and trackers: frame, position, rotation, vertical field of view.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

// Right-handed, Y up, looking along -Z; rotations in degrees, applied Z first, then X, then Y. The field of view may be
// missing (36 mm then); there is no focus distance (2000 then). Lines that start with # and blank ones are skipped.
CameraMove ReadChan(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteChan(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
