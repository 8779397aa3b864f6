#include "library/measures/rolling_shutter.h"

#include <algorithm>
#include <cmath>

#include "library/moves/turns.h"

namespace tremolux {
namespace {

void Add(double value, std::int64_t frame, Deviation *deviation) {
    deviation->rms += value * value;
    if (std::abs(value) <= deviation->peak) return;
    deviation->peak = std::abs(value);
    deviation->peak_frame = frame;
}

}  // namespace

RollingShutter MeasureRollingShutter(const CameraMove &move, double readout, int width) {
    RollingShutter shutter;
    shutter.shear.peak_frame = shutter.stretch.peak_frame = move.first_frame;
    const std::size_t frames = move.samples.size();
    TurnVector speed{0, 0, 0};
    for (std::size_t i = 0; i < frames; ++i) {
        if (i + 1 < frames) {
            // A turn vector is half the angle.
            speed = 2 * move.rate.PerSecond() *
                    TurnTo(RotationOf(move.samples[i].angles), RotationOf(move.samples[i + 1].angles));
        }
        const double pixels_a_radian = move.samples[i].focal_length / move.aperture_width * width;
        const std::int64_t frame = move.first_frame + static_cast<std::int64_t>(i);
        Add(speed.y() * readout * pixels_a_radian, frame, &shutter.shear);
        Add(speed.x() * readout * pixels_a_radian, frame, &shutter.stretch);
    }
    for (Deviation *deviation : {&shutter.shear, &shutter.stretch})
        deviation->rms = std::sqrt(deviation->rms / static_cast<double>(frames));
    return shutter;
}

}  // namespace tremolux
