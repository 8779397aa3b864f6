#include "library/gyro/orientation.h"

#include <algorithm>
#include <iterator>

namespace tremolux {
namespace {

// Of what the samples' mean keeps of their own length, at least; what shakes more than it weighs has no upright.
constexpr double kLeastAgreement = 0.2;

Eigen::Quaterniond Turn(const Eigen::Vector3d &radians) {
    const double angle = radians.norm();
    return angle > 0 ? Eigen::Quaterniond(Eigen::AngleAxisd(angle, radians / angle)) : Eigen::Quaterniond::Identity();
}

std::vector<GyroSample> SeenFromTheWorld(const std::vector<GyroSample> &samples,
                                         const std::vector<GyroOrientation> &orientations) {
    std::vector<GyroSample> seen = samples;
    for (GyroSample &sample : seen) sample.value = OrientationAt(orientations, sample.time) * sample.value;
    return seen;
}

Eigen::Vector3d MeanOf(const std::vector<GyroSample> &samples) {
    Eigen::Vector3d sum = Eigen::Vector3d::Zero();
    for (const GyroSample &sample : samples) sum += sample.value;
    return samples.empty() ? sum : Eigen::Vector3d(sum / static_cast<double>(samples.size()));
}

bool Agree(const std::vector<GyroSample> &ups) {
    double length = 0;
    for (const GyroSample &up : ups) length += up.value.norm();
    return length > 0 && MeanOf(ups).norm() * static_cast<double>(ups.size()) >= kLeastAgreement * length;
}

// Each sample becomes the mean of those at most `seconds` away.
std::vector<GyroSample> Smoothed(const std::vector<GyroSample> &samples, double seconds) {
    std::vector<GyroSample> smoothed = samples;
    std::size_t first = 0, end = 0;
    Eigen::Vector3d sum = Eigen::Vector3d::Zero();
    for (GyroSample &sample : smoothed) {
        for (; end < samples.size() && samples[end].time <= sample.time + seconds; ++end) sum += samples[end].value;
        for (; samples[first].time < sample.time - seconds; ++first) sum -= samples[first].value;
        sample.value = sum / static_cast<double>(end - first);
    }
    return smoothed;
}

Eigen::Vector3d ValueAt(const std::vector<GyroSample> &samples, double time) {
    const auto next = std::upper_bound(samples.begin(), samples.end(), time,
                                       [](double t, const GyroSample &sample) { return t < sample.time; });
    if (next == samples.begin()) return samples.front().value;
    if (next == samples.end()) return samples.back().value;
    const GyroSample &last = *std::prev(next);
    return last.value + (next->value - last.value) * ((time - last.time) / (next->time - last.time));
}

// The shortest turn to y; of what hangs upside down, half a turn about x.
Eigen::Quaterniond ToUpright(const Eigen::Vector3d &direction) {
    constexpr double kHanging = 1e-12;
    const Eigen::Vector3d up = direction.normalized();
    if (1 + up.y() < kHanging) return {0, 1, 0, 0};
    return Eigen::Quaterniond(1 + up.y(), -up.z(), 0, up.x()).normalized();
}

}  // namespace

std::vector<GyroOrientation> Integrated(const std::vector<GyroSample> &rates, const Eigen::Vector3d &bias) {
    std::vector<GyroOrientation> orientations;
    orientations.reserve(rates.size());
    Eigen::Quaterniond rotation = Eigen::Quaterniond::Identity();
    for (std::size_t i = 0; i < rates.size(); ++i) {
        if (i > 0) {
            const Eigen::Vector3d mean = (rates[i - 1].value + rates[i].value) / 2 - bias;
            rotation = (rotation * Turn(mean * (rates[i].time - rates[i - 1].time))).normalized();
        }
        orientations.push_back({rates[i].time, rotation});
    }
    return orientations;
}

Eigen::Quaterniond OrientationAt(const std::vector<GyroOrientation> &orientations, double time) {
    const auto next = std::upper_bound(orientations.begin(), orientations.end(), time,
                                       [](double t, const GyroOrientation &known) { return t < known.time; });
    if (next == orientations.begin()) return orientations.front().rotation;
    if (next == orientations.end()) return orientations.back().rotation;
    const GyroOrientation &last = *std::prev(next);
    return last.rotation.slerp((time - last.time) / (next->time - last.time), next->rotation).normalized();
}

void LevelSlowly(const std::vector<GyroSample> &ups, double seconds, std::vector<GyroOrientation> *orientations) {
    const std::vector<GyroSample> seen = SeenFromTheWorld(ups, *orientations);
    if (!Agree(seen)) return;
    // Twice, so that a step within is followed by a ramp without corners.
    const std::vector<GyroSample> slow = Smoothed(Smoothed(seen, seconds / 2), seconds / 2);
    for (GyroOrientation &orientation : *orientations)
        orientation.rotation = (ToUpright(ValueAt(slow, orientation.time)) * orientation.rotation).normalized();
}

void LevelOnce(const std::vector<GyroSample> &ups, std::vector<GyroOrientation> *orientations) {
    const std::vector<GyroSample> seen = SeenFromTheWorld(ups, *orientations);
    if (!Agree(seen)) return;
    const Eigen::Quaterniond upright = ToUpright(MeanOf(seen));
    for (GyroOrientation &orientation : *orientations)
        orientation.rotation = (upright * orientation.rotation).normalized();
}

}  // namespace tremolux
