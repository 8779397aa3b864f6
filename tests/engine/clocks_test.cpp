#include "engine/clocks.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

class WithWarp {
  protected:
    void Advance(const ClockSettings &settings, double frame) {
        AdvanceClocks(settings, frame, curve_.Get(), &operations_, &clocks_);
    }
    Operations operations_{PlainHost()};
    OwnedCurve curve_{PlainHost(), kSpeedWarpCurve};
    Clocks clocks_;
};

class ClockTest : public WithWarp, public testing::Test {};

RC_GTEST_FIXTURE_PROP(ClockTest, AFrameGoesAsFarAsTheSpeedOfTheFrameBefore, ()) {
    const double speed = *Between(0, 3), variation = *Between(0, 1), focus = *Between(0, 4), zoom = *Between(0, 4);
    const int seed = *rc::gen::inRange(0, 100000), first = *rc::gen::inRange(-20, 2000);
    double last = 0.0, way = 0.0;
    for (int frame = first; frame < first + 6; ++frame) {
        Advance({speed, variation, focus, zoom, seed}, frame);
        way += last;
        const double noise = Noise({seed + 7845.0, seed + 3569.0, seed + 4856.0}, frame * 0.025);
        last = speed * (1.0 + variation * Eased(0.5, noise));
        for (const double clock : {clocks_.shake, clocks_.jolt, clocks_.auxiliary, clocks_.zoom})
            RC_ASSERT(std::abs(clock - way) < 1e-9);
        RC_ASSERT(std::abs(clocks_.focus - focus * way) < 1e-9);
        RC_ASSERT(std::abs(clocks_.zoom_drift - zoom * way) < 1e-9);
        RC_ASSERT(std::abs(clocks_.step - last) < 1e-9);
    }
}

TEST_F(ClockTest, GoByTheSpeedItselfWithoutVariation) {
    for (int frame = 0; frame <= 10; ++frame) Advance({1.3, 0, 2, 3, 7}, frame);
    EXPECT_EQ(clocks_.step, 1.3);
    EXPECT_NEAR(clocks_.shake, 13, 1e-12);
}

TEST_F(ClockTest, StandStillAtSpeedZero) {
    clocks_ = {0, 5, 5, 5, 5, 5, 5};
    for (int frame = 0; frame <= 10; ++frame) Advance({0, 1, 2, 3, 7}, frame);
    EXPECT_EQ(clocks_.shake, 5);
    EXPECT_EQ(clocks_.focus, 5);
}

TEST_F(ClockTest, TheLargestSeedIsSafe) {
    const std::int32_t seed = 2147483647;
    Advance({1, 1, 1, 1, seed}, 3);
    const double noise = Noise({2147483647.0 + 7845, 2147483647.0 + 3569, 2147483647.0 + 4856}, 0.075);
    EXPECT_NEAR(clocks_.step, 1 + Eased(0.5, noise), 1e-9);
}

TEST(ClockSettings, AndClocksAreNothingUntilTheyAreSet) {
    const auto &[speed, variation, focus_rate, zoom_rate, seed] = ClockSettings();
    EXPECT_TRUE(IsNothing(speed, variation, focus_rate, zoom_rate, seed));
    const auto &[step, shake, focus, zoom_drift, jolt, auxiliary, zoom] = Clocks();
    EXPECT_TRUE(IsNothing(step, shake, focus, zoom_drift, jolt, auxiliary, zoom));
}

TEST(ClockSettings, AreEqualInEveryNumberOrNotAtAll) {
    const ClockSettings settings = {1, 2, 3, 4, 5};
    EXPECT_TRUE(settings == (ClockSettings{1, 2, 3, 4, 5}));
    EXPECT_FALSE(settings == (ClockSettings{9, 2, 3, 4, 5}));
    EXPECT_FALSE(settings == (ClockSettings{1, 9, 3, 4, 5}));
    EXPECT_FALSE(settings == (ClockSettings{1, 2, 9, 4, 5}));
    EXPECT_FALSE(settings == (ClockSettings{1, 2, 3, 9, 5}));
    EXPECT_FALSE(settings == (ClockSettings{1, 2, 3, 4, 9}));
}

}  // namespace
