#include "library/trace/frame_record.h"

#include "generated/module_ids.h"
#include "library/trace/layers.h"

namespace tremolux {
namespace {

struct NamedClock {
    const char *name;
    std::int32_t id;
};
// In frames at speed 1; the step is how far they go at the next frame.
constexpr NamedClock kClocks[] = {{"step", ids::kClockStep},   {"shake", ids::kShakeClock},
                                  {"focus", ids::kFocusClock}, {"zoom_drift", ids::kZoomDriftClock},
                                  {"jolt", ids::kJoltClock},   {"auxiliary", ids::kAuxiliaryClock},
                                  {"zoom", ids::kZoomClock}};

Json JsonCamera(const CameraSample &sample) {
    return {{"position", JsonVector(sample.position)},
            {"hpb", JsonVector(sample.angles * (1 / kRadiansPerDegree))},
            {"focal_length", JsonNumber(sample.focal_length)},
            {"focus_distance", JsonNumber(sample.focus_distance)}};
}

}  // namespace

Json FrameRecord(std::int64_t frame, Stage *stage, PrivateState *state) {
    Json clocks = Json::object();
    for (const NamedClock &clock : kClocks) clocks[clock.name] = JsonNumber(stage->CameraTag().Data().Real(clock.id));
    return {{"frame", frame},
            {"time", JsonNumber(static_cast<double>(frame) / stage->Rate().PerSecond())},
            {"input", JsonCamera(stage->Input())},
            {"output", JsonCamera(stage->Output())},
            {"layers", Layers(*stage)},
            {"clocks", clocks},
            {"changed", state->Changes()}};
}

}  // namespace tremolux
