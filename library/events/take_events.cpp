#include "library/events/take_events.h"

#include <string>

#include "generated/module_ids.h"
#include "host/animation/track.h"
#include "host/value/descid.h"
#include "library/parameters/settings.h"
#include "library/shots/keys.h"

namespace tremolux {

void TakeEvents(const std::vector<EventFrame> &events, int frames_per_second, host::Tag *tag) {
    if (events.empty()) return;
    std::string frames;
    bool are_equal = true;
    for (const EventFrame &event : events) {
        if (!frames.empty()) frames += ',';
        frames += std::to_string(event.frame);
        are_equal = are_equal && event.strength == events.front().strength;
    }
    ApplySettings({std::to_string(ids::kUseJolt) + "=on", std::to_string(ids::kCustomTrigger) + "=" + frames},
                  frames_per_second, tag);
    if (are_equal) return;
    for (const std::int32_t intensity : {ids::kJoltPositionIntensity, ids::kJoltRotationIntensity}) {
        const double whole = tag->Data().Real(intensity);
        for (const EventFrame &event : events)
            KeyNumber(tag, host::MakeId(intensity), host::MakeTime(static_cast<double>(event.frame), frames_per_second),
                      whole * event.strength, host::kInterpolationStep);
    }
}

}  // namespace tremolux
