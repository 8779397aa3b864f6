// Settings that were made at one frame rate, carried to another: the module counts frames, not seconds.
#pragma once

#include <string>
#include <vector>

#include "host/scene/tag.h"
#include "library/frame_rates/smoothing_filter.h"

namespace tremolux {

// Changes the tag's settings so that its motion at `frames_per_second` has the frequencies that it had at
// `made_for`, as far as the module's formulas allow. In the running host, which plays the module's filters on a stage
// of its own to learn them. Returns a line for everything that could not be carried over. Throws a Failure.
std::vector<std::string> KeepHertz(double made_for, double frames_per_second, host::Tag *tag);

// What Shake Smooth makes of the noise; learned when it is asked for the first time, in the running host. Throws a Failure.
const SmoothingAmounts &LearnedShakeSmoothing();

}  // namespace tremolux
