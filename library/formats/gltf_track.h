// One animated property of a glTF file: keys, and the values between them.
#pragma once

#include <array>
#include <vector>

#include "library/formats/gltf_document.h"

namespace tremolux {

// Where a key's time is a 32-bit float that was meant for `seconds`: half a float's step around it.
double RoundingOfTime(double seconds);

class GltfTrack {
  public:
    // Of a sampler with `width` numbers a key. A rotation is a quaternion x, y, z, w.
    GltfTrack(const GltfDocument &document, const JsonPlace &sampler, std::size_t width, bool is_rotation);

    const std::vector<double> &Times() const { return times_; }  // seconds; at least one, in order
    // A key that is not further away than `reach` seconds is taken as it is. Held before the first and after the last.
    std::array<double, 4> At(double seconds, double reach) const;

  private:
    enum class Interpolation { kStep, kLinear, kCubicSpline };
    std::array<double, 4> Value(std::size_t key) const;
    std::array<double, 4> Between(std::size_t key, double seconds) const;

    Interpolation interpolation_ = Interpolation::kLinear;
    std::size_t width_;
    bool is_rotation_;
    std::vector<double> times_, numbers_;  // in-tangent, value and out-tangent a key for a cubic spline
};

}  // namespace tremolux
