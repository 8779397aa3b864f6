// A recorded move parted into its way and its shake.
#include <gtest/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "host/value/radians.h"
#include "library/measures/strayed.h"
#include "library/recorded/split.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;
using host::kPi;

constexpr std::size_t kFrames = 401;  // sixteen seconds: whole periods of every shake
constexpr double kRate = 25;

// A pan over the pole's side with two and a half turns of bank, and a shake of so many hertz on it.
CameraMove Tracked(double hertz) {
    CameraMove move;
    move.rate = {25, 1};
    for (std::size_t i = 0; i < kFrames; ++i) {
        const double seconds = static_cast<double>(i) / kRate, shake = std::sin(2 * kPi * hertz * seconds);
        CameraSample sample;
        sample.position = {50 * seconds + 2 * shake, 160 + shake, 10 * std::sin(0.2 * seconds)};
        sample.angles = {0.3 * seconds + 0.02 * shake, 0.4 + 0.03 * shake, 2 * kPi * 2.5 * seconds / 16 + 0.01 * shake};
        sample.focal_length = 30 + seconds;
        move.samples.push_back(sample);
    }
    return move;
}

TEST(SplitMoves, AllOfBothPartsIsTheMove) {
    const CameraMove move = Tracked(3);
    const CameraMove joined = Joined(Split(move, 0.3), 1);
    ASSERT_EQ(joined.samples.size(), move.samples.size());
    for (std::size_t i = 0; i < kFrames; ++i) {
        const CameraSample &a = joined.samples[i], &b = move.samples[i];
        EXPECT_NEAR(host::Length(a.position - b.position), 0, 1e-9) << i;
        EXPECT_NEAR(host::Length(a.angles - b.angles), 0, 1e-9) << i;
        EXPECT_EQ(a.focal_length, b.focal_length);
    }
}

TEST(SplitMoves, WithoutTheFastPartTheShakeIsGoneAndTheWayIsKept) {
    const CameraMove shaken = Tracked(3), slow = Joined(Split(shaken, 0.3), 0);
    // The shake's sine begins and ends at 0: the way is that of a move without it.
    const CameraMove way = Joined(Split(Tracked(0), 0.3), 0);
    EXPECT_GT(MeasureStrayed(shaken, way).position.peak, 2);
    // A Gaussian leaves 2^(-100/2) of 3 Hz where a half of the power of 0.3 Hz passes; at the ends the sine's slope is
    // mirrored.
    EXPECT_LT(MeasureStrayed(slow, way).position.peak, 1e-3);
    EXPECT_LT(MeasureStrayed(slow, way).angle.peak, 0.02);
    for (const std::size_t end : {std::size_t{0}, kFrames - 1}) {
        EXPECT_NEAR(host::Length(slow.samples[end].position - shaken.samples[end].position), 0, 1e-9);
        EXPECT_NEAR(TurnBetween(slow.samples[end].angles, shaken.samples[end].angles), 0, 1e-7);
    }
}

TEST(SplitMoves, HalfOfTheSplitsOwnPowerPasses) {
    CameraMove move;
    move.rate = {25, 1};
    for (int i = 0; i < 2000; ++i) {
        CameraSample sample;
        sample.position.x = std::sin(2 * kPi * 0.5 * i / kRate);
        sample.angles.x = 0.1 * sample.position.x;
        move.samples.push_back(sample);
    }
    const CameraMove slow = Split(move, 0.5).slow;
    for (std::size_t i = 500; i < 1500; ++i) {
        EXPECT_NEAR(slow.samples[i].position.x, std::sqrt(0.5) * move.samples[i].position.x, 1e-4);
        EXPECT_NEAR(slow.samples[i].angles.x, std::sqrt(0.5) * move.samples[i].angles.x, 1e-5);
    }
}

TEST(SplitMoves, AQuickPanIsSmoothedLikeAnyOtherCurve) {
    CameraMove move;
    move.rate = {25, 1};
    for (int i = 0; i < 200; ++i) {
        CameraSample sample;
        // Up to 700 degrees a second and back.
        sample.position.x = 8 * std::tanh((i - 100) / 16.0);
        sample.angles.x = sample.position.x;
        move.samples.push_back(sample);
    }
    const CameraMove slow = Split(move, 0.3).slow;
    for (std::size_t i = 0; i < slow.samples.size(); ++i)
        EXPECT_NEAR(std::remainder(slow.samples[i].angles.x - slow.samples[i].position.x, 2 * kPi), 0, 1e-6) << i;
}

TEST(SplitMoves, ACameraThatTipsOverThePoleComesBackAsItWas) {
    CameraMove move;
    for (int i = 0; i < 120; ++i) {
        CameraSample sample;
        sample.angles = {0.2 + 0.001 * i, (84 + 0.1 * i + std::sin(i)) * kRadiansPerDegree, 0.1};
        move.samples.push_back(sample);
    }
    const CameraMove joined = Joined(Split(move, 0.3), 1);
    for (std::size_t i = 0; i < move.samples.size(); ++i)
        EXPECT_NEAR(host::Length(joined.samples[i].angles - move.samples[i].angles), 0, 1e-7) << i;
}

TEST(SplitMoves, ACameraThatGoesStraightOnHasNoFastPart) {
    CameraMove move;
    for (int i = 0; i < 90; ++i) {
        CameraSample sample;
        sample.position = {3.0 * i, -2.0 * i, 0};
        sample.angles = {0.05 * i, 0, 0};
        move.samples.push_back(sample);
    }
    for (const FastPart &fast : Split(move, 0.3).fast) {
        EXPECT_NEAR(host::Length(fast.position), 0, 1e-9);
        EXPECT_NEAR(fast.turn.norm(), 0, 1e-9);
    }
}

TEST(SplitMoves, TwiceTheFastPartIsTwiceAsFarFromTheWay) {
    const SplitMove parts = Split(Tracked(3), 0.3);
    const CameraMove slow = Joined(parts, 0), once = Joined(parts, 1), twice = Joined(parts, 2);
    for (std::size_t i = 0; i < kFrames; i += 7) {
        const double far = TurnBetween(slow.samples[i].angles, once.samples[i].angles);
        EXPECT_NEAR(TurnBetween(slow.samples[i].angles, twice.samples[i].angles), 2 * far, 1e-6);
    }
    EXPECT_GT(MeasureStrayed(slow, once).angle.rms, 0.5);
}

TEST(SplitMoves, AMoveOfOneFrameIsItsOwnWay) {
    CameraMove move;
    move.samples.resize(1);
    move.samples[0].position = {1, 2, 3};
    EXPECT_TRUE(Joined(Split(move, 0.3), 0.5).samples[0].position == move.samples[0].position);
    move.samples.resize(2);
    EXPECT_EQ(Joined(Split(move, 0.3), 0).samples.size(), 2U);
}

class Steady : public testing::Test {
  protected:
    Outcome Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "steady");
        return workplace_.RunBare(arguments);
    }
    std::string Recording() {
        std::string text = "frame,x,y,z,h,p,b\n";
        for (int i = 0; i < 120; ++i)
            text += std::to_string(i) + "," + std::to_string(i + 2 * std::sin(2.0 * i)) + ",160,0," +
                    std::to_string(std::sin(1.7 * i)) + ",0,0\n";
        return workplace_.Write("tracked.csv", text);
    }
    Workplace workplace_;
};

TEST_F(Steady, KeepsWhatIsAskedFor) {
    const std::string recording = Recording();
    const CameraMove move = ReadCsv("in", workplace_.Read("tracked.csv"), {});
    double last = 0;
    for (const char *keep : {"0", "30%", "1", "200%"}) {
        ASSERT_EQ(Run({recording, "-o", workplace_.Path("out.csv"), "--keep", keep, "--fps", "24"}).status, 0);
        const CameraMove out = ReadCsv("out", workplace_.Read("out.csv"), {});
        ASSERT_EQ(out.samples.size(), move.samples.size());
        double jerk = 0;
        for (std::size_t i = 2; i < out.samples.size(); ++i)
            jerk +=
                std::abs(out.samples[i].position.x - 2 * out.samples[i - 1].position.x + out.samples[i - 2].position.x);
        EXPECT_GT(jerk, 1.5 * last) << keep;
        last = jerk;
        EXPECT_EQ(MeasureStrayed(move, out).position.peak < 1e-9, std::string(keep) == "1") << keep;
    }
}

TEST_F(Steady, RefusesWhatIsNoShareAndNoFrequencyInOneLine) {
    const std::string recording = Recording();
    for (const std::vector<std::string> &wrong :
         std::vector<std::vector<std::string>>{{"--keep", "201%"},
                                               {"--keep", "much"},
                                               {"--keep", "-1"},
                                               {"--split", "0"},
                                               {"--split", "13", "--fps", "24"}}) {
        std::vector<std::string> arguments = {recording, "-o", workplace_.Path("out.csv")};
        arguments.insert(arguments.end(), wrong.begin(), wrong.end());
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2) << wrong[1];
        EXPECT_EQ(outcome.err.find(wrong[0] + ": found '" + wrong[1]), 0U) << outcome.err;
        EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
    }
}

}  // namespace
}  // namespace tremolux
