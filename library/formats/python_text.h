// Texts in scripts.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// A literal of Python.
std::string PythonText(const std::string &text);

// What scripts begin with: FIRST_FRAME, FRAMES_PER_SECOND (whole), FPS_BASE (what that is divided by) and RESOLUTION, a line
// each.
std::string PythonRange(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
