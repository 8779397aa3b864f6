// A move on the frames of another rate: its times stay, its frames change.
#pragma once

#include "library/moves/camera_move.h"

namespace tremolux {

// Where the frames of another rate lie: from the first sample's time, rounded up to a frame, to the last one's, rounded
// down; at least one.
struct RetimedFrames {
    std::int64_t first, last;
    std::int64_t Count() const { return last - first + 1; }
};
RetimedFrames FramesAt(const CameraMove &move, const FrameRate &rate);

// The camera between the samples as SampleBetween has it; a frame that falls on a sample is that sample, bit by bit. What
// is carried beside the motion runs straight from frame to frame; shutter times stay in frames, so that the shutter's angle
// stays. For moves whose FramesAt fit what a file may hold.
CameraMove Retimed(const CameraMove &move, const FrameRate &rate);

}  // namespace tremolux
