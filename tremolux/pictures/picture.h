// Pictures of 8 bits a colour, and what is drawn into them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tremolux/pictures/world.h"

namespace tremolux {

struct Picture {
    Picture(int width, int height, const Colour &colour = {0, 0, 0});
    int width, height;
    std::string rgb;  // three bytes a pixel, rows from the top

    void Set(int x, int y, const Colour &colour);
    // Towards a colour: 0 leaves the pixel, 1 covers it.
    void Blend(int x, int y, const Colour &colour, double amount);
    // All of `other` with its upper left corner at x, y, inside this one.
    void Paste(const Picture &other, int x, int y);
    // A straight line with soft edges; pixels from the upper left corner.
    void DrawLine(double x0, double y0, double x1, double y1, double thickness, const Colour &colour);
};

// The world through a camera's lens, in true perspective: `aperture_width` is the width of the film back in
// millimetres, which the picture's width shows. What is not in focus is blurred as by a lens of f/2.8.
Picture Look(const World &world, const CameraSample &camera, double aperture_width, int width, int height);

}  // namespace tremolux
