#include "library/measures/strayed.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"

namespace tremolux {
namespace {

class DeviationSum {
  public:
    void Add(std::int64_t frame, double distance) {
        squares_ += distance * distance;
        ++count_;
        if (count_ > 1 && distance <= result_.peak) return;
        result_.peak = distance;
        result_.peak_frame = frame;
    }
    Deviation Result() const {
        Deviation result = result_;
        result.rms = count_ > 0 ? std::sqrt(squares_ / static_cast<double>(count_)) : 0;
        return result;
    }

  private:
    Deviation result_;
    double squares_ = 0;
    std::int64_t count_ = 0;
};

}  // namespace

double TurnBetween(const host::Vector &angles_a, const host::Vector &angles_b) {
    // |A - B| = 2 sqrt(2) sin(turn / 2), the norm over all nine numbers: exact for small turns, where the arc cosine of
    // the trace would lose half of the digits.
    const host::Matrix a = host::HpbToMatrix(angles_a), b = host::HpbToMatrix(angles_b);
    const host::Vector d1 = a.v1 - b.v1, d2 = a.v2 - b.v2, d3 = a.v3 - b.v3;
    const double norm = std::sqrt(host::Dot(d1, d1) + host::Dot(d2, d2) + host::Dot(d3, d3));
    return 2 * std::asin(std::min(1.0, norm / std::sqrt(8.0))) / kRadiansPerDegree;
}

Strayed MeasureStrayed(const CameraMove &input, const CameraMove &output) {
    DeviationSum position, angle;
    const std::size_t frames = std::min(input.samples.size(), output.samples.size());
    for (std::size_t i = 0; i < frames; ++i) {
        const std::int64_t frame = output.first_frame + static_cast<std::int64_t>(i);
        position.Add(frame, host::Length(output.samples[i].position - input.samples[i].position));
        angle.Add(frame, TurnBetween(input.samples[i].angles, output.samples[i].angles));
    }
    return {position.Result(), angle.Result()};
}

}  // namespace tremolux
