// The settings of one tag that make its shake.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace tremolux {

struct ShakeSettings {
    double speed = 1, variation = 0.25, smooth = 0;                  // fractions
    double position_intensity = 1, rotation_intensity = 1;           // fractions
    std::array<double, 3> position_weights{}, rotation_weights{};    // slow, medium, fast; fractions, degrees
    std::array<double, 3> position_ratios{}, rotation_ratios{};      // x, y, z; heading, pitch, bank; fractions
    int seed = 0;
};

// Where the sliders end.
constexpr double kMostSpeed = 2, kMostIntensity = 2, kMostRatio = 2, kMostPositionWeight = 2, kMostRotationWeight = 90;
// Without variation a layer ticks at the rate of its cells, which is heard as a line in the spectrum.
constexpr double kLeastVariation = 0.25;

// "LABEL=VALUE" each, for ApplySettings; everything that shakes beside them is off.
std::vector<std::string> SettingTexts(const ShakeSettings &settings);

// The product of intensity, ratio and weight for each axis of a group, spread over these within their sliders; what the
// sliders cannot reach stays as near as they can come. `amplitudes` are those of the axes, `weights` of the layers.
struct GroupSettings {
    double intensity = 1;
    std::array<double, 3> weights{}, ratios{};
};
GroupSettings SpreadOverSliders(const std::array<double, 3> &weights, const std::array<double, 3> &amplitudes,
                                double most_weight);

}  // namespace tremolux
