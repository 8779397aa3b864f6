// When, where and how much a move is shaken.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/scene/angles.h"
#include "library/direction/added.h"
#include "library/direction/direct.h"
#include "library/direction/loop.h"
#include "library/formats/chan.h"
#include "library/formats/csv.h"
#include "library/formats/right_handed.h"
#include "library/formats/usda.h"
#include "library/measures/motion.h"
#include "library/measures/strayed.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;
using namespace tremolux;

constexpr int kFrames = 240;
constexpr double kPi = 3.14159265358979323846;

const std::vector<std::string> kShake = {"--set", "Position Slow=20%",      "--set", "Position Fast=5%",
                                         "--set", "Rotation Slow=12",       "--set", "Rotation Medium=8",
                                         "--set", "Initial Pos Smooth=30%", "--set", "Zoom Drift Slow=0.02",
                                         "--set", "Focus Drift Slow=0.2"};

// Angles and numbers with all their digits, so that a bit that changed is seen.
std::string Table(const std::vector<CameraSample> &samples) {
    std::ostringstream text;
    text.precision(15);
    text << "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const CameraSample &s = samples[i];
        text << i << ',' << s.position.x << ',' << s.position.y << ',' << s.position.z << ',' << s.angles.x << ','
             << s.angles.y << ',' << s.angles.z << ',' << s.focal_length << ',' << s.focus_distance << '\n';
    }
    return text.str();
}

// In degrees, as the table has them: a pan with a tilt beyond straight up, which no matrix gives back as it is.
std::vector<CameraSample> Panning(int count = kFrames) {
    std::vector<CameraSample> samples;
    for (int i = 0; i < count; ++i) {
        CameraSample sample;
        sample.position = {0.1 * i, 160 + std::sin(i / 7.0), -300 + i / 3.0};
        sample.angles = {i / 3.0, 100 + i / 50.0, 0.7};
        sample.focal_length = 30 + i / 11.0;
        sample.focus_distance = 500 - i / 3.0;
        samples.push_back(sample);
    }
    return samples;
}

std::vector<CameraSample> Still(int count = kFrames) {
    CameraSample sample;
    sample.position = {0, 160, 0};
    sample.focus_distance = 500;
    return std::vector<CameraSample>(static_cast<std::size_t>(count), sample);
}

std::vector<double> Numbers(const std::string &row) {
    std::vector<double> numbers;
    std::istringstream text(row);
    for (std::string part; std::getline(text, part, ',');) numbers.push_back(std::stod(part));
    return numbers;
}

class Direct : public testing::Test {
  protected:
    std::vector<std::string> Rows(const std::string &name) const {
        std::vector<std::string> rows;
        std::istringstream text(workplace_.Read(name));
        for (std::string row; std::getline(text, row);) rows.push_back(row);
        rows.erase(rows.begin());
        return rows;
    }
    CameraMove Shaken(const std::vector<CameraSample> &samples, const std::vector<std::string> &more) {
        std::vector<std::string> arguments = {"shake", workplace_.Write("in.csv", Table(samples)), "-o",
                                              workplace_.Path("out.csv")};
        arguments.insert(arguments.end(), kShake.begin(), kShake.end());
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return ReadCsv("out.csv", workplace_.Read("out.csv"), {});
    }
    std::string Refused(const std::vector<std::string> &more, const std::vector<CameraSample> &samples = Still(20)) {
        std::vector<std::string> arguments = {"shake", workplace_.Write("in.csv", Table(samples)), "-o",
                                              workplace_.Path("out.csv")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
        return outcome.err;
    }
    Workplace workplace_;
};

double Moved(const CameraSample &a, const CameraSample &b) { return host::Length(a.position - b.position); }

TEST_F(Direct, OutsideOfItsRangeTheCameraIsTheInputToTheLastBitAndInsideTheShakenOne) {
    const CameraMove whole = Shaken(Panning(), {});
    const std::vector<std::string> shaken = Rows("out.csv");
    Shaken(Panning(), {"--from", "60", "--until", "180"});
    const std::vector<std::string> in = Rows("in.csv"), out = Rows("out.csv");
    ASSERT_EQ(out.size(), in.size());
    for (std::size_t i = 0; i < in.size(); ++i) EXPECT_EQ(out[i], i < 60 || i > 180 ? in[i] : shaken[i]) << i;
}

TEST_F(Direct, AFadeRisesFromNothingToTheWholeShakeWithoutAStepInSpeedOrAcceleration) {
    const Fade fade{100, 200, 30, 40, 0.8};
    EXPECT_EQ(ShareAt(fade, 99), 0);
    EXPECT_EQ(ShareAt(fade, 100), 0);
    EXPECT_DOUBLE_EQ(ShareAt(fade, 115), 0.4);  // half way
    EXPECT_EQ(ShareAt(fade, 130), 0.8);
    EXPECT_EQ(ShareAt(fade, 160), 0.8);
    EXPECT_DOUBLE_EQ(ShareAt(fade, 180), 0.4);
    EXPECT_EQ(ShareAt(fade, 200), 0);
    EXPECT_EQ(ShareAt(fade, 201), 0);
    // 6t^5 - 15t^4 + 10t^3 over 30 frames: its third derivative is at most 60 / 30^3, so that speed and acceleration on
    // the two frames of a seam are at most of that order.
    const double third = 60.0 / (30 * 30 * 30);
    for (const std::int64_t seam : {100, 130}) {
        const double before = ShareAt(fade, seam) - ShareAt(fade, seam - 1),
                     after = ShareAt(fade, seam + 1) - ShareAt(fade, seam);
        EXPECT_LE(std::abs(before), third);
        EXPECT_LE(std::abs(after), third);
        EXPECT_LE(std::abs(after - before), third);
    }
}

TEST_F(Direct, WithoutAFrameAFadeBeginsAndEndsWithTheMove) {
    const CameraMove whole = Shaken(Still(), {}), faded = Shaken(Still(), {"--fade-in", "40", "--fade-out", "40"});
    const CameraSample still = Still().front();
    EXPECT_EQ(Moved(faded.samples.front(), still), 0);
    EXPECT_EQ(Moved(faded.samples.back(), still), 0);
    EXPECT_EQ(Moved(faded.samples[100], whole.samples[100]), 0);
    EXPECT_NEAR(Moved(faded.samples[20], still), Moved(whole.samples[20], still) / 2, 1e-9);
}

TEST_F(Direct, AMixGoesStraightInPositionAndLensAndOnTheSphereInRotation) {
    const CameraMove whole = Shaken(Panning(), {}), mixed = Shaken(Panning(), {"--mix", "25%"});
    const CameraMove input = ReadCsv("in.csv", workplace_.Read("in.csv"), {});
    for (std::size_t i = 0; i < input.samples.size(); i += 7) {
        const CameraSample &from = input.samples[i], &to = whole.samples[i], &found = mixed.samples[i];
        EXPECT_NEAR(found.position.z, from.position.z + (to.position.z - from.position.z) / 4, 1e-9);
        EXPECT_NEAR(found.focal_length, from.focal_length + (to.focal_length - from.focal_length) / 4, 1e-9);
        EXPECT_NEAR(found.focus_distance, from.focus_distance + (to.focus_distance - from.focus_distance) / 4, 1e-9);
        const double turn = TurnBetween(from.angles, to.angles);
        EXPECT_GT(turn, 1e-3) << i;
        EXPECT_NEAR(TurnBetween(from.angles, found.angles), turn / 4, 1e-7);
        EXPECT_NEAR(TurnBetween(found.angles, to.angles), turn * 3 / 4, 1e-7);
    }
}

TEST_F(Direct, OnlyTheChannelsThatAreWantedAreShaken) {
    const CameraMove whole = Shaken(Panning(), {});
    const std::vector<std::string> in = [this] {
        Shaken(Panning(), {"--only", "rotation"});
        return Rows("in.csv");
    }();
    const auto fields = [](const std::string &row, std::size_t first, std::size_t last) {
        std::vector<std::string> parts;
        std::istringstream text(row);
        for (std::string part; std::getline(text, part, ',');) parts.push_back(part);
        return std::vector<std::string>(parts.begin() + static_cast<std::ptrdiff_t>(first),
                                        parts.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    };
    const std::vector<std::string> turned = Rows("out.csv");
    Shaken(Panning(), {"--only", "position, lens"});
    const std::vector<std::string> moved = Rows("out.csv");
    for (std::size_t i = 0; i < in.size(); ++i) {
        EXPECT_EQ(fields(turned[i], 1, 3), fields(in[i], 1, 3));
        EXPECT_EQ(fields(turned[i], 7, 8), fields(in[i], 7, 8));
        EXPECT_EQ(fields(moved[i], 4, 6), fields(in[i], 4, 6));
    }
    EXPECT_NE(fields(turned[50], 4, 6), fields(in[50], 4, 6));
    EXPECT_NE(fields(moved[50], 1, 3), fields(in[50], 1, 3));
    EXPECT_NE(fields(moved[50], 7, 8), fields(in[50], 7, 8));
    EXPECT_EQ(whole.samples.size(), in.size());
}

// How far the middle of the picture is turned away, in film back widths.
double OffInPicture(const CameraSample &input, const CameraSample &output) {
    const host::Matrix to = host::HpbToMatrix(output.angles), from = host::HpbToMatrix(input.angles);
    const double ahead = host::Dot(from.v3, to.v3);
    return output.focal_length / 36 * std::hypot(host::Dot(from.v3, to.v1), host::Dot(from.v3, to.v2)) / ahead;
}

TEST_F(Direct, AwareOfTheLensAZoomLeavesTheShakeInThePictureAsItIs) {
    std::vector<CameraSample> zoom = Still();
    for (std::size_t i = 0; i < zoom.size(); ++i) zoom[i].focal_length = 25 + static_cast<double>(i);
    const std::vector<std::string> steady = {"--only", "rotation"};
    const CameraMove plain = Shaken(zoom, steady), aware = Shaken(zoom, {"--only", "rotation", "--lens-aware", "50"}),
                     half = Shaken(zoom, {"--only", "rotation", "--lens-aware", "50=0.5"});
    for (std::size_t i = 0; i < zoom.size(); i += 5) {
        // In the picture of a lens of 50 mm.
        CameraSample normal = plain.samples[i];
        normal.focal_length = 50;
        const double wanted = OffInPicture(zoom[i], normal), alone = OffInPicture(zoom[i], plain.samples[i]);
        EXPECT_GT(wanted, 1e-6) << i;
        EXPECT_NEAR(OffInPicture(zoom[i], aware.samples[i]), wanted, 1e-9);
        EXPECT_NEAR(OffInPicture(zoom[i], half.samples[i]), std::sqrt(wanted * alone), 1e-9);
    }
}

TEST_F(Direct, AwareOfTheLensTheMovesFirstFocalLengthIsTheMeasure) {
    std::vector<CameraSample> zoom = Still();
    for (std::size_t i = 0; i < zoom.size(); ++i) zoom[i].focal_length = 40 + static_cast<double>(i);
    Shaken(zoom, {"--lens-aware", "--only", "rotation"});
    const std::string by_default = workplace_.Read("out.csv");
    Shaken(zoom, {"--lens-aware", "40", "--only", "rotation"});
    EXPECT_EQ(workplace_.Read("out.csv"), by_default);
    Shaken(zoom, {"--lens-aware=0", "--only", "rotation"});
    const std::string unaware = workplace_.Read("out.csv");
    Shaken(zoom, {"--only", "rotation"});
    const CameraMove a = ReadCsv("a", unaware, {}), b = ReadCsv("b", workplace_.Read("out.csv"), {});
    for (std::size_t i = 0; i < a.samples.size(); ++i)
        EXPECT_NEAR(TurnBetween(a.samples[i].angles, b.samples[i].angles), 0, 1e-9);
}

TEST(LensAware, BankIsTheSameThroughEveryLens) {
    const Eigen::Quaterniond roll(Eigen::AngleAxisd(0.2, Eigen::Vector3d::UnitZ()));
    EXPECT_LT(TurnThroughLens(roll, 100, {25, 1}).angularDistance(roll), 1e-12);
    const Eigen::Quaterniond pan(Eigen::AngleAxisd(0.2, Eigen::Vector3d::UnitY()));
    // tan(turn) * 100 = tan(0.2) * 25
    EXPECT_NEAR(TurnThroughLens(pan, 100, {25, 1}).angularDistance(Eigen::Quaterniond::Identity()),
                std::atan(std::tan(0.2) / 4), 1e-12);
}

std::vector<CameraSample> Circling(int count, bool closes) {
    std::vector<CameraSample> samples = Still(count);
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * kPi * i / (closes ? count - 1 : count);
        samples[static_cast<std::size_t>(i)].position = {300 * std::cos(angle), 160, 300 * std::sin(angle)};
    }
    return samples;
}

TEST_F(Direct, ALoopsLastFrameFlowsIntoItsFirstInValueAndSpeed) {
    for (const std::vector<CameraSample> &input : {Still(), Circling(kFrames, false)}) {
        const CameraMove looped = Shaken(input, {"--loop"});
        const std::vector<CameraSample> &s = looped.samples;
        ASSERT_EQ(s.size(), input.size());
        double step = 0, turn = 0, bend = 0;
        for (std::size_t i = 2; i < s.size(); ++i) {
            step = std::max(step, Moved(s[i], s[i - 1]));
            turn = std::max(turn, TurnBetween(s[i].angles, s[i - 1].angles));
            bend = std::max(bend, host::Length(s[i].position - s[i - 1].position * 2 + s[i - 2].position));
        }
        const std::size_t last = s.size() - 1;
        EXPECT_LE(Moved(s[0], s[last]), step);
        EXPECT_LE(TurnBetween(s[0].angles, s[last].angles), turn);
        EXPECT_LE(host::Length(s[1].position - s[0].position * 2 + s[last].position), bend);
        EXPECT_LE(host::Length(s[0].position - s[last].position * 2 + s[last - 1].position), bend);
    }
}

TEST_F(Direct, AMoveThatEndsOnItsFirstPoseStillDoes) {
    const CameraMove looped = Shaken(Circling(kFrames, true), {"--loop"});
    EXPECT_NEAR(Moved(looped.samples.front(), looped.samples.back()), 0, 1e-6);
    EXPECT_NEAR(TurnBetween(looped.samples.front().angles, looped.samples.back().angles), 0, 1e-6);
}

TEST_F(Direct, ALoopKeepsTheRmsOfWhatWasAddedInEveryBand) {
    const CameraMove plain = Shaken(Still(300), {}), looped = Shaken(Still(300), {"--loop"});
    CameraMove input = plain;
    input.samples = Still(300);
    const AddedMotion before = MeasureAddedMotion(input, plain, 1920), after = MeasureAddedMotion(input, looped, 1920);
    for (std::size_t channel = 0; channel < 6; ++channel) {
        for (std::size_t band = 0; band < kBands.size(); ++band) {
            const double wanted = before.camera[channel].band_rms[band];
            EXPECT_GT(wanted, 1e-4);
            EXPECT_NEAR(after.camera[channel].band_rms[band], wanted, 0.05 * wanted)
                << before.camera[channel].name << " " << kBands[band].name;
        }
    }
}

TEST_F(Direct, AMoveThatDoesNotLoopIsRefused) {
    EXPECT_NE(Refused({"--loop"}, Panning(60)).find("a last frame that does not flow into the first"),
              std::string::npos);
}

TEST_F(Direct, WhatWasAddedIsTheShakenCameraTogetherWithTheInput) {
    const std::string input_file = workplace_.Write("in.csv", Table(Panning()));
    std::vector<std::string> arguments = {"shake", input_file, "-o", workplace_.Path("out.csv")};
    arguments.insert(arguments.end(), kShake.begin(), kShake.end());
    ASSERT_EQ(workplace_.Run(arguments).status, 0);
    arguments[3] = workplace_.Path("added.csv");
    arguments.insert(arguments.end(), {"-o", workplace_.Path("added.json"), "--added"});
    ASSERT_EQ(workplace_.Run(arguments).status, 0);
    const CameraMove input = ReadCsv("in", workplace_.Read("in.csv"), {}),
                     shaken = ReadCsv("out", workplace_.Read("out.csv"), {});
    const std::vector<std::string> rows = Rows("added.csv");
    const auto frames = nlohmann::json::parse(workplace_.Read("added.json")).at("frames");
    ASSERT_EQ(rows.size(), input.samples.size());
    ASSERT_EQ(frames.size(), input.samples.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::vector<double> n = Numbers(rows[i]);
        ASSERT_EQ(n.size(), 9U);
        const CameraSample &from = input.samples[i], &to = shaken.samples[i];
        EXPECT_NEAR(from.position.x + n[1], to.position.x, 1e-9);
        EXPECT_NEAR(from.position.z + n[3], to.position.z, 1e-9);
        EXPECT_NEAR(from.focal_length + n[7], to.focal_length, 1e-9);
        EXPECT_NEAR(from.focus_distance + n[8], to.focus_distance, 1e-9);
        // output = input * turn, column vectors: the input's axes, combined by the turn's matrix.
        const host::Matrix own = host::HpbToMatrix(from.angles), wanted = host::HpbToMatrix(to.angles),
                           turn = host::HpbToMatrix(host::Vector{n[4], n[5], n[6]} * kRadiansPerDegree);
        const auto turned = [&own](const host::Vector &v) { return own.v1 * v.x + own.v2 * v.y + own.v3 * v.z; };
        EXPECT_LT(host::Length(turned(turn.v1) - wanted.v1), 1e-9);
        EXPECT_LT(host::Length(turned(turn.v2) - wanted.v2), 1e-9);
        EXPECT_LT(host::Length(turned(turn.v3) - wanted.v3), 1e-9);
        EXPECT_EQ(frames[i].at("frame"), static_cast<int>(i));
        EXPECT_NEAR(frames[i].at("position").at(1), n[2], 1e-9);
        EXPECT_NEAR(frames[i].at("turn_hpb").at(0), n[4], 1e-9);
        EXPECT_LT(std::abs(n[6]), 180);
    }
}

// Numbers between the first "( (" of each line that has one and its end.
std::vector<std::vector<double>> MatricesIn(const std::string &text) {
    std::vector<std::vector<double>> matrices;
    std::istringstream lines(text.substr(text.find("xformOp:transform:tremolux.timeSamples")));
    for (std::string line; std::getline(lines, line) && line.find('}') == std::string::npos;) {
        const std::size_t start = line.find("( (");
        if (start == std::string::npos) continue;
        for (char &c : line)
            if (c == '(' || c == ')' || c == ',') c = ' ';
        std::istringstream numbers(line.substr(start));
        matrices.emplace_back();
        for (double number; numbers >> number;) matrices.back().push_back(number);
    }
    return matrices;
}

TEST_F(Direct, TheOpOfALayerBehindTheCamerasOwnMakesTheShakenCamera) {
    workplace_.Write("in.csv", Table(Panning()));
    const Outcome converted =
        workplace_.RunBare({"convert", workplace_.Path("in.csv"), "-o", workplace_.Path("in.usda")});
    ASSERT_EQ(converted.status, 0) << converted.err;
    std::vector<std::string> arguments = {"shake", workplace_.Path("in.usda"), "-o", workplace_.Path("out.usda")};
    arguments.insert(arguments.end(), kShake.begin(), kShake.end());
    ASSERT_EQ(workplace_.Run(arguments).status, 0);
    arguments[3] = workplace_.Path("added.usda");
    arguments.emplace_back("--added");
    ASSERT_EQ(workplace_.Run(arguments).status, 0);
    const std::string layer = workplace_.Read("added.usda");
    EXPECT_NE(layer.find("xformOpOrder = [\"xformOp:transform\", \"xformOp:transform:tremolux\"]"), std::string::npos)
        << layer.substr(0, 400);
    EXPECT_NE(layer.find("over Camera \"Camera\""), std::string::npos);
    const CameraMove input = ReadUsda("in", workplace_.Read("in.usda"), {}),
                     shaken = ReadUsda("out", workplace_.Read("out.usda"), {});
    const auto matrices = MatricesIn(layer);
    ASSERT_EQ(matrices.size(), input.samples.size());
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        // Rows: right, up, back and place, of points that stand before the matrix.
        const host::Matrix own = RightHanded(input.samples[i]), wanted = RightHanded(shaken.samples[i]);
        const auto through = [&](std::size_t row) {
            const std::vector<double> &m = matrices[i];
            return own.v1 * m[4 * row] + own.v2 * m[4 * row + 1] + own.v3 * m[4 * row + 2];
        };
        EXPECT_LT(host::Length(through(0) - wanted.v1), 1e-9);
        EXPECT_LT(host::Length(through(1) - wanted.v2), 1e-9);
        EXPECT_LT(host::Length(through(2) - wanted.v3), 1e-9);
        EXPECT_LT(host::Length(through(3) + own.off - wanted.off), 1e-9);
    }
}

TEST_F(Direct, WhatWasAddedIsInAChanFileAsItIsInATable) {
    const std::string input_file = workplace_.Write("in.csv", Table(Panning()));
    std::vector<std::string> arguments = {
        "shake", input_file, "-o", workplace_.Path("a.csv"), "-o", workplace_.Path("a.chan"), "--added"};
    arguments.insert(arguments.end(), kShake.begin(), kShake.end());
    ASSERT_EQ(workplace_.Run(arguments).status, 0);
    const std::vector<std::string> rows = Rows("a.csv");
    // Seven columns, right-handed: z and the turns about x and y change their signs with it, in the order z, x, y.
    const CameraMove chan = ReadChan("a.chan", workplace_.Read("a.chan"), {});
    ASSERT_EQ(chan.samples.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::vector<double> n = Numbers(rows[i]);
        ASSERT_EQ(n.size(), 9U);
        EXPECT_NEAR(chan.samples[i].position.x, n[1], 1e-9);
        EXPECT_NEAR(chan.samples[i].position.z, n[3], 1e-9);
        EXPECT_NEAR(TurnBetween(chan.samples[i].angles, host::Vector{n[4], n[5], n[6]} * kRadiansPerDegree), 0, 1e-7);
    }
}

TEST_F(Direct, WrongTimesSharesAndChannelsAreRefusedInOneLine) {
    EXPECT_NE(Refused({"--from", "soon"}).find("--from: found 'soon'"), std::string::npos);
    EXPECT_NE(Refused({"--from", "9", "--until", "3"}).find("--until: found '3', expected a frame from 9 on"),
              std::string::npos);
    EXPECT_NE(Refused({"--fade-in", "-4"}).find("--fade-in: found '-4'"), std::string::npos);
    EXPECT_NE(Refused({"--mix", "1.5"}).find("--mix: found '1.5', expected a share"), std::string::npos);
    EXPECT_NE(Refused({"--only", "turns"}).find("--only: found 'turns', expected rotation"), std::string::npos);
    EXPECT_NE(Refused({"--lens-aware", "50=2"}).find("--lens-aware: found '2', expected a share"), std::string::npos);
    EXPECT_NE(Refused({"--on", "Hero"}).find("--on: found no .py"), std::string::npos);
    EXPECT_NE(
        Refused({"--added", "-o", workplace_.Path("a.gltf")}).find("expected .csv, .json, .chan, .usda, .usd or .py"),
        std::string::npos);
}

TEST_F(Direct, KeysOfASettingAreKeysOfTheTag) {
    // Without smoothing, what an intensity of 0 leaves is the input.
    const std::vector<std::string> keyed = {
        "--set",   "6155=0%", "--set",   "6156=0%", "--set",
        "6158=0%", "--set",   "6161=0%", "--key",   "Rotation Intensity@0=0,100=0 smooth,140=100% hold,200=0",
        "--only",  "rotation"};
    std::vector<CameraSample> still = Still();
    const CameraMove moved = Shaken(still, keyed);
    const auto turn = [&](std::size_t i) { return TurnBetween(moved.samples[i].angles, still[i].angles); };
    for (const std::size_t frame : {1, 50, 100, 200, 239}) EXPECT_NEAR(turn(frame), 0, 1e-7) << frame;
    EXPECT_GT(turn(150), 0.05);
    EXPECT_GT(turn(199), 1e-3);
    const CameraMove whole = Shaken(
        still, {"--set", "6155=0%", "--set", "6156=0%", "--set", "6158=0%", "--set", "6161=0%", "--only", "rotation"});
    EXPECT_NEAR(turn(160), TurnBetween(whole.samples[160].angles, still[160].angles), 1e-9);
}

TEST_F(Direct, ABakeAndASavedSceneSeeTheKeys) {
    const std::vector<std::string> keyed = {"--key", "Rotation Intensity@20=0,60=150%,120=20%"};
    const CameraMove live = Shaken(Still(), keyed), plain = Shaken(Still(), {});
    std::vector<std::string> more = keyed;
    more.insert(more.end(), {"--bake", "brute", "--scene", workplace_.Path("keyed.scene")});
    const CameraMove baked = Shaken(Still(), more);
    double keys_turn = 0;
    for (std::size_t i = 0; i < live.samples.size(); ++i) {
        EXPECT_NEAR(TurnBetween(baked.samples[i].angles, live.samples[i].angles), 0, 1e-6) << i;
        keys_turn = std::max(keys_turn, TurnBetween(plain.samples[i].angles, live.samples[i].angles));
    }
    EXPECT_GT(keys_turn, 0.1);
    // The scene was saved with its keys: they come out of it when the bake is taken back and made anew.
    const std::string scene = workplace_.Path("keyed.scene"), again = workplace_.Path("again.scene");
    ASSERT_EQ(workplace_.Run({"bake", scene, "--undo", "-o", again}).status, 0);
    ASSERT_EQ(workplace_.Run({"bake", again, "--brute", "--in-place"}).status, 0);
    const Outcome first = workplace_.Run({"keys", scene}), second = workplace_.Run({"keys", again});
    EXPECT_EQ(first.out, second.out);
    EXPECT_GT(first.out.size(), 1000u);
}

TEST_F(Direct, WrongKeysAreRefusedInOneLine) {
    EXPECT_NE(Refused({"--key", "Rotation Intensity"}).find("expected LABEL@FRAME=VALUE,FRAME=VALUE"),
              std::string::npos);
    EXPECT_NE(Refused({"--key", "Rotation Intensity@5"}).find("--key: found '5', expected FRAME=VALUE"),
              std::string::npos);
    EXPECT_NE(Refused({"--key", "Rotation Intensity@x=1"}).find("--key: found 'x', expected a frame"),
              std::string::npos);
    EXPECT_NE(Refused({"--key", "Custom Trigger@1=2"}).find("expected a parameter that holds a number"),
              std::string::npos);
    EXPECT_NE(Refused({"--key", "Rotation Intensity@1=lots"}).find("expected a percentage"), std::string::npos);
}

}  // namespace
