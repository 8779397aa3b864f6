// What a shake added as a script that puts it onto a camera in Blender.
#pragma once

#include <string>
#include <vector>

#include "library/direction/added.h"
#include "library/formats/format.h"

namespace tremolux {

// `added` has a sample for each frame of the move, whose rate and picture the script knows. `camera`: its name there; empty: the
// scene's active one.
std::string AddedScript(const CameraMove &move, const std::vector<AddedMotionSample> &added, const std::string &camera,
                        const FormatOptions &options);

}  // namespace tremolux
