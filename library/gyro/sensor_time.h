// Counts of a sensor as seconds and numbers with a unit.
#pragma once

#include <string>
#include <vector>

#include "library/gyro/gyro_log.h"

namespace tremolux {

constexpr double kMaxTime = 1e19;  // nanoseconds since 1970, and more

std::vector<double> TimesOf(const std::vector<GyroSample> &samples);

// Seconds in one unit of these times: 1, 1e-3, 1e-6 or 1e-9, the first that makes at least 5 samples a second (by the middle
// one of the steps that rise).
double SecondsOfSensorTimes(const std::vector<double> &times);

struct SensorScale {
    double seconds;  // of one unit of time
    double value;    // of one count
    double limit;    // that no value passes
};
// Scaled, and turned onto the picture's axes. Throws a Failure for what is beyond the limit.
void ScaleSamples(const std::string &file, const SensorScale &scale, const Eigen::Matrix3d &axes,
                  std::vector<GyroSample> *samples);

}  // namespace tremolux
