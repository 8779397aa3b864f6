// A part of a move.
#pragma once

#include "library/moves/camera_move.h"

namespace tremolux {

// The frames from the first to the last, both of which the move has, with what belongs to them.
CameraMove CutMove(const CameraMove &move, std::int64_t first_frame, std::int64_t last_frame);

}  // namespace tremolux
