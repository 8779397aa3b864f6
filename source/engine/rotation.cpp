#include "engine/rotation.h"

#include "engine/clocks.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

Vector AnglesOf(const Matrix &matrix) {
    Matrix axes = matrix;
    axes.Normalize();
    return MatrixToHPB(axes, ROTATIONORDER_HPB);
}

Vector AimAngles(const Vector &position, const Vector &target) {
    const Vector direction = target - position;
    // The first axis is taken against the world's Z axis, so the three need not be orthogonal; heading and pitch come
    // from the third alone.
    const Matrix aim(position, !(direction % Vector(0.0, 0.0, 1.0)), !(direction % Vector(0.0, 1.0, 0.0)), !direction);
    Vector angles = MatrixToHPB(aim, ROTATIONORDER_HPB);
    angles.z = 0.0;
    return angles;
}

Vector TremoluxCamClass::EvaluateRotation(BaseContainer *data, const Vector &input_angles) {
    const Real seed = (Real)ReadTruncated(*data, kSeed);
    const LONG time_offset = ReadTruncated(*data, kTimeOffset);
    const Real slow = ReadReal(*data, kRotationSlow);
    const Real medium = ReadReal(*data, kRotationMedium);
    const Real fast = ReadReal(*data, kRotationFast);
    const Real intensity = ReadReal(*data, kRotationIntensity);
    const Real speed = ReadReal(*data, kShakeSpeed);
    const Real clock = ReadClock(*data, kShakeClock);

    Vector shake;
    if (data->GetBool(kUseRotationH))
        shake.x =
            ShakeRotationH(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioH), intensity, speed, clock);
    if (data->GetBool(kUseRotationP))
        shake.y =
            ShakeRotationP(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioP), intensity, speed, clock);
    if (data->GetBool(kUseRotationB))
        shake.z =
            ShakeRotationB(seed, time_offset, slow, medium, fast, ReadReal(*data, kRatioB), intensity, speed, clock);
    return input_angles + shake;
}
