// From 0 to 1 without a step in speed or acceleration at either end.
#pragma once

namespace tremolux {

// 6t^5 - 15t^4 + 10t^3 for t from 0 to 1 (Perlin, Improving Noise, SIGGRAPH 2002).
constexpr double SmootherStep(double t) { return t * t * t * (t * (t * 6 - 15) + 10); }

}  // namespace tremolux
