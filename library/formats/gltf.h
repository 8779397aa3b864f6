// A camera as glTF 2.0 (.gltf), with everything in the one file.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "library/moves/camera_move.h"

namespace tremolux {

std::string WriteGltf(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
