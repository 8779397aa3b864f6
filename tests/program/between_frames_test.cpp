#include "library/moves/between_frames.h"

#include <gtest/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "library/measures/strayed.h"

namespace tremolux {
namespace {

constexpr double kTolerance = 1e-12;

CameraMove Move(std::size_t frames, CameraSample (*at)(double)) {
    CameraMove move;
    move.first_frame = 10;
    for (std::size_t i = 0; i < frames; ++i) move.samples.push_back(at(static_cast<double>(i)));
    return move;
}

CameraSample Tumbling(double t) {
    CameraSample sample;
    sample.position = {t * t, std::sin(t), 3 - t};
    sample.angles = {t / 3, std::sin(t / 2) * 0.7, std::cos(t)};
    sample.focal_length = 36 + std::sin(t);
    sample.focus_distance = 500 * t;
    return sample;
}

CameraSample Panning(double t) {
    CameraSample sample;
    sample.position = {2 * t, 0, -5 * t};
    sample.angles = {0.3 * t, 0, 0};
    return sample;
}

// Degrees between the orientations a little before and a little after a time, for each frame of time.
double TurningSpeed(const CameraMove &move, double from, double to) {
    return TurnBetween(SampleBetween(move, from).angles, SampleBetween(move, to).angles) / (to - from);
}

TEST(BetweenFrames, AFrameIsItself) {
    const CameraMove move = Move(6, Tumbling);
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const CameraSample sample = SampleBetween(move, 10 + static_cast<double>(i));
        EXPECT_TRUE(host::operator==(move.samples[i].position, sample.position));
        EXPECT_TRUE(host::operator==(move.samples[i].angles, sample.angles));
        EXPECT_EQ(move.samples[i].focal_length, sample.focal_length);
        EXPECT_EQ(move.samples[i].focus_distance, sample.focus_distance);
    }
}

TEST(BetweenFrames, BeyondTheEndsTheEndsHold) {
    const CameraMove move = Move(3, Tumbling);
    EXPECT_EQ(move.samples.front().position.x, SampleBetween(move, 9.5).position.x);
    EXPECT_EQ(move.samples.back().position.x, SampleBetween(move, 12.5).position.x);
}

TEST(BetweenFrames, AnEvenMoveStaysEven) {
    const CameraMove move = Move(5, Panning);
    for (double t : {0.25, 0.5, 1.75, 3.1, 3.9}) {
        const CameraSample sample = SampleBetween(move, 10 + t);
        EXPECT_NEAR(2 * t, sample.position.x, kTolerance);
        EXPECT_NEAR(-5 * t, sample.position.z, kTolerance);
        EXPECT_NEAR(0.3 * t, sample.angles.x, kTolerance);
        EXPECT_NEAR(0, sample.angles.y, kTolerance);
    }
}

// A Catmull-Rom spline gives a parabola back wherever it has both neighbours.
TEST(BetweenFrames, APositionFollowsAParabolaExactly) {
    const CameraMove move = Move(6, Tumbling);
    for (double t : {1.2, 2.5, 3.9}) EXPECT_NEAR(t * t, SampleBetween(move, 10 + t).position.x, kTolerance);
}

TEST(BetweenFrames, TheTurningDoesNotLeapAtAFrame) {
    const CameraMove move = Move(8, Tumbling);
    constexpr double kStep = 1e-3;
    for (double frame : {11.0, 12.0, 13.0, 14.0, 15.0, 16.0}) {
        const double before = TurningSpeed(move, frame - kStep, frame),
                     after = TurningSpeed(move, frame, frame + kStep);
        EXPECT_NEAR(before, after, 0.01 * after) << frame;
    }
}

TEST(BetweenFrames, AnglesGoOnAcrossWholeTurns) {
    const CameraMove move = Move(40, Panning);  // 11.7 radians at its end
    EXPECT_NEAR(0.3 * 35.5, SampleBetween(move, 45.5).angles.x, 1e-9);
}

TEST(BetweenFrames, ASingleFrameHoldsForAllTime) {
    const CameraMove move = Move(1, Tumbling);
    EXPECT_EQ(move.samples.front().focal_length, SampleBetween(move, 77.3).focal_length);
}

}  // namespace
}  // namespace tremolux
