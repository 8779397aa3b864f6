// How unevenly a recorded camera shakes, over time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/scene/tag.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// Shares of what the shake is like on the whole; 1 for a group that stands still.
struct EnvelopePoint {
    double seconds, position, rotation;
};
using Envelope = std::vector<EnvelopePoint>;

// Every quarter of a second: RMS of the speed within half a second, of the axes that move, each as a share of its own; the mean
// square of all points is 1. The operator's way is taken out first.
Envelope MeasureEnvelope(const CameraMove &recording);

// A table with the columns time (seconds), position and rotation.
std::string WriteEnvelope(const Envelope &envelope);
// Throws a Failure that names the place.
Envelope ReadEnvelope(const std::string &file, std::string_view bytes);

// Keys on the tag's two intensities, from the first frame to the last: what they are, times the shares. Where the envelope ends
// it goes back the way that it came.
void ApplyEnvelope(const Envelope &envelope, const CameraMove &move, host::Tag *tag);

}  // namespace tremolux
