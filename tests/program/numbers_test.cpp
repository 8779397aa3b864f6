#include "library/formats/numbers.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace tremolux {

TEST(ParseNumber, TakesDecimalsSignsAndExponents) {
    EXPECT_EQ(ParseNumber("1.5"), 1.5);
    EXPECT_EQ(ParseNumber("+2"), 2.0);
    EXPECT_EQ(ParseNumber("-3e-4"), -0.0003);
    EXPECT_EQ(ParseNumber(".25"), 0.25);
}

TEST(ParseNumber, RefusesWhatIsNotAFiniteNumber) {
    for (const char *text : {"", " 1", "1 ", "1,5", "nan", "NaN", "inf", "-inf", "infinity", "1e999", "0x10", "+-1",
                             "--1", "1.2.3", "one", "+"}) {
        EXPECT_FALSE(ParseNumber(text)) << text;
    }
}

TEST(ParseWhole, RefusesFractionsAndExponents) {
    EXPECT_EQ(ParseWhole("-12"), -12);
    for (const char *text : {"1.0", "1e3", "", "9223372036854775808", "12f"}) EXPECT_FALSE(ParseWhole(text)) << text;
}

TEST(FormatNumber, LeavesOutTheNoiseOfTheLastDigits) {
    EXPECT_EQ(FormatNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatNumber(29.999999999999996), "30");
    EXPECT_EQ(FormatNumber(-1234.5), "-1234.5");
}

TEST(FormatNumber, WritesNoNegativeZeroAndNoNoiseAroundZero) {
    EXPECT_EQ(FormatNumber(-0.0), "0");
    EXPECT_EQ(FormatNumber(-4e-17), "0");
    EXPECT_EQ(FormatNumber(2e-12), "2e-12");
}

RC_GTEST_PROP(FormatNumber, IsReadBackToFourteenDigits, ()) {
    const double value = static_cast<double>(*rc::gen::inRange<std::int64_t>(-1000000000000, 1000000000000)) / 7919.0;
    const std::optional<double> back = ParseNumber(FormatNumber(value));
    RC_ASSERT(back.has_value());
    RC_ASSERT(std::abs(*back - value) <= std::abs(value) * 1e-14);
}

}  // namespace tremolux
