#include "host/services/noise.h"

#include <cmath>
#include <cstdint>

namespace host {

namespace {

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
    double component[kGradients][4]{};
    constexpr Gradients() {
        for (int i = 0; i < kGradients; ++i)
            for (int axis = 0; axis < 4; ++axis) {
                const double length = (i >> 4) == axis ? kLongComponent : 1;
                component[i][axis] = ((i >> axis & 1) != 0 ? -length : length) * (kInverseRootOf12 * kGain);
            }
    }
};
constexpr Gradients kTable;

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

inline double Mix(double low, double high, double share) { return low + (high - low) * share; }

inline const double *GradientOf(std::uint64_t key) {
    key ^= key >> 32;
    key *= kMixer;
    key ^= key >> 29;
    key *= kMixer;
    return kTable.component[key >> (64 - kGradientBits)];
}

// The share of a corner pair along x.
inline double AlongX(const Place &x, std::uint64_t key, double y, double z, double t) {
    const double *low = GradientOf(key + x.key[0]), *high = GradientOf(key + x.key[1]);
    return Mix((low[0] * x.from[0] + low[1] * y) + (low[2] * z + low[3] * t),
               (high[0] * x.from[1] + high[1] * y) + (high[2] * z + high[3] * t), x.fade);
}

inline double AlongXy(const Place &x, const Place &y, std::uint64_t key, double z, double t) {
    return Mix(AlongX(x, key + y.key[0], y.from[0], z, t), AlongX(x, key + y.key[1], y.from[1], z, t), y.fade);
}

inline double AlongXyz(const Place &x, const Place &y, const Place &z, std::uint64_t key, double t) {
    return Mix(AlongXy(x, y, key + z.key[0], z.from[0], t), AlongXy(x, y, key + z.key[1], z.from[1], t), z.fade);
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

}  // namespace

double SignedNoise(double x, double y, double z, double t) {
    if (!IsInReach(x) || !IsInReach(y) || !IsInReach(z) || !IsInReach(t)) return 0;
    const Place px = PlaceAt(x + kShiftX, kKeyX), py = PlaceAt(y + kShiftY, kKeyY), pz = PlaceAt(z + kShiftZ, kKeyZ),
                pt = PlaceAt(t + kShiftTime, kKeyTime);
    return Spread(
        Mix(AlongXyz(px, py, pz, pt.key[0], pt.from[0]), AlongXyz(px, py, pz, pt.key[1], pt.from[1]), pt.fade));
}

double SignedNoise(double x, double y, double z) { return SignedNoise(x, y, z, 0); }

}  // namespace host
