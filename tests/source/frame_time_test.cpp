#include <cmath>
#include <cstring>
#include <limits>

#include "gtest/gtest.h"
#include "tag/hostmaths.h"
#include "tag/scene.h"

namespace {

constexpr LONG kMost = 2147483647, kLeast = -2147483647 - 1;

// As it is stored, neither rounded nor reduced.
BaseTime Fraction(Real numerator, Real denominator) {
    BaseTime time;
    time.SetNumerator(numerator);
    time.SetDenominator(denominator);
    return time;
}

// The class refuses a denominator of 0; a value from a host may hold one all the same.
BaseTime WithoutDenominator() {
    struct {
        Real numerator, denominator;
    } raw = {7, 0};
    static_assert(sizeof raw == sizeof(BaseTime), "two reals");
    BaseTime time;
    std::memcpy(static_cast<void *>(&time), &raw, sizeof raw);
    return time;
}

double ExactFrame(const BaseTime &time, double rate) { return engine::ExactFrame(TimeOf(time), rate); }

TEST(FrameOfTime, IsTheFrameThatTheTimeWasMadeOf) {
    for (const LONG rate : {1, 24, 25, 30, 60, 2500})
        for (const LONG frame : {0, 1, 12, 29, 100000}) EXPECT_EQ(FrameOfTime(BaseTime(frame, rate), rate), frame);
}

TEST(FrameOfTime, CutsToTheFrameThatIsUnderWay) {
    // Half a second at 25 frames: floor(25 * 1) / floor(2) = 12.5
    EXPECT_EQ(FrameOfTime(BaseTime(1, 2), 25), 12);
    EXPECT_EQ(FrameOfTime(BaseTime(-1, 2), 25), -12);
}

TEST(FrameOfTime, RoundsNumeratorAndDenominatorDownFirst) {
    // floor(30 * 1.05) / floor(2.5) = 31 / 2 = 15.5
    EXPECT_EQ(FrameOfTime(Fraction(1.05, 2.5), 30), 15);
}

TEST(FrameOfTime, IsZeroForADenominatorOfZero) { EXPECT_EQ(FrameOfTime(WithoutDenominator(), 30), 0); }

TEST(FrameOfTime, IsTheEndOfTheRangeForTimesBeyondIt) {
    EXPECT_EQ(FrameOfTime(Fraction(1e300, 1), 30), kMost);
    EXPECT_EQ(FrameOfTime(Fraction(-1e300, 1), 30), kLeast);
    EXPECT_EQ(FrameOfTime(Fraction(std::numeric_limits<double>::quiet_NaN(), 1), 30), 0);
}

TEST(ExactFrame, IsSecondsTimesRate) {
    EXPECT_DOUBLE_EQ(ExactFrame(BaseTime(1, 2), 25), 12.5);
    EXPECT_DOUBLE_EQ(ExactFrame(BaseTime(-1, 2), 25), -12.5);
    EXPECT_EQ(ExactFrame(BaseTime(0, 1), 25), 0);
}

TEST(ExactFrame, IsAWholeNumberWhereRoundingMissedItByALittle) {
    ASSERT_LT(29.0 / 25.0 * 25.0, 29.0);
    EXPECT_EQ(ExactFrame(BaseTime(29, 25), 25), 29);
    for (LONG rate = 1; rate <= 120; ++rate)
        for (LONG frame = -300; frame <= 300; ++frame) ASSERT_EQ(ExactFrame(BaseTime(frame, rate), rate), frame);
}

TEST(ExactFrame, KeepsWhatIsFurtherThanAMillionthFromAWholeNumber) {
    const double off = 3 + 1.0 / 100000;
    EXPECT_NEAR(ExactFrame(Fraction(off, 1), 1), off, 1e-12);
    EXPECT_EQ(ExactFrame(Fraction(3 + 1.0 / 10000000, 1), 1), 3);
}

TEST(ExactFrame, IsZeroForADenominatorOfZero) { EXPECT_EQ(ExactFrame(WithoutDenominator(), 30), 0); }

}  // namespace
