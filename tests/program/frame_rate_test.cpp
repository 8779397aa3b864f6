// Rates as fractions.
#include "library/moves/frame_rate.h"

#include <gtest/gtest.h>

namespace tremolux {
namespace {

TEST(FrameRates, OfTelevisionAreTheirExactRatios) {
    const struct {
        const char *text;
        int whole;
    } kKnown[] = {{"23.976", 24}, {"29.97", 30}, {"47.952", 48}, {"59.94", 60}, {"119.88", 120}};
    for (const auto &known : kKnown) {
        EXPECT_EQ(ParseFrameRate(known.text), (FrameRate{known.whole * 1000, 1001})) << known.text;
        EXPECT_EQ(ParseFrameRate(known.text)->Whole(), known.whole);
        // As a 32-bit float in a file.
        EXPECT_EQ(FrameRateOf(static_cast<float>(known.whole / 1.001)), (FrameRate{known.whole * 1000, 1001}));
    }
}

TEST(FrameRates, AreWhatTheirTextSays) {
    EXPECT_EQ(ParseFrameRate("24000/1001"), (FrameRate{24000, 1001}));
    EXPECT_EQ(ParseFrameRate("48/2"), (FrameRate{24, 1}));
    EXPECT_EQ(ParseFrameRate("25"), (FrameRate{25, 1}));
    EXPECT_EQ(ParseFrameRate("25.0"), (FrameRate{25, 1}));
    EXPECT_EQ(ParseFrameRate("12.5"), (FrameRate{25, 2}));
    EXPECT_EQ(ParseFrameRate("23.98"), (FrameRate{1199, 50}));
    EXPECT_EQ(FrameRateText({24000, 1001}), "24000/1001");
    EXPECT_EQ(FrameRateText({25, 1}), "25");
}

TEST(FrameRates, LieBetweenOneAndTwentyFiveHundred) {
    for (const char *text : {"", "0", "-24", "2501", "0.5", "1/2", "24/0", "24/-1", "nan", "inf", "1e9", "24/1/1",
                             "24000 / 1001", "99999999999999999999/1001", "2147483647/2147483646"})
        EXPECT_FALSE(ParseFrameRate(text)) << text;
    EXPECT_EQ(ParseFrameRate("2500"), (FrameRate{2500, 1}));
    EXPECT_EQ(ParseFrameRate("1"), (FrameRate{1, 1}));
}

TEST(FrameRates, ComeBackFromTheirShortestDecimal) {
    EXPECT_EQ(FrameRateDecimal({24, 1}), "24");
    EXPECT_EQ(FrameRateDecimal({25, 2}), "12.5");
    EXPECT_EQ(FrameRateDecimal({24000, 1001}), "23.976023976023978");  // 24000 / 1001 = 23.976023976023976023...
    for (const FrameRate rate : {FrameRate{24000, 1001},
                                 {30000, 1001},
                                 {48000, 1001},
                                 {60000, 1001},
                                 {120000, 1001},
                                 {25, 2},
                                 {15000, 1001},
                                 {12500, 1001},
                                 {240000, 1001},
                                 {100, 3},
                                 {1000, 7},
                                 {1199, 50},
                                 {2500, 1},
                                 {99991, 99989},
                                 {1000003, 1000000}}) {
        const std::optional<FrameRate> back = ParseFrameRate(FrameRateDecimal(rate));
        ASSERT_TRUE(back);
        EXPECT_EQ(*back, rate) << FrameRateDecimal(rate);
        EXPECT_EQ(back->PerSecond(), rate.PerSecond());
    }
}

TEST(FrameRates, OfFewDecimalsAreTakenAsTheyAre) {
    EXPECT_EQ(ParseFrameRate("33.333"), (FrameRate{33333, 1000}));
    EXPECT_EQ(ParseFrameRate("14.985"), (FrameRate{2997, 200}));
}

TEST(FrameRates, AreSaidInWords) {
    EXPECT_EQ(FrameRateWords({1, 1}), "1 frame a second");
    EXPECT_EQ(FrameRateWords({25, 1}), "25 frames a second");
    EXPECT_EQ(FrameRateWords({30000, 1001}), "30000/1001 (29.97) frames a second");
}

}  // namespace
}  // namespace tremolux
