// The camera's rotations that a recording says, or that follow from it.
#pragma once

#include "library/gyro/gyro_bias.h"
#include "library/gyro/gyro_log.h"

namespace tremolux {

struct GyroMotion {
    std::vector<GyroOrientation> orientations;  // to a world with y up; at least one
    bool is_own = false;                        // the camera worked them out itself
    GyroBias bias;                              // taken away from the rates; nothing for own orientations
    std::vector<std::string> notes;             // what was done, a line each
};

// The camera's own orientations where it has them, else its rates integrated. The log must have either.
GyroMotion MotionOf(const GyroLog &log);

}  // namespace tremolux
