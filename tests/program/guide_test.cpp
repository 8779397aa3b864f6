// What the camera turns to and focuses on, from the command line; and what a trace tells of the layers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/scene/angles.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;
using host::operator-;
using nlohmann::json;

constexpr double kPi = 3.14159265358979323846, kDegree = kPi / 180;

host::Vector VectorOf(const json &numbers) { return {numbers.at(0), numbers.at(1), numbers.at(2)}; }

// A camera at (0, 100, 0) that looks along Z, 40 frames.
std::string StandingCamera(int frames = 40) {
    std::string text = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
    for (int frame = 0; frame < frames; ++frame) text += std::to_string(frame) + ",0,100,0,0,0,0,36,500\n";
    return text;
}

// Along X, 300 in front of the camera.
std::string MovingPoint(int first, int last) {
    std::string text = "frame,x,y,z\n";
    for (int frame = first; frame <= last; ++frame)
        text += std::to_string(frame) + "," + std::to_string(10 * frame) + ",100,300\n";
    return text;
}

class Guide : public testing::Test {
  protected:
    std::vector<json> Trace(const std::vector<std::string> &more) {
        std::vector<std::string> arguments = {"trace", move_};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::vector<json> records;
        std::istringstream lines(outcome.out);
        for (std::string line; std::getline(lines, line);) records.push_back(json::parse(line));
        return records;
    }
    void ExpectRefused(const std::vector<std::string> &more, const std::string &said) {
        std::vector<std::string> arguments = {"shake", move_, "-o", workplace_.Path("out.csv")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
    }
    Workplace workplace_;
    std::string move_ = workplace_.Write("move.csv", StandingCamera());
    // Nothing that lags, swings or pushes.
    const std::vector<std::string> direct_ = {"--set", "Target Smooth=0%",   "--set", "Overshoot Target=0%",
                                              "--set", "Focus Smoothing=0%", "--set", "Overshoot Focus=0%"};
};

TEST_F(Guide, TurnsTheCameraToAPoint) {
    // 100 to the left and 100 up at a distance of 100: a heading of 45 degrees, a pitch of atan(1 / sqrt 2).
    std::vector<std::string> options = direct_;
    options.insert(options.end(), {"--target", "-100,200,100"});
    const host::Vector hpb = VectorOf(Trace(options).back().at("output").at("hpb"));
    EXPECT_NEAR(hpb.x, 45, 1e-9);
    EXPECT_NEAR(hpb.y, std::atan(1 / std::sqrt(2)) / kDegree, 1e-9);
}

TEST_F(Guide, TurnsTheCameraToAPointThatMoves) {
    std::vector<std::string> options = direct_;
    options.insert(options.end(), {"--target", workplace_.Write("point.csv", MovingPoint(0, 39))});
    for (const json &record : Trace(options)) {
        const double x = 10 * record.at("frame").get<double>();
        EXPECT_NEAR(record.at("output").at("hpb").at(0), std::atan2(-x, 300) / kDegree, 1e-9);
    }
}

TEST_F(Guide, IsLeftAloneWhenTheTargetIsSwitchedOff) {
    const auto records = Trace({"--target", "-100,200,100", "--set", "Target=off"});
    EXPECT_NEAR(records.back().at("output").at("hpb").at(0), 0, 1e-9);
    EXPECT_FALSE(records.back().at("layers").at("rotation").at("target"));
}

TEST_F(Guide, FocusesOnAPointThatMoves) {
    std::vector<std::string> options = direct_;
    options.insert(options.end(), {"--focus-object", workplace_.Write("point.csv", MovingPoint(-5, 60))});
    for (const json &record : Trace(options)) {
        const double x = 10 * record.at("frame").get<double>();
        EXPECT_NEAR(record.at("output").at("focus_distance"), std::hypot(x, 300), 1e-9);
    }
}

TEST_F(Guide, CanBeAnotherCamera) {
    workplace_.Write("other.chan", "0 0 1 2 0 0 0 30\n");
    ExpectRefused({"--target", workplace_.Path("other.chan")},
                  "other.chan: found frames 0 to 0, expected frames 0 to 39");
    EXPECT_EQ(Trace({"--target", move_}).size(), 40u);
}

TEST_F(Guide, IsRefusedWhenItIsNeitherAPointNorAFile) {
    for (const char *text : {"1,2", "1,2,three", "1,2,3,4", "nan,1,2", "1,inf,2", "somewhere", "1e300,0,0"})
        ExpectRefused({std::string("--target=") + text},
                      "--target: found '" + std::string(text) + "', expected a point");
    ExpectRefused({"--focus-object=here"}, "--focus-object: found 'here'");
    ExpectRefused({"--focus-object", workplace_.Path("missing.csv")}, "missing.csv: found no such file");
}

TEST_F(Guide, IsRefusedWhenItDoesNotCoverTheMove) {
    const std::string late = workplace_.Write("late.csv", MovingPoint(3, 39));
    ExpectRefused({"--target", late}, "late.csv: found frames 3 to 39, expected frames 0 to 39 of the move");
    const std::string gap = workplace_.Write("gap.csv", MovingPoint(0, 10) + "20,0,0,0\n");
    ExpectRefused({"--target", gap}, "gap.csv:13:1: found '20'");
}

TEST_F(Guide, IsNeverWrittenOver) {
    const std::string point = workplace_.Write("point.csv", MovingPoint(0, 39));
    const Outcome outcome = workplace_.Run({"shake", move_, "-o", point, "--target", point});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(workplace_.Read("point.csv"), MovingPoint(0, 39));
}

// ---- Layers

class Layers : public Guide {
  protected:
    void SetUp() override {
        std::string text = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
        for (int frame = 0; frame < 120; ++frame) {
            const double x = 150 * std::sin(frame / 9.0), h = 80 * std::sin(frame / 7.0), f = 40 + frame % 30;
            text += std::to_string(frame) + "," + std::to_string(x) + ",100,0," + std::to_string(h) + ",5,1," +
                    std::to_string(f) + ",500\n";
        }
        move_ = workplace_.Write("move.csv", text);
    }
    const std::vector<std::string> all_ = {"--set", "Position Slow=2%",     "--set", "Rotation Slow=5",
                                           "--set", "Zoom Drift Slow=5%",   "--set", "Focus Drift Slow=0.1",
                                           "--set", "Custom Trigger=20,50", "--set", "Interval=25f"};
    static double Sum(const json &layer) {
        double sum = layer.at("smoothed").get<double>();
        for (const char *part : {"overshoot", "drift"}) sum += layer.at(part).get<double>();
        return sum;
    }
    static host::Vector VectorSum(const json &layer) {
        host::Vector sum = VectorOf(layer.at("smoothed"));
        for (const char *part : {"overshoot", "shake", "jolt"})
            sum = sum - (host::Vector{0, 0, 0} - VectorOf(layer.at(part)));
        return sum;
    }
    void ExpectTheLayersToAddUp(const std::vector<json> &records) {
        for (const json &record : records) {
            SCOPED_TRACE(record.at("frame"));
            const json &layers = record.at("layers");
            EXPECT_LT(host::Length(VectorSum(layers.at("position")) - VectorOf(record.at("output").at("position"))),
                      1e-9);
            for (const char *lens : {"zoom", "focus"})
                EXPECT_NEAR(Sum(layers.at(lens)), layers.at(lens).at("result").get<double>(), 1e-9) << lens;
            // Angles may differ by whole turns: the same matrix counts.
            const auto matrix = [](host::Vector degrees) {
                return host::HpbToMatrix({degrees.x * kDegree, degrees.y * kDegree, degrees.z * kDegree});
            };
            const host::Matrix sum = matrix(VectorSum(layers.at("rotation")));
            const host::Matrix result = matrix(VectorOf(record.at("output").at("hpb")));
            for (const auto axis : {&host::Matrix::v1, &host::Matrix::v2, &host::Matrix::v3})
                EXPECT_LT(host::Length(sum.*axis - result.*axis), 1e-9);
        }
    }
};

TEST_F(Layers, OfEveryFrameAddUpToTheResult) { ExpectTheLayersToAddUp(Trace(all_)); }

TEST_F(Layers, AddUpWithATargetAndAFocusObjectToo) {
    std::vector<std::string> options = all_;
    options.insert(options.end(), {"--target", "0,80,300", "--focus-object", "30,80,200"});
    const auto records = Trace(options);
    ExpectTheLayersToAddUp(records);
    EXPECT_TRUE(records.back().at("layers").at("rotation").at("target"));
}

TEST_F(Layers, AddUpWithOvershootAndShakeSwitchedOff) {
    std::vector<std::string> options = all_;
    for (const char *off : {"6153=0%", "6034=0%", "6053=0%", "6063=0%", "6010=off", "6011=off", "6012=off", "6013=off",
                            "6014=off", "6015=off", "6016=off", "6017=off"})
        options.insert(options.end(), {"--set", off});
    const auto records = Trace(options);
    ExpectTheLayersToAddUp(records);
    for (const json &record : records)
        for (const char *part : {"overshoot", "shake"})
            EXPECT_EQ(record.at("layers").at("position").at(part), json({0.0, 0.0, 0.0}));
}

TEST_F(Layers, NameAJoltOnTheFrameThatTheUserListed) {
    const auto records = Trace({"--set", "Custom Trigger=20"});
    EXPECT_EQ(records[19].at("layers").at("position").at("jolt"), json({0.0, 0.0, 0.0}));
    EXPECT_NE(records[20].at("layers").at("position").at("jolt"), json({0.0, 0.0, 0.0}));
}

}  // namespace
