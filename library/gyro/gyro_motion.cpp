#include "library/gyro/gyro_motion.h"

#include "host/value/radians.h"
#include "library/formats/numbers.h"
#include "library/gyro/orientation.h"

namespace tremolux {
namespace {

// Slower than any hand, faster than a sensor's drift.
constexpr double kLevelSeconds = 5;

std::vector<GyroSample> Opposite(std::vector<GyroSample> samples) {
    for (GyroSample &sample : samples) sample.value = -sample.value;
    return samples;
}

std::string BiasWords(const GyroBias &bias) {
    const Eigen::Vector3d degrees = bias.rate / host::kRadiansPerDegree;
    const std::string rate =
        ShortNumber(degrees.x()) + ", " + ShortNumber(degrees.y()) + ", " + ShortNumber(degrees.z()) + " degrees a second";
    switch (bias.from) {
        case BiasFrom::kStillPart:
            return "the sensor's error is the mean rate of its still part, taken away: " + rate;
        case BiasFrom::kWhole:
            return "no part stands still: the sensor's error is the mean rate of the whole, taken away: " + rate;
        case BiasFrom::kNothing:
            break;
    }
    return "no part stands still and the mean rate is a turn: nothing is taken away as the sensor's error";
}

}  // namespace

GyroMotion MotionOf(const GyroLog &log) {
    GyroMotion motion;
    const std::vector<GyroSample> ups = log.gravity.empty() ? log.accelerations : Opposite(log.gravity);
    if (!log.orientations.empty()) {
        motion.is_own = true;
        motion.orientations = log.orientations;
        if (!log.is_upright && !ups.empty()) LevelOnce(ups, &motion.orientations);
        motion.notes.emplace_back("the camera's own orientations are used");
        if (!log.is_upright && ups.empty())
            motion.notes.emplace_back("nothing says where down is: the first orientation counts as upright");
        return motion;
    }
    motion.bias = BiasOf(log.rates);
    motion.orientations = Integrated(log.rates, motion.bias.rate);
    motion.notes.emplace_back("the rates are integrated");
    motion.notes.push_back(BiasWords(motion.bias));
    if (!ups.empty()) {
        LevelSlowly(ups, kLevelSeconds, &motion.orientations);
        motion.notes.emplace_back("pitch and bank are levelled by gravity, heading has no reference");
    } else {
        motion.notes.emplace_back("nothing says where down is: the first moment counts as upright");
    }
    return motion;
}

}  // namespace tremolux
