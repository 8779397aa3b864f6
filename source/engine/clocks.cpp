#include "engine/clocks.h"

#include "engine/operations.h"

namespace engine {

namespace {

// Cells of the speed noise a frame: it wanders over about 40 frames.
constexpr double kSpeedNoiseRate = 0.025;
constexpr Range kNoiseRange = {-1.0, 1.0};

Vector3 SpeedNoisePoint(std::int64_t seed) {  // 64 bit: no seed overflows
    return {static_cast<double>(seed + 7845), static_cast<double>(seed + 3569), static_cast<double>(seed + 4856)};
}

}  // namespace

bool operator==(const ClockSettings &a, const ClockSettings &b) {
    return a.speed == b.speed && a.variation == b.variation && a.focus_rate == b.focus_rate &&
           a.zoom_rate == b.zoom_rate && a.seed == b.seed;
}

void AdvanceClocks(const ClockSettings &settings, double frame, void *warp_curve, Operations *operations,
                   Clocks *clocks) {
    const double step = clocks->step;
    clocks->auxiliary += step;
    clocks->shake += step;
    clocks->focus += step * settings.focus_rate;
    clocks->zoom_drift += step * settings.zoom_rate;
    clocks->jolt += step;
    clocks->zoom += step;

    double warp = 0.0;  // without variation its value does not matter
    if (settings.variation != 0.0) {
        const double noise = operations->host.noise(SpeedNoisePoint(settings.seed), frame * kSpeedNoiseRate);
        warp = operations->Remap(noise, kNoiseRange, kNoiseRange, warp_curve, PastEnd::kAddsRanges);
    }
    clocks->step = settings.speed + warp * settings.variation * settings.speed;
}

}  // namespace engine
