// Files that are no camera's, and recordings that presets are held against.
#include "library/events/events.h"
#include "library/fit/nearest_presets.h"
#include "library/formats/numbers.h"
#include "library/interface/buffer.h"
#include "library/interface/guard.h"
#include "library/interface/move.h"
#include "library/runtime/runtime.h"
#include "library/trace/json_value.h"

namespace tremolux {
namespace {

constexpr double kProgressSteps = 1000;

Json EventsJson(const EventList &list, const CameraMove &move) {
    std::size_t outside = 0;
    Json events = Json::array();
    for (const EventFrame &event : FramesOf(list, move, &outside))
        events.push_back({{"frame", event.frame}, {"strength", event.strength}});
    Json json = {{"events", events}, {"outside", outside}};
    if (list.curve) json["curve"] = {{"step", list.curve->step}, {"novelty", list.curve->novelty}};
    return json;
}

Json NearestJson(const std::vector<NearPreset> &near) {
    Json json = Json::array();
    for (const NearPreset &preset : near)
        json.push_back({{"category", preset.preset.category},
                        {"name", preset.preset.name},
                        {"distance", preset.distance}});
    return json;
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_events_from_bytes(tremolux_move move, const char *name, const void *bytes, size_t size,
                                           double sensitivity, int32_t band, tremolux_buffer *buffer) {
    return WithHandle<MoveTarget>(move, [&](const MoveTarget &target) {
        RequirePointer(name, "name");
        if (size > 0) RequirePointer(bytes, "bytes");
        RequirePointer(buffer, "buffer");
        if (!(sensitivity >= 0 && sensitivity <= 100))
            RefuseInput("sensitivity", FormatNumber(sensitivity), "0 to 100");
        if (band < TREMOLUX_ALL || band > TREMOLUX_HIGH) RefuseInput("band", std::to_string(band), "0 to 3");
        const OnsetSettings settings{sensitivity, static_cast<SoundBand>(band)};
        const EventList list =
            ReadEvents(name, {static_cast<const char *>(bytes), size}, target.move.rate, settings);
        *buffer = NewBuffer(EventsJson(list, target.move).dump());
    });
}

tremolux_status tremolux_nearest_presets(tremolux_move recording, tremolux_progress progress, void *user,
                                         tremolux_buffer *buffer) {
    return WithHandle<MoveTarget>(recording, [&](const MoveTarget &target) {
        RequirePointer(buffer, "buffer");
        const RecordedShake recorded = CutIntoParts(target.move, "recording");
        const Runtime::Turn turn;
        const auto hear = [&](double share) {
            const auto done = static_cast<std::uint64_t>(share * kProgressSteps);
            if (progress != nullptr && progress(done, static_cast<std::uint64_t>(kProgressSteps), user) != 0)
                throw Refusal(TREMOLUX_CANCELLED, "cancelled");
        };
        *buffer = NewBuffer(NearestJson(NearestPresets(recorded, Runtime::Get().ModuleFile(), hear)).dump());
    });
}
