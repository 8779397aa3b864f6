// A camera between the frames of its move.
#pragma once

#include "library/moves/camera_move.h"

namespace tremolux {

// At a time in frames, which is held to the move's first and last: a smooth curve through every frame; a frame is itself.
// Positions, lens and focus follow a Catmull-Rom spline; rotations are turned on the sphere by Shoemake's spherical
// quadrangles (Quaternion Calculus and Fast Animation, SIGGRAPH course notes 1987), whose speed does not leap at the frames
// either. The angles are those closest to the frame before.
CameraSample SampleBetween(const CameraMove &move, double frame);
// The same after a sample of the move, by a share, within (0, 1), of the way to the next one, which must be there.
CameraSample SampleAfter(const CameraMove &move, std::size_t index, double share);

}  // namespace tremolux
