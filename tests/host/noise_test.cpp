#include "host/services/noise.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace host {
namespace {

// The noise once more, by its definition and without a thought for speed: every corner of the cell for itself.
double PlainNoise(double x, double y, double z, double t) {
    const double place[4] = {x + 0.12, y + 0.15, z + 0.18, t + 0.37};
    const std::uint64_t keys[4] = {0x9E3779B97F4A7C15u, 0xC2B2AE3D27D4EB4Fu, 0x165667B19E3779F9u, 0xD1B54A32D192ED03u};
    double sum = 0;
    for (int corner = 0; corner < 16; ++corner) {
        std::uint64_t key = 0;
        double weight = 1, distance[4];
        for (int axis = 0; axis < 4; ++axis) {
            const double cell = std::floor(place[axis]), u = place[axis] - cell;
            const int above = corner >> axis & 1;
            const double fade = 6 * std::pow(u, 5) - 15 * std::pow(u, 4) + 10 * std::pow(u, 3);
            weight *= above != 0 ? fade : 1 - fade;
            distance[axis] = u - above;
            key += static_cast<std::uint64_t>(static_cast<std::int64_t>(cell) + above) * keys[axis];
        }
        for (int shift : {32, 29}) key = (key ^ key >> shift) * 0xD6E8FEB86659FD93u;
        const int gradient = static_cast<int>(key >> 58);
        double dot = 0;
        for (int axis = 0; axis < 4; ++axis) {
            const double component = (gradient >> 4 == axis ? 3 : 1) / std::sqrt(12.0);
            dot += (gradient >> axis & 1) != 0 ? -component * distance[axis] : component * distance[axis];
        }
        sum += weight * dot;
    }
    const double v = 1.0625 * sum;
    return (15 * v - 10 * v * v * v + 3 * std::pow(v, 5)) / 8;
}

TEST(Noise, IsWhatItsDefinitionSays) {
    const double points[][4] = {{0, 0, 0, 0},
                                {1, 2, 3, 0.5},
                                {-1, -2, -3, -0.5},
                                {0.5, 0.25, -0.75, 7.1},
                                {7081, 88990, 99980, 12.25},
                                {1558963, 254789, 99999, 3000.5},
                                {-1e6, 1e6, 0.1, -1e5}};
    for (const auto &p : points)
        EXPECT_NEAR(SignedNoise(p[0], p[1], p[2], p[3]), PlainNoise(p[0], p[1], p[2], p[3]), 1e-9);
}

RC_GTEST_PROP(NoiseProperty, AgreesWithThePlainSumOverTheCorners, ()) {
    const auto place = [] { return *rc::gen::inRange(-2000000, 2000000) / 97.0; };
    const double x = place(), y = place(), z = place(), t = place();
    RC_ASSERT(std::fabs(SignedNoise(x, y, z, t) - PlainNoise(x, y, z, t)) < 1e-9);
}

TEST(Noise, InSpaceIsTheSliceAtTimeZero) {
    EXPECT_EQ(SignedNoise(3.5, -2.25, 17), SignedNoise(3.5, -2.25, 17, 0));
    EXPECT_NE(SignedNoise(3.5, -2.25, 17), SignedNoise(3.5, -2.25, 18));
}

TEST(Noise, GivesADefinedValueForWhatIsNoPoint) {
    const double nowhere[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e16, -1e300};
    for (double value : nowhere) {
        EXPECT_EQ(SignedNoise(value, 0, 0, 0), 0);
        EXPECT_EQ(SignedNoise(0, value, 0, 0), 0);
        EXPECT_EQ(SignedNoise(0, 0, value, 0), 0);
        EXPECT_EQ(SignedNoise(0, 0, 0, value), 0);
    }
    EXPECT_LE(std::fabs(SignedNoise(1e15, -1e15, 1e15, -1e15)), 1);
}

// The first and second derivatives by central differences agree on both sides of every lattice plane, along each axis:
// between two pieces of C2 they differ by no more than the third derivative allows over the step.
TEST(Noise, HasAContinuousSecondDerivativeAcrossCells) {
    const double shift[4] = {0.12, 0.15, 0.18, 0.37}, step = 1e-3;
    double largest = 0;
    for (int axis = 0; axis < 4; ++axis)
        for (int sample = 0; sample < 200; ++sample) {
            double p[4] = {sample * 1.37, sample * 2.11, sample * 3.77, sample * 0.93};
            p[axis] = sample - shift[axis];  // on a lattice plane
            const auto along = [&](double offset) {
                double q[4] = {p[0], p[1], p[2], p[3]};
                q[axis] += offset;
                return SignedNoise(q[0], q[1], q[2], q[3]);
            };
            const auto second = [&](double at) {
                return (along(at + step) - 2 * along(at) + along(at - step)) / (step * step);
            };
            largest = std::max(largest, std::fabs(second(2 * step) - second(-2 * step)));
        }
    // The third derivative of the quintic is 60 at a corner; gradients, distances and the final curve (slope below 2)
    // bring at most a factor of 4: over 4 steps that is 60 * 4 * 0.004 = 0.96. A fade with only a continuous first
    // derivative (3 u^2 - 2 u^3) jumps by 6 to 12 times a gradient here.
    EXPECT_LT(largest, 0.96);
    EXPECT_GT(largest, 0.001);
}

RC_GTEST_PROP(NoiseProperty, StaysWithinOne, ()) {
    const auto place = [] { return *rc::gen::inRange(-1000000, 1000000) / 64.0; };
    RC_ASSERT(std::fabs(SignedNoise(place(), place(), place(), place())) <= 1);
}

// Where the bound is closest: the middles of the cells, where all sixteen corners weigh the same.
TEST(Noise, StaysWithinOneInTheMiddleOfTheCells) {
    double peak = 0;
    for (int i = 0; i < 200000; ++i)
        peak = std::max(peak, std::fabs(SignedNoise(0.38 + i % 53, 0.35 + i % 59, 0.32 + i % 61, 0.13 + i)));
    EXPECT_LE(peak, 1);
    EXPECT_GT(peak, 0.5);
}

TEST(Noise, NearbyPointsGiveNearbyValues) {
    for (int i = 0; i < 2000; ++i) {
        const double x = i * 0.731, y = i * 1.17, z = i * 0.37, t = i * 0.913, h = 1e-4;
        const double here = SignedNoise(x, y, z, t);
        // No slope exceeds 8: gradients at most 1, the fade's slope at most 15/8 on either side, the curve's 15/8.
        EXPECT_NEAR(SignedNoise(x + h, y, z, t), here, 8 * h);
        EXPECT_NEAR(SignedNoise(x, y + h, z, t), here, 8 * h);
        EXPECT_NEAR(SignedNoise(x, y, z + h, t), here, 8 * h);
        EXPECT_NEAR(SignedNoise(x, y, z, t + h), here, 8 * h);
    }
}

}  // namespace
}  // namespace host
