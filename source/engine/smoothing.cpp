#include "tag/tremoluxcam.h"

Real TremoluxCamClass::SmoothRealCarry(Real a, Real b, Real carry, Real value, Real goal) {
    return a * ((1.0 - b) * carry + goal - value);
}

Real TremoluxCamClass::SmoothRealValue(Real a, Real b, Real carry, Real value, Real goal) {
    return (1.0 - a) * ((1.0 - b) * carry + goal - value) + value;
}

Vector TremoluxCamClass::SmoothVectorCarry(Real a, Real b, const Vector &carry, const Vector &value,
                                           const Vector &goal) {
    return Vector(SmoothRealCarry(a, b, carry.x, value.x, goal.x), SmoothRealCarry(a, b, carry.y, value.y, goal.y),
                  SmoothRealCarry(a, b, carry.z, value.z, goal.z));
}

Vector TremoluxCamClass::SmoothVectorValue(Real a, Real b, const Vector &carry, const Vector &value,
                                           const Vector &goal) {
    return Vector(SmoothRealValue(a, b, carry.x, value.x, goal.x), SmoothRealValue(a, b, carry.y, value.y, goal.y),
                  SmoothRealValue(a, b, carry.z, value.z, goal.z));
}
