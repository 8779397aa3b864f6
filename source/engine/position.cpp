#include "engine/position.h"

#include "engine/operations.h"
#include "engine/settings.h"

namespace engine {

namespace {

// Cells of noise for each unit of clock and speed.
constexpr Layers kRates = {0.005, 0.035, 0.5};
// The slow slider counts twice.
constexpr double kSlowShare = 2.0;

constexpr ChannelPoints kPoints[] = {
    {{1235, 5846, 87755, 98745}, {275, 0, 54236, 9875}, {368, 0, 32158, 97845}},
    {{1350, 65478, 87755, 98745}, {201, 0, 125478, 332145}, {985, 0, 325647, 698745}},
    {{7865, 65478, 87755, 325412}, {2456, 0, 21458, 325698}, {9876, 0, 325687, 254145}}};

double RatioOf(PositionAxis axis, const Vector3 &ratio) {
    return axis == PositionAxis::kX ? ratio.x : axis == PositionAxis::kY ? ratio.y : ratio.z;
}

}  // namespace

PositionSettings PositionSettingsOf(const Settings &s) {
    PositionSettings settings;
    settings.smooth = s.position_smooth;
    settings.swing = {s.position_overshoot, s.position_overshoot_fade};
    settings.shakes_x = s.use_x;
    settings.shakes_y = s.use_y;
    settings.shakes_z = s.use_z;
    settings.weights = {kSlowShare * s.position_slow, s.position_medium, s.position_fast};
    settings.ratio = {s.ratio_x, s.ratio_y, s.ratio_z};
    settings.intensity = s.position_intensity;
    settings.scale = SceneScale(s);
    settings.shake_smooth = s.shake_smooth;
    settings.seed = SeedOf(s);
    settings.speed = s.speed;
    settings.time_offset = s.time_offset;
    return settings;
}

double ShakePosition(PositionAxis axis, const PositionSettings &s, double clock, const Host &host) {
    const ChannelPoints &points = kPoints[static_cast<int>(axis)];
    const double time = s.time_offset + clock;
    const double slow = Sample(s.seed, points.slow, time * kRates.slow * s.speed, host);
    const double medium = Sample(s.seed, points.medium, time * kRates.medium * s.speed, host);
    const double fast = Sample(s.seed, points.fast, time * kRates.fast * s.speed, host);
    const double amplitude = RatioOf(axis, s.ratio) * kSceneUnitsAtScaleOne * s.scale * s.intensity;
    return 0.33 * 2.0 * s.weights.slow * slow * amplitude + 0.75 * s.weights.medium * 0.2 * medium * amplitude +
           0.025 * fast * amplitude * 0.5 * s.weights.fast;
}

Vector3 StepPosition(const PositionSettings &s, const PositionInput &input, Operations *operations,
                     PositionMemory *memory) {
    const Coefficients c = operations->InputSmoothing(s.smooth);
    const Vector3 smoothed = Filter(c, input.position, input.restart, operations, &memory->input);
    const Vector3 position =
        OvershootOrRest(Channel::kPosition, smoothed, s.swing, operations, &memory->spring, nullptr);
    if (!s.shakes_x && !s.shakes_y && !s.shakes_z) return position;

    Vector3 shake;
    if (s.shakes_x) shake.x = operations->ShakePosition(PositionAxis::kX, s, input.clock);
    if (s.shakes_y) shake.y = operations->ShakePosition(PositionAxis::kY, s, input.clock);
    if (s.shakes_z) shake.z = operations->ShakePosition(PositionAxis::kZ, s, input.clock);
    return position + FilterShake(s.shake_smooth, shake, input.restart, operations, &memory->shake);
}

}  // namespace engine
