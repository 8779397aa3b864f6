#include "engine/frames.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace engine;

constexpr std::int32_t kLastFrame = 2147483647, kFirstFrame = -2147483647 - 1;

TEST(Time, IsZeroUntilItIsSet) {
    EXPECT_EQ(Time().numerator, 0);
    EXPECT_EQ(Time().denominator, 1);
}

TEST(Time, OfNoDenominatorIsZero) {
    EXPECT_EQ(Seconds({7, 0}), 0);
    EXPECT_EQ(Seconds({7, 2}), 3.5);
    EXPECT_EQ(FrameOfTime({7, 0}, 30), 0);
    EXPECT_EQ(ExactFrame({7, 0}, 30), 0);
}

TEST(FrameOfTime, RoundsNumeratorAndDenominatorDownAndCutsTheQuotient) {
    EXPECT_EQ(FrameOfTime({1, 2}, 25), 12);
    EXPECT_EQ(FrameOfTime({-1, 2}, 25), -12);
    EXPECT_EQ(FrameOfTime({-1.01, 2}, 25), -13);  // floor(-25.25) is -26
    EXPECT_EQ(FrameOfTime({1.05, 2.5}, 30), 15);
    EXPECT_EQ(FrameOfTime({1, 0.5}, 30), 0);  // no whole denominator is left
}

TEST(FrameOfTime, StopsAtTheEndsOfTheRange) {
    EXPECT_EQ(FrameOfTime({1e300, 1}, 30), kLastFrame);
    EXPECT_EQ(FrameOfTime({-1e300, 1}, 30), kFirstFrame);
    EXPECT_EQ(FrameOfTime({std::nan(""), 1}, 30), 0);
}

TEST(ExactFrame, TakesAMillionthForRounding) {
    ASSERT_LT(29.0 / 25.0 * 25.0, 29.0);
    EXPECT_EQ(ExactFrame({29, 25}, 25), 29);
    EXPECT_EQ(ExactFrame({0.000001, 1}, 1), 0);
    EXPECT_EQ(ExactFrame({-0.000001, 1}, 1), 0);
    EXPECT_GT(ExactFrame({0.000001005, 1}, 1), 0);
    EXPECT_LT(ExactFrame({-0.000001005, 1}, 1), 0);
    EXPECT_EQ(ExactFrame({1, 2}, 25), 12.5);
}

TEST(Advance, RestartsOnTheFirstFrameAndBeforeTimeZero) {
    EXPECT_EQ(AdvanceTo(5, 5, 5, 4), Advance::kRestart);
    EXPECT_EQ(AdvanceTo(5, 5, 5, 5), Advance::kRestart);
    EXPECT_EQ(AdvanceTo(0, -0.001, 5, -1), Advance::kRestart);
    EXPECT_EQ(AdvanceTo(0, 0, 5, -1), Advance::kStep);
}

TEST(Advance, DoesNothingOnTheFrameThatIsShown) {
    EXPECT_EQ(AdvanceTo(7, 7, 0, 7), Advance::kNothing);
    EXPECT_EQ(AdvanceTo(0.0000009, 0, -5, 0), Advance::kNothing);
    EXPECT_EQ(AdvanceTo(0, 0, -5, 0.0000009), Advance::kNothing);
    EXPECT_EQ(AdvanceTo(0.000001, 0, -5, 0), Advance::kJump);
}

TEST(Advance, StepsToTheNextFrameAloneAndJumpsToAnyOther) {
    EXPECT_EQ(AdvanceTo(8, 8, 0, 7), Advance::kStep);
    EXPECT_EQ(AdvanceTo(8.00099, 8, 0, 7), Advance::kStep);
    EXPECT_EQ(AdvanceTo(7.99901, 8, 0, 7), Advance::kStep);
    EXPECT_EQ(AdvanceTo(8.001005, 8, 0, 7), Advance::kJump);
    EXPECT_EQ(AdvanceTo(7.998995, 8, 0, 7), Advance::kJump);
    EXPECT_EQ(AdvanceTo(9, 9, 0, 7), Advance::kJump);
    EXPECT_EQ(AdvanceTo(6, 6, 0, 7), Advance::kJump);
}

}  // namespace
