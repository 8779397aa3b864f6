// Numbers cut off and held to a range.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace engine {

// Towards zero, saturated; 0 for what is not a number.
inline std::int32_t Truncate(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<std::int32_t>(std::clamp(value, -2147483648.0, 2147483647.0));
}

// Held to [0, 1].
inline double Held01(double value) { return value < 0.0 ? 0.0 : value > 1.0 ? 1.0 : value; }

}  // namespace engine
