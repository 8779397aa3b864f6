// What fields show, and what users type into them.
#include "host/ui/field_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using host::FieldText;
using host::kUnitDegree;
using host::kUnitFrames;
using host::kUnitPercent;
using host::ParseField;

constexpr double kDegree = 0.017453292519943295;

TEST(Field, ShowsStoredValuesInTheirUnits) {
    EXPECT_EQ(FieldText(1.5, kUnitPercent), "150 %");
    EXPECT_EQ(FieldText(0.00125, kUnitPercent), "0.125 %");
    EXPECT_EQ(FieldText(12.5 * kDegree, kUnitDegree), "12.5\xC2\xB0");
    EXPECT_EQ(FieldText(40, kUnitFrames), "40 F");
    EXPECT_EQ(FieldText(12345, 0), "12345");
    EXPECT_EQ(FieldText(-0.00001, 0), "0");
    EXPECT_EQ(FieldText(100, 0), "100");
}

TEST(Field, TakesPercentagesWithAndWithoutTheirSign) {
    for (const char *text : {"150 %", "150%", " 150 ", "1.5e2", "+150"})
        EXPECT_EQ(ParseField(text, kUnitPercent, 30), 1.5) << text;
    EXPECT_EQ(ParseField("-20 %", kUnitPercent, 30), -0.2);
}

TEST(Field, TakesDegrees) {
    for (const char *text : {"12.5\xC2\xB0", "12.5", "12.5 deg", "12.5 DEG"})
        EXPECT_EQ(ParseField(text, kUnitDegree, 30), 12.5 * kDegree) << text;
}

TEST(Field, TakesFramesSecondsAndBoth) {
    EXPECT_EQ(ParseField("40 F", kUnitFrames, 30), 40);
    EXPECT_EQ(ParseField("40", kUnitFrames, 30), 40);
    EXPECT_EQ(ParseField("0.5 s", kUnitFrames, 30), 15);
    EXPECT_EQ(ParseField("1:04", kUnitFrames, 30), 34);
    EXPECT_EQ(ParseField("1:04", kUnitFrames, 25), 29);
}

TEST(Field, TakesNothingElse) {
    for (const char *text :
         {"", " ", "%", "one", "1,5", "1 2", "150 deg", "--1", "+-1", "nan", "inf", "1e999", "0x10", "1.5.2"})
        EXPECT_FALSE(ParseField(text, kUnitPercent, 30)) << text;
    for (const char *text : {"1:30", "1:-1", "-1:04", "1:", ":4", "1:4:2", "1.5:04", "1:04 s"})
        EXPECT_FALSE(ParseField(text, kUnitFrames, 30)) << text;
    EXPECT_FALSE(ParseField("12 %", kUnitDegree, 30));
    EXPECT_FALSE(ParseField("12 %", 0, 30));
}

}  // namespace
