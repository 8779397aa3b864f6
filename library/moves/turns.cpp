#include "library/moves/turns.h"

#include <cmath>

#include "host/scene/angles.h"

namespace tremolux {

Eigen::Quaterniond RotationOf(const host::Vector &angles) {
    const host::Matrix matrix = host::HpbToMatrix(angles);
    Eigen::Matrix3d rotation;
    rotation << matrix.v1.x, matrix.v2.x, matrix.v3.x, matrix.v1.y, matrix.v2.y, matrix.v3.y, matrix.v1.z, matrix.v2.z,
        matrix.v3.z;
    return Eigen::Quaterniond(rotation);
}

host::Vector AnglesOf(const Eigen::Quaterniond &rotation) {
    const Eigen::Matrix3d m = rotation.normalized().toRotationMatrix();
    const auto column = [&m](int i) { return host::Vector{m(0, i), m(1, i), m(2, i)}; };
    return host::MatrixToHpb({{0, 0, 0}, column(0), column(1), column(2)});
}

TurnVector TurnTo(const Eigen::Quaterniond &from, const Eigen::Quaterniond &to) {
    Eigen::Quaterniond way = from.conjugate() * to;
    if (way.w() < 0) way.coeffs() = -way.coeffs();
    const double sine = way.vec().norm();
    // The limit for small angles, where sine and angle are the same.
    return sine < 1e-12 ? TurnVector(way.vec()) : TurnVector(way.vec() * (std::atan2(sine, way.w()) / sine));
}

Eigen::Quaterniond Turned(const Eigen::Quaterniond &rotation, const TurnVector &turn) {
    const double angle = turn.norm(), share = angle < 1e-12 ? 1 : std::sin(angle) / angle;
    Eigen::Quaterniond way;
    way.w() = std::cos(angle);
    way.vec() = turn * share;
    return rotation * way;
}

Eigen::Quaterniond RotationBetween(const Eigen::Quaterniond &from, const Eigen::Quaterniond &to, double share) {
    return Turned(from, TurnTo(from, to) * share);
}

}  // namespace tremolux
