#include <algorithm>
#include <cmath>

#include "host/value/custom.h"

namespace host {

namespace {

constexpr std::int32_t kLinear = 1;

// A cubic polynomial that is 0 at 0: ((a s + b) s + c) s.
struct Cubic {
    double a, b, c;
    // From the Bezier control values 0, p1, p2, end.
    Cubic(double p1, double p2, double end) : a(end - 3 * p2 + 3 * p1), b(3 * p2 - 6 * p1), c(3 * p1) {}
    double At(double s) const { return ((a * s + b) * s + c) * s; }
    double SlopeAt(double s) const { return (3 * a * s + 2 * b) * s + c; }
    double BendAt(double s) const { return 6 * a * s + 2 * b; }
};

// The part of a tangent of length `along` that lies inside a piece of length 1: x(s) is monotone when both tangents
// stay inside. An upright tangent is inside; one that points out of the piece has no part in it.
double InsideShare(double along) {
    if (!(along >= 0)) return 0;
    return along > 1 ? 1 / along : 1;
}

// s in [0, 1] with x(s) = u, for a monotone x with x(1) = 1 and 0 < u < 1. Halley's method, kept inside a bracket that
// every step narrows. Each step triples the digits, so after a small one nothing is left to find.
double Solve(const Cubic &x, double u) {
    constexpr double kRounding = 5e-16, kSmallStep = 2e-6;
    constexpr int kMostSteps = 128;  // halving alone reaches neighbouring doubles in fewer
    double low = 0, high = 1, s = u;
    for (int step = 0; step < kMostSteps; ++step) {
        const double error = x.At(s) - u;
        if (std::fabs(error) <= kRounding * u) break;
        (error < 0 ? low : high) = s;
        const double slope = x.SlopeAt(s);
        double next = s - 2 * error * slope / (2 * slope * slope - error * x.BendAt(s));
        if (next > low && next < high) {
            if (std::fabs(next - s) <= kSmallStep * s) return next;
        } else {
            next = low + (high - low) * 0.5;
            if (!(next > low && next < high)) break;
        }
        s = next;
    }
    return s;
}

bool IsStraight(const TableSplineKnot &left, const TableSplineKnot &right) {
    const Vector &a = left.tangent_right, &b = right.tangent_left;
    return left.interpolation == kLinear || (a.x == 0 && a.y == 0 && b.x == 0 && b.y == 0);
}

// y at `x` between two knots whose x are in order.
double PieceAt(const TableSplineKnot &left, const TableSplineKnot &right, double x) {
    const Vector &a = left.position, &b = right.position;
    const double width = b.x - a.x, height = b.y - a.y;
    // Knots are handed out for writing, so their order is a promise of the module's, not a fact.
    if (!(width > 0) || !(x > a.x) || !(x < b.x) || !std::isfinite(width)) return a.y;
    const double u = (x - a.x) / width;
    if (IsStraight(left, right)) return a.y + height * u;

    const double along_a = left.tangent_right.x / width, along_b = -right.tangent_left.x / width;
    const double share_a = InsideShare(along_a), share_b = InsideShare(along_b);
    const Cubic along(along_a * share_a, 1 - along_b * share_b, 1);
    const Cubic up(share_a * left.tangent_right.y, height + share_b * right.tangent_left.y, height);
    const double y = a.y + up.At(Solve(along, u));
    return std::isfinite(y) ? y : a.y;
}

bool SameKnot(const TableSplineKnot &a, const TableSplineKnot &b) {
    return a.position == b.position && a.tangent_left == b.tangent_left && a.tangent_right == b.tangent_right &&
           a.flags == b.flags && a.selected == b.selected && a.interpolation == b.interpolation;
}

}  // namespace

bool Spline::Equals(const HostCustomData &other) const {
    if (other.Type() != Type()) return false;
    const auto &spline = static_cast<const Spline &>(other);
    return std::equal(knots.begin(), knots.end(), spline.knots.begin(), spline.knots.end(), SameKnot);
}

std::int32_t Spline::Insert(double x, double y, std::int32_t flags) {
    if (!std::isfinite(x) || !std::isfinite(y)) return -1;
    TableSplineKnot knot{};
    knot.position = {x, y, 0};
    knot.flags = flags;
    if (knots.empty()) knots.reserve(4);
    const auto place = std::find_if(knots.begin(), knots.end(), [&](const auto &k) { return k.position.x > x; });
    const auto inserted = knots.insert(place, knot);  // moves the other knots, and so their beginning
    return static_cast<std::int32_t>(inserted - knots.begin());
}

double Spline::ValueAt(double x) const {
    if (knots.empty()) return 0;
    if (!(x >= knots.front().position.x)) return knots.front().position.y;
    if (x >= knots.back().position.x) return knots.back().position.y;
    const auto right = std::upper_bound(knots.begin(), knots.end(), x,
                                        [](double value, const auto &knot) { return value < knot.position.x; });
    // A module may have written the knots out of order: stay inside the list all the same.
    if (right == knots.begin()) return right->position.y;
    if (right == knots.end()) return knots.back().position.y;
    return PieceAt(*(right - 1), *right, x);
}

}  // namespace host
