// Places of the noise.
#pragma once

#include "c4d.h"

// A point of the noise: the seed plus a base, and three offsets from there.
struct SamplePoint {
    Real base, x, y, z;
};

// Noise, in [-1, 1], at the point that the seed moves, at a time in cells.
Real Sample(Real seed, const SamplePoint &point, Real time);
