// Frames of a glTF file that does not say its rate: found from the times of its keys.
#pragma once

#include <optional>
#include <vector>

#include "library/moves/frame_rate.h"

namespace tremolux {

// The rate at which all times (seconds) are whole frames: of several the likeliest, where 30 goes before 24 and 25, those before
// faster ones, and whole rates before those over 1001. Nothing where none fits.
std::optional<FrameRate> FrameRateOfTimes(const std::vector<double> &seconds);

}  // namespace tremolux
