// Angles of view of a lens.
#pragma once

#include <cmath>

namespace tremolux {

constexpr double kWidestView = 180;  // degrees: beyond any lens

// Across `aperture` millimetres of film back; radians.
inline double AngleOfView(double aperture, double focal_length) { return 2 * std::atan(aperture / (2 * focal_length)); }
// And back: millimetres; infinite for an angle of 0.
inline double FocalLengthOf(double aperture, double angle_of_view) {
    return aperture / (2 * std::tan(angle_of_view / 2));
}

}  // namespace tremolux
