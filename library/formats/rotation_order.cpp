#include "library/formats/rotation_order.h"

#include <cmath>

#include "host/value/radians.h"


namespace tremolux {

using host::operator*;  // NOLINT(misc-unused-using-decls): which overlooks operators

namespace {

constexpr double host::Vector::*kComponents[] = {&host::Vector::x, &host::Vector::y, &host::Vector::z};

double Entry(const host::Matrix &m, int row, int column) {
    const host::Vector &axis = column == 0 ? m.v1 : column == 1 ? m.v2 : m.v3;
    return axis.*kComponents[row];
}

// About one axis of a right-handed world, on column vectors.
host::Matrix Turn(int axis, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    if (axis == 0) return {{0, 0, 0}, {1, 0, 0}, {0, c, s}, {0, -s, c}};
    if (axis == 1) return {{0, 0, 0}, {c, 0, -s}, {0, 1, 0}, {s, 0, c}};
    return {{0, 0, 0}, {c, s, 0}, {-s, c, 0}, {0, 0, 1}};
}

// +1 where the order's axes follow each other as x, y, z do.
double SignOf(const RotationOrder &order) { return (order[0] + 1) % 3 == order[1] ? 1 : -1; }

// A sum of differences from `last` with whole turns taken off, and the angles without them.
double TakeTurnsOff(const host::Vector &last, host::Vector *angles) {
    double distance = 0;
    for (const auto component : kComponents) {
        double &angle = angles->*component;
        angle -= 2 * host::kPi * std::round((angle - last.*component) / (2 * host::kPi));
        distance += std::abs(angle - last.*component);
    }
    return distance;
}

}  // namespace

std::optional<RotationOrder> RotationOrderNamed(std::string_view name) {
    if (name.size() != 3) return std::nullopt;
    RotationOrder order{};
    bool named[3] = {};
    for (std::size_t place = 0; place < 3; ++place) {
        const std::size_t axis = std::string_view("xyzXYZ").find(name[place]);
        if (axis == std::string_view::npos || named[axis % 3]) return std::nullopt;
        named[axis % 3] = true;
        order[place] = static_cast<int>(axis % 3);
    }
    return order;
}

host::Matrix RotationOf(const host::Vector &angles, const RotationOrder &order) {
    const auto turn = [&](int place) {
        return Turn(order[static_cast<std::size_t>(place)], angles.*kComponents[order[place]]);
    };
    return turn(2) * (turn(1) * turn(0));
}

// R = Rk(c) Rj(b) Ri(a) has the sine of b at row k, column i; what stays beside it is cos b times the sine and cosine
// of a. Where that is next to nothing any a will do, and c comes from what is left after a is undone, R Ri(-a) = Rk Rj.
host::Vector RotationAngles(const host::Matrix &rotation, const RotationOrder &order) {
    const host::Matrix r = host::WithNormalizedAxes(rotation);
    const auto [i, j, k] = order;
    const double sign = SignOf(order);
    host::Vector angles{0, 0, 0};
    angles.*kComponents[j] = std::atan2(-sign * Entry(r, k, i), std::hypot(Entry(r, k, j), Entry(r, k, k)));
    const double a = std::atan2(sign * Entry(r, k, j), Entry(r, k, k));
    angles.*kComponents[i] = a;
    const host::Matrix rest = r * Turn(i, -a);
    angles.*kComponents[k] = std::atan2(-sign * Entry(rest, i, j), Entry(rest, j, j));
    return angles;
}

host::Vector NearestAngles(const host::Vector &last, const host::Vector &next, const RotationOrder &order) {
    host::Vector same = next, other = next;
    other.*kComponents[order[0]] += host::kPi;
    other.*kComponents[order[1]] = host::kPi - next.*kComponents[order[1]];
    other.*kComponents[order[2]] += host::kPi;
    const double distance = TakeTurnsOff(last, &same);
    return TakeTurnsOff(last, &other) < distance ? other : same;
}

}  // namespace tremolux
