// The motion's formulas, written down a second time: plain numbers, the host's noise, nothing of the module.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>

#include "host/services/noise.h"

namespace model {

struct Point {
    double x, y, z;
};

inline double Noise(const Point &p, double time) { return host::SignedNoise(p.x, p.y, p.z, time); }

// A layer's place: the seed and this number, plus three offsets.
struct Place {
    double base, x, y, z;
    Point At(double seed) const { return {seed + base + x, seed + base + y, seed + base + z}; }
};

struct Weights {
    double slow, medium, fast;
};

constexpr Place kPositionPlaces[3][3] = {
    {{1235, 5846, 87755, 98745}, {275, 0, 54236, 9875}, {368, 0, 32158, 97845}},
    {{1350, 65478, 87755, 98745}, {201, 0, 125478, 332145}, {985, 0, 325647, 698745}},
    {{7865, 65478, 87755, 325412}, {2456, 0, 21458, 325698}, {9876, 0, 325687, 254145}}};

// Axis 0 to 2; scene units. 0.66, 0.15 and 0.0125 are 0.33 x 2, 0.75 x 0.2 and 0.025 x 0.5.
inline double PositionShake(int axis, double seed, double offset, const Weights &weights, double ratio,
                            double intensity, double scale, double speed, double clock) {
    const Place *places = kPositionPlaces[axis];
    const double time = offset + clock;
    const double amplitude = ratio * 1000.0 * scale * intensity;
    return amplitude * (0.66 * weights.slow * Noise(places[0].At(seed), time * 0.005 * speed) +
                        0.15 * weights.medium * Noise(places[1].At(seed), time * 0.035 * speed) +
                        0.0125 * weights.fast * Noise(places[2].At(seed), time * 0.5 * speed));
}

constexpr Place kRotationPlaces[3][3] = {
    {{2973, 0, 876, 54789}, {2013, 0, 1987, 6524}, {2106, 0, 9876, 32547}},
    {{2973, 0, 35896, 254123}, {2013, 0, 325789, 654123}, {2106, 0, 1458963, 254789}},
    {{65874, 0, 325412, 147896}, {12547, 0, 542258, 54223}, {6542, 0, 123568, 15789}}};

// Angle 0 to 2 = heading, pitch, bank; radians. 0.05 and 0.003125 are 0.1 x 0.5 and 0.0125 x 0.25.
inline double RotationShake(int angle, double seed, std::int32_t offset, const Weights &weights, double ratio,
                            double intensity, double speed, double clock) {
    const Place *places = kRotationPlaces[angle];
    const double time = offset + clock;
    return ratio * intensity *
           (0.25 * weights.slow * Noise(places[0].At(seed), time * 0.01 * speed) +
            0.05 * weights.medium * Noise(places[1].At(seed), time * 0.1 * speed) +
            0.003125 * weights.fast * Noise(places[2].At(seed), time * 0.7 * speed));
}

// In the unit of the distance.
inline double FocusDrift(double focus_clock, std::int32_t offset, const Weights &weights, double seed, double rate,
                         double speed, double distance) {
    const double time = focus_clock + offset;
    const Place places[3] = {{2960, 0, 154789, 478932}, {2000, 0, 24789, 35754}, {2093, 0, 356654, 58907}};
    return distance * (1.5 * weights.slow * Noise(places[0].At(seed), rate * 0.005 * time * speed) +
                       0.4 * weights.medium * Noise(places[1].At(seed), rate * 0.035 * time * speed) +
                       0.1 * weights.fast * Noise(places[2].At(seed), rate * 0.25 * time * speed));
}

// y at x of the Bezier curve from (0, 0) to (1, 1) whose inner points lie at heights 0 and 1: tangents are level, `a`
// long at the start and `b` at the end. Bisection: x rises with the parameter.
inline double EaseCurve(double a, double b, double x) {
    if (x <= 0) return 0;
    if (x >= 1) return 1;
    double low = 0, high = 1;
    for (int i = 0; i < 200; ++i) {
        const double s = (low + high) / 2, r = 1 - s;
        const double at = 3 * s * r * r * a + 3 * s * s * r * (1 - b) + s * s * s;
        (at < x ? low : high) = s;
    }
    const double s = (low + high) / 2;
    return 3 * s * s * (1 - s) + s * s * s;
}

// From [-1, 1] to [-1, 1] along the curve.
inline double Eased(double a, double b, double value) { return 2 * EaseCurve(a, b, (value + 1) / 2) - 1; }

// A factor of the focal length. The third point hangs on the rate alone.
inline double ZoomDrift(std::int32_t time_term, double seed, double rate, const Weights &weights, double multiplier,
                        double clock) {
    const double time = time_term + clock, q = 0.25 * rate;
    const Place places[2] = {{2960, 19758, 25100, 0}, {2000, 130569, 10356, 0}};
    const auto ease = [](double value) { return Eased(0.25, 0.25, value); };
    return ease(Noise(places[0].At(seed), rate * 0.005 * time * multiplier)) * weights.slow +
           0.6 * weights.medium * ease(Noise(places[1].At(seed), rate * 0.035 * time * multiplier)) +
           0.15 * weights.fast * ease(Noise({q + 87456, q + 48962, q}, time * q * multiplier));
}

// The step that a frame leaves behind for the next one.
inline double ClockStep(double frame, double seed, double speed, double variation) {
    const double noise = Noise({seed + 7845, seed + 3569, seed + 4856}, frame * 0.025);
    return speed + Eased(0.5, 0.5, noise) * variation * speed;
}

struct ClockInput {
    double seed, speed, variation, focus_rate, zoom_rate;
};

struct Clocks {
    double step = 0, shake = 0, focus = 0, zoom_drift = 0, jolt = 0, auxiliary = 0, zoom = 0;

    // One evaluated frame: goes on by what the frame before left.
    void Advance(double frame, const ClockInput &input) {
        shake += step, jolt += step, auxiliary += step, zoom += step;
        focus += step * input.focus_rate;
        zoom_drift += step * input.zoom_rate;
        step = ClockStep(frame, input.seed, input.speed, input.variation);
    }
};

}  // namespace model
