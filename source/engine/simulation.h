// The start of a motion.
#pragma once

#include "engine/frame.h"

// Everything that the motion remembers at rest on the frame that it starts with: clocks and jolts at 0, filters and
// overshoot seeded.
void RestSimulation(const FrameInput &start, BaseContainer *data);
