// What a rate sensor says while it stands still.
#pragma once

#include <vector>

#include "library/gyro/gyro_log.h"

namespace tremolux {

enum class BiasFrom { kStillPart, kWhole, kNothing };

struct GyroBias {
    Eigen::Vector3d rate = Eigen::Vector3d::Zero();  // radians a second
    BiasFrom from = BiasFrom::kNothing;
};

// The mean rate of the seconds in which the camera stood; else of the whole recording, where that is as little as sensors
// err by: 1 degree a second; else none, for it is a turn.
GyroBias BiasOf(const std::vector<GyroSample> &rates);

}  // namespace tremolux
