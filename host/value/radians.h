#pragma once

namespace host {

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadiansPerDegree = kPi / 180;

}  // namespace host
