// What is said of settings that are taken, and texts that are not.
#include <gtest/gtest.h>

#include <algorithm>

#include "library/failure.h"
#include "library/parameters/trigger_text.h"
#include "library/parameters/value.h"
#include "tests/program/run.h"
#include "tremolux/words/report_text.h"

namespace {

using namespace program_test;

TEST(FrameLists, AreNumbersSeparatedByCommas) {
    for (const char *text :
         {"", " ", "12", "0", "12,48", " 12 ,\t48 ", "9999999", "12,+48", "Numbers seperated by commas"})
        EXPECT_TRUE(tremolux::IsFrameList(text)) << text;
    for (const char *text : {"abc", "12;48", "12 48", "12,abc", "-3", "1.5", "10000000", "12, 0", "12,", ",", "1e3"})
        EXPECT_FALSE(tremolux::IsFrameList(text)) << text;
}

TEST(SliderNotes, AreOfValuesBeyondTheSliderAlone) {
    tremolux::Parameter parameter;
    parameter.label = "Amount";
    parameter.kind = tremolux::ParameterKind::kReal;
    parameter.unit = tremolux::ParameterUnit::kPercent;
    EXPECT_EQ(tremolux::SliderNote(parameter, host::Data(50.0)), "") << "no slider";
    parameter.slider_minimum = 0.0;
    parameter.slider_maximum = 2.0;
    EXPECT_EQ(tremolux::SliderNote(parameter, host::Data(2.0)), "");
    EXPECT_EQ(tremolux::SliderNote(parameter, host::Data(0.0)), "");
    EXPECT_EQ(tremolux::SliderNote(parameter, host::Data(50.0)),
              "'Amount' is 5000%, beyond its slider, which goes from 0% to 200%");
    EXPECT_EQ(tremolux::SliderNote(parameter, host::Data(-0.5)),
              "'Amount' is -50%, beyond its slider, which goes from 0% to 200%");
}

class SettingNotes : public testing::Test {
  protected:
    SettingNotes() { workplace_.Write("move.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n1,0,0,0,0,0,0\n"); }
    Outcome Shake(std::vector<std::string> more) {
        more.insert(more.begin(), {"shake", workplace_.Path("move.csv"), "-o", workplace_.Path("a.csv")});
        return workplace_.Run(more);
    }
    Workplace workplace_;
};

TEST_F(SettingNotes, SayOncePerSettingWhatLiesBeyondItsSlider) {
    const Outcome outcome =
        Shake({"--set", "Position Intensity=40", "--set", "Position Intensity=50", "--set", "Rotation Intensity=150%"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "--set: 'Position Intensity' is 5000%, beyond its slider, which goes from 0% to 200%\n");
    EXPECT_EQ(Shake({"--set", "Position Intensity=50", "--set", "Position Intensity=1"}).err, "");
    EXPECT_NE(workplace_.Run({"panel", "--set", "Position Intensity=50"}).err.find("5000%"), std::string::npos);
}

TEST_F(SettingNotes, RefuseATriggerThatTheModuleWouldPassOver) {
    const Outcome outcome = Shake({"--set", "Custom Trigger=abc"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "--set 'Custom Trigger' (6181): found 'abc', expected frames from 0 to 9999999, separated by commas "
              "(12,48)\n");
    EXPECT_EQ(workplace_.Read("a.csv"), "(missing)");
    EXPECT_EQ(Shake({"--set", "Custom Trigger=12,48"}).status, 0);
}

TEST_F(SettingNotes, LeaveAShakeThatNobodyWatchesSilent) {
    const Outcome outcome = Shake({});
    EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST(ShakeSentence, TellsWhatWasShakenAndHowFarItStrayed) {
    tremolux::CameraMove input;
    input.samples.resize(2);
    tremolux::CameraMove output = input;
    output.samples[1].position.x = 3;
    output.samples[1].angles.x = 2 * tremolux::kRadiansPerDegree;
    const tremolux::ShakeReport report{"in.csv", {}, "Hand-held/Calm", 0, {}, input.rate, 0};
    EXPECT_EQ(tremolux::ReportSentence(report, input, output),
              "in.csv: 2 frames with Hand-held/Calm, strayed at most 3 scene units and 2 degrees\n");
}

}  // namespace
