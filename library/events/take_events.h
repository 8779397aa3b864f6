// Jolts of a tag on events.
#pragma once

#include <vector>

#include "host/scene/tag.h"
#include "library/events/events.h"

namespace tremolux {

// Makes the tag's jolts hit on these frames, as if they had been typed into its panel. Where strengths differ, keys hold
// its jolt intensities at their share of what they are. Throws a Failure.
void TakeEvents(const std::vector<EventFrame> &events, int frames_per_second, host::Tag *tag);

}  // namespace tremolux
