#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "c4d.h"

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();

TEST(BaseTime, OfAFrameIsReduced) {
    const BaseTime time(12, 30);
    EXPECT_EQ(time.GetNumerator(), 2);
    EXPECT_EQ(time.GetDenominator(), 5);
    EXPECT_EQ(time.GetFrame(30), 12);
}

TEST(BaseTime, FindsEveryFrameAgain) {
    for (int fps : {24, 25, 30, 60})
        for (int frame = 0; frame < 2000; ++frame) ASSERT_EQ(BaseTime(frame, fps).GetFrame(fps), frame);
}

TEST(BaseTime, OfSecondsRoundsToMilliseconds) {
    const BaseTime time(1.0 / 30.0);
    EXPECT_EQ(time.GetNumerator(), 33);
    EXPECT_EQ(time.GetDenominator(), 1000);
}

TEST(BaseTime, TakesItsSignFromBothParts) {
    EXPECT_EQ(BaseTime(-3, 30).GetNumerator(), -1);
    EXPECT_EQ(BaseTime(3, -30).GetNumerator(), -1);
    EXPECT_EQ(BaseTime(-3, -30).GetNumerator(), 1);
    EXPECT_EQ(BaseTime(-3, -30).GetDenominator(), 10);
}

TEST(BaseTime, FrameIsCutTowardZero) {
    // -1/20 s at 30 frames a second: floor(-30) / 20 = -1.5
    EXPECT_EQ(BaseTime(-1, 20).GetFrame(30), -1);
    EXPECT_EQ(BaseTime(1, 20).GetFrame(30), 1);
}

TEST(BaseTime, WithoutADenominatorIsAtFrameZero) {
    BaseTime time(5, 1);
    time.SetDenominator(0);
    EXPECT_EQ(time.GetDenominator(), 1);
    EXPECT_EQ(BaseTime(7, 0).GetDenominator(), 1);
}

TEST(BaseTime, FrameStaysInRange) {
    EXPECT_EQ(BaseTime(1e15, 1).GetFrame(1000), 2147483647);
    EXPECT_EQ(BaseTime(-1e15, 1).GetFrame(1000), -2147483647 - 1);
    EXPECT_EQ(BaseTime(1, 1).GetFrame(std::nan("")), 0);
}

TEST(BaseTime, ThatIsNoNumberIsZero) {
    EXPECT_EQ(BaseTime(std::nan("")).Get(), 0);
    EXPECT_EQ(BaseTime(kInfinity, 30).Get(), 0);
    EXPECT_EQ(BaseTime(kInfinity).Get(), 1e15);
}

TEST(BaseTime, AddsAndSubtractsExactly) {
    const BaseTime sum = BaseTime(1, 24) + BaseTime(1, 30);  // 5/120 + 4/120
    EXPECT_EQ(sum.GetNumerator(), 3);
    EXPECT_EQ(sum.GetDenominator(), 40);
    EXPECT_TRUE(sum - BaseTime(1, 30) == BaseTime(1, 24));
    EXPECT_TRUE(BaseTime(3, 4) * BaseTime(2, 3) == BaseTime(1, 2));
    EXPECT_TRUE(BaseTime(3, 4) / BaseTime(3, 2) == BaseTime(1, 2));
}

TEST(BaseTime, ReducesBeyondWholeNumbersOfThirtyTwoBits) {
    const BaseTime time(6e12, 4e12);
    EXPECT_EQ(time.GetNumerator(), 3);
    EXPECT_EQ(time.GetDenominator(), 2);
}

TEST(BaseTime, Compares) {
    EXPECT_TRUE(BaseTime(1, 30) < BaseTime(1, 24));
    EXPECT_TRUE(BaseTime(1, 24) >= BaseTime(1, 30));
    EXPECT_TRUE(BaseTime(2, 60) == BaseTime(1, 30));
    EXPECT_TRUE(BaseTime(-1, 30) < BaseTime());
}

TEST(BaseTime, QuantizesDownToItsFrame) {
    BaseTime time(7, 100);  // floor(floor(7 * 30) / 100) = 2
    time.Quantize(30);
    EXPECT_TRUE(time == BaseTime(2, 30));
}

}  // namespace
