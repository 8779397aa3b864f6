#include "engine/zoom.h"

#include "engine/numbers.h"
#include "engine/operations.h"
#include "engine/settings.h"

namespace engine {

namespace {

// Cells of noise for each unit of clock, rate and speed.
constexpr Layers kRates = {0.005, 0.035, 0.25};
constexpr NoisePoint kSlow = {2960, 19758, 25100, 0}, kMedium = {2000, 130569, 10356, 0}, kFast = {0, 87456, 48962, 0};
constexpr Range kNoiseRange = {-1.0, 1.0};

}  // namespace

ZoomSettings ZoomSettingsOf(const Settings &s) {
    ZoomSettings settings;
    settings.smooth = s.zoom_smooth;
    settings.swing = {s.zoom_overshoot, s.zoom_overshoot_fade};
    settings.drifts = s.use_zoom;
    settings.rate = s.zoom_rate;
    settings.weights = {s.zoom_drift_slow, s.zoom_drift_medium, s.zoom_drift_fast};
    settings.drift_smooth = s.zoom_drift_smooth;
    settings.seed = SeedOf(s);
    settings.speed = s.speed;
    settings.time_offset = s.time_offset;
    return settings;
}

double DriftZoom(const ZoomSettings &s, double drift_clock, Operations *operations) {
    const Host &host = operations->host;
    const OwnedCurve ease(host, kZoomDriftCurve);
    if (ease.Get() == nullptr) return 0.0;
    const double time = Truncate(s.time_offset) + drift_clock;
    // The fast layer is placed by the rate, not by the seed: it stays when the seed changes.
    const double fast_place = kRates.fast * s.rate;
    const double slow = Sample(s.seed, kSlow, s.rate * kRates.slow * time * s.speed, host);
    const double medium = Sample(s.seed, kMedium, s.rate * kRates.medium * time * s.speed, host);
    const double fast = Sample(fast_place, kFast, time * fast_place * s.speed, host);
    const auto eased = [&](double noise) {
        return operations->Remap(noise, kNoiseRange, kNoiseRange, ease.Get(), PastEnd::kWraps);
    };
    return eased(slow) * s.weights.slow + 0.6 * s.weights.medium * eased(medium) + eased(fast) * s.weights.fast * 0.15;
}

double StepZoom(const ZoomSettings &s, const ZoomInput &input, Operations *operations, ZoomMemory *memory) {
    const double followed =
        FollowLens(Channel::kZoom, input.focal_length, s.smooth, s.swing, operations, &memory->input, &memory->spring);
    if (!s.drifts) return followed;

    const double goal = operations->DriftZoom(s, input.drift_clock) * input.focal_length;
    RealFilter next = {0.0, goal};
    if (!input.starts) {
        const Coefficients c = operations->ShakeSmoothing(s.drift_smooth);
        const RealFilter &old = memory->drift;
        next.value = operations->SmoothValue(c, old.carry, old.value, goal);
        // Against the value just reached, not against the goal: the drift lags more than it swings.
        next.carry = operations->SmoothCarry(c, old.carry, old.value, next.value);
    }
    if (!IsFinite(next.value) || !IsFinite(next.carry)) next = RealFilter();
    memory->drift = next;
    return followed + next.value;
}

}  // namespace engine
