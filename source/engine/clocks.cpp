#include "engine/clocks.h"

#include <cmath>

#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// Cells of the speed noise a frame: it wanders over about 40 frames.
constexpr Real kSpeedNoiseRate = 0.025;

Vector SpeedNoisePoint(LONG seed) {
    const LLONG s = seed;  // 64 bit: no seed overflows
    return Vector((Real)(s + 7845), (Real)(s + 3569), (Real)(s + 4856));
}

}  // namespace

Real ReadClock(const BaseContainer &data, LONG key) {
    const Real clock = data.GetReal(key);
    return std::isfinite(clock) ? clock : 0.0;
}

Clocks ReadClocks(const BaseContainer &data) {
    Clocks clocks;
    clocks.step = ReadClock(data, kClockStep);
    clocks.shake = ReadClock(data, kShakeClock);
    clocks.focus = ReadClock(data, kFocusClock);
    clocks.zoom_drift = ReadClock(data, kZoomDriftClock);
    clocks.jolt = ReadClock(data, kJoltClock);
    clocks.auxiliary = ReadClock(data, kAuxiliaryClock);
    clocks.zoom = ReadClock(data, kZoomClock);
    return clocks;
}

void WriteClocks(const Clocks &clocks, BaseContainer *data) {
    data->SetReal(kClockStep, clocks.step);
    data->SetReal(kShakeClock, clocks.shake);
    data->SetReal(kFocusClock, clocks.focus);
    data->SetReal(kZoomDriftClock, clocks.zoom_drift);
    data->SetReal(kJoltClock, clocks.jolt);
    data->SetReal(kAuxiliaryClock, clocks.auxiliary);
    data->SetReal(kZoomClock, clocks.zoom);
}

ClockRates ReadClockRates(const BaseContainer &data) {
    ClockRates rates;
    rates.speed = ReadReal(data, kShakeSpeed);
    rates.variation = ReadReal(data, kSpeedVariation);
    rates.focus_rate = ReadReal(data, kFocusSpeed);
    rates.zoom_rate = ReadReal(data, kZoomSpeed);
    rates.seed = ReadTruncated(data, kSeed);
    return rates;
}

// Playback and replay both advance here: a frame goes as far as the speed of the frame before it says, so a jump must
// meet playback bit for bit.
void TremoluxCamClass::AdvanceClocks(Clocks *clocks, const ClockRates &rates, Real frame, SplineData *warp_curve) {
    const Real step = clocks->step;
    clocks->auxiliary += step;
    clocks->shake += step;
    clocks->focus += step * rates.focus_rate;
    clocks->zoom_drift += step * rates.zoom_rate;
    clocks->jolt += step;
    clocks->zoom += step;

    Real warp = 0.0;  // without variation its value does not matter
    if (rates.variation != 0.0) {
        const Real noise = SNoise(SpeedNoisePoint(rates.seed), frame * kSpeedNoiseRate);
        warp = RemapValue(noise, -1.0, 1.0, -1.0, 1.0, warp_curve, 0, 0, 0);
    }
    clocks->step = rates.speed + warp * rates.variation * rates.speed;
}
