// Places of the noise.
#pragma once

#include "engine/host.h"

namespace engine {

// A point of the noise: the seed plus a base, and three offsets from there.
struct NoisePoint {
    double base, x, y, z;
};

// The three layers of one channel.
struct ChannelPoints {
    NoisePoint slow, medium, fast;
};

// Of the layers: amounts, weights, or cells of noise for each unit of clock and speed.
struct Layers {
    double slow = 0.0, medium = 0.0, fast = 0.0;
};

// Noise, in [-1, 1], at the point that the seed moves, at a time in cells.
inline double Sample(double seed, const NoisePoint &point, double time, const Host &host) {
    const double base = seed + point.base;
    return host.noise({base + point.x, base + point.y, base + point.z}, time);
}

}  // namespace engine
