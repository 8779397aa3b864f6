#include "engine/frame.h"

#include "engine/operations.h"

namespace engine {

ClockSettings ClockSettingsOf(const Settings &s) {
    return {s.speed, s.speed_variation, s.focus_rate, s.zoom_rate, Truncate(s.seed)};
}

bool HasNoPast(const FrameMemory &memory, double frame) { return memory.is_catching_up || frame == memory.start_frame; }

bool StepFrame(const Settings &settings, const FrameInput &in, Operations *operations, FrameMemory *memory,
               FrameMotion *motion) {
    const OwnedCurve warp_curve(operations->host, kSpeedWarpCurve);
    if (warp_curve.Get() == nullptr) return false;
    AdvanceClocks(ClockSettingsOf(settings), in.frame, warp_curve.Get(), operations, &memory->clocks);
    operations->ClocksAreSet();
    const OwnedCurve probe_curve(operations->host, kProbeCurve);
    if (probe_curve.Get() == nullptr) return false;

    const Clocks clocks = memory->clocks;
    const bool starts = in.frame == memory->start_frame, restart = HasNoPast(*memory, in.frame);
    FrameMotion result;
    result.focal_length = operations->StepZoom(ZoomSettingsOf(settings),
                                               {in.focal_length, in.frame, clocks.zoom_drift, starts}, &memory->zoom);
    result.position = operations->StepPosition(PositionSettingsOf(settings),
                                               {in.position, in.frame, clocks.shake, restart}, &memory->position);
    result.angles = operations->StepRotation(
        RotationSettingsOf(settings),
        {in.angles, in.has_target && settings.use_target, in.target, result.position, in.frame, clocks.shake, restart},
        &memory->rotation);
    result.focus_distance = operations->StepFocus(
        FocusSettingsOf(settings),
        {in.focus_distance, in.has_focus_object, in.focus_object, result.position, in.frame, clocks.focus, starts},
        &memory->focus);
    operations->StepJolts(JoltSettingsOf(settings, in.frames_per_second),
                          {clocks.jolt, Truncate(clocks.jolt), Truncate(in.frame), in.is_jolt_listed}, &memory->jolts);
    result.position = result.position + memory->jolts.position.offset;
    result.angles = result.angles + memory->jolts.rotation.offset;
    if (!IsFinite(result.position) || !IsFinite(result.angles) || !IsFinite(result.focal_length) ||
        !IsFinite(result.focus_distance))
        return false;
    *motion = result;
    return true;
}

Vector3 ContinueAngles(double frame, const Vector3 &angles, const Host &host, FrameMemory *memory) {
    const bool has_reference = frame != 0.0 && IsFinite(memory->previous_angles);
    memory->previous_angles = host.nearest_angles(has_reference ? memory->previous_angles : Vector3(), angles);
    return memory->previous_angles;
}

}  // namespace engine
