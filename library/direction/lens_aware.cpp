#include "library/direction/lens_aware.h"

#include <cmath>

namespace tremolux {

Eigen::Quaterniond TurnThroughLens(const Eigen::Quaterniond &turn, double focal_length, const LensAware &lens) {
    // The camera looks along its z: turn = swing * twist, the twist about z.
    Eigen::Quaterniond twist(turn.w(), 0, 0, turn.z());
    const double length = twist.norm();
    if (length < 1e-12) return turn;  // half a turn to look behind: there is no picture of it
    twist.coeffs() /= length;
    if (twist.w() < 0) twist.coeffs() = -twist.coeffs();
    const Eigen::Quaterniond swing = turn * twist.conjugate();
    const double sine = swing.vec().norm();
    if (sine < 1e-15) return turn;
    const double angle = 2 * std::atan2(sine, swing.w());
    const double factor = std::pow(lens.focal_length / focal_length, lens.share);
    const double scaled = std::atan2(factor * std::sin(angle), std::cos(angle));
    const Eigen::Vector3d axis = swing.vec() / sine;
    return Eigen::Quaterniond(Eigen::AngleAxisd(scaled, axis)) * twist;
}

}  // namespace tremolux
