#include "library/gyro/sensor_time.h"

#include <algorithm>
#include <iterator>

#include "library/failure.h"
#include "library/formats/numbers.h"

namespace tremolux {

std::vector<double> TimesOf(const std::vector<GyroSample> &samples) {
    std::vector<double> times;
    times.reserve(samples.size());
    for (const GyroSample &sample : samples) times.push_back(sample.time);
    return times;
}

double SecondsOfSensorTimes(const std::vector<double> &times) {
    constexpr double kUnits[] = {1, 1e-3, 1e-6, 1e-9}, kLongestStep = 0.2;
    std::vector<double> steps;
    for (std::size_t i = 1; i < times.size(); ++i) {
        if (times[i] > times[i - 1]) steps.push_back(times[i] - times[i - 1]);
    }
    if (steps.empty()) return kUnits[0];
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    for (const double unit : kUnits) {
        if (*middle * unit <= kLongestStep) return unit;
    }
    return kUnits[std::size(kUnits) - 1];
}

void ScaleSamples(const std::string &file, const SensorScale &scale, const Eigen::Matrix3d &axes,
                  std::vector<GyroSample> *samples) {
    for (GyroSample &sample : *samples) {
        sample.time *= scale.seconds;
        sample.value = axes * sample.value * scale.value;
        if (sample.value.cwiseAbs().maxCoeff() > scale.limit)
            throw Failure(kExitInput, file + ": found " + ShortNumber(sample.value.cwiseAbs().maxCoeff()) + " after " +
                                          ShortNumber(sample.time) + " s, expected what a sensor measures, at most " +
                                          ShortNumber(scale.limit));
    }
}

}  // namespace tremolux
