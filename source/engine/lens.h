// What the two lens values have in common: they follow the input's, smoothed and swinging.
#pragma once

#include "engine/overshoot.h"
#include "engine/smoothing.h"

namespace engine {

// One step; the filter remembers what came out of the spring.
double FollowLens(Channel channel, double goal, double smooth, const Swing &swing, Operations *operations,
                  RealFilter *filter, Spring *spring);

}  // namespace engine
