#include "engine/curves.h"
#include "engine/filter.h"
#include "engine/overshoot.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr Real kMostKept = 0.95;
constexpr Real kLeastDamping = 0.15;
constexpr Real kMostShakeDamping = 0.25;

}  // namespace

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

Bool TremoluxCamClass::BendAmount(Real amount, const CurveShape &shape, Real *bent) {
    if (bent_amounts_.Find(shape, amount, bent)) return TRUE;
    const Curve curve(shape);
    if (!curve) return FALSE;
    *bent = RemapValue(amount, 0.0, 1.0, 0.0, 1.0, curve, 0, 0, 0);
    bent_amounts_.Remember(shape, amount, *bent);
    return TRUE;
}

void TremoluxCamClass::InputSmoothing(Real amount, Real *a, Real *b) {
    Real bent;
    const Bool known =
        BendAmount(FCut01(amount), kSmoothingAmountCurve, &bent) && BendAmount(bent, kSmoothingCurve, &bent);
    *a = known ? kMostKept * bent : 0.0;
    *b = known ? kLeastDamping + (1.0 - kLeastDamping) * bent : 1.0;
}

void TremoluxCamClass::InputSmoothingTwin(Real amount, Real *a, Real *b) { InputSmoothing(amount, a, b); }

void TremoluxCamClass::ShakeSmoothing(Real amount, Real *a, Real *b) {
    Real bent;
    const Bool known = BendAmount(FCut01(amount), kShakeSmoothingCurve, &bent);
    *a = known ? kMostKept * bent : 0.0;
    *b = known ? kMostShakeDamping * bent : 1.0;
}

Bool HasNoPast(const BaseContainer &data, Real frame) {
    return data.GetBool(kCatchingUp) || frame == data.GetReal(kStartFrame);
}

void WriteFilter(const FilterKeys &keys, const Vector &carry, const Vector &value, BaseContainer *data) {
    data->SetVector(keys.carry, carry);
    data->SetVector(keys.value, value);
}

Vector TremoluxCamClass::FilterVector(const FilterKeys &keys, const Coefficients &c, const Vector &goal, Bool restart,
                                      BaseContainer *data) {
    Vector carry, value = goal;
    if (!restart) {
        const Vector old_carry = data->GetVector(keys.carry), old_value = data->GetVector(keys.value);
        carry = SmoothVectorCarry(c.a, c.b, old_carry, old_value, goal);
        value = SmoothVectorValue(c.a, c.b, old_carry, old_value, goal);
        if (!IsFinite(carry) || !IsFinite(value)) {
            carry = Vector();
            value = goal;
        }
    }
    WriteFilter(keys, carry, value, data);
    return value;
}

Vector TremoluxCamClass::FilterShake(const FilterKeys &keys, Real smooth, const Vector &raw, Bool restart,
                                     BaseContainer *data) {
    if (!IsFinite(raw)) {
        WriteFilter(keys, Vector(), Vector(), data);
        return Vector();
    }
    Coefficients c;
    ShakeSmoothing(smooth, &c.a, &c.b);
    return FilterVector(keys, c, raw, restart, data);
}

Vector TremoluxCamClass::OvershootOrRest(const Vector &value, Real amount, Real fade, BaseContainer *data, LONG base,
                                         LONG mode) {
    const Vector output = Overshoot(value, amount, fade, data, base, mode);
    if (IsFinite(output)) return output;
    RestOvershoot(base, value, data);
    return value;
}

Real TremoluxCamClass::FollowLens(const FilterKeys &keys, LONG overshoot_base, Real goal, Real smooth, Real overshoot,
                                  Real fade, BaseContainer *data) {
    Coefficients c;
    InputSmoothing(smooth, &c.a, &c.b);
    const Real old_carry = data->GetReal(keys.carry), old_value = data->GetReal(keys.value);
    Real carry = SmoothRealCarry(c.a, c.b, old_carry, old_value, goal);
    Real value = SmoothRealValue(c.a, c.b, old_carry, old_value, goal);
    if (!IsFinite(carry) || !IsFinite(value)) {
        carry = 0.0;
        value = goal;
    }
    value = OvershootOrRest(Vector(value, 0.0, 0.0), overshoot, fade, data, overshoot_base, 0).x;
    data->SetReal(keys.carry, carry);
    data->SetReal(keys.value, value);
    return value;
}
