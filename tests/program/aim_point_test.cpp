// What the camera turns to and focuses on, from the command line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/program/trace_support.h"

namespace {

using namespace program_test;

// A camera at (0, 100, 0) that looks along Z, 40 frames.
std::string StandingCamera() {
    std::string text = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
    for (int frame = 0; frame < 40; ++frame) text += std::to_string(frame) + ",0,100,0,0,0,0,36,500\n";
    return text;
}

// Along X, 300 in front of the camera.
std::string MovingPoint(int first, int last) {
    std::string text = "frame,x,y,z\n";
    for (int frame = first; frame <= last; ++frame)
        text += std::to_string(frame) + "," + std::to_string(10 * frame) + ",100,300\n";
    return text;
}

class AimPoint : public TracedMove {
  protected:
    AimPoint() : TracedMove(StandingCamera()) {}
    void ExpectRefused(const std::vector<std::string> &more, const std::string &said) {
        const Outcome outcome = workplace_.Run(Joined({"shake", move_, "-o", workplace_.Path("out.csv")}, more));
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err << "expected: " << said;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
    }
    // Nothing that lags, swings or pushes.
    const std::vector<std::string> direct_ =
        Settings({"Target Smooth=0%", "Overshoot Target=0%", "Focus Smoothing=0%", "Overshoot Focus=0%"});
};

TEST_F(AimPoint, TurnsTheCameraToAPoint) {
    // 100 to the left and 100 up at a distance of 100: a heading of 45 degrees, a pitch of atan(1 / sqrt 2).
    for (const std::vector<std::string> &target :
         {std::vector<std::string>{"--target", "-100,200,100"}, {"--target=-100,200,100"}}) {
        const host::Vector hpb = VectorOf(Trace(Joined(direct_, target)).back().at("output").at("hpb"));
        EXPECT_NEAR(hpb.x, 45, 1e-9);
        EXPECT_NEAR(hpb.y, std::atan(1 / std::sqrt(2)) / kDegree, 1e-9);
    }
}

TEST_F(AimPoint, TurnsTheCameraToAPointThatMoves) {
    const std::string point = workplace_.Write("point.csv", MovingPoint(0, 39));
    for (const json &record : Trace(Joined(direct_, {"--target", point}))) {
        const double x = 10 * record.at("frame").get<double>();
        EXPECT_NEAR(record.at("output").at("hpb").at(0), std::atan2(-x, 300) / kDegree, 1e-9);
    }
}

TEST_F(AimPoint, IsLeftAloneWhenTheTargetIsSwitchedOff) {
    const auto records = Trace({"--target", "-100,200,100", "--set", "Target=off"});
    EXPECT_NEAR(records.back().at("output").at("hpb").at(0), 0, 1e-9);
}

TEST_F(AimPoint, FocusesOnAPoint) {
    // 30 to the right, 40 down and 120 ahead: 50 across, 130 away.
    const auto records = Trace(Joined(direct_, {"--focus-object", "30,60,120"}));
    EXPECT_NEAR(records.back().at("output").at("focus_distance"), 130, 1e-9);
}

TEST_F(AimPoint, FocusesOnAPointThatMoves) {
    const std::string point = workplace_.Write("point.csv", MovingPoint(-5, 60));
    for (const json &record : Trace(Joined(direct_, {"--focus-object", point}))) {
        const double x = 10 * record.at("frame").get<double>();
        EXPECT_NEAR(record.at("output").at("focus_distance"), std::hypot(x, 300), 1e-9);
    }
}

TEST_F(AimPoint, MayBeAnotherCameraOfWhichThePositionCounts) {
    // 300 to the left and 300 ahead, which a channel file calls -Z: a heading of 45 degrees, a distance of 300 sqrt 2.
    std::string channels, table = "frame,x,y,z,h,p,b,focal_length\n";
    for (int frame = 0; frame < 40; ++frame) {
        channels += std::to_string(frame) + " -300 100 -300 7 8 9 30\n";
        table += std::to_string(frame) + ",-300,100,300,7,8,9,50\n";
    }
    for (const std::string &file : {workplace_.Write("other.chan", channels), workplace_.Write("other.csv", table)}) {
        const auto records = Trace(Joined(direct_, {"--target", file, "--focus-object", file}));
        ASSERT_EQ(records.size(), 40u);
        EXPECT_NEAR(records.back().at("output").at("hpb").at(0), 45, 1e-9);
        EXPECT_NEAR(records.back().at("output").at("focus_distance"), 300 * std::sqrt(2), 1e-9);
    }
}

TEST_F(AimPoint, IsRefusedWhenItIsNeitherAPointNorAFile) {
    for (const char *text : {"", "1,2", "1,2,three", "1,2,3,4", "nan,1,2", "1,inf,2", "somewhere", "1e300,0,0"})
        for (const char *option : {"--target", "--focus-object"})
            ExpectRefused({option, text}, std::string(option) + ": found '" + text + "', expected a point");
    ExpectRefused({"--focus-object", workplace_.Path("missing.csv")}, "missing.csv: found no such file");
}

TEST_F(AimPoint, IsRefusedWhenItIsGivenTwice) { ExpectRefused({"--target", "1,2,3", "--target", "4,5,6"}, "--target"); }

TEST_F(AimPoint, IsRefusedWhenItDoesNotCoverTheMove) {
    const std::string covered = ", expected frames 0 to 39 of the move";
    const std::string late = workplace_.Write("late.csv", MovingPoint(3, 39));
    ExpectRefused({"--target", late}, "late.csv: found frames 3 to 39" + covered);
    const std::string brief = workplace_.Write("brief.csv", MovingPoint(-2, 38));
    ExpectRefused({"--focus-object", brief}, "brief.csv: found frames -2 to 38" + covered);
}

TEST_F(AimPoint, IsRefusedWhereItsFileIsBroken) {
    const std::string gap = workplace_.Write("gap.csv", MovingPoint(0, 10) + "20,0,0,0\n");
    ExpectRefused({"--target", gap}, "gap.csv:13:1: found '20'");
    const std::string wild = workplace_.Write("wild.csv", MovingPoint(0, 10) + "11,0,nan,0\n");
    ExpectRefused({"--target", wild}, "wild.csv:13:6: found 'nan'");
    const std::string flat = workplace_.Write("flat.csv", "frame,x,y\n0,1,2\n");
    ExpectRefused({"--focus-object", flat}, "flat.csv:1:10: found no column z");
}

TEST_F(AimPoint, IsNeverWrittenOver) {
    const std::string point = workplace_.Write("point.csv", MovingPoint(0, 39));
    for (const char *command : {"shake", "trace"})
        for (const char *option : {"--target", "--focus-object"}) {
            EXPECT_EQ(workplace_.Run({command, move_, "-o", point, option, point}).status, 2) << command << option;
            EXPECT_EQ(workplace_.Read("point.csv"), MovingPoint(0, 39));
        }
}

}  // namespace
