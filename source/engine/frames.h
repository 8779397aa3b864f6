// Frame numbers of times.
#pragma once

#include <cstdint>

namespace engine {

// Seconds as a fraction, as the host keeps them; a denominator of 0 stands for time 0.
struct Time {
    double numerator = 0.0, denominator = 1.0;
};

double Seconds(const Time &time);
// floor(rate * numerator) / floor(denominator), cut to a whole number, saturated; 0 for a denominator of 0.
std::int32_t FrameOfTime(const Time &time, double frames_per_second);
// Seconds times rate; a result within 1e-6 of a whole number is that number, as 29 / 25 * 25 is 28.999999999999996.
double ExactFrame(const Time &time, double frames_per_second);

// What has to be done to show a frame.
enum class Advance {
    kNothing,  // it is shown already
    kStep,     // it follows the last one
    kRestart,  // the motion begins with it
    kJump      // the clocks have to be counted anew
};
// Of a frame at a time of `exact_frame` frames, after `last_frame`.
Advance AdvanceTo(double frame, double exact_frame, double start_frame, double last_frame);

}  // namespace engine
