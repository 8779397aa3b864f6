// The layers of the motion, and amounts with which every one is at work.
#pragma once

#include <cstdint>

#include "generated/module_ids.h"

namespace bench {

enum class Layer {
    kNone,
    kSmoothing,
    kOvershoot,
    kPositionShake,
    kRotationShake,
    kJolts,
    kZoomDrift,
    kFocusDrift,
    kTarget
};

constexpr double kDegree = 3.14159265358979323846 / 180.0;

struct Amount {
    std::int32_t parameter;
    double value;  // a share, radians or scene units
    Layer layer;
};
// Every layer at work: shake, drifts, jolts, target and focus object, with all filters and overshoots.
constexpr Amount kEveryLayer[] = {{ids::kPositionSlow, 0.005, Layer::kPositionShake},
                                  {ids::kPositionMedium, 0.009, Layer::kPositionShake},
                                  {ids::kPositionFast, 0.013, Layer::kPositionShake},
                                  {ids::kRotationSlow, 5.4 * kDegree, Layer::kRotationShake},
                                  {ids::kRotationMedium, 5.0 * kDegree, Layer::kRotationShake},
                                  {ids::kRotationFast, 24.0 * kDegree, Layer::kRotationShake},
                                  {ids::kZoomDriftSlow, 0.02, Layer::kZoomDrift},
                                  {ids::kZoomDriftMedium, 0.02, Layer::kZoomDrift},
                                  {ids::kZoomDriftFast, 0.02, Layer::kZoomDrift},
                                  {ids::kFocusDriftSlow, 0.02, Layer::kFocusDrift},
                                  {ids::kFocusDriftMedium, 0.02, Layer::kFocusDrift},
                                  {ids::kFocusDriftFast, 0.02, Layer::kFocusDrift},
                                  {ids::kInitialPositionSmooth, 0.25, Layer::kSmoothing},
                                  {ids::kInitialPositionOvershoot, 0.25, Layer::kOvershoot},
                                  {ids::kInitialRotationSmooth, 0.25, Layer::kSmoothing},
                                  {ids::kInitialRotationOvershoot, 0.55, Layer::kOvershoot},
                                  {ids::kShakeSmooth, 0.25, Layer::kSmoothing},
                                  {ids::kTargetSmooth, 0.25, Layer::kTarget},
                                  {ids::kTargetOvershoot, 0.65, Layer::kTarget},
                                  {ids::kZoomSmooth, 0.25, Layer::kSmoothing},
                                  {ids::kZoomOvershoot, 0.25, Layer::kOvershoot},
                                  {ids::kZoomDriftSmooth, 0.25, Layer::kZoomDrift},
                                  {ids::kFocusSmoothing, 0.25, Layer::kSmoothing},
                                  {ids::kFocusOvershoot, 0.25, Layer::kOvershoot},
                                  {ids::kFocusDriftSmooth, 0.25, Layer::kFocusDrift},
                                  {ids::kJoltPositionIntensity, 0.05, Layer::kJolts},
                                  {ids::kJoltRotationIntensity, 0.15, Layer::kJolts}};
// A jolt in each; and what no layer has for itself.
constexpr int kJoltIntervalFrames = 20;
constexpr double kSpeedVariation = 0.25;

}  // namespace bench
