#include "engine/focus.h"

#include "engine/numbers.h"
#include "engine/operations.h"
#include "engine/settings.h"

namespace engine {

namespace {

// Cells of noise for each unit of clock, rate and speed.
constexpr Layers kRates = {0.005, 0.035, 0.25};
constexpr ChannelPoints kPoints = {{2960, 0, 154789, 478932}, {2000, 0, 24789, 35754}, {2093, 0, 356654, 58907}};

}  // namespace

FocusSettings FocusSettingsOf(const Settings &s) {
    FocusSettings settings;
    settings.smooth = s.focus_smooth;
    settings.swing = {s.focus_overshoot, s.focus_overshoot_fade};
    settings.drifts = s.use_focus;
    settings.rate = s.focus_rate;
    settings.weights = {s.focus_drift_slow, s.focus_drift_medium, s.focus_drift_fast};
    settings.drift_smooth = s.focus_drift_smooth;
    settings.seed = Truncate(s.seed);
    settings.speed = s.speed;
    settings.time_offset = s.time_offset;
    return settings;
}

double DriftFocus(const FocusSettings &s, double drift_clock, double distance, const Host &host) {
    const double time = drift_clock + Truncate(s.time_offset);
    const double seed = s.seed;  // whole numbers this small add up exactly in a double
    const double slow = Sample(seed, kPoints.slow, s.rate * kRates.slow * time * s.speed, host);
    const double medium = Sample(seed, kPoints.medium, s.rate * kRates.medium * time * s.speed, host);
    const double fast = Sample(seed, kPoints.fast, s.rate * kRates.fast * time * s.speed, host);
    return (slow * distance * s.weights.slow / 10.0) * 0.75 * 20.0 +
           (medium * distance * s.weights.medium / 10.0) * 0.2 * 20.0 +
           (fast * distance * s.weights.fast / 10.0) * 0.05 * 20.0;
}

double StepFocus(const FocusSettings &s, const FocusInput &input, Operations *operations, FocusMemory *memory) {
    const double object_distance = input.has_object ? Length(input.object - input.camera) : 0.0;
    const bool follows_object = input.has_object && IsFinite(object_distance);
    const double goal = follows_object ? object_distance : input.distance;
    const double drift_distance = follows_object ? goal : memory->input.value;
    const double followed =
        FollowLens(Channel::kFocus, goal, s.smooth, s.swing, operations, &memory->input, &memory->spring);
    if (!s.drifts) return followed;

    const double raw = operations->DriftFocus(s, input.drift_clock, drift_distance);
    if (IsFinite(raw) && (input.starts || raw == 0.0)) return followed + raw;

    const Coefficients c = operations->ShakeSmoothing(s.drift_smooth);
    const RealFilter old = memory->drift;
    const double drift = operations->SmoothValue(c, old.carry, old.value, raw);
    const double carry = operations->SmoothCarry(c, old.carry, old.value, raw);
    const bool is_sound = IsFinite(drift) && IsFinite(carry);
    // The raw drift is kept, not the smoothed one: the next step counts from where the noise was.
    memory->drift = is_sound ? RealFilter{carry, raw} : RealFilter();
    return is_sound ? followed + drift : followed;
}

}  // namespace engine
