#include "engine/operations.h"

namespace engine {

bool Operations::BendAnew(double amount, const CurveShape &shape, double *bent) {
    const OwnedCurve curve(host, shape);
    if (curve.Get() == nullptr) return false;
    constexpr Range kShares = {0.0, 1.0};
    *bent = Remap(amount, kShares, kShares, curve.Get(), PastEnd::kAddsRanges);
    bent_amounts_.Remember(shape, amount, *bent);
    return true;
}

double Operations::Remap(double x, const Range &input, const Range &output, void *curve, PastEnd past_end) {
    return engine::Remap(x, input, output, curve, past_end, false, false, host);
}

double Operations::SmoothCarry(const Coefficients &c, double carry, double value, double goal) {
    return engine::SmoothCarry(c, carry, value, goal);
}

double Operations::SmoothValue(const Coefficients &c, double carry, double value, double goal) {
    return engine::SmoothValue(c, carry, value, goal);
}

Vector3 Operations::SmoothCarry(const Coefficients &c, const Vector3 &carry, const Vector3 &value,
                                const Vector3 &goal) {
    return engine::SmoothCarry(c, carry, value, goal);
}

Vector3 Operations::SmoothValue(const Coefficients &c, const Vector3 &carry, const Vector3 &value,
                                const Vector3 &goal) {
    return engine::SmoothValue(c, carry, value, goal);
}

Coefficients Operations::InputSmoothing(double amount) { return engine::InputSmoothing(amount, this); }
Coefficients Operations::InputSmoothingTwin(double amount) { return engine::InputSmoothing(amount, this); }
Coefficients Operations::ShakeSmoothing(double amount) { return engine::ShakeSmoothing(amount, this); }

Vector3 Operations::Overshoot(Channel channel, const Vector3 &input, const Swing &swing, Spring *spring, Spring *twin) {
    return twin == nullptr ? engine::Overshoot(channel, input, swing, this, spring)
                           : engine::OvershootAngles(channel, input, swing, this, spring, twin);
}

double Operations::ShakePosition(PositionAxis axis, const PositionSettings &settings, double clock) {
    return engine::ShakePosition(axis, settings, clock, host);
}

double Operations::ShakeRotation(RotationAngle angle, const RotationSettings &settings, double clock) {
    return engine::ShakeRotation(angle, settings, clock, host);
}

double Operations::DriftZoom(const ZoomSettings &settings, double drift_clock) {
    return engine::DriftZoom(settings, drift_clock, this);
}

double Operations::DriftFocus(const FocusSettings &settings, double drift_clock, double distance) {
    return engine::DriftFocus(settings, drift_clock, distance, host);
}

double Operations::StepZoom(const ZoomSettings &settings, const ZoomInput &input, ZoomMemory *memory) {
    return engine::StepZoom(settings, input, this, memory);
}

Vector3 Operations::StepPosition(const PositionSettings &settings, const PositionInput &input, PositionMemory *memory) {
    return engine::StepPosition(settings, input, this, memory);
}

Vector3 Operations::StepRotation(const RotationSettings &settings, const RotationInput &input, RotationMemory *memory) {
    return engine::StepRotation(settings, input, this, memory);
}

double Operations::StepFocus(const FocusSettings &settings, const FocusInput &input, FocusMemory *memory) {
    return engine::StepFocus(settings, input, this, memory);
}

void Operations::StepJolts(const JoltSettings &settings, const JoltInput &input, JoltMemory *memory) {
    engine::StepJolts(settings, input, this, memory);
}

}  // namespace engine
