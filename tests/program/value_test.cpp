#include "library/parameters/value.h"

#include <gtest/gtest.h>

#include "host/value/time.h"
#include "library/failure.h"
#include "library/moves/camera_move.h"
#include "tests/program/parameter_support.h"

namespace tremolux {
namespace {

constexpr int kFps = 25;

Parameter Named(const std::string &label) {
    for (const Parameter &parameter : ExamplePanel()) {
        if (parameter.label == label) return parameter;
    }
    ADD_FAILURE() << label;
    return {};
}

double Real(const std::string &label, std::string_view text) {
    const host::Data data = ParseValue(Named(label), text, kFps);
    EXPECT_EQ(data.type, host::kDataReal);
    return data.Real();
}

std::string Refusal(const std::string &label, std::string_view text) {
    try {
        ParseValue(Named(label), text, kFps);
        return "accepted";
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.Status(), kExitInput);
        return failure.what();
    }
}

TEST(ParameterValue, TakesPercentagesAndFractions) {
    EXPECT_EQ(Real("Shake Speed", "150%"), 1.5);
    EXPECT_EQ(Real("Shake Speed", " 150 % "), 1.5);
    EXPECT_EQ(Real("Shake Speed", "1.5"), 1.5);
    EXPECT_EQ(Real("Shake Speed", "5e1%"), 0.5);
}

TEST(ParameterValue, TakesDegreesAndStoresRadians) {
    for (const char *text : {"180", "180deg", "180 DEG", "180\xC2\xB0"}) {
        EXPECT_NEAR(Real("Rotation Slow", text), 3.14159265358979, 1e-13) << text;
    }
}

TEST(ParameterValue, TakesFramesAndSecondsForAnOffset) {
    EXPECT_EQ(Real("Time Offset", "-12"), -12);
    EXPECT_EQ(Real("Time Offset", "12f"), 12);
    EXPECT_EQ(Real("Time Offset", "12 frames"), 12);
    EXPECT_EQ(Real("Time Offset", "0.5s"), 12.5);  // half of 25 frames
}

TEST(ParameterValue, TakesTimesInFramesAndSeconds) {
    const auto seconds = [](std::string_view text) {
        const host::Data data = ParseValue(Named("Interval"), text, kFps);
        EXPECT_EQ(data.type, host::kDataTime);
        return host::Seconds(data.GetTime());
    };
    EXPECT_DOUBLE_EQ(seconds("50f"), 2);
    EXPECT_DOUBLE_EQ(seconds("50"), 2);
    EXPECT_DOUBLE_EQ(seconds("2s"), 2);
    EXPECT_DOUBLE_EQ(seconds("1:05"), 1.2);  // 30 of 25 frames
    EXPECT_DOUBLE_EQ(seconds("0"), 0);
}

TEST(ParameterValue, TakesSwitches) {
    for (const char *text : {"on", "On", "TRUE", "1"}) EXPECT_EQ(ParseValue(Named("Zoom"), text, kFps).Whole(), 1);
    for (const char *text : {"off", "False", "0"}) EXPECT_EQ(ParseValue(Named("Zoom"), text, kFps).Whole(), 0);
    EXPECT_EQ(Refusal("Zoom", "maybe"), "--set 'Zoom' (16): found 'maybe', expected on or off");
}

TEST(ParameterValue, TakesTextsAsTheyAre) {
    EXPECT_EQ(ParseValue(Named("Custom Trigger"), " 12, 40", kFps).Text(), " 12, 40");
}

TEST(ParameterValue, TakesChoicesByLabelAndNumber) {
    EXPECT_EQ(ParseValue(Named("Preset"), "wild", kFps).Whole(), 4);
    EXPECT_EQ(ParseValue(Named("Preset"), "3", kFps).Whole(), 3);
    EXPECT_EQ(Refusal("Preset", "5"), "--set 'Preset' (19): found '5', expected one of its choices");
}

TEST(ParameterValue, RefusesWhatIsPastTheLimitsInTheParametersUnit) {
    EXPECT_EQ(Refusal("Overshoot Fade", "101%"),
              "--set 'Overshoot Fade' (11): found '101%', expected a percentage (150% or 1.5) from 0% to 100%");
    EXPECT_EQ(Refusal("Shake Speed", "-1%"),
              "--set 'Shake Speed' (10): found '-1%', expected a percentage (150% or 1.5) of at least 0%");
    EXPECT_EQ(Refusal("Ceiling", "91"),
              "--set 'Ceiling' (23): found '91', expected an angle (12deg or 12) of at most 90deg");
    EXPECT_EQ(Refusal("Seed", "100000"), "--set 'Seed' (14): found '100000', expected a number from 0 to 99999");
    EXPECT_EQ(Refusal("Interval", "-1f"),
              "--set 'Interval' (17): found '-1f', expected a time (12f, 0.5s, 1:04) of at least 0s");
}

TEST(ParameterValue, TakesTheLimitsThemselves) {
    EXPECT_EQ(Real("Overshoot Fade", "100%"), 1);
    EXPECT_EQ(Real("Overshoot Fade", "0%"), 0);
    EXPECT_EQ(Real("Seed", "99999"), 99999);
}

TEST(ParameterValue, RefusesWhatIsNotAFiniteNumber) {
    for (const char *label : {"Shake Speed", "Rotation Slow", "Seed", "Time Offset", "Interval"}) {
        for (const char *text : {"nan", "inf", "-inf", "nan%", "1e999", "1e300", "", "%", "fast", "1,5", "1 2"}) {
            EXPECT_NE(Refusal(label, text), "accepted") << label << "=" << text;
        }
    }
}

TEST(ParameterValue, RefusesOtherUnits) {
    EXPECT_NE(Refusal("Shake Speed", "12deg"), "accepted");
    EXPECT_NE(Refusal("Rotation Slow", "12%"), "accepted");
    EXPECT_NE(Refusal("Seed", "12f"), "accepted");
    EXPECT_NE(Refusal("Time Offset", "12%"), "accepted");
    EXPECT_NE(Refusal("Interval", "12%"), "accepted");
}

TEST(ParameterValue, RefusesTimesThatAreNone) {
    for (const char *text : {"1:25", "1:-1", "-1:00", ":", "1:", ":5", "1:2:3", "9223372036854775807:00"}) {
        EXPECT_NE(Refusal("Interval", text), "accepted") << text;  // a second has frames 0 to 24
    }
}

TEST(ParameterValue, RefusesLinksAndButtons) {
    EXPECT_EQ(Refusal("Target Object", "Cube"),
              "--set 'Target Object' (20): found a link, expected a parameter that holds a value");
    EXPECT_EQ(Refusal("Save", "1"), "--set 'Save' (21): found a button, expected a parameter that holds a value");
}

}  // namespace
}  // namespace tremolux
