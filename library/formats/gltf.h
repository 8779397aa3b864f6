// A camera as glTF 2.0: text (.gltf) and binary (.glb). Written with everything in the one file.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// Of either form, which the first bytes tell. The camera must be animated through its node, the nodes around it and its
// angle of view, or not at all.
CameraMove ReadGltf(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteGltf(const CameraMove &move, const FormatOptions &options);
std::string WriteGlb(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
