// A shake whose last frame flows into its first.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "library/moves/camera_move.h"

namespace tremolux {

struct LoopPlan {
    std::size_t period;   // frames of one round: all, or all but the last where that is the first again
    std::size_t overlap;  // frames that have to be played beyond one round
};

// Nothing for a move that neither stands still nor flows from its last frame into its first: its step there, in position, turn,
// focal length or focus, is more than twice its greatest one.
std::optional<LoopPlan> PlanLoop(const CameraMove &move);

// The move, and behind it the start of its next round.
CameraMove RunOn(const CameraMove &move, const LoopPlan &plan);

// `played` is the shaken camera of RunOn(input, plan). What was added in the round's first frames comes out of what was added
// beyond its end; weights that keep its power, and a factor, keep the RMS of the whole and of the bands. All else stays as it was
// but for that factor. As many frames as the input.
std::vector<CameraSample> Looped(const CameraMove &input, const std::vector<CameraSample> &played, const LoopPlan &plan);

}  // namespace tremolux
