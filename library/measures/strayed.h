// How far a camera strayed from the one that it follows.
#pragma once

#include <cstdint>

#include "library/moves/camera_move.h"

namespace tremolux {

struct Deviation {
    double rms = 0, peak = 0;
    std::int64_t peak_frame = 0;
};

struct Strayed {
    Deviation position;  // scene units
    Deviation angle;     // degrees: the turn from one orientation to the other, whatever its axis
};

// Frame by frame; both moves have the same frames, at least one.
Strayed MeasureStrayed(const CameraMove &input, const CameraMove &output);
// Degrees, from 0 to 180.
double TurnBetween(const host::Vector &angles_a, const host::Vector &angles_b);

}  // namespace tremolux
