#include "tag/operations.h"

#include "customgui_splinecontrol.h"
#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/tremoluxcam.h"

using engine::Coefficients;
using engine::Vector3;

TagOperations::TagOperations(TremoluxCamClass *tag)
    : engine::Operations(HostMaths()), tag_(tag), data_(NULL), focus_(NULL), frames_per_second_(0.0) {}

void TagOperations::HandOn(BaseObject *focus, Real frames_per_second) {
    focus_ = focus;
    frames_per_second_ = frames_per_second;
}

double TagOperations::Remap(double x, const engine::Range &input, const engine::Range &output, void *curve,
                            engine::PastEnd past_end) {
    return tag_->RemapValue(x, input.minimum, input.maximum, output.minimum, output.maximum, (SplineData *)curve,
                            static_cast<LONG>(past_end), 0, 0);
}

double TagOperations::SmoothCarry(const Coefficients &c, double carry, double value, double goal) {
    return tag_->SmoothRealCarry(c.a, c.b, carry, value, goal);
}

double TagOperations::SmoothValue(const Coefficients &c, double carry, double value, double goal) {
    return tag_->SmoothRealValue(c.a, c.b, carry, value, goal);
}

Vector3 TagOperations::SmoothCarry(const Coefficients &c, const Vector3 &carry, const Vector3 &value,
                                   const Vector3 &goal) {
    return FromHost(tag_->SmoothVectorCarry(c.a, c.b, ToHost(carry), ToHost(value), ToHost(goal)));
}

Vector3 TagOperations::SmoothValue(const Coefficients &c, const Vector3 &carry, const Vector3 &value,
                                   const Vector3 &goal) {
    return FromHost(tag_->SmoothVectorValue(c.a, c.b, ToHost(carry), ToHost(value), ToHost(goal)));
}

Coefficients TagOperations::InputSmoothing(double amount) {
    Coefficients c;
    tag_->InputSmoothing(amount, &c.a, &c.b);
    return c;
}

Coefficients TagOperations::InputSmoothingTwin(double amount) {
    Coefficients c;
    tag_->InputSmoothingTwin(amount, &c.a, &c.b);
    return c;
}

Coefficients TagOperations::ShakeSmoothing(double amount) {
    Coefficients c;
    tag_->ShakeSmoothing(amount, &c.a, &c.b);
    return c;
}

Vector3 TagOperations::Overshoot(engine::Channel channel, const Vector3 &input, const engine::Swing &swing,
                                 engine::Spring *, engine::Spring *twin) {
    return FromHost(tag_->Overshoot(ToHost(input), swing.amount, swing.fade, data_, BaseOf(channel), twin != NULL));
}

double TagOperations::ShakePosition(engine::PositionAxis axis, const engine::PositionSettings &s, double clock) {
    const auto shake = [&](auto operation, Real ratio) {
        return (tag_->*operation)(s.seed, s.time_offset, s.weights.slow, s.weights.medium, s.weights.fast, ratio, 1,
                                  s.intensity, s.scale, s.speed, clock);
    };
    switch (axis) {
        case engine::PositionAxis::kX:
            return shake(&TremoluxCamClass::ShakePositionX, s.ratio.x);
        case engine::PositionAxis::kY:
            return shake(&TremoluxCamClass::ShakePositionY, s.ratio.y);
        case engine::PositionAxis::kZ:
            break;
    }
    return shake(&TremoluxCamClass::ShakePositionZ, s.ratio.z);
}

double TagOperations::ShakeRotation(engine::RotationAngle angle, const engine::RotationSettings &s, double clock) {
    const auto shake = [&](auto operation, Real ratio) {
        return (tag_->*operation)(s.seed, engine::Truncate(s.time_offset), s.weights.slow, s.weights.medium,
                                  s.weights.fast, ratio, s.intensity, s.speed, clock);
    };
    switch (angle) {
        case engine::RotationAngle::kHeading:
            return shake(&TremoluxCamClass::ShakeRotationH, s.ratio.x);
        case engine::RotationAngle::kPitch:
            return shake(&TremoluxCamClass::ShakeRotationP, s.ratio.y);
        case engine::RotationAngle::kBank:
            break;
    }
    return shake(&TremoluxCamClass::ShakeRotationB, s.ratio.z);
}

double TagOperations::DriftZoom(const engine::ZoomSettings &s, double drift_clock) {
    return tag_->ZoomDrift(engine::Truncate(s.time_offset), s.seed, s.rate, s.weights.slow, s.weights.medium,
                           s.weights.fast, s.speed, drift_clock);
}

double TagOperations::DriftFocus(const engine::FocusSettings &s, double, double distance) {
    return tag_->FocusDrift(data_, engine::Truncate(s.time_offset), s.weights.slow, s.weights.medium, s.weights.fast,
                            s.seed, s.rate, s.speed, distance);
}

void TagOperations::ClocksAreSet() { tag_->StoreClocks(data_); }

double TagOperations::StepZoom(const engine::ZoomSettings &s, const engine::ZoomInput &in, engine::ZoomMemory *) {
    // The zoom clock and what follows it belong to no formula.
    const MotionState &state = tag_->ReadMotion(data_);
    const ZoomHidden &hidden = state.zoom_hidden;
    return tag_->EvaluateZoom(data_, s.time_offset, s.seed, s.drifts, s.rate, s.weights.slow, s.weights.medium,
                              s.weights.fast, s.speed, s.drift_smooth, s.smooth, s.swing.amount, s.swing.fade,
                              in.focal_length, in.frame, in.drift_clock, state.memory.clocks.zoom,
                              engine::FrameOfTime(hidden.time, frames_per_second_), hidden.value_1, hidden.value_2,
                              hidden.value_3, hidden.value_4);
}

Vector3 TagOperations::StepPosition(const engine::PositionSettings &s, const engine::PositionInput &in,
                                    engine::PositionMemory *) {
    return FromHost(tag_->EvaluatePosition(data_, ToHost(in.position), s.smooth, s.time_offset, s.weights.slow,
                                           s.weights.medium, s.weights.fast, in.frame, s.swing.amount, s.swing.fade,
                                           s.shake_smooth, s.seed, s.shakes_x, s.shakes_y, s.shakes_z, s.intensity,
                                           s.scale, s.ratio.x, s.ratio.y, s.ratio.z, s.speed, in.clock));
}

Vector3 TagOperations::StepRotation(const engine::RotationSettings &s, const engine::RotationInput &in,
                                    engine::RotationMemory *) {
    return FromHost(tag_->EvaluateRotation(
        data_, in.is_aiming, ToHost(in.target), ToHost(in.position), s.target_smooth, s.time_offset,
        s.target_swing.amount, s.target_swing.fade, ToHost(in.angles), s.smooth, s.swing.amount, s.swing.fade, s.seed,
        s.shakes_h, s.shakes_p, s.shakes_b, s.intensity, engine::SceneScale(tag_->ReadMotion(data_).settings),
        s.ratio.x, s.ratio.y, s.ratio.z, s.speed, in.clock, s.shake_smooth, s.weights.slow, s.weights.medium,
        s.weights.fast, in.frame));
}

double TagOperations::StepFocus(const engine::FocusSettings &s, const engine::FocusInput &in, engine::FocusMemory *) {
    return tag_->EvaluateFocus(data_, in.distance, focus_, s.smooth, s.swing.amount, s.swing.fade, ToHost(in.object),
                               ToHost(in.camera), s.drift_smooth, s.drifts, s.time_offset, s.weights.slow,
                               s.weights.medium, s.weights.fast, s.seed, s.rate, s.speed, in.frame);
}

void TagOperations::StepJolts(const engine::JoltSettings &s, const engine::JoltInput &in, engine::JoltMemory *) {
    const Vector3 &axes = s.position_ratio, &angles = s.rotation_ratio;
    tag_->EvaluateJolts(data_, s.time_scale, s.seed, s.interval, frames_per_second_, in.whole_clock, s.time_offset,
                        s.position_intensity, s.rotation_intensity, s.smooth, s.pushes, s.scale,
                        s.shake_position_intensity, s.speed, axes.x, axes.y, axes.z, angles.x, angles.y, angles.z,
                        s.shake_rotation_intensity, s.falloff_step, in.frame, 1);  // 1: it looks into the tag's list
    tag_->ReadMotion(data_);  // its result is what the container holds
}
