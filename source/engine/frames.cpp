#include "engine/frames.h"

#include <cmath>

#include "engine/numbers.h"

namespace engine {

namespace {

constexpr double kWholeFrameTolerance = 1e-6;
constexpr double kSameFrame = 0.000001;
constexpr double kPlainStep = 0.001;

}  // namespace

double Seconds(const Time &time) { return time.denominator == 0.0 ? 0.0 : time.numerator / time.denominator; }

std::int32_t FrameOfTime(const Time &time, double frames_per_second) {
    const double denominator = std::floor(time.denominator);
    if (denominator == 0.0) return 0;
    return Truncate(std::floor(frames_per_second * time.numerator) / denominator);
}

double ExactFrame(const Time &time, double frames_per_second) {
    const double frame = Seconds(time) * frames_per_second;
    const double whole = std::round(frame);
    return std::abs(frame - whole) <= kWholeFrameTolerance ? whole : frame;
}

Advance AdvanceTo(double frame, double exact_frame, double start_frame, double last_frame) {
    if (frame == start_frame || exact_frame < 0.0) return Advance::kRestart;
    if (std::abs(frame - last_frame) < kSameFrame) return Advance::kNothing;
    return std::abs(frame - last_frame - 1.0) <= kPlainStep ? Advance::kStep : Advance::kJump;
}

}  // namespace engine
