#include "engine/filter.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr FilterKeys kInputFilter = {kPositionCarry, kPositionValue};
constexpr FilterKeys kShakeFilter = {kPositionShakeCarry, kPositionShakeValue};

}  // namespace

Vector TremoluxCamClass::EvaluatePosition(BaseContainer *data, const Vector &input, Real smooth, Real time_offset,
                                          Real slow, Real medium, Real fast, Real frame, Real overshoot, Real fade,
                                          Real shake_smooth, Real seed, LONG use_x, LONG use_y, LONG use_z,
                                          Real intensity, Real scale, Real ratio_x, Real ratio_y, Real ratio_z,
                                          Real speed, Real clock) {
    const Bool restart = HasNoPast(*data, frame);
    Coefficients c;
    InputSmoothing(smooth, &c.a, &c.b);
    const Vector smoothed = FilterVector(kInputFilter, c, input, restart, data);
    const Vector position = OvershootOrRest(smoothed, overshoot, fade, data, kOvershootPosition, 0);
    if (!use_x && !use_y && !use_z) return position;

    Vector shake;
    if (use_x)
        shake.x = ShakePositionX(seed, time_offset, slow, medium, fast, ratio_x, 1, intensity, scale, speed, clock);
    if (use_y)
        shake.y = ShakePositionY(seed, time_offset, slow, medium, fast, ratio_y, 1, intensity, scale, speed, clock);
    if (use_z)
        shake.z = ShakePositionZ(seed, time_offset, slow, medium, fast, ratio_z, 1, intensity, scale, speed, clock);
    return position + FilterShake(kShakeFilter, shake_smooth, shake, restart, data);
}
