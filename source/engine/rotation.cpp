#include "engine/rotation.h"

#include "engine/filter.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr FilterKeys kInputFilter = {kRotationCarry, kRotationValue};
constexpr FilterKeys kShakeFilter = {kRotationShakeCarry, kRotationShakeValue};

}  // namespace

Vector AnglesOf(const Matrix &matrix) {
    Matrix axes = matrix;
    axes.Normalize();
    return MatrixToHPB(axes, ROTATIONORDER_HPB);
}

Bool AimAngles(const Vector &position, const Vector &target, Vector *angles) {
    Vector direction = target - position;
    // The squares of a length must neither overflow nor vanish.
    const Real size = FMax(Abs(direction.x), FMax(Abs(direction.y), Abs(direction.z)));
    if (size == 0.0 || !IsFinite(direction)) return FALSE;
    direction = direction / size;
    // The first axis is taken against the world's Z axis, so the three need not be orthogonal; heading and pitch come
    // from the third alone.
    const Matrix aim(position, !(direction % Vector(0.0, 0.0, 1.0)), !(direction % Vector(0.0, 1.0, 0.0)), !direction);
    *angles = MatrixToHPB(aim, ROTATIONORDER_HPB);
    angles->z = 0.0;
    return TRUE;
}

Vector TremoluxCamClass::EvaluateRotation(BaseContainer *data, LONG use_target, const Vector &target,
                                          const Vector &position, Real target_smooth, Real time_offset,
                                          Real target_overshoot, Real target_fade, const Vector &input, Real smooth,
                                          Real overshoot, Real fade, Real seed, LONG use_h, LONG use_p, LONG use_b,
                                          Real intensity, Real, Real ratio_h, Real ratio_p, Real ratio_b, Real speed,
                                          Real clock, Real shake_smooth, Real slow, Real medium, Real fast,
                                          Real frame) {
    const Bool restart = HasNoPast(*data, frame);
    const Bool aiming = use_target == 1;
    const Vector stored = data->GetVector(kRotationValue);
    const Vector present = IsFinite(stored) ? stored : input;
    Vector goal = input;
    // On top of the target there is nothing to turn to.
    if (aiming && !AimAngles(position, target, &goal)) goal = present;
    goal = GetOptimalAngle(present, goal, ROTATIONORDER_HPB);

    Coefficients c;
    InputSmoothingTwin(aiming ? target_smooth : smooth, &c.a, &c.b);
    const Vector smoothed = FilterVector(kInputFilter, c, goal, restart, data);
    const Vector angles = aiming ? OvershootOrRest(smoothed, target_overshoot, target_fade, data, kOvershootTarget, 1)
                                 : OvershootOrRest(smoothed, overshoot, fade, data, kOvershootRotation, 1);
    if (!use_h && !use_p && !use_b) return angles;

    const LONG offset = Truncate(time_offset);
    Vector shake;
    if (use_h) shake.x = ShakeRotationH(seed, offset, slow, medium, fast, ratio_h, intensity, speed, clock);
    if (use_p) shake.y = ShakeRotationP(seed, offset, slow, medium, fast, ratio_p, intensity, speed, clock);
    if (use_b) shake.z = ShakeRotationB(seed, offset, slow, medium, fast, ratio_b, intensity, speed, clock);
    return angles + FilterShake(kShakeFilter, shake_smooth, shake, restart, data);
}
