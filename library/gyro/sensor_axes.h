// Axes of a sensor as letters: each names an axis, a small one its opposite.
#pragma once

#include <Eigen/Core>
#include <optional>
#include <string_view>

namespace tremolux {

// Row i has +1 or -1 in the column of the axis that letter i names: "YxZ" makes (y, -x, z) of (x, y, z). Nothing where the
// three letters do not name each of x, y and z once.
std::optional<Eigen::Matrix3d> AxesOfLetters(std::string_view letters);

}  // namespace tremolux
