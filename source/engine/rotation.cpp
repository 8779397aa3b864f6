#include "engine/rotation.h"

#include "engine/numbers.h"
#include "engine/operations.h"
#include "engine/settings.h"

namespace engine {

namespace {

// Cells of noise for each unit of clock and speed.
constexpr Layers kRates = {0.01, 0.1, 0.7};

// Heading and pitch share x on purpose: a hand turns both at once.
constexpr ChannelPoints kPoints[] = {{{2973, 0, 876, 54789}, {2013, 0, 1987, 6524}, {2106, 0, 9876, 32547}},
                                     {{2973, 0, 35896, 254123}, {2013, 0, 325789, 654123}, {2106, 0, 1458963, 254789}},
                                     {{65874, 0, 325412, 147896}, {12547, 0, 542258, 54223}, {6542, 0, 123568, 15789}}};

double RatioOf(RotationAngle angle, const Vector3 &ratio) {
    return angle == RotationAngle::kHeading ? ratio.x : angle == RotationAngle::kPitch ? ratio.y : ratio.z;
}

// The weights are angles of a slider that ends at 90 degrees; 180 / 90 * 0.5 leaves them as they are.
double WeightOf(double slider) { return slider * 180.0 / 90.0 * 0.5; }

}  // namespace

RotationSettings RotationSettingsOf(const Settings &s) {
    RotationSettings settings;
    settings.smooth = s.rotation_smooth;
    settings.target_smooth = s.target_smooth;
    settings.swing = {s.rotation_overshoot, s.rotation_overshoot_fade};
    settings.target_swing = {s.target_overshoot, s.target_overshoot_fade};
    settings.shakes_h = s.use_h;
    settings.shakes_p = s.use_p;
    settings.shakes_b = s.use_b;
    settings.weights = {s.rotation_slow, s.rotation_medium, s.rotation_fast};
    settings.ratio = {s.ratio_h, s.ratio_p, s.ratio_b};
    settings.intensity = s.rotation_intensity;
    settings.shake_smooth = s.shake_smooth;
    settings.seed = SeedOf(s);
    settings.speed = s.speed;
    settings.time_offset = s.time_offset;
    return settings;
}

bool AimAngles(const Vector3 &position, const Vector3 &target, const Host &host, Vector3 *angles) {
    Vector3 direction = target - position;
    // The squares of a length must neither overflow nor vanish.
    const double size = std::fmax(std::abs(direction.x), std::fmax(std::abs(direction.y), std::abs(direction.z)));
    if (size == 0.0 || !IsFinite(direction)) return false;
    direction = {direction.x / size, direction.y / size, direction.z / size};
    // The first axis is taken against the world's Z axis, so the three need not be orthogonal; heading and pitch come
    // from the third alone.
    *angles = host.angles_of({Normalized(Cross(direction, {0.0, 0.0, 1.0})),
                              Normalized(Cross(direction, {0.0, 1.0, 0.0})), Normalized(direction)});
    angles->z = 0.0;
    return true;
}

double ShakeRotation(RotationAngle angle, const RotationSettings &s, double clock, const Host &host) {
    const ChannelPoints &points = kPoints[static_cast<int>(angle)];
    const double time = Truncate(s.time_offset) + clock;
    const double slow = Sample(s.seed, points.slow, time * kRates.slow * s.speed, host);
    const double medium = Sample(s.seed, points.medium, time * kRates.medium * s.speed, host);
    const double fast = Sample(s.seed, points.fast, time * kRates.fast * s.speed, host);
    const double amplitude = RatioOf(angle, s.ratio) * s.intensity;
    return WeightOf(s.weights.slow) * slow * 0.25 * amplitude +
           medium * 0.1 * amplitude * 0.5 * WeightOf(s.weights.medium) +
           fast * 0.0125 * amplitude * 0.25 * WeightOf(s.weights.fast);
}

Vector3 StepRotation(const RotationSettings &s, const RotationInput &input, Operations *operations,
                     RotationMemory *memory) {
    const Host &host = operations->host;
    const Vector3 present = IsFinite(memory->input.value) ? memory->input.value : input.angles;
    Vector3 goal = input.angles;
    // On top of the target there is nothing to turn to.
    if (input.is_aiming && !AimAngles(input.position, input.target, host, &goal)) goal = present;
    goal = host.nearest_angles(present, goal);

    const Coefficients c = operations->InputSmoothingTwin(input.is_aiming ? s.target_smooth : s.smooth);
    const Vector3 smoothed = Filter(c, goal, input.restart, operations, &memory->input);
    const Vector3 angles = input.is_aiming ? OvershootOrRest(Channel::kTarget, smoothed, s.target_swing, operations,
                                                             &memory->target_spring, &memory->spring)
                                           : OvershootOrRest(Channel::kRotation, smoothed, s.swing, operations,
                                                             &memory->spring, &memory->target_spring);
    if (!s.shakes_h && !s.shakes_p && !s.shakes_b) return angles;

    Vector3 shake;
    if (s.shakes_h) shake.x = operations->ShakeRotation(RotationAngle::kHeading, s, input.clock);
    if (s.shakes_p) shake.y = operations->ShakeRotation(RotationAngle::kPitch, s, input.clock);
    if (s.shakes_b) shake.z = operations->ShakeRotation(RotationAngle::kBank, s, input.clock);
    return angles + FilterShake(s.shake_smooth, shake, input.restart, operations, &memory->shake);
}

}  // namespace engine
