#include "engine/clocks.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// The scene's size against the slider: 15 % of it.
constexpr Real kScaleShare = 0.15;
constexpr Real kSlowShare = 2.0;

}  // namespace

Vector TremoluxCamClass::EvaluatePosition(BaseContainer *data, const Vector &input_position) {
    const Real seed = (Real)ReadTruncated(*data, kSeed);
    const Real time_offset = ReadReal(*data, kTimeOffset);
    const Real slow = kSlowShare * ReadReal(*data, kPositionSlow);
    const Real medium = ReadReal(*data, kPositionMedium);
    const Real fast = ReadReal(*data, kPositionFast);
    const Real intensity = ReadReal(*data, kPositionIntensity);
    const Real scale = kScaleShare * ReadReal(*data, kOverallScale);
    const Real speed = ReadReal(*data, kShakeSpeed);
    const Real clock = ReadClock(*data, kShakeClock);

    Vector shake;
    if (data->GetBool(kUsePositionX))
        shake.x = ShakePositionX(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioX), 1, intensity, scale,
                                 speed, clock);
    if (data->GetBool(kUsePositionY))
        shake.y = ShakePositionY(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioY), 1, intensity, scale,
                                 speed, clock);
    if (data->GetBool(kUsePositionZ))
        shake.z = ShakePositionZ(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioZ), 1, intensity, scale,
                                 speed, clock);
    return input_position + shake;
}
