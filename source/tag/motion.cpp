// The tag's operations of the motion: the engine's, between a container and the arguments that the operations have.
#include "engine/remap.h"
#include "tag/hostmaths.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

engine::PastEnd PastEndOf(LONG curve_mode) {
    return curve_mode == 0 || curve_mode == 1 ? static_cast<engine::PastEnd>(curve_mode) : engine::PastEnd::kIsCut;
}

Real ShakePosition(engine::PositionAxis axis, Real seed, Real time_offset, Real slow, Real medium, Real fast,
                   Real ratio, Real intensity, Real scale, Real speed, Real clock) {
    engine::PositionSettings s;
    s.seed = seed;
    s.time_offset = time_offset;
    s.weights = {slow, medium, fast};
    s.ratio = {ratio, ratio, ratio};
    s.intensity = intensity;
    s.scale = scale;
    s.speed = speed;
    return engine::ShakePosition(axis, s, clock, HostMaths());
}

Real ShakeRotation(engine::RotationAngle angle, Real seed, LONG time_offset, Real slow, Real medium, Real fast,
                   Real ratio, Real intensity, Real speed, Real clock) {
    engine::RotationSettings s;
    s.seed = seed;
    s.time_offset = time_offset;
    s.weights = {slow, medium, fast};
    s.ratio = {ratio, ratio, ratio};
    s.intensity = intensity;
    s.speed = speed;
    return engine::ShakeRotation(angle, s, clock, HostMaths());
}

}  // namespace

MotionState &TremoluxCamClass::ReadMotion(BaseContainer *data) {
    BaseTag *tag = (BaseTag *)Get();
    operations_.WorkOn(data);
    motion_.Read(*data, is_alone_ || (tag && tag->GetDataInstance() == data));
    return motion_;
}

void TremoluxCamClass::StoreClocks(BaseContainer *data) { motion_.Write(MotionPart::kClocks, data); }

Real TremoluxCamClass::ShakePositionX(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return ShakePosition(engine::PositionAxis::kX, seed, time_offset, slow, medium, fast, ratio, intensity, scale,
                         speed, clock);
}

Real TremoluxCamClass::ShakePositionY(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return ShakePosition(engine::PositionAxis::kY, seed, time_offset, slow, medium, fast, ratio, intensity, scale,
                         speed, clock);
}

Real TremoluxCamClass::ShakePositionZ(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG,
                                      Real intensity, Real scale, Real speed, Real clock) {
    return ShakePosition(engine::PositionAxis::kZ, seed, time_offset, slow, medium, fast, ratio, intensity, scale,
                         speed, clock);
}

Real TremoluxCamClass::ShakeRotationH(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return ShakeRotation(engine::RotationAngle::kHeading, seed, time_offset, slow, medium, fast, ratio, intensity,
                         speed, clock);
}

Real TremoluxCamClass::ShakeRotationP(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return ShakeRotation(engine::RotationAngle::kPitch, seed, time_offset, slow, medium, fast, ratio, intensity, speed,
                         clock);
}

Real TremoluxCamClass::ShakeRotationB(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                      Real intensity, Real speed, Real clock) {
    return ShakeRotation(engine::RotationAngle::kBank, seed, time_offset, slow, medium, fast, ratio, intensity, speed,
                         clock);
}

Real TremoluxCamClass::ZoomDrift(LONG time, Real seed, Real rate, Real slow, Real medium, Real fast, Real multiplier,
                                 Real clock) {
    engine::ZoomSettings s;
    s.time_offset = time;
    s.seed = seed;
    s.rate = rate;
    s.weights = {slow, medium, fast};
    s.speed = multiplier;
    return engine::DriftZoom(s, clock, &operations_);
}

Real TremoluxCamClass::FocusDrift(BaseContainer *data, LONG time_offset, Real slow, Real medium, Real fast, LONG seed,
                                  Real rate, Real speed, Real distance) {
    engine::FocusSettings s;
    s.time_offset = time_offset;
    s.weights = {slow, medium, fast};
    s.seed = seed;
    s.rate = rate;
    s.speed = speed;
    return engine::DriftFocus(s, ReadMotion(data).memory.clocks.focus, distance, HostMaths());
}

Real TremoluxCamClass::RemapValue(Real x, Real input_min, Real input_max, Real output_min, Real output_max,
                                  SplineData *curve, LONG curve_mode, LONG clamp_low, LONG clamp_high) {
    return engine::Remap(x, {input_min, input_max}, {output_min, output_max}, curve, PastEndOf(curve_mode),
                         clamp_low == 1, clamp_high == 1, HostMaths());
}

Real TremoluxCamClass::SmoothRealCarry(Real a, Real b, Real carry, Real value, Real goal) {
    return engine::SmoothCarry({a, b}, carry, value, goal);
}

Real TremoluxCamClass::SmoothRealValue(Real a, Real b, Real carry, Real value, Real goal) {
    return engine::SmoothValue({a, b}, carry, value, goal);
}

Vector TremoluxCamClass::SmoothVectorCarry(Real a, Real b, const Vector &carry, const Vector &value,
                                           const Vector &goal) {
    return ToHost(engine::SmoothCarry({a, b}, FromHost(carry), FromHost(value), FromHost(goal)));
}

Vector TremoluxCamClass::SmoothVectorValue(Real a, Real b, const Vector &carry, const Vector &value,
                                           const Vector &goal) {
    return ToHost(engine::SmoothValue({a, b}, FromHost(carry), FromHost(value), FromHost(goal)));
}

void TremoluxCamClass::InputSmoothing(Real amount, Real *a, Real *b) {
    const engine::Coefficients c = engine::InputSmoothing(amount, &operations_);
    *a = c.a;
    *b = c.b;
}

void TremoluxCamClass::InputSmoothingTwin(Real amount, Real *a, Real *b) { InputSmoothing(amount, a, b); }

void TremoluxCamClass::ShakeSmoothing(Real amount, Real *a, Real *b) {
    const engine::Coefficients c = engine::ShakeSmoothing(amount, &operations_);
    *a = c.a;
    *b = c.b;
}

Vector TremoluxCamClass::Overshoot(const Vector &input, Real amount, Real fade, BaseContainer *data, LONG base,
                                   LONG mode) {
    engine::Channel channel;
    if (!FindChannel(base, &channel)) return input;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    engine::Spring &spring = SpringOf(channel, &memory);
    if (mode != 1) {
        const engine::Vector3 output =
            engine::Overshoot(channel, FromHost(input), {amount, fade}, &operations_, &spring);
        motion_.WriteSpring(channel, data);
        return ToHost(output);
    }
    const engine::Channel twin =
        channel == engine::Channel::kTarget ? engine::Channel::kRotation : engine::Channel::kTarget;
    const engine::Vector3 output = engine::OvershootAngles(channel, FromHost(input), {amount, fade}, &operations_,
                                                           &spring, &SpringOf(twin, &memory));
    motion_.WriteSpring(twin, data);
    motion_.WriteSpring(channel, data);
    return ToHost(output);
}

Real TremoluxCamClass::EvaluateZoom(BaseContainer *data, Real time_offset, Real seed, LONG use_drift, Real rate,
                                    Real slow, Real medium, Real fast, Real speed, Real drift_smooth, Real smooth,
                                    Real overshoot, Real fade, Real focal_length, Real frame, Real drift_clock, Real,
                                    LONG, Real, Real, Real, Real) {
    engine::ZoomSettings s;
    s.smooth = smooth;
    s.swing = {overshoot, fade};
    s.drifts = use_drift == 1;
    s.rate = rate;
    s.weights = {slow, medium, fast};
    s.drift_smooth = drift_smooth;
    s.seed = seed;
    s.speed = speed;
    s.time_offset = time_offset;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    const Real focal = engine::StepZoom(s, {focal_length, frame, drift_clock, frame == memory.start_frame},
                                        &operations_, &memory.zoom);
    motion_.Write(MotionPart::kZoom, data);
    motion_.WriteSpring(engine::Channel::kZoom, data);
    return focal;
}

Vector TremoluxCamClass::EvaluatePosition(BaseContainer *data, const Vector &input, Real smooth, Real time_offset,
                                          Real slow, Real medium, Real fast, Real frame, Real overshoot, Real fade,
                                          Real shake_smooth, Real seed, LONG use_x, LONG use_y, LONG use_z,
                                          Real intensity, Real scale, Real ratio_x, Real ratio_y, Real ratio_z,
                                          Real speed, Real clock) {
    engine::PositionSettings s;
    s.smooth = smooth;
    s.swing = {overshoot, fade};
    s.shakes_x = use_x != 0;
    s.shakes_y = use_y != 0;
    s.shakes_z = use_z != 0;
    s.weights = {slow, medium, fast};
    s.ratio = {ratio_x, ratio_y, ratio_z};
    s.intensity = intensity;
    s.scale = scale;
    s.shake_smooth = shake_smooth;
    s.seed = seed;
    s.speed = speed;
    s.time_offset = time_offset;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    const engine::Vector3 position = engine::StepPosition(s, {FromHost(input), frame, clock, HasNoPast(memory, frame)},
                                                          &operations_, &memory.position);
    motion_.Write(MotionPart::kPosition, data);
    motion_.WriteSpring(engine::Channel::kPosition, data);
    return ToHost(position);
}

Vector TremoluxCamClass::EvaluateRotation(BaseContainer *data, LONG use_target, const Vector &target,
                                          const Vector &position, Real target_smooth, Real time_offset,
                                          Real target_overshoot, Real target_fade, const Vector &input, Real smooth,
                                          Real overshoot, Real fade, Real seed, LONG use_h, LONG use_p, LONG use_b,
                                          Real intensity, Real, Real ratio_h, Real ratio_p, Real ratio_b, Real speed,
                                          Real clock, Real shake_smooth, Real slow, Real medium, Real fast,
                                          Real frame) {
    engine::RotationSettings s;
    s.smooth = smooth;
    s.target_smooth = target_smooth;
    s.swing = {overshoot, fade};
    s.target_swing = {target_overshoot, target_fade};
    s.shakes_h = use_h != 0;
    s.shakes_p = use_p != 0;
    s.shakes_b = use_b != 0;
    s.weights = {slow, medium, fast};
    s.ratio = {ratio_h, ratio_p, ratio_b};
    s.intensity = intensity;
    s.shake_smooth = shake_smooth;
    s.seed = seed;
    s.speed = speed;
    s.time_offset = time_offset;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    const engine::Vector3 angles = engine::StepRotation(s,
                                                        {FromHost(input), use_target == 1, FromHost(target),
                                                         FromHost(position), frame, clock, HasNoPast(memory, frame)},
                                                        &operations_, &memory.rotation);
    motion_.Write(MotionPart::kRotation, data);
    motion_.WriteSpring(engine::Channel::kRotation, data);
    motion_.WriteSpring(engine::Channel::kTarget, data);
    return ToHost(angles);
}

Real TremoluxCamClass::EvaluateFocus(BaseContainer *data, Real input_distance, BaseObject *object, Real smooth,
                                     Real overshoot, Real fade, const Vector &object_position,
                                     const Vector &camera_position, Real drift_smooth, LONG use_drift, Real time_offset,
                                     Real slow, Real medium, Real fast, LONG seed, Real rate, Real speed, Real frame) {
    engine::FocusSettings s;
    s.smooth = smooth;
    s.swing = {overshoot, fade};
    s.drifts = use_drift == 1;
    s.rate = rate;
    s.weights = {slow, medium, fast};
    s.drift_smooth = drift_smooth;
    s.seed = seed;
    s.speed = speed;
    s.time_offset = time_offset;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    const Real distance =
        engine::StepFocus(s,
                          {input_distance, object != NULL, FromHost(object_position), FromHost(camera_position), frame,
                           memory.clocks.focus, frame == memory.start_frame},
                          &operations_, &memory.focus);
    motion_.Write(MotionPart::kFocus, data);
    motion_.WriteSpring(engine::Channel::kFocus, data);
    return distance;
}

void TremoluxCamClass::EvaluateJolts(BaseContainer *data, Real time_scale, Real seed, LONG interval, Real, LONG clock,
                                     Real time_offset, Real position_intensity, Real rotation_intensity, Real smooth,
                                     LONG flag, Real scale, Real shake_position_intensity, Real speed, Real ratio_x,
                                     Real ratio_y, Real ratio_z, Real ratio_h, Real ratio_p, Real ratio_b,
                                     Real shake_rotation_intensity, Real falloff_step, LONG frame, LONG use_list) {
    engine::JoltSettings s;
    s.pushes = flag == 1;
    s.interval = interval;
    s.position_intensity = position_intensity;
    s.rotation_intensity = rotation_intensity;
    s.smooth = smooth;
    s.falloff_step = falloff_step;
    s.scale = scale;
    s.shake_position_intensity = shake_position_intensity;
    s.shake_rotation_intensity = shake_rotation_intensity;
    s.position_ratio = {ratio_x, ratio_y, ratio_z};
    s.rotation_ratio = {ratio_h, ratio_p, ratio_b};
    s.time_scale = time_scale;
    s.seed = seed;
    s.speed = speed;
    s.time_offset = time_offset;
    engine::FrameMemory &memory = ReadMotion(data).memory;
    engine::StepJolts(s, {memory.clocks.jolt, clock, frame, use_list == 1 && trigger_.Has(frame)}, &operations_,
                      &memory.jolts);
    motion_.Write(MotionPart::kJolts, data);
}
