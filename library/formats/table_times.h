// Rows that say their time instead of their frame.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/moves/camera_move.h"

namespace tremolux {

// Rising times: in seconds where they are at most 1 apart (the middle one of all distances), else in thousandths, millionths
// or thousand-millionths.
double SecondsOfTimes(const std::vector<double> &times);
// The rate of rows at these seconds: a known one where all of them lie within a tenth of a frame of its frames. Nothing
// where it is none of 1 to 2500 frames a second.
std::optional<FrameRate> RateOfTimes(const std::vector<double> &seconds);

// `move` has a sample for each row, and its rate; the samples become those of its frames. Rows that lie within a tenth of a
// frame are that frame; else, and between rows, frames are interpolated. The first row is the frame that its time says,
// or frame 0 where that is beyond all frames. What was expected instead, empty when all is well.
std::string PlaceByTimes(const std::vector<double> &seconds, CameraMove *move);

}  // namespace tremolux
