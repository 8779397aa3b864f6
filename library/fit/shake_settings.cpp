#include "library/fit/shake_settings.h"

#include <algorithm>
#include <cmath>

#include "generated/module_ids.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

// As many digits as a reader wants: four that count. Below a hundred-thousandth of a percent or a degree no layer is seen.
double Rounded(double value) {
    if (std::abs(value) < 1e-5) return 0;
    const double step = std::pow(10.0, std::floor(std::log10(std::abs(value))) - 3);
    return std::round(value / step) * step;
}

std::string Fraction(std::int32_t id, double value) {
    return std::to_string(id) + "=" + FormatNumber(Rounded(100 * value)) + "%";
}

std::string Degrees(std::int32_t id, double value) {
    return std::to_string(id) + "=" + FormatNumber(Rounded(value)) + "deg";
}

}  // namespace

std::vector<std::string> SettingTexts(const ShakeSettings &s) {
    using namespace ids;
    std::vector<std::string> texts = {std::to_string(kSeed) + "=" + std::to_string(s.seed),
                                      Fraction(kShakeSpeed, s.speed),
                                      Fraction(kSpeedVariation, s.variation),
                                      Fraction(kShakeSmooth, s.smooth),
                                      Fraction(kPositionIntensity, s.position_intensity),
                                      Fraction(kRotationIntensity, s.rotation_intensity),
                                      std::to_string(kOverallScale) + "=1",
                                      std::to_string(kTimeOffset) + "=0"};
    constexpr std::int32_t kPositionWeights[] = {kPositionSlow, kPositionMedium, kPositionFast},
                           kRotationWeights[] = {kRotationSlow, kRotationMedium, kRotationFast},
                           kPositionRatios[] = {kRatioX, kRatioY, kRatioZ},
                           kRotationRatios[] = {kRatioH, kRatioP, kRatioB};
    for (std::size_t i = 0; i < 3; ++i) {
        texts.push_back(Fraction(kPositionWeights[i], s.position_weights[i]));
        texts.push_back(Degrees(kRotationWeights[i], s.rotation_weights[i]));
        texts.push_back(Fraction(kPositionRatios[i], s.position_ratios[i]));
        texts.push_back(Fraction(kRotationRatios[i], s.rotation_ratios[i]));
    }
    for (const std::int32_t id :
         {kUsePositionX, kUsePositionY, kUsePositionZ, kUseRotationH, kUseRotationP, kUseRotationB})
        texts.push_back(std::to_string(id) + "=on");
    for (const std::int32_t id : {kUseZoom, kUseFocus, kUseJolt}) texts.push_back(std::to_string(id) + "=off");
    return texts;
}

GroupSettings SpreadOverSliders(const std::array<double, 3> &weights, const std::array<double, 3> &amplitudes,
                                double most_weight) {
    GroupSettings group;
    const double most = *std::max_element(amplitudes.begin(), amplitudes.end());
    if (most <= 0) return {1, {0, 0, 0}, {1, 1, 1}};
    double beyond = 1;
    for (std::size_t layer = 0; layer < 3; ++layer) {
        group.weights[layer] = weights[layer] * most;
        beyond = std::max(beyond, group.weights[layer] / most_weight);
    }
    group.intensity = std::min(beyond, kMostIntensity);
    const double ratio = std::clamp(beyond / kMostIntensity, 1.0, kMostRatio);
    for (std::size_t i = 0; i < 3; ++i) {
        group.weights[i] = std::min(group.weights[i] / (group.intensity * ratio), most_weight);
        group.ratios[i] = amplitudes[i] / most * ratio;
    }
    return group;
}

}  // namespace tremolux
