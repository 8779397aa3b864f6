// What is made of a shake after it was played: when, where and how much.
#pragma once

#include <optional>

#include "library/direction/fade.h"
#include "library/direction/lens_aware.h"
#include "library/moves/camera_move.h"

namespace tremolux {

struct Direction {
    bool position = true, rotation = true, lens = true;  // which channels are shaken; the others are the input's, bit by bit
    std::optional<LensAware> lens_aware;
    Fade fade;
};

// The output with the direction's will; both moves have the same frames. Where a frame has nothing of the shake it is the
// input's, bit by bit; where it has all of it, it stays as it was; between them positions and lens go straight and rotations on
// the sphere.
CameraMove Directed(const CameraMove &input, const CameraMove &output, const Direction &direction);

}  // namespace tremolux
