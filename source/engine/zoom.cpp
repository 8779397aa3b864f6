#include "engine/filter.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr FilterKeys kFilter = {kZoomCarry, kZoomValue};

}  // namespace

Real TremoluxCamClass::EvaluateZoom(BaseContainer *data, Real time_offset, Real seed, LONG use_drift, Real rate,
                                    Real slow, Real medium, Real fast, Real speed, Real drift_smooth, Real smooth,
                                    Real overshoot, Real fade, Real focal_length, Real frame, Real drift_clock, Real,
                                    LONG, Real, Real, Real, Real) {
    const Real followed = FollowLens(kFilter, kOvershootZoom, focal_length, smooth, overshoot, fade, data);
    if (use_drift != 1) return followed;

    const Real goal =
        ZoomDrift(Truncate(time_offset), seed, rate, slow, medium, fast, speed, drift_clock) * focal_length;
    Real drift = goal;
    Real carry = 0.0;
    if (frame != data->GetReal(kStartFrame)) {
        Coefficients c;
        ShakeSmoothing(drift_smooth, &c.a, &c.b);
        const Real old_value = data->GetReal(kZoomDriftValue), old_carry = data->GetReal(kZoomDriftCarry);
        drift = SmoothRealValue(c.a, c.b, old_carry, old_value, goal);
        // Against the value just reached, not against the goal: the drift lags more than it swings.
        carry = SmoothRealCarry(c.a, c.b, old_carry, old_value, drift);
    }
    if (!IsFinite(drift) || !IsFinite(carry)) drift = carry = 0.0;
    data->SetReal(kZoomDriftValue, drift);
    data->SetReal(kZoomDriftCarry, carry);
    return followed + drift;
}
