#include "host/animation/segment.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

// More than enough: halving alone reaches the last digit of a double after 53 steps.
constexpr int kMostNewtonSteps = 64;

double Bezier(double p0, double p1, double p2, double p3, double u) {
    const double v = 1 - u;
    return v * v * v * p0 + 3 * v * v * u * p1 + 3 * v * u * u * p2 + u * u * u * p3;
}

double BezierSlope(double p1, double p2, double u) {
    const double v = 1 - u;
    return 3 * (v * v * p1 + 2 * v * u * (p2 - p1) + u * u * (1 - p2));
}

// The share u of a curve from 0 to 1 with inner points p1, p2 in [0, 1], at which it passes `goal`. It never runs
// backwards, so Newton's method held inside a shrinking bracket finds it.
double ShareAt(double p1, double p2, double goal) {
    double low = 0, high = 1, u = goal;
    for (int step = 0; step < kMostNewtonSteps; ++step) {
        const double miss = Bezier(0, p1, p2, 1, u) - goal;
        if (miss == 0) return u;
        (miss < 0 ? low : high) = u;
        const double slope = BezierSlope(p1, p2, u);
        double next = slope > 0 ? u - miss / slope : low - 1;
        if (!(next > low && next < high)) next = (low + high) / 2;
        if (next == u || next == low || next == high) return next;
        u = next;
    }
    return u;
}

// Where a tangent's end lies along the segment, as a share of it.
double TangentShare(double tangent_time, double length) {
    if (!(tangent_time > 0)) return 1.0 / 3;
    return std::min(tangent_time / length, 1.0);
}

}  // namespace

double ValueOnSegment(const SplineSegment &s, double time) {
    const double length = s.end_time - s.start_time;
    if (!(length > 0)) return s.end_value;
    const double share = std::clamp((time - s.start_time) / length, 0.0, 1.0);
    const double first = TangentShare(s.right_tangent_time, length);
    const double last = 1 - TangentShare(-s.left_tangent_time, length);
    // With thirds on both sides time runs evenly along the curve. Tangents arrive rounded, hence the width.
    constexpr double kEven = 1e-9;
    const bool even = std::fabs(first - 1.0 / 3) < kEven && std::fabs(last - 2.0 / 3) < kEven;
    const double u = even ? share : ShareAt(first, last, share);
    return Bezier(s.start_value, s.start_value + s.right_tangent_value, s.end_value + s.left_tangent_value, s.end_value,
                  u);
}

}  // namespace host
