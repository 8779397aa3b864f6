// A point that the camera turns to or focuses on.
#pragma once

#include <string>

#include "library/formats/format.h"

namespace tremolux {

// "x,y,z" in scene units, a point that stands still (one sample), or the name of a file with a sample for each frame of
// the move. Throws a Failure that names `option` or the file.
CameraMove ReadAimPoint(const char *option, const std::string &text, const CameraMove &move, FormatOptions formats);

}  // namespace tremolux
