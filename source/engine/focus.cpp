#include "engine/filter.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr FilterKeys kFilter = {kFocusCarry, kFocusValue};

}  // namespace

Real TremoluxCamClass::EvaluateFocus(BaseContainer *data, Real input_distance, BaseObject *object, Real smooth,
                                     Real overshoot, Real fade, const Vector &object_position,
                                     const Vector &camera_position, Real drift_smooth, LONG use_drift, Real time_offset,
                                     Real slow, Real medium, Real fast, LONG seed, Real rate, Real speed, Real frame) {
    const Real object_distance = object ? Len(object_position - camera_position) : 0.0;
    const Bool follows_object = object && IsFinite(object_distance);
    const Real goal = follows_object ? object_distance : input_distance;
    const Real drift_distance = follows_object ? goal : data->GetReal(kFocusValue);
    const Real followed = FollowLens(kFilter, kOvershootFocus, goal, smooth, overshoot, fade, data);
    if (use_drift != 1) return followed;

    const Real raw = FocusDrift(data, Truncate(time_offset), slow, medium, fast, seed, rate, speed, drift_distance);
    if (IsFinite(raw) && (frame == data->GetReal(kStartFrame) || raw == 0.0)) return followed + raw;

    Coefficients c;
    ShakeSmoothing(drift_smooth, &c.a, &c.b);
    const Real old_carry = data->GetReal(kFocusDriftCarry), old_raw = data->GetReal(kFocusDriftValue);
    const Real drift = SmoothRealValue(c.a, c.b, old_carry, old_raw, raw);
    const Real carry = SmoothRealCarry(c.a, c.b, old_carry, old_raw, raw);
    const Bool sound = IsFinite(drift) && IsFinite(carry);
    data->SetReal(kFocusDriftCarry, sound ? carry : 0.0);
    // The raw drift is kept, not the smoothed one: the next step counts from where the noise was.
    data->SetReal(kFocusDriftValue, sound ? raw : 0.0);
    return sound ? followed + drift : followed;
}
