#include "host/scene/angles.h"

#include <algorithm>
#include <cmath>

#include "host/value/radians.h"

namespace host {
namespace {

constexpr double kTurn = 2 * kPi;
// Below this share of a viewing direction lies in the horizontal plane, heading cannot be told from bank.
constexpr double kStraightUp = 0.00001;
// Radians by which the other solution must be nearer: rounding alone never turns a camera upside down.
constexpr double kTie = 1e-12;
// Two solutions are half a turn apart about both outer axes: to one of them it is more than this, to both together two
// halves of a turn and more. Whatever is nearer than this is the nearest.
constexpr double kSurelyNearest = 3;

// An order by the axes (0 x, 1 y, 2 z) in which the parent's axes are turned about; index = order 0 to 5.
struct AxisOrder {
    int first, second, third;
};
constexpr AxisOrder kOrders[] = {{1, 0, 2}, {1, 2, 0}, {2, 1, 0}, {2, 0, 1}, {0, 2, 1}, {0, 1, 2}};

bool IsNamedOrder(std::int32_t order) { return order >= 0 && order < kOrderHpb; }

double &Component(Vector &v, int axis) { return axis == 0 ? v.x : axis == 1 ? v.y : v.z; }
double Component(const Vector &v, int axis) { return axis == 0 ? v.x : axis == 1 ? v.y : v.z; }
const Vector &Axis(const Matrix &m, int axis) { return axis == 0 ? m.v1 : axis == 1 ? m.v2 : m.v3; }

// Into [0, 2 pi) for an angle of at most one turn either way.
double Positive(double angle) {
    if (angle < 0) angle += kTurn;
    return angle >= kTurn ? 0 : angle;
}

// A turn about one axis, with the signs of heading (y), pitch (x) and bank (z).
Matrix AxisTurn(int axis, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    if (axis == 0) return {{0, 0, 0}, {1, 0, 0}, {0, c, -s}, {0, s, c}};
    if (axis == 1) return {{0, 0, 0}, {c, 0, s}, {0, 1, 0}, {-s, 0, c}};
    return {{0, 0, 0}, {c, -s, 0}, {s, c, 0}, {0, 0, 1}};
}

// With M = T(third, c) T(second, b) T(first, a): row `third`, column `first` of M is +-sin(b); the rest of that row
// and column are cos(b) times sine and cosine of a and c.
Vector AnglesOfOrder(const Matrix &m, const AxisOrder &order) {
    const int i = order.first, j = order.second, k = order.third;
    const bool cyclic = (i + 1) % 3 == j;
    const double sign = cyclic ? -1 : 1;
    const auto entry = [&m](int row, int column) { return Component(Axis(m, column), row); };
    Vector angles{0, 0, 0};
    const double cosine = std::hypot(entry(i, i), entry(j, i));
    Component(angles, j) = std::atan2(-sign * entry(k, i), cosine);
    if (cosine < kStraightUp) {
        Component(angles, i) = Positive(std::atan2(-sign * entry(j, k), entry(j, j)));
    } else {
        Component(angles, i) = Positive(std::atan2(sign * entry(k, j), entry(k, k)));
        Component(angles, k) = Positive(std::atan2(sign * entry(j, i), entry(i, i)));
    }
    return angles;
}

// `difference` moved by whole turns into [-pi, pi).
double NearestTurn(double difference) {
    if (std::fabs(difference) < kSurelyNearest) return difference;
    if (!std::isfinite(difference)) return difference;
    difference -= kTurn * std::floor((difference + kPi) / kTurn);
    if (difference >= kPi) difference -= kTurn;
    return difference;
}

double SumOfParts(const Vector &v) { return std::fabs(v.x) + std::fabs(v.y) + std::fabs(v.z); }

}  // namespace

Vector MatrixToHpb(const Matrix &matrix, std::int32_t order) {
    const Matrix m = WithNormalizedAxes(matrix);
    if (IsNamedOrder(order)) return AnglesOfOrder(m, kOrders[order]);
    // atan2 gives the same angles as the inverse sines and cosines would, and keeps all digits near 0 and pi.
    const double level = std::sqrt(m.v3.x * m.v3.x + m.v3.z * m.v3.z);
    if (level < kStraightUp) {
        const double pitch = m.v3.y > 0 ? kPi / 2 : -kPi / 2;
        return {0, pitch, Positive(std::atan2(pitch > 0 ? m.v1.z : -m.v1.z, m.v1.x))};
    }
    return {Positive(std::atan2(-m.v3.x, m.v3.z)), std::atan2(m.v3.y, level), Positive(std::atan2(-m.v1.y, m.v2.y))};
}

Matrix HpbToMatrix(const Vector &hpb, std::int32_t order) {
    if (IsNamedOrder(order)) {
        const AxisOrder &axes = kOrders[order];
        return AxisTurn(axes.third, Component(hpb, axes.third)) *
               (AxisTurn(axes.second, Component(hpb, axes.second)) * AxisTurn(axes.first, Component(hpb, axes.first)));
    }
    const double ch = std::cos(hpb.x), sh = std::sin(hpb.x);
    const double cp = std::cos(hpb.y), sp = std::sin(hpb.y);
    const double cb = std::cos(hpb.z), sb = std::sin(hpb.z);
    return {{0, 0, 0},
            {cb * ch - sb * sp * sh, -sb * cp, cb * sh + sb * sp * ch},
            {sb * ch + cb * sp * sh, cb * cp, sb * sh - cb * sp * ch},
            {-cp * sh, sp, cp * ch}};
}

Vector OptimalAngle(const Vector &old_hpb, const Vector &new_hpb, std::int32_t order) {
    const auto step = [&old_hpb](const Vector &goal) {
        const Vector d = goal - old_hpb;
        return Vector{NearestTurn(d.x), NearestTurn(d.y), NearestTurn(d.z)};
    };
    const Vector first = step(new_hpb);
    if (SumOfParts(first) < kSurelyNearest) return old_hpb + first;
    // The same rotation is reached with half a turn more about the outer axes and the middle angle mirrored.
    const int middle = IsNamedOrder(order) ? kOrders[order].second : 1;
    Vector other{kPi + new_hpb.x, kPi + new_hpb.y, kPi + new_hpb.z};
    Component(other, middle) = kPi - Component(new_hpb, middle);
    const Vector second = step(other);
    return old_hpb + (SumOfParts(second) < SumOfParts(first) - kTie ? second : first);
}

}  // namespace host
