// The engine's operations as the tag has them: each goes through the tag, whose class may be derived from.
#pragma once

#include "c4d.h"
#include "engine/operations.h"

class TremoluxCamClass;

class TagOperations : public engine::Operations {
  public:
    explicit TagOperations(TremoluxCamClass *tag);

    // Which container the tag's operations work on, until told otherwise.
    void WorkOn(BaseContainer *data) { data_ = data; }
    // What a frame hands to its layers though no formula asks for it: the object that the camera focuses on, NULL for
    // none, and the document's rate.
    void HandOn(BaseObject *focus, Real frames_per_second);

    double Remap(double x, const engine::Range &input, const engine::Range &output, void *curve,
                 engine::PastEnd past_end) override;
    double SmoothCarry(const engine::Coefficients &c, double carry, double value, double goal) override;
    double SmoothValue(const engine::Coefficients &c, double carry, double value, double goal) override;
    engine::Vector3 SmoothCarry(const engine::Coefficients &c, const engine::Vector3 &carry,
                                const engine::Vector3 &value, const engine::Vector3 &goal) override;
    engine::Vector3 SmoothValue(const engine::Coefficients &c, const engine::Vector3 &carry,
                                const engine::Vector3 &value, const engine::Vector3 &goal) override;
    engine::Coefficients InputSmoothing(double amount) override;
    engine::Coefficients InputSmoothingTwin(double amount) override;
    engine::Coefficients ShakeSmoothing(double amount) override;
    engine::Vector3 Overshoot(engine::Channel channel, const engine::Vector3 &input, const engine::Swing &swing,
                              engine::Spring *spring, engine::Spring *twin) override;
    double ShakePosition(engine::PositionAxis axis, const engine::PositionSettings &settings, double clock) override;
    double ShakeRotation(engine::RotationAngle angle, const engine::RotationSettings &settings, double clock) override;
    double DriftZoom(const engine::ZoomSettings &settings, double drift_clock) override;
    double DriftFocus(const engine::FocusSettings &settings, double drift_clock, double distance) override;
    void ClocksAreSet() override;
    double StepZoom(const engine::ZoomSettings &settings, const engine::ZoomInput &input,
                    engine::ZoomMemory *memory) override;
    engine::Vector3 StepPosition(const engine::PositionSettings &settings, const engine::PositionInput &input,
                                 engine::PositionMemory *memory) override;
    engine::Vector3 StepRotation(const engine::RotationSettings &settings, const engine::RotationInput &input,
                                 engine::RotationMemory *memory) override;
    double StepFocus(const engine::FocusSettings &settings, const engine::FocusInput &input,
                     engine::FocusMemory *memory) override;
    void StepJolts(const engine::JoltSettings &settings, const engine::JoltInput &input,
                   engine::JoltMemory *memory) override;

  private:
    TremoluxCamClass *tag_;
    BaseContainer *data_;
    BaseObject *focus_;
    Real frames_per_second_;
};
