// Times: exact fractions of a second.
#pragma once

#include <cstdint>

#include "platform/table.h"

namespace host {

using Time = TableTime;

Time MakeTime(double numerator, double denominator);  // rounded to whole numbers, reduced; frame f at rate r is (f, r)
double Seconds(const Time &time);                     // 0 when the denominator is 0
// floor(numerator * fps) / floor(denominator), truncated toward zero, saturated; 0 when the denominator is 0.
std::int32_t FrameOf(const Time &time, double fps);
bool SameTime(const Time &a, const Time &b);
bool Before(const Time &a, const Time &b);

}  // namespace host
