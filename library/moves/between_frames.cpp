#include "library/moves/between_frames.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"

namespace tremolux {
namespace {

using Quaternion = Eigen::Quaterniond;
using TurnVector = Eigen::Vector3d;  // axis times half the angle: a quaternion's logarithm

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

Quaternion RotationOf(const CameraSample &sample) {
    const host::Matrix matrix = host::HpbToMatrix(sample.angles);
    Eigen::Matrix3d rotation;
    rotation << matrix.v1.x, matrix.v2.x, matrix.v3.x, matrix.v1.y, matrix.v2.y, matrix.v3.y, matrix.v1.z, matrix.v2.z,
        matrix.v3.z;
    return Quaternion(rotation);
}

host::Vector AnglesOf(const Quaternion &rotation) {
    const Eigen::Matrix3d m = rotation.normalized().toRotationMatrix();
    const auto column = [&m](int i) { return host::Vector{m(0, i), m(1, i), m(2, i)}; };
    return host::MatrixToHpb({{0, 0, 0}, column(0), column(1), column(2)});
}

// Of the shorter way from one rotation to the other.
TurnVector TurnTo(const Quaternion &from, const Quaternion &to) {
    Quaternion way = from.conjugate() * to;
    if (way.w() < 0) way.coeffs() = -way.coeffs();
    const double sine = way.vec().norm();
    // The limit for small angles, where sine and angle are the same.
    return sine < 1e-12 ? TurnVector(way.vec()) : TurnVector(way.vec() * (std::atan2(sine, way.w()) / sine));
}

Quaternion Turned(const Quaternion &rotation, const TurnVector &turn) {
    const double angle = turn.norm(), share = angle < 1e-12 ? 1 : std::sin(angle) / angle;
    Quaternion way;
    way.w() = std::cos(angle);
    way.vec() = turn * share;
    return rotation * way;
}

Quaternion Between(const Quaternion &from, const Quaternion &to, double t) { return Turned(from, TurnTo(from, to) * t); }

// The inner corner of the quadrangle at a frame; at an end, where nothing lies on its other side, the frame itself.
Quaternion Corner(const CameraSample *before, const Quaternion &at, const CameraSample *after) {
    if (before == nullptr || after == nullptr) return at;
    return Turned(at, (TurnTo(at, RotationOf(*before)) + TurnTo(at, RotationOf(*after))) * -0.25);
}

Quaternion RotationBetween(const Knots &knots, double t) {
    const Quaternion from = RotationOf(*knots.from), to = RotationOf(*knots.to);
    const Quaternion inner = Between(Corner(knots.before, from, knots.to), Corner(knots.from, to, knots.after), t);
    return Between(Between(from, to, t), inner, 2 * t * (1 - t));
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
    sample.angles = host::OptimalAngle(at->angles, AnglesOf(RotationBetween(knots, share)));
    sample.focal_length = along([](const CameraSample &s) { return s.focal_length; });
    sample.focus_distance = along([](const CameraSample &s) { return s.focus_distance; });
    return sample;
}

}  // namespace tremolux
