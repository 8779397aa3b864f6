// Where and when the noise is sampled, and how much of each layer goes into the shake and the drifts.
#include "engine/noise.h"

#include "engine/curves.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// The three layers of one channel: slow, medium, fast.
struct ChannelPoints {
    SamplePoint layer[3];
};

// Cells of noise for each unit of clock and speed.
struct LayerRates {
    Real slow, medium, fast;
};

constexpr LayerRates kPositionRates = {0.005, 0.035, 0.5};
constexpr LayerRates kRotationRates = {0.01, 0.1, 0.7};
constexpr LayerRates kFocusRates = {0.005, 0.035, 0.25};
constexpr LayerRates kZoomRates = {0.005, 0.035, 0.25};

constexpr Real kSceneUnitsAtScaleOne = 1000.0;

constexpr ChannelPoints kPositionX = {{{1235, 5846, 87755, 98745}, {275, 0, 54236, 9875}, {368, 0, 32158, 97845}}};
constexpr ChannelPoints kPositionY = {
    {{1350, 65478, 87755, 98745}, {201, 0, 125478, 332145}, {985, 0, 325647, 698745}}};
constexpr ChannelPoints kPositionZ = {
    {{7865, 65478, 87755, 325412}, {2456, 0, 21458, 325698}, {9876, 0, 325687, 254145}}};

// Heading and pitch share x on purpose: a hand turns both at once.
constexpr ChannelPoints kRotationH = {{{2973, 0, 876, 54789}, {2013, 0, 1987, 6524}, {2106, 0, 9876, 32547}}};
constexpr ChannelPoints kRotationP = {
    {{2973, 0, 35896, 254123}, {2013, 0, 325789, 654123}, {2106, 0, 1458963, 254789}}};
constexpr ChannelPoints kRotationB = {
    {{65874, 0, 325412, 147896}, {12547, 0, 542258, 54223}, {6542, 0, 123568, 15789}}};

constexpr ChannelPoints kFocus = {{{2960, 0, 154789, 478932}, {2000, 0, 24789, 35754}, {2093, 0, 356654, 58907}}};
constexpr SamplePoint kZoomSlow = {2960, 19758, 25100, 0}, kZoomMedium = {2000, 130569, 10356, 0},
                      kZoomFast = {0, 87456, 48962, 0};

Real PositionShake(const ChannelPoints &points, Real seed, Real time_offset, Real slow, Real medium, Real fast,
                   Real ratio, Real intensity, Real scale, Real speed, Real clock) {
    const Real time = time_offset + clock;
    const Real slow_noise = Sample(seed, points.layer[0], time * kPositionRates.slow * speed);
    const Real medium_noise = Sample(seed, points.layer[1], time * kPositionRates.medium * speed);
    const Real fast_noise = Sample(seed, points.layer[2], time * kPositionRates.fast * speed);
    const Real amplitude = ratio * kSceneUnitsAtScaleOne * scale * intensity;
    return 0.33 * 2.0 * slow * slow_noise * amplitude + 0.75 * medium * 0.2 * medium_noise * amplitude +
           0.025 * fast_noise * amplitude * 0.5 * fast;
}

Real RotationShake(const ChannelPoints &points, Real seed, LONG time_offset, Real slow, Real medium, Real fast,
                   Real ratio, Real intensity, Real speed, Real clock) {
    const Real time = (Real)time_offset + clock;
    const Real slow_noise = Sample(seed, points.layer[0], time * kRotationRates.slow * speed);
    const Real medium_noise = Sample(seed, points.layer[1], time * kRotationRates.medium * speed);
    const Real fast_noise = Sample(seed, points.layer[2], time * kRotationRates.fast * speed);
    const Real amplitude = ratio * intensity;
    // The weights are angles of a slider that ends at 90 degrees; 180 / 90 * 0.5 leaves them as they are.
    const Real slow_weight = slow * 180.0 / 90.0 * 0.5;
    const Real medium_weight = medium * 180.0 / 90.0 * 0.5;
    const Real fast_weight = fast * 180.0 / 90.0 * 0.5;
    return slow_weight * slow_noise * 0.25 * amplitude + medium_noise * 0.1 * amplitude * 0.5 * medium_weight +
           fast_noise * 0.0125 * amplitude * 0.25 * fast_weight;
}

}  // namespace

Real Sample(Real seed, const SamplePoint &point, Real time) {
    const Real base = seed + point.base;
    return SNoise(Vector(base + point.x, base + point.y, base + point.z), time);
}

Real TremoluxCamClass::ShakePositionX(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return PositionShake(kPositionX, seed, time_offset, slow, medium, fast, ratio, intensity, scale, speed, clock);
}

Real TremoluxCamClass::ShakePositionY(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return PositionShake(kPositionY, seed, time_offset, slow, medium, fast, ratio, intensity, scale, speed, clock);
}

Real TremoluxCamClass::ShakePositionZ(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return PositionShake(kPositionZ, seed, time_offset, slow, medium, fast, ratio, intensity, scale, speed, clock);
}

Real TremoluxCamClass::ShakeRotationH(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return RotationShake(kRotationH, seed, time_offset, slow, medium, fast, ratio, intensity, speed, clock);
}

Real TremoluxCamClass::ShakeRotationP(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return RotationShake(kRotationP, seed, time_offset, slow, medium, fast, ratio, intensity, speed, clock);
}

Real TremoluxCamClass::ShakeRotationB(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return RotationShake(kRotationB, seed, time_offset, slow, medium, fast, ratio, intensity, speed, clock);
}

Real TremoluxCamClass::FocusDrift(BaseContainer *data, LONG time_offset, Real slow, Real medium, Real fast, LONG seed,
                                  Real rate, Real speed, Real distance) {
    const Real time = ReadClock(*data, kFocusClock) + time_offset;
    const Real s = (Real)seed;  // whole numbers this small add up exactly in a double
    const Real slow_noise = Sample(s, kFocus.layer[0], rate * kFocusRates.slow * time * speed);
    const Real medium_noise = Sample(s, kFocus.layer[1], rate * kFocusRates.medium * time * speed);
    const Real fast_noise = Sample(s, kFocus.layer[2], rate * kFocusRates.fast * time * speed);
    return (slow_noise * distance * slow / 10.0) * 0.75 * 20.0 +
           (medium_noise * distance * medium / 10.0) * 0.2 * 20.0 + (fast_noise * distance * fast / 10.0) * 0.05 * 20.0;
}

Real TremoluxCamClass::ZoomDrift(LONG time, Real seed, Real rate, Real slow, Real medium, Real fast, Real multiplier,
                                 Real clock) {
    Curve ease(kZoomDriftCurve);
    if (!ease) return 0.0;
    const Real t = (Real)time + clock;
    // The fast layer is placed by the rate, not by the seed: it stays when the seed changes.
    const Real fast_place = kZoomRates.fast * rate;
    const Real slow_noise = Sample(seed, kZoomSlow, rate * kZoomRates.slow * t * multiplier);
    const Real medium_noise = Sample(seed, kZoomMedium, rate * kZoomRates.medium * t * multiplier);
    const Real fast_noise = Sample(fast_place, kZoomFast, t * fast_place * multiplier);
    return RemapValue(slow_noise, -1.0, 1.0, -1.0, 1.0, ease, 1, 0, 0) * slow +
           0.6 * medium * RemapValue(medium_noise, -1.0, 1.0, -1.0, 1.0, ease, 1, 0, 0) +
           RemapValue(fast_noise, -1.0, 1.0, -1.0, 1.0, ease, 1, 0, 0) * fast * 0.15;
}
