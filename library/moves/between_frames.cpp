#include "library/moves/between_frames.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "library/moves/turns.h"

namespace tremolux {
namespace {

using Eigen::Quaterniond;

// Four frames in a row; the move goes on from its ends as it came there.
struct Knots {
    const CameraSample *before, *from, *to, *after;  // `before` and `after` are null beyond the ends
};

double Spline(double before, double from, double to, double after, double t) {
    const double start = (to - before) / 2, end = (after - from) / 2, way = to - from;
    return from + t * (start + t * ((3 * way - 2 * start - end) + t * (start + end - 2 * way)));
}

template <typename Number>
double SplineOf(const Knots &knots, double t, Number number) {
    const double from = number(*knots.from), to = number(*knots.to);
    const double before = knots.before != nullptr ? number(*knots.before) : 2 * from - to;
    const double after = knots.after != nullptr ? number(*knots.after) : 2 * to - from;
    return Spline(before, from, to, after, t);
}

// The inner corner of the quadrangle at a frame; at an end, where nothing lies on its other side, the frame itself.
Quaterniond Corner(const CameraSample *before, const Quaterniond &at, const CameraSample *after) {
    if (before == nullptr || after == nullptr) return at;
    return Turned(at, (TurnTo(at, RotationOf(before->angles)) + TurnTo(at, RotationOf(after->angles))) * -0.25);
}

Quaterniond RotationAlong(const Knots &knots, double t) {
    const Quaterniond from = RotationOf(knots.from->angles), to = RotationOf(knots.to->angles);
    const Quaterniond inner = RotationBetween(Corner(knots.before, from, knots.to), Corner(knots.from, to, knots.after), t);
    return RotationBetween(RotationBetween(from, to, t), inner, 2 * t * (1 - t));
}

}  // namespace

CameraSample SampleBetween(const CameraMove &move, double frame) {
    const std::vector<CameraSample> &samples = move.samples;
    const double last = static_cast<double>(samples.size() - 1);
    const double place = std::clamp(frame - static_cast<double>(move.first_frame), 0.0, last), whole = std::floor(place);
    const auto index = static_cast<std::size_t>(whole);
    if (place == whole) return samples[index];
    return SampleAfter(move, index, place - whole);
}

CameraSample SampleAfter(const CameraMove &move, std::size_t index, double share) {
    const CameraSample *at = &move.samples[index];
    const Knots knots{index > 0 ? at - 1 : nullptr, at, at + 1, index + 2 < move.samples.size() ? at + 2 : nullptr};
    const auto along = [&](auto number) { return SplineOf(knots, share, number); };
    CameraSample sample;
    sample.position = {along([](const CameraSample &s) { return s.position.x; }),
                       along([](const CameraSample &s) { return s.position.y; }),
                       along([](const CameraSample &s) { return s.position.z; })};
    sample.angles = host::OptimalAngle(at->angles, AnglesOf(RotationAlong(knots, share)));
    sample.focal_length = along([](const CameraSample &s) { return s.focal_length; });
    sample.focus_distance = along([](const CameraSample &s) { return s.focus_distance; });
    return sample;
}

}  // namespace tremolux
