// A move parted into the way that was meant and the shake on it.
#pragma once

#include <Eigen/Geometry>
#include <vector>

#include "library/moves/camera_move.h"
#include "library/moves/turns.h"

namespace tremolux {

// What is quicker than the split, of one frame; and the numbers of the angles that were split, which say in which turn and on
// which side of the pole the camera is.
struct FastPart {
    host::Vector position{0, 0, 0};  // scene units, along the world's axes
    TurnVector turn{0, 0, 0};        // about the slow camera's own axes
    host::Vector angles{0, 0, 0};    // radians
};

struct SplitMove {
    CameraMove slow;              // with the move's lens
    std::vector<FastPart> fast;   // as many as frames
};

// By a Gaussian of no phase, which lets half of the power at `hertz` through to the slow path. Rotations are averaged on the
// sphere. Beyond its ends the move is thought to go on turned round about its first and last pose, so that the slow path
// begins and ends there, and a camera that goes straight on has no fast part. `hertz` is more than 0.
SplitMove Split(const CameraMove &move, double hertz);

// The slow path with so much of the fast part: 0 is the slow path, 1 the move that was split (to 1e-9), 2 twice its shake. Angles
// stay in the turns of the move.
CameraMove Joined(const SplitMove &parts, double share);

}  // namespace tremolux
