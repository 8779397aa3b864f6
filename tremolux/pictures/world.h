// What a preview's cameras look at.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "library/moves/camera_move.h"

namespace tremolux {

struct Colour {
    float r, g, b;  // 0 to 1
};

// A flat convex shape with four corners in scene units.
struct Quad {
    std::array<host::Vector, 4> corners;
    Colour colour;
};

struct World {
    host::Vector ground{0, 0, 0};  // a point of the ground, where its grid has its middle
    double heading = 0;            // of the grid, radians
    std::vector<Quad> quads;
};

// A ground with lines every metre, a row of posts, boxes and figures of human scale around, and houses at 150 to 400
// metres, all seen well from the camera's first place. The ground is at height 0, or 160 centimetres below a camera
// that comes closer to it than 30.
World MakeWorld(const CameraMove &input);

}  // namespace tremolux
