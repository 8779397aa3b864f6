#include "library/gyro/gyro_bias.h"

#include "host/value/radians.h"

namespace tremolux {
namespace {

constexpr double kStretch = 1;                                      // seconds
constexpr double kMostError = 1 * host::kRadiansPerDegree;          // a second
constexpr double kMostTremble = 0.3 * host::kRadiansPerDegree;      // a second, about the mean: below any hand's
constexpr std::size_t kFewestSamples = 10;

struct Stretch {
    std::size_t count = 0;
    Eigen::Vector3d sum = Eigen::Vector3d::Zero();
    double squares = 0;

    void Add(const Eigen::Vector3d &rate) {
        ++count;
        sum += rate;
        squares += rate.squaredNorm();
    }
    Eigen::Vector3d Mean() const { return sum / static_cast<double>(count); }
    bool IsStill() const {
        if (count < kFewestSamples) return false;
        const double variance = squares / static_cast<double>(count) - Mean().squaredNorm();
        return variance <= kMostTremble * kMostTremble && Mean().norm() <= kMostError;
    }
};

}  // namespace

GyroBias BiasOf(const std::vector<GyroSample> &rates) {
    Stretch whole, still, second;
    double start = rates.empty() ? 0 : rates.front().time;
    for (const GyroSample &sample : rates) {
        if (sample.time - start >= kStretch) {
            if (second.IsStill()) {
                still.count += second.count;
                still.sum += second.sum;
            }
            second = {};
            start = sample.time;
        }
        second.Add(sample.value);
        whole.Add(sample.value);
    }
    if (still.count > 0) return {still.Mean(), BiasFrom::kStillPart};
    if (whole.count > 0 && whole.Mean().norm() <= kMostError) return {whole.Mean(), BiasFrom::kWhole};
    return {};
}

}  // namespace tremolux
