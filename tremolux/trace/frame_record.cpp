#include "tremolux/trace/frame_record.h"

#include "tremolux/trace/layers.h"

namespace tremolux {
namespace {

struct NamedClock {
    const char *name;
    std::int32_t id;
};
// In frames at speed 1; the step is how far they go at the next frame.
constexpr NamedClock kClocks[] = {{"step", 20000}, {"shake", 10051},     {"focus", 10052}, {"zoom_drift", 10053},
                                  {"jolt", 10054}, {"auxiliary", 10055}, {"zoom", 10056}};

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
            {"time", JsonNumber(host::Seconds(stage->Document().GetTime()))},
            {"input", JsonCamera(stage->Input())},
            {"output", JsonCamera(stage->Output())},
            {"layers", Layers(*stage)},
            {"clocks", clocks},
            {"changed", state->Changes()}};
}

}  // namespace tremolux
