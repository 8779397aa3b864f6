#include "engine/jolts.h"

#include "engine/numbers.h"
#include "engine/operations.h"
#include "engine/settings.h"

namespace engine {

namespace {

constexpr double kTimeScale = 1.25;
constexpr double kFalloffShare = 0.1;
// A smoothed knock starts higher by this share of its smoothing.
constexpr double kSmoothedRise = 0.5;
// An envelope below this is no longer filtered.
constexpr double kFaded = 0.0001;

struct JoltNoise {
    double rate;  // cells of noise for each unit of clock and speed
    NoisePoint x, y, z;
};
constexpr JoltNoise kPositionNoise = {0.035, {275, 0, 6541, 1257}, {256, 0, 8745, 25894}, {1902, 0, 98745, 235874}};
constexpr JoltNoise kRotationNoise = {
    0.1, {2013, 0, 8796, 20999}, {14876, 0, 74587, 32458}, {315112, 0, 325874, 98745}};

// Towards zero, saturated.
std::int64_t WholeOf(double value) {
    constexpr double kLimit = 9223372036854775808.0;
    if (value >= kLimit) return INT64_MAX;
    if (value < -kLimit) return INT64_MIN;
    return static_cast<std::int64_t>(value);
}

// Whether the interval's knock falls on this frame of the jolt clock: each block of `interval` frames has one, at a
// place that a hash of the block's number and the seed picks.
bool HitsInInterval(std::int64_t clock_frame, std::int32_t interval, double seed) {
    if (interval < 1) return false;
    const std::int64_t number = clock_frame / interval;
    const double block = static_cast<double>(number);
    const std::int64_t hash = WholeOf(block * block * 111.333 * block + seed * 131.92111);
    const std::int64_t place = hash % interval + 1;
    return WholeOf((block + 1.0) * interval - static_cast<double>(place) * 0.8) == clock_frame;
}

// One knock, and what it does to one kind of channel.
struct Knock {
    bool hits, pushes;
    double intensity;
    double time;    // of the noise, before the channel's rate
    Vector3 sizes;  // of a full push
};

void StepJolt(const JoltSettings &s, const Knock &knock, const JoltNoise &noise, const Coefficients &c,
              Operations *operations, Jolt *jolt) {
    Jolt next = *jolt;
    if (knock.hits) next.target = knock.intensity * kSmoothedRise * s.smooth + knock.intensity;
    if (next.target < 0.0) next.target = 0.0;
    if (knock.intensity != 0.0) {
        next.envelope = operations->SmoothValue(c, jolt->carry, jolt->envelope, next.target);
        next.carry = operations->SmoothCarry(c, jolt->carry, jolt->envelope, next.target);
    }
    Vector3 push;
    if (knock.pushes && (next.envelope != 0.0 || jolt->previous != 0.0 || next.target != 0.0)) {
        const double time = knock.time * noise.rate * s.speed;
        const Host &host = operations->host;
        push = {next.envelope * Sample(s.seed, noise.x, time, host) * knock.sizes.x,
                next.envelope * Sample(s.seed, noise.y, time, host) * knock.sizes.y,
                next.envelope * Sample(s.seed, noise.z, time, host) * knock.sizes.z};
    }
    if (!IsFinite(next.target) || !IsFinite(next.envelope) || !IsFinite(next.carry) || !IsFinite(push)) {
        *jolt = Jolt();
        return;
    }
    const Vector3 filtered = Filter(c, push, false, operations, &next.filter);
    next.previous = next.envelope;
    next.target -= s.falloff_step;
    next.offset = next.envelope >= kFaded ? filtered : push;
    *jolt = next;
}

}  // namespace

JoltSettings JoltSettingsOf(const Settings &s, double frames_per_second) {
    JoltSettings settings;
    settings.pushes = s.use_jolt;
    settings.interval = FrameOfTime(s.jolt_interval, frames_per_second);
    settings.position_intensity = s.jolt_position_intensity;
    settings.rotation_intensity = s.jolt_rotation_intensity;
    settings.smooth = s.jolt_smooth;
    settings.falloff_step = kFalloffShare * s.jolt_falloff;
    settings.scale = SceneScale(s);
    settings.shake_position_intensity = s.position_intensity;
    settings.shake_rotation_intensity = s.rotation_intensity;
    settings.position_ratio = {s.ratio_x, s.ratio_y, s.ratio_z};
    settings.rotation_ratio = {s.ratio_h, s.ratio_p, s.ratio_b};
    settings.time_scale = kTimeScale;
    settings.seed = SeedOf(s);
    settings.speed = s.speed;
    settings.time_offset = s.time_offset;
    return settings;
}

void StepJolts(const JoltSettings &s, const JoltInput &input, Operations *operations, JoltMemory *memory) {
    const std::int64_t clock_frame = static_cast<std::int64_t>(input.whole_clock) + Truncate(s.time_offset);
    const bool hits = HitsInInterval(clock_frame, s.interval, s.seed) || input.is_listed;
    const Coefficients c = operations->InputSmoothingTwin(s.smooth);
    const double time = (input.clock + s.time_offset) * s.time_scale;
    const double size = s.scale * kSceneUnitsAtScaleOne * s.shake_position_intensity;
    const Vector3 &ratio = s.position_ratio;
    StepJolt(s, {hits, s.pushes, s.position_intensity, time, {ratio.x * size, ratio.y * size, ratio.z * size}},
             kPositionNoise, c, operations, &memory->position);
    StepJolt(s, {hits, s.pushes, s.rotation_intensity, time, s.rotation_ratio * s.shake_rotation_intensity},
             kRotationNoise, c, operations, &memory->rotation);
}

}  // namespace engine
