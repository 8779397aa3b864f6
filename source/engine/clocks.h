// The clocks that the noise is sampled at: frames at speed 1.
#pragma once

#include <cstdint>

namespace engine {

class Operations;

struct Clocks {
    double step = 0.0;  // how far they go at the next frame: the last frame's speed
    double shake = 0.0, focus = 0.0, zoom_drift = 0.0, jolt = 0.0, auxiliary = 0.0, zoom = 0.0;
};

// What drives them: speed and rates are fractions, the variation is one of 0 to 1.
struct ClockSettings {
    double speed = 0.0, variation = 0.0, focus_rate = 0.0, zoom_rate = 0.0;
    std::int32_t seed = 0;
};
bool operator==(const ClockSettings &a, const ClockSettings &b);

// To `frame`, the next one: as far as the speed of the frame before it said, so that the first frame after a start adds
// nothing. Playback and replay both advance here: a jump meets playback bit for bit.
//   warp_curve  the host's curve of kSpeedWarpCurve
void AdvanceClocks(const ClockSettings &settings, double frame, void *warp_curve, Operations *operations,
                   Clocks *clocks);

}  // namespace engine
