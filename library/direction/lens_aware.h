// A turn that stays the same in the picture when the lens changes.
#pragma once

#include <Eigen/Geometry>

namespace tremolux {

struct LensAware {
    double focal_length = 36;  // millimetres: where the turn stays as it is
    double share = 1;          // 0: as without; 1: in pixels the same at every focal length
};

// A turn by t about an axis in the picture's plane moves the middle of the picture by focal length * tan(t). Bank, about the
// axis of view, moves the picture's points alike through every lens, and stays.
Eigen::Quaterniond TurnThroughLens(const Eigen::Quaterniond &turn, double focal_length, const LensAware &lens);

}  // namespace tremolux
