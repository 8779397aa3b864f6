// How far a shake is from a recorded one.
#pragma once

#include <string>

#include "library/moves/played_motion.h"

namespace tremolux {

// DistanceOf what was added to the input, from the recording's shake. Throws a Failure for either that is shorter than two
// seconds or stands still; `name` is where the recording is from.
double DistanceFromRecording(const PlayedMotion &motion, const CameraMove &recording, const std::string &name);

}  // namespace tremolux
