// What a playback showed.
#pragma once

#include <cstdint>
#include <vector>

#include "library/moves/camera_move.h"

namespace tremolux {

struct PlayedMotion {
    CameraMove input, output;         // the same frames
    std::vector<std::int64_t> jolts;  // frames that a jolt hit on
};

}  // namespace tremolux
