#include "tests/engine/plain_host.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace engine_test {

namespace {

constexpr int kAll = -1;
int granted_curves = kAll, living_curves = 0;

void *NewCurve(const engine::CurveShape &shape) {
    if (granted_curves == 0) return nullptr;
    if (granted_curves > 0) --granted_curves;
    ++living_curves;
    return new engine::CurveShape(shape);
}

double CurveHeight(void *curve, double x) {
    const engine::CurveShape &shape = *static_cast<engine::CurveShape *>(curve);
    return Bezier(shape.start_right.x, shape.start_right.y, 1.0 + shape.end_left.x, 1.0 + shape.end_left.y, x);
}

void FreeCurve(void *curve) {
    --living_curves;
    delete static_cast<engine::CurveShape *>(curve);
}

double Blend(double p1, double p2, double s) {
    const double r = 1.0 - s;
    return 3.0 * p1 * s * r * r + 3.0 * p2 * s * s * r + s * s * s;
}

// By whole turns to within half a turn of the reference.
double Continued(double reference, double angle) {
    return angle - 2.0 * kPi * std::round((angle - reference) / (2.0 * kPi));
}

Vector3 Continued(const Vector3 &reference, const Vector3 &angles) {
    return {Continued(reference.x, angles.x), Continued(reference.y, angles.y), Continued(reference.z, angles.z)};
}

double Way(const Vector3 &from, const Vector3 &to) {
    return std::abs(to.x - from.x) + std::abs(to.y - from.y) + std::abs(to.z - from.z);
}

}  // namespace

const engine::Host &PlainHost() {
    static const engine::Host host = {Noise, NewCurve, CurveHeight, FreeCurve, NearestAngles, AnglesOf};
    return host;
}

double Noise(const Vector3 &point, double time) {
    return 0.5 * std::sin(0.37 * point.x + 0.11 * point.y - 1.9 * time) +
           0.5 * std::cos(0.23 * point.z - 0.05 * point.x + 0.7 * time);
}

double Bezier(double x1, double y1, double x2, double y2, double x) {
    if (x <= 0.0) return 0.0;
    if (x >= 1.0) return 1.0;
    double low = 0.0, high = 1.0;
    for (int i = 0; i < 60; ++i) {
        const double middle = 0.5 * (low + high);
        (Blend(x1, x2, middle) < x ? low : high) = middle;
    }
    return Blend(y1, y2, 0.5 * (low + high));
}

Vector3 NearestAngles(const Vector3 &reference, const Vector3 &angles) {
    const Vector3 plain = Continued(reference, angles);
    // The same rotation with the pitch beyond the pole.
    const Vector3 turned = Continued(reference, {angles.x + kPi, kPi - angles.y, angles.z + kPi});
    return Way(reference, turned) < Way(reference, plain) - 1e-9 ? turned : plain;
}

Vector3 AnglesOf(const engine::Axes &axes) {
    const Vector3 look = Normalized(axes.z);
    const double flat = std::hypot(look.x, look.z);
    if (flat < 1e-9) return {0.0, look.y > 0.0 ? kPi / 2 : -kPi / 2, std::atan2(axes.y.x, axes.x.x)};
    return {std::atan2(-look.x, look.z), std::atan2(look.y, flat), std::atan2(-axes.x.y, axes.y.y)};
}

void RefuseCurvesAfter(int granted) { granted_curves = granted; }
void GrantCurves() { granted_curves = kAll; }
int LivingCurves() { return living_curves; }

rc::Gen<double> Between(double least, double most) {
    constexpr int kSteps = 100000;
    return rc::gen::map(rc::gen::inRange(0, kSteps + 1),
                        [=](int step) { return least + (most - least) * step / kSteps; });
}

rc::Gen<Vector3> Within(double least, double most) {
    return rc::gen::map(rc::gen::tuple(Between(least, most), Between(least, most), Between(least, most)),
                        [](const std::tuple<double, double, double> &numbers) {
                            return Vector3{std::get<0>(numbers), std::get<1>(numbers), std::get<2>(numbers)};
                        });
}

double Apart(const Vector3 &a, const Vector3 &b) {
    const Vector3 way = a - b;
    if (!IsFinite(way)) return std::numeric_limits<double>::infinity();
    return std::max({std::abs(way.x), std::abs(way.y), std::abs(way.z)});
}

Pair InputPair(double amount) {
    const double bent = Bezier(0.019, 0.063, 0.469, 0.891, amount);
    const double share = Bezier(0.0, 0.711, 0.762, 0.922, bent);
    return {0.95 * share, 0.15 + 0.85 * share};
}

Pair ShakePair(double amount) {
    const double share = Bezier(0.0, 0.352, 0.875, 1.0, amount);
    return {0.95 * share, 0.25 * share};
}

double LooseCurve(double x) { return Bezier(0.0, 0.45, 0.75, 0.99, x); }

double Eased(double tangent, double noise) {
    return 2.0 * Bezier(tangent, 0.0, 1.0 - tangent, 1.0, 0.5 * (noise + 1.0)) - 1.0;
}

}  // namespace engine_test
