// The curves along which amounts and noise are bent, as data.
#pragma once

#include <cstdint>
#include <cstring>

namespace engine {

struct CurveTangent {
    double x, y;
};

// From (0, 0) to (1, 1) with these tangents, relative to their knots.
struct CurveShape {
    CurveTangent start_left, start_right, end_left, end_right;
};

// Ease in and out, for the variation of the speed.
inline constexpr CurveShape kSpeedWarpCurve = {{0, 0}, {0.5, 0}, {-0.5, 0}, {0.5, 0}};
// No layer reads it: a host that cannot make it ends the frame before any layer moves.
inline constexpr CurveShape kProbeCurve = {{0, 0}, {0.25, 0}, {-0.125, 0}, {0.125, 0}};
// What a smoothing slider means: fine steps where little is smoothed, and again where much is.
inline constexpr CurveShape kSmoothingAmountCurve = {{0, 0}, {0.019, 0.063}, {-0.531, -0.109}, {0.531, 0.109}};
// From that to the filter's two coefficients.
inline constexpr CurveShape kSmoothingCurve = {{0, 0}, {0, 0.711}, {-0.238, -0.078}, {0.238, 0.078}};
// From the slider of a shake's or a drift's smoothing to the coefficients.
inline constexpr CurveShape kShakeSmoothingCurve = {{0, 0}, {0, 0.352}, {-0.125, 0}, {0.125, 0}};
// From an overshoot slider to the looseness of the spring.
inline constexpr CurveShape kOvershootCurve = {{0, 0}, {0, 0.45}, {-0.25, -0.01}, {0.25, 0.01}};
// Ease of the zoom drift.
inline constexpr CurveShape kZoomDriftCurve = {{0, 0}, {0.25, 0}, {-0.25, 0}, {0.25, 0}};

// What amounts became along a curve. A slider stands still for many frames, and its curve costs more than the layer
// that asks for it.
class BentAmounts {
  public:
    // False for an amount that is not known.
    bool Find(const CurveShape &shape, double amount, double *bent) const {
        const Known &known = known_[PlaceOf(shape, amount)];
        if (known.shape != &shape || known.amount != amount) return false;
        *bent = known.bent;
        return true;
    }
    void Remember(const CurveShape &shape, double amount, double bent) {
        known_[PlaceOf(shape, amount)] = {&shape, amount, bent};
    }

  private:
    // More than one frame asks for; of two amounts that fall on the same place the later one stays.
    static constexpr int kPlaceBits = 8, kPlaces = 1 << kPlaceBits;
    struct Known {
        const CurveShape *shape = nullptr;
        double amount = 0.0, bent = 0.0;
    };
    static std::uint64_t BitsOf(double value) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }
    static std::uint64_t PlaceOf(const CurveShape &shape, double amount) {
        // Odd numbers with scattered bits.
        constexpr std::uint64_t kOfShape = 0xD6E8FEB86659FD93u, kOfAmount = 0x9E3779B97F4A7C15u;
        std::uint64_t key = BitsOf(amount) ^ BitsOf(shape.end_left.x) * kOfShape;  // the shapes differ there
        key ^= key >> 32;  // round amounts differ in their first bits alone
        return key * kOfAmount >> (64 - kPlaceBits);
    }
    Known known_[kPlaces];
};

}  // namespace engine
