// The filter that every channel passes through, and how a slider becomes its coefficients.
#pragma once

#include "engine/vector.h"

namespace engine {

class Operations;

// Share of the error kept for later, [0, 0.95], and damping of what is carried over, [0, 1], 1 = no swing.
struct Coefficients {
    double a, b;
};

// What a filter remembers: what it carries over, and its value, both in the unit of the channel.
struct RealFilter {
    double carry = 0.0, value = 0.0;
};
struct VectorFilter {
    Vector3 carry, value;
};

// One step towards `goal`. Pure.
// Source: exponential smoothing (Brown, 1956) with the left-over error carried into the next step.
inline double SmoothCarry(const Coefficients &c, double carry, double value, double goal) {
    return c.a * ((1.0 - c.b) * carry + goal - value);
}
inline double SmoothValue(const Coefficients &c, double carry, double value, double goal) {
    return (1.0 - c.a) * ((1.0 - c.b) * carry + goal - value) + value;
}
// The same, number by number.
inline Vector3 SmoothCarry(const Coefficients &c, const Vector3 &carry, const Vector3 &value, const Vector3 &goal) {
    return {SmoothCarry(c, carry.x, value.x, goal.x), SmoothCarry(c, carry.y, value.y, goal.y),
            SmoothCarry(c, carry.z, value.z, goal.z)};
}
inline Vector3 SmoothValue(const Coefficients &c, const Vector3 &carry, const Vector3 &value, const Vector3 &goal) {
    return {SmoothValue(c, carry.x, value.x, goal.x), SmoothValue(c, carry.y, value.y, goal.y),
            SmoothValue(c, carry.z, value.z, goal.z)};
}

// The coefficients of a smoothing amount, held to [0, 1]: a in [0, 0.95], b in [0.15, 1] (input), or [0, 0.25] (shake
// and drift). Without memory for a curve the filter lets its goal through: a = 0, b = 1.
Coefficients InputSmoothing(double amount, Operations *operations);
Coefficients ShakeSmoothing(double amount, Operations *operations);

// One step of a filter; on a restart, or where the step is not finite, it is at rest on its goal.
Vector3 Filter(const Coefficients &c, const Vector3 &goal, bool restart, Operations *operations, VectorFilter *filter);
// The same for a shake, with a smoothing amount; one that is not finite is none.
Vector3 FilterShake(double smooth, const Vector3 &raw, bool restart, Operations *operations, VectorFilter *filter);

}  // namespace engine
