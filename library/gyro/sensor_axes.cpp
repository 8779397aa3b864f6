#include "library/gyro/sensor_axes.h"

namespace tremolux {

std::optional<Eigen::Matrix3d> AxesOfLetters(std::string_view letters) {
    constexpr std::string_view kCapital = "XYZ", kSmall = "xyz";
    if (letters.size() != 3) return std::nullopt;
    Eigen::Matrix3d axes = Eigen::Matrix3d::Zero();
    for (int row = 0; row < 3; ++row) {
        const char letter = letters[static_cast<std::size_t>(row)];
        const std::size_t capital = kCapital.find(letter), small = kSmall.find(letter);
        const std::size_t column = capital != std::string_view::npos ? capital : small;
        if (column == std::string_view::npos || axes.col(static_cast<int>(column)).any()) return std::nullopt;
        axes(row, static_cast<int>(column)) = capital != std::string_view::npos ? 1 : -1;
    }
    return axes;
}

}  // namespace tremolux
