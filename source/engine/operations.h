// What frames are computed with. The layers call each other through these, so that whoever computes frames may put
// something else in the place of any of them.
#pragma once

#include "engine/clocks.h"
#include "engine/focus.h"
#include "engine/host.h"
#include "engine/jolts.h"
#include "engine/overshoot.h"
#include "engine/position.h"
#include "engine/remap.h"
#include "engine/rotation.h"
#include "engine/smoothing.h"
#include "engine/zoom.h"

namespace engine {

class Operations {
  public:
    explicit Operations(const Host &host_functions) : host(host_functions) {}
    virtual ~Operations() = default;

    const Host &host;

    // Along a curve from (0, 0) to (1, 1); false without memory for it.
    bool Bend(double amount, const CurveShape &shape, double *bent) {
        return bent_amounts_.Find(shape, amount, bent) || BendAnew(amount, shape, bent);
    }

    virtual double Remap(double x, const Range &input, const Range &output, void *curve, PastEnd past_end);

    virtual double SmoothCarry(const Coefficients &c, double carry, double value, double goal);
    virtual double SmoothValue(const Coefficients &c, double carry, double value, double goal);
    virtual Vector3 SmoothCarry(const Coefficients &c, const Vector3 &carry, const Vector3 &value, const Vector3 &goal);
    virtual Vector3 SmoothValue(const Coefficients &c, const Vector3 &carry, const Vector3 &value, const Vector3 &goal);
    virtual Coefficients InputSmoothing(double amount);      // position, zoom, focus
    virtual Coefficients InputSmoothingTwin(double amount);  // rotation, jolts
    virtual Coefficients ShakeSmoothing(double amount);
    // `twin` is NULL for what is no angle.
    virtual Vector3 Overshoot(Channel channel, const Vector3 &input, const Swing &swing, Spring *spring, Spring *twin);

    virtual double ShakePosition(PositionAxis axis, const PositionSettings &settings, double clock);
    virtual double ShakeRotation(RotationAngle angle, const RotationSettings &settings, double clock);
    virtual double DriftZoom(const ZoomSettings &settings, double drift_clock);
    virtual double DriftFocus(const FocusSettings &settings, double drift_clock, double distance);

    // The clocks of a frame are known; its layers come next.
    virtual void ClocksAreSet() {}
    virtual double StepZoom(const ZoomSettings &settings, const ZoomInput &input, ZoomMemory *memory);
    virtual Vector3 StepPosition(const PositionSettings &settings, const PositionInput &input, PositionMemory *memory);
    virtual Vector3 StepRotation(const RotationSettings &settings, const RotationInput &input, RotationMemory *memory);
    virtual double StepFocus(const FocusSettings &settings, const FocusInput &input, FocusMemory *memory);
    virtual void StepJolts(const JoltSettings &settings, const JoltInput &input, JoltMemory *memory);

  private:
    bool BendAnew(double amount, const CurveShape &shape, double *bent);

    BentAmounts bent_amounts_;
};

}  // namespace engine
