#include "library/formats/gltf_track.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>

namespace tremolux {
namespace {

// The short way from one turn to the other.
std::array<double, 4> OnTheSphere(const std::array<double, 4> &from, const std::array<double, 4> &to, double t) {
    const auto turn = [](const std::array<double, 4> &q) {
        return Eigen::Quaterniond(q[3], q[0], q[1], q[2]).normalized();
    };
    const Eigen::Quaterniond q = turn(from).slerp(t, turn(to));
    return {q.x(), q.y(), q.z(), q.w()};
}

}  // namespace

double RoundingOfTime(double seconds) { return std::abs(seconds) * 6e-8; }

GltfTrack::GltfTrack(const GltfDocument &document, const JsonPlace &sampler, std::size_t width, bool is_rotation)
    : width_(width), is_rotation_(is_rotation) {
    const JsonPlace name = sampler.Member("interpolation"), input = sampler.Member("input"),
                    output = sampler.Member("output");
    if (name) {
        const std::string text = name.Text();
        if (text == "STEP")
            interpolation_ = Interpolation::kStep;
        else if (text == "CUBICSPLINE")
            interpolation_ = Interpolation::kCubicSpline;
        else if (text != "LINEAR")
            name.Refuse("STEP, LINEAR or CUBICSPLINE");
    }
    times_ = document.Numbers(input, 1);
    numbers_ = document.Numbers(output, width);
    if (times_.empty()) input.Refuse("no keys", "at least one");
    if (!std::is_sorted(times_.begin(), times_.end())) input.Refuse("times out of order", "times that rise");
    const std::size_t need = times_.size() * (interpolation_ == Interpolation::kCubicSpline ? 3 : 1);
    if (numbers_.size() != need * width)
        output.Refuse(std::to_string(numbers_.size() / width) + " elements",
                      std::to_string(need) + " for the times of " + std::to_string(times_.size()) + " keys");
}

std::array<double, 4> GltfTrack::Value(std::size_t key) const {
    const std::size_t element = interpolation_ == Interpolation::kCubicSpline ? 3 * key + 1 : key;
    std::array<double, 4> value{};
    std::copy_n(numbers_.begin() + static_cast<std::ptrdiff_t>(element * width_), width_, value.begin());
    return value;
}

std::array<double, 4> GltfTrack::Between(std::size_t key, double seconds) const {
    const double length = times_[key + 1] - times_[key], t = (seconds - times_[key]) / length;
    const std::array<double, 4> from = Value(key), to = Value(key + 1);
    if (interpolation_ == Interpolation::kStep) return from;
    if (interpolation_ == Interpolation::kLinear && is_rotation_) return OnTheSphere(from, to, t);
    std::array<double, 4> value{};
    for (std::size_t i = 0; i < width_; ++i) {
        value[i] = from[i] + (to[i] - from[i]) * t;
        if (interpolation_ != Interpolation::kCubicSpline) continue;
        // Hermite: the tangents are per second.
        const double out = numbers_[(3 * key + 2) * width_ + i] * length, in = numbers_[3 * (key + 1) * width_ + i] * length;
        value[i] = (2 * t * t * t - 3 * t * t + 1) * from[i] + (t * t * t - 2 * t * t + t) * out +
                   (3 * t * t - 2 * t * t * t) * to[i] + (t * t * t - t * t) * in;
    }
    return value;
}

std::array<double, 4> GltfTrack::At(double seconds, double reach) const {
    const auto after = std::upper_bound(times_.begin(), times_.end(), seconds);
    if (after == times_.begin()) return Value(0);
    const auto last = static_cast<std::size_t>(after - times_.begin()) - 1;
    if (after == times_.end()) return Value(last);
    const double since = seconds - times_[last], until = times_[last + 1] - seconds;
    if (std::min(since, until) <= reach) return Value(since <= until ? last : last + 1);
    return Between(last, seconds);
}

}  // namespace tremolux
