// The host that the engine's tests compute with: each of its functions is its definition, written down plainly. Curves
// are counted, and may be refused.
#pragma once

#include <rapidcheck.h>

#include "engine/operations.h"

namespace engine_test {

using engine::Vector3;

constexpr double kPi = 3.14159265358979323846;

const engine::Host &PlainHost();

// Smooth in all four, in [-1, 1].
double Noise(const Vector3 &point, double time);
// y at x of the Bezier curve from (0, 0) to (1, 1) with the inner points (x1, y1) and (x2, y2); the ends' beyond them.
double Bezier(double x1, double y1, double x2, double y2, double x);
Vector3 NearestAngles(const Vector3 &reference, const Vector3 &angles);
// Heading, pitch and bank of a camera with these axes; straight up and down have heading 0.
Vector3 AnglesOf(const engine::Axes &axes);

// After `granted` more curves the host has no memory for any, until it is asked to give all.
void RefuseCurvesAfter(int granted);
void GrantCurves();
int LivingCurves();

// Refuses curves as long as it lives.
class NoMemory {
  public:
    explicit NoMemory(int granted = 0) { RefuseCurvesAfter(granted); }
    ~NoMemory() { GrantCurves(); }
    NoMemory(const NoMemory &) = delete;
    NoMemory &operator=(const NoMemory &) = delete;
};

// A number from `least` to `most`.
rc::Gen<double> Between(double least, double most);
// Each number from `least` to `most`.
rc::Gen<Vector3> Within(double least, double most);

// By which they are apart, in the number that differs most; infinite for what is no number.
double Apart(const Vector3 &a, const Vector3 &b);

// ---- What amounts become: their curves' inner points are 0 + the right tangent and 1 + the left one.

struct Pair {
    double a, b;
};
Pair InputPair(double amount);
Pair ShakePair(double amount);
double LooseCurve(double x);
// From [-1, 1] to [-1, 1] with level tangents of this length at both ends.
double Eased(double tangent, double noise);

// Whether all of these are 0, false or empty.
inline bool IsNothing(double number) { return number == 0.0; }
inline bool IsNothing(const Vector3 &v) { return v.x == 0.0 && v.y == 0.0 && v.z == 0.0; }
inline bool IsNothing(const engine::Layers &layers) {
    return layers.slow == 0.0 && layers.medium == 0.0 && layers.fast == 0.0;
}
inline bool IsNothing(const engine::Swing &swing) { return swing.amount == 0.0 && swing.fade == 0.0; }
template <typename First, typename Second, typename... Others>
bool IsNothing(const First &first, const Second &second, const Others &...others) {
    return IsNothing(first) && IsNothing(second) && (true && ... && IsNothing(others));
}

// A filter of one number: a fraction of the way, and a part of what was left over before.
struct PlainFilter {
    double carry = 0.0, value = 0.0;
    double Step(Pair pair, double goal) {
        const double way = goal - value + (1.0 - pair.b) * carry;
        carry = pair.a * way;
        value += (1.0 - pair.a) * way;
        return value;
    }
};

// The host's noise at the point that the seed moves.
struct PlainPoint {
    double base, x, y, z;
    double At(double seed, double time) const {
        return Noise({seed + base + x, seed + base + y, seed + base + z}, time);
    }
};

}  // namespace engine_test
