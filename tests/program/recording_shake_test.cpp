// A recorded camera's own shake on another move.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "host/value/radians.h"
#include "library/failure.h"
#include "library/measures/strayed.h"
#include "library/recorded/split.h"
#include "library/recorded/take.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;
using host::kPi;

constexpr double kTakeRate = 25;
constexpr std::size_t kTakeFrames = 201;  // eight seconds

// A straight way with a shake of one and of three hertz on it.
CameraMove Recorded() {
    CameraMove move;
    move.rate = {25, 1};
    for (std::size_t i = 0; i < kTakeFrames; ++i) {
        const double seconds = static_cast<double>(i) / kTakeRate, slow = std::sin(2 * kPi * seconds),
                     fast = std::sin(6 * kPi * seconds + 1);
        CameraSample sample;
        sample.position = {80 * seconds + slow, 160 + 2 * fast, 0.5 * slow};
        sample.angles = {0.1 * seconds + 0.02 * fast, 0.01 * slow, 0.015 * fast};
        move.samples.push_back(sample);
    }
    return move;
}

CameraMove StandsStill(std::size_t frames, FrameRate rate) {
    CameraMove move;
    move.rate = rate;
    move.samples.resize(frames);
    return move;
}

TEST(RecordedShakes, AreWhatTheRecordingHasBesideItsWay) {
    const CameraMove recording = Recorded();
    const Take take(recording, 0.3, 0);
    const SplitMove parts = Split(recording, 0.3);
    for (const std::size_t frame : {std::size_t{10}, std::size_t{77}, std::size_t{140}}) {
        const TakenShake shake = take.At(static_cast<double>(frame) / kTakeRate);
        EXPECT_NEAR((shake.turn - parts.fast[frame].turn).norm(), 0, 1e-12);
        EXPECT_NEAR(shake.position.norm(), host::Length(parts.fast[frame].position), 1e-12);
    }
}

TEST(RecordedShakes, GoOnForEverWithoutAStepInValueOrSpeed) {
    const Take take(Recorded(), 0.3, 0);
    constexpr double kStep = 1.0 / 1000;
    // The greatest speed and acceleration of the sines themselves bound those of the curve through them, with room for
    // the spline and for two takes at once.
    const double most_speed = 2 * 2 * (6 * kPi), most_acceleration = 3 * 2 * (6 * kPi) * (6 * kPi);
    Eigen::Vector3d before = take.At(0).position, speed_before = (take.At(kStep).position - before) / kStep;
    for (int i = 1; i < 40000; ++i) {
        const Eigen::Vector3d now = take.At(i * kStep).position, speed = (now - before) / kStep;
        ASSERT_LT(speed.norm(), most_speed) << i;
        ASSERT_LT((speed - speed_before).norm(), most_acceleration * kStep) << i;
        before = now;
        speed_before = speed;
    }
}

TEST(RecordedShakes, ComeAgainAsInAMirror) {
    const Take take(Recorded(), 0.3, 0);
    // A take is eight seconds, of which one is shared with the next.
    const TakenShake first = take.At(3), second = take.At(3 + 7), third = take.At(3 + 14);
    EXPECT_NEAR(second.position.x(), -first.position.x(), 1e-12);
    EXPECT_NEAR(second.position.y(), first.position.y(), 1e-12);
    EXPECT_NEAR(second.turn.x(), first.turn.x(), 1e-12);
    EXPECT_NEAR(second.turn.y(), -first.turn.y(), 1e-12);
    EXPECT_NEAR(second.turn.z(), -first.turn.z(), 1e-12);
    EXPECT_NEAR((third.turn - first.turn).norm(), 0, 1e-12);
}

TEST(RecordedShakes, KeepTheirPowerHoweverLongTheyAre) {
    const Take take(Recorded(), 0.3, 0);
    const auto rms = [&](double from, double to) {
        double sum = 0;
        int count = 0;
        for (double t = from; t < to; t += 0.01, ++count) sum += take.At(t).position.squaredNorm();
        return std::sqrt(sum / count);
    };
    EXPECT_NEAR(rms(1, 71) / rms(1, 7), 1, 0.1);
}

TEST(RecordedShakes, GoWithTheCameraThatTheyArePutOn) {
    CameraMove ahead = StandsStill(100, {25, 1}), right = ahead;
    for (CameraSample &sample : right.samples) sample.angles = {kPi / 2, 0, 0};
    const Take take(Recorded(), 0.3, 0);
    const CameraMove a = PutOn(ahead, take, {}), b = PutOn(right, take, {});
    for (std::size_t i = 0; i < 100; ++i) {
        const host::Matrix turned = host::HpbToMatrix({kPi / 2, 0, 0});
        const host::Vector &p = a.samples[i].position;
        const host::Vector expected = turned.v1 * p.x + turned.v2 * p.y + turned.v3 * p.z;
        EXPECT_NEAR(host::Length(b.samples[i].position - expected), 0, 1e-12);
        EXPECT_NEAR(b.samples[i].angles.x - kPi / 2, a.samples[i].angles.x, 1e-9);
        EXPECT_NEAR(b.samples[i].angles.y, a.samples[i].angles.y, 1e-9);
    }
}

TEST(RecordedShakes, AreAsLargeAndAsQuickAsTheyAreTold) {
    const CameraMove still = StandsStill(100, {50, 1});
    const Take take(Recorded(), 0.3, 0);
    const CameraMove once = PutOn(still, take, {}), twice = PutOn(still, take, {2, 1}),
                     slow = PutOn(still, take, {1, 0.5});
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_NEAR(host::Length(twice.samples[i].position - once.samples[i].position * 2), 0, 1e-12);
        EXPECT_NEAR(TurnBetween(twice.samples[i].angles, {0, 0, 0}), 2 * TurnBetween(once.samples[i].angles, {0, 0, 0}),
                    1e-7);
    }
    for (std::size_t i = 0; i < 50; ++i) {
        EXPECT_NEAR(host::Length(slow.samples[2 * i].position - once.samples[i].position), 0, 1e-12);
    }
}

TEST(RecordedShakes, OfTurnsAloneSwayWithTheArm) {
    CameraMove turns = Recorded();
    for (CameraSample &sample : turns.samples) sample.position = {0, 0, 0};
    const Take without(turns, 0.3, 0), with(turns, 0.3, 60);
    for (const double seconds : {1.0, 2.5, 5.0}) {
        const TakenShake shake = with.At(seconds);
        EXPECT_NEAR(without.At(seconds).position.norm(), 0, 1e-12);
        // What a turn about the eye moves the middle of a picture 60 ahead of it by: the chord, near to twice the half
        // angle.
        const double sine = std::hypot(2 * shake.turn.x(), 2 * shake.turn.y());
        EXPECT_NEAR(std::hypot(shake.position.x(), shake.position.y()), 60 * sine, 0.02);
        EXPECT_NEAR(shake.position.x(), 60 * 2 * shake.turn.y(), 0.02) << "about the axis that goes up, to the right";
    }
}

TEST(RecordedShakes, NeedHalfASecond) {
    CameraMove shortest = Recorded();
    shortest.samples.resize(12);
    EXPECT_THROW(Take(shortest, 0.3, 0), Failure);
    shortest.samples.resize(1);
    EXPECT_THROW(Take(shortest, 0.3, 0), Failure);
}

class FromRecording : public testing::Test {
  protected:
    CameraMove Shake(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"shake", move_});
        arguments.insert(arguments.end(), {"-o", workplace_.Path("out.csv"), "--fps", "25", "--quiet"});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return ReadCsv("out.csv", workplace_.Read("out.csv"), {});
    }
    static CameraMove Pan() {
        CameraMove move;
        move.rate = {25, 1};
        for (int i = 0; i < 300; ++i) {
            CameraSample sample;
            sample.position = {2.0 * i, 150, 0};
            sample.angles = {0.004 * i, 0, 0};
            move.samples.push_back(sample);
        }
        return move;
    }
    Workplace workplace_;
    const std::string move_ = workplace_.Write("move.csv", WriteCsv(Pan(), {}));
    const std::string recording_ = workplace_.Write("recording.csv", WriteCsv(Recorded(), {}));
};

TEST_F(FromRecording, AloneTheCameraIsTheMoveWithTheShakeOnIt) {
    const CameraMove shaken = Shake({"--from-recording", recording_, "--recording-alone"});
    const CameraMove expected = PutOn(Pan(), Take(Recorded(), 0.3, 0), {});
    ASSERT_EQ(shaken.samples.size(), expected.samples.size());
    for (std::size_t i = 0; i < expected.samples.size(); ++i) {
        EXPECT_NEAR(host::Length(shaken.samples[i].position - expected.samples[i].position), 0, 1e-7) << i;
        EXPECT_NEAR(TurnBetween(shaken.samples[i].angles, expected.samples[i].angles), 0, 1e-7) << i;
        EXPECT_NEAR(shaken.samples[i].focal_length, expected.samples[i].focal_length, 1e-9) << i;
    }
}

TEST_F(FromRecording, TheTagTakesTheShakenMoveAsItsInput) {
    const CameraMove both = Shake({"--from-recording", recording_, "--seed", "5"});
    const std::string shaken = workplace_.Write("shaken.csv", WriteCsv(PutOn(Pan(), Take(Recorded(), 0.3, 0), {}), {}));
    const Outcome outcome =
        workplace_.Run({"shake", shaken, "--seed", "5", "-o", workplace_.Path("two.csv"), "--fps", "25", "--quiet"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CameraMove one_by_one = ReadCsv("two.csv", workplace_.Read("two.csv"), {});
    EXPECT_LT(MeasureStrayed(one_by_one, both).position.peak, 1e-6);
    EXPECT_LT(MeasureStrayed(one_by_one, both).angle.peak, 1e-5);
}

TEST_F(FromRecording, WhatIsAddedIsMeasuredAgainstTheUsersOwnMove) {
    const CameraMove mixed = Shake({"--from-recording", recording_, "--recording-alone", "--from", "100"});
    const CameraMove own = Pan();
    for (std::size_t i = 0; i < 100; ++i)
        EXPECT_EQ(host::Length(mixed.samples[i].position - own.samples[i].position), 0);
    EXPECT_GT(MeasureStrayed(own, mixed).position.peak, 1);

    const Outcome outcome = workplace_.Run({"shake", move_, "--from-recording", recording_, "--recording-alone",
                                            "--added", "-o", workplace_.Path("added.csv"), "--fps", "25", "--quiet"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_GT(workplace_.Read("added.csv").size(), own.samples.size() * 20);
}

TEST_F(FromRecording, AmountSpeedSplitAndArmAreTakenInPerCentOrAsNumbers) {
    const CameraMove half = Shake({"--from-recording", recording_, "--recording-alone", "--recording-amount", "50%",
                                   "--recording-speed", "2", "--split", "0.5", "--arm", "40"});
    const CameraMove expected = PutOn(Pan(), Take(Recorded(), 0.5, 40), {0.5, 2});
    EXPECT_LT(MeasureStrayed(expected, half).position.peak, 1e-6);
    EXPECT_LT(MeasureStrayed(expected, half).angle.peak, 1e-5);
}

TEST_F(FromRecording, LoopsOfAStillCameraFlowIntoThemselves) {
    const std::string still = workplace_.Write("still.csv", WriteCsv(StandsStill(150, {25, 1}), {}));
    const Outcome outcome = workplace_.Run({"shake", still, "--from-recording", recording_, "--recording-alone",
                                            "--loop", "-o", workplace_.Path("loop.csv"), "--fps", "25", "--quiet"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CameraMove loop = ReadCsv("loop.csv", workplace_.Read("loop.csv"), {});
    double most = 0;
    for (std::size_t i = 1; i < loop.samples.size(); ++i)
        most = std::max(most, host::Length(loop.samples[i].position - loop.samples[i - 1].position));
    EXPECT_LE(host::Length(loop.samples.front().position - loop.samples.back().position), most);
}

TEST_F(FromRecording, IsRefusedInOneLine) {
    const auto refused = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"shake", move_, "-o", workplace_.Path("none.csv"), "--fps", "25"});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        return outcome.err;
    };
    const std::string brief = workplace_.Write("brief.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n1,0,0,0,0,0,0\n");
    EXPECT_NE(refused({"--arm", "3"}).find("--from-recording"), std::string::npos);
    EXPECT_NE(refused({"--from-recording", brief}).find("brief.csv"), std::string::npos);
    EXPECT_NE(refused({"--from-recording", recording_, "--split", "13"}).find("--split"), std::string::npos);
    EXPECT_NE(refused({"--from-recording", recording_, "--recording-speed", "0"}).find("--recording-speed"),
              std::string::npos);
    EXPECT_NE(refused({"--from-recording", recording_, "--recording-amount", "-1"}).find("--recording-amount"),
              std::string::npos);
    EXPECT_NE(refused({"--from-recording", workplace_.Path("nothing.csv")}).find("nothing.csv"), std::string::npos);
}

}  // namespace
}  // namespace tremolux
