// What every way of computing the noise shares: a sample's cell, and the gradients at its corners.
#pragma once

#include <cmath>
#include <cstdint>

namespace host::noise {

// Where the whole numbers lie inside a lattice cell. Small in space, so that the corner next to a sample outweighs the
// others: that is what makes the noise strong and quick there. docs/noise.md holds the statistics that follow.
constexpr double kShiftX = 0.12, kShiftY = 0.15, kShiftZ = 0.18, kShiftTime = 0.37;

// Unit vectors (+-3, +-1, +-1, +-1) / sqrt(12) and their permutations. No component is ever 0, so that no axis stands
// still; the three short components keep neighbouring samples from running along one axis.
constexpr int kGradientBits = 6, kGradients = 1 << kGradientBits;
// Gradient noise with unit gradients stays within 1: |sum w_i g_i d_i| <= sum w_i |d_i| <= sqrt(sum w_i |d_i|^2), and
// the last sum is at most 1/4 for each of the four axes. It comes near that nowhere, hence the gain.
constexpr double kGain = 1.0625, kLongComponent = 3, kInverseRootOf12 = 0.28867513459481288;

struct Gradients {
    alignas(32) double component[4 * kGradients]{};  // x, y, z and time of each in turn
    constexpr Gradients() {
        for (int i = 0; i < kGradients; ++i)
            for (int axis = 0; axis < 4; ++axis) {
                const double length = (i >> 4) == axis ? kLongComponent : 1;
                component[4 * i + axis] = ((i >> axis & 1) != 0 ? -length : length) * (kInverseRootOf12 * kGain);
            }
    }
};
inline constexpr Gradients kTable;

// A sample's place along one axis: the cell's number, as a share of the lattice key, and the place inside the cell.
struct Place {
    std::uint64_t key[2];  // of the corner below and the corner above
    double from[2];        // distance from them
    double fade;           // quintic: its first two derivatives are 0 at both corners, so pieces join smoothly
};

// Odd numbers with scattered bits. Keys may wrap: hence unsigned.
constexpr std::uint64_t kKeyX = 0x9E3779B97F4A7C15u, kKeyY = 0xC2B2AE3D27D4EB4Fu, kKeyZ = 0x165667B19E3779F9u,
                        kKeyTime = 0xD1B54A32D192ED03u, kMixer = 0xD6E8FEB86659FD93u;

inline Place PlaceAt(double shifted, std::uint64_t axis_key) {
    std::int64_t cell = static_cast<std::int64_t>(shifted);
    cell -= shifted < static_cast<double>(cell) ? 1 : 0;  // the cast cuts off toward 0
    const double u = shifted - static_cast<double>(cell);
    const std::uint64_t key = static_cast<std::uint64_t>(cell) * axis_key;
    return {{key, key + axis_key}, {u, u - 1}, u * u * u * (u * (u * 6 - 15) + 10)};
}

struct Cell {
    Place x, y, z, t;
};

inline Cell CellAt(double x, double y, double z, double t) {
    return {PlaceAt(x + kShiftX, kKeyX), PlaceAt(y + kShiftY, kKeyY), PlaceAt(z + kShiftZ, kKeyZ),
            PlaceAt(t + kShiftTime, kKeyTime)};
}

inline double Mix(double low, double high, double share) { return low + (high - low) * share; }

inline const double *GradientOf(std::uint64_t key) {
    key ^= key >> 32;
    key *= kMixer;
    key ^= key >> 29;
    key *= kMixer;
    return kTable.component + 4 * (key >> (64 - kGradientBits));
}

// Spreads the middle values over [-1, 1]. Odd; its first two derivatives are 0 at -1 and 1, so that holding the ends
// keeps the noise smooth.
inline double Spread(double v) {
    if (v > 1) v = 1;
    if (v < -1) v = -1;
    const double square = v * v;
    return v * (15 - square * (10 - 3 * square)) / 8;
}

// Beyond this, doubles are an eighth apart and there is no noise left to tell.
constexpr double kFarthest = 1e15;

inline bool IsInReach(double value) { return std::fabs(value) <= kFarthest; }  // false for NaN

inline bool IsInReach(double x, double y, double z, double t) {
    return IsInReach(x) && IsInReach(y) && IsInReach(z) && IsInReach(t);
}

}  // namespace host::noise
