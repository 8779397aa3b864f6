// When, where and how much a shot is shaken, and what its jolts hit.
#include <cmath>

#include "generated/module_ids.h"
#include "host/animation/track.h"
#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "library/events/take_events.h"
#include "library/formats/numbers.h"
#include "library/interface/shot.h"
#include "library/parameters/settings.h"
#include "library/shots/keys.h"

namespace tremolux {
namespace {

bool IsShare(double value) { return value >= 0 && value <= 1; }

bool SwitchOf(std::int32_t value, const char *what) {
    if (value != 0 && value != 1) RefuseInput(what, std::to_string(value), "0 or 1");
    return value == 1;
}

Direction DirectionOf(const tremolux_direction &given) {
    if (given.from > given.until)
        RefuseInput("direction->until", std::to_string(given.until), std::to_string(given.from) + " or later");
    for (const std::int64_t fade : {given.fade_in, given.fade_out})
        if (fade < 0 || fade > kMaxFrameNumber)
            RefuseInput("direction", "a fade of " + std::to_string(fade) + " frames", "0 or more");
    if (!IsShare(given.mix)) RefuseInput("direction->mix", FormatNumber(given.mix), "0 to 1");
    if (!IsShare(given.lens_aware)) RefuseInput("direction->lens_aware", FormatNumber(given.lens_aware), "0 to 1");
    Direction direction;
    direction.position = SwitchOf(given.position, "direction->position");
    direction.rotation = SwitchOf(given.rotation, "direction->rotation");
    direction.lens = SwitchOf(given.lens, "direction->lens");
    direction.fade = {given.from, given.until, given.fade_in, given.fade_out, given.mix};
    if (given.lens_aware == 0) return direction;
    if (!(given.focal_length > 0 && given.focal_length <= kMaxNumber))
        RefuseInput("direction->focal_length", FormatNumber(given.focal_length), "more than 0");
    direction.lens_aware = LensAware{given.focal_length, given.lens_aware};
    return direction;
}

// In the order of frames, each once with its greatest strength.
std::vector<EventFrame> EventsOf(const double *events, std::size_t count, const ShotTarget &shot) {
    if (count % 2 != 0) RefuseInput("count", std::to_string(count), "two numbers for each event");
    if (count / 2 > kMaxEvents) RefuseInput("count", std::to_string(count), std::to_string(2 * kMaxEvents) + " at most");
    if (count > 0) RequirePointer(events, "events");
    EventList list;
    list.in_frames = true;
    for (std::size_t i = 0; i < count; i += 2) {
        if (!IsShare(events[i + 1])) RefuseInput("events", "the strength " + FormatNumber(events[i + 1]), "0 to 1");
        list.events.push_back({events[i], events[i + 1]});
    }
    std::size_t outside = 0;
    std::vector<EventFrame> frames = FramesOf(list, shot.move, &outside);
    if (outside > 0) RefuseInput("events", "a frame that is not in the shot, or before 0", FramesOf(shot.move));
    return frames;
}

void RemoveKeys(host::Tag *tag, std::int32_t parameter) {
    host::Track *track = tag->FindTrack(host::MakeId(parameter));
    if (track == nullptr) return;
    tag->RemoveTrack(track);
    delete track;
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_shot_direct(tremolux_shot shot, const tremolux_direction *direction) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        if (direction == nullptr) {
            target.direction.reset();
        } else {
            RequireStruct(direction, "direction");
            target.direction = DirectionOf(*direction);
        }
        Direct(&target);
    });
}

tremolux_status tremolux_shot_jolts(tremolux_shot shot, const double *events, size_t count, double position_intensity,
                                    double rotation_intensity) {
    return InOneStep(shot, host::kUndoChange, [&](ShotTarget &target) {
        const std::vector<EventFrame> frames = EventsOf(events, count, target);
        host::Tag *tag = target.Tag();
        const int fps = target.move.rate.Whole();
        for (const auto &[id, intensity] : {std::pair(ids::kJoltPositionIntensity, position_intensity),
                                            std::pair(ids::kJoltRotationIntensity, rotation_intensity)}) {
            if (!(intensity >= 0 && intensity <= kMaxNumber))
                RefuseInput("intensity", FormatNumber(intensity), "0 or more");
            RemoveKeys(tag, id);
            tag->SetParameter(host::MakeId(id), host::Data(intensity), host::kSetUserInteraction);
        }
        ApplySettings({std::to_string(ids::kCustomTrigger) + "="}, fps, tag);
        TakeEvents(frames, fps, tag);
    });
}

tremolux_status tremolux_shot_unkey(tremolux_shot shot, int32_t parameter, int64_t frame) {
    return InOneStep(shot, host::kUndoChange, [&](ShotTarget &target) {
        ParameterOf(parameter);
        PlaceOf(target, frame);
        host::Track *track = target.Tag()->FindTrack(host::MakeId(parameter));
        host::Curve *curve = track != nullptr ? track->GetCurve() : nullptr;
        const host::Time time = host::MakeTime(static_cast<double>(frame), target.move.rate.Whole());
        host::Key *key = curve != nullptr ? curve->FindKey(time) : nullptr;
        if (key == nullptr) RefuseInput("frame", std::to_string(frame), "a frame with a key of this parameter");
        curve->RemoveKey(key);
        delete key;
        if (curve->KeyCount() == 0)
            RemoveKeys(target.Tag(), parameter);
        else
            FlattenSmoothKeys(*track, target.move.rate.Whole());
    });
}
