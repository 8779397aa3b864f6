// A recording of a rate sensor as a camera move: it turns and does not leave its place.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "library/gyro/gyro_log.h"
#include "library/gyro/gyro_motion.h"

namespace tremolux {

// What a move was made of.
struct GyroRecording {
    GyroLog log;
    GyroMotion motion;
};

// At the film's rate, else at that of the options, else at 30 frames a second; frame 0 is the film's first, or the
// recording's. Throws a Failure for more frames than a move has.
CameraMove MoveOfGyro(const std::string &file, GyroLog log, const FormatOptions &options);

}  // namespace tremolux
