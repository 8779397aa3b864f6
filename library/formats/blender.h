// A camera as a Python script (.py) that makes it in Blender.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "library/moves/camera_move.h"

namespace tremolux {

std::string WriteBlender(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
