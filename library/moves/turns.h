// Rotations of the scene's cameras as quaternions.
#pragma once

#include <Eigen/Geometry>

#include "host/value/vector.h"

namespace tremolux {

// Of angles as a camera sample has them, radians; the camera's axes are the columns of its matrix.
Eigen::Quaterniond RotationOf(const host::Vector &angles);
host::Vector AnglesOf(const Eigen::Quaterniond &rotation);

// The axis times half the angle, radians: a quaternion's logarithm.
using TurnVector = Eigen::Vector3d;
// Of the shorter way from one rotation to the other.
TurnVector TurnTo(const Eigen::Quaterniond &from, const Eigen::Quaterniond &to);
Eigen::Quaterniond Turned(const Eigen::Quaterniond &rotation, const TurnVector &turn);
// On the sphere, a share of the shorter way.
Eigen::Quaterniond RotationBetween(const Eigen::Quaterniond &from, const Eigen::Quaterniond &to, double share);

}  // namespace tremolux
