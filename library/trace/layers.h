// What each layer of the motion added on a frame.
#pragma once

#include "library/shots/stage.h"
#include "library/trace/json_value.h"

namespace tremolux {

// For position (scene units), rotation (degrees), zoom (millimetres) and focus (scene units): the input, its smoothed
// value, and what overshoot, shake or drift, and jolt added to that; the result is the smoothed value and all of them.
Json Layers(const Stage &stage);

}  // namespace tremolux
