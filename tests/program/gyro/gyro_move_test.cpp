// Recordings as camera moves: a turn about each axis of the picture, and the frames.
#include "library/gyro/gyro_move.h"

#include <cmath>

#include "tests/program/gyro/support.h"

namespace {

using namespace gyro_test;
using namespace tremolux;

GyroLog TurningAbout(const Eigen::Vector3d &rate, double seconds) {
    GyroLog log;
    log.rates = {{0, rate}, {seconds, rate}};
    return log;
}

// Of the last frame, after 10 degrees in a second.
host::Vector DegreesAfterTurnAbout(const Eigen::Vector3d &axis) {
    const CameraMove move = MoveOfGyro("a", TurningAbout(axis * 10 * kRadiansPerDegree, 1), {});
    return move.samples.back().angles * (1 / kRadiansPerDegree);
}

TEST(GyroMove, ATurnAboutEachAxisOfThePictureHasItsAngleAndSign) {
    // About x, to the right: the view rises. About y, up: it goes to the left, the heading grows. About z, backwards:
    // the camera leans to the left, the bank falls.
    const host::Vector pitched = DegreesAfterTurnAbout(Eigen::Vector3d::UnitX());
    EXPECT_NEAR(pitched.y, 10, 1e-9);
    EXPECT_NEAR(pitched.x, 0, 1e-9);
    const host::Vector headed = DegreesAfterTurnAbout(Eigen::Vector3d::UnitY());
    EXPECT_NEAR(headed.x, 10, 1e-9);
    EXPECT_NEAR(headed.z, 0, 1e-9);
    const host::Vector banked = DegreesAfterTurnAbout(Eigen::Vector3d::UnitZ());
    EXPECT_NEAR(banked.z, -10, 1e-9);
    EXPECT_NEAR(banked.y, 0, 1e-9);
}

TEST(GyroMove, HasTheFilmsRateElseTheAskedOneElseThirty) {
    GyroLog log = TurningAbout(Eigen::Vector3d::UnitY(), 2);
    FormatOptions options;
    EXPECT_EQ(MoveOfGyro("a", log, options).samples.size(), 61U);
    options.rate = FrameRate{50, 1};
    EXPECT_EQ(MoveOfGyro("a", log, options).samples.size(), 101U);
    log.frame_rate = FrameRate{24, 1};
    EXPECT_EQ(MoveOfGyro("a", log, options).rate, (FrameRate{24, 1}));
}

TEST(GyroMove, AFilmsFramesHaveTheFilmsTimes) {
    // The sensor starts half a second into the film: until then the camera stands.
    GyroLog log;
    log.frame_rate = FrameRate{10, 1};
    log.orientations = {{0.5, Eigen::Quaterniond::Identity()},
                        {1.5, Eigen::Quaterniond(Eigen::AngleAxisd(1, Eigen::Vector3d::UnitY()))}};
    const CameraMove move = MoveOfGyro("a", log, {});
    ASSERT_EQ(move.samples.size(), 16U);
    EXPECT_NEAR(move.samples[4].angles.x, 0, 1e-12);
    EXPECT_NEAR(move.samples[7].angles.x, 0.2, 1e-12);
}

TEST(GyroMove, ARecordingThatSaysNothingOfNorthStartsAhead) {
    GyroLog log;
    log.orientations = {{0, Eigen::Quaterniond(Eigen::AngleAxisd(2, Eigen::Vector3d::UnitY()))},
                        {1, Eigen::Quaterniond(Eigen::AngleAxisd(2.5, Eigen::Vector3d::UnitY()))}};
    EXPECT_NEAR(MoveOfGyro("a", log, {}).samples.back().angles.x, 0.5, 1e-12);
    log.is_upright = true;
    EXPECT_NEAR(MoveOfGyro("a", log, {}).samples.front().angles.x, 2, 1e-12);
}

TEST(GyroMove, MoreFramesThanAMoveHasAreRefused) {
    EXPECT_EQ(RefusalOf([] { MoveOfGyro("a.gcsv", TurningAbout(Eigen::Vector3d::UnitY(), 1e9), {}); }),
              "a.gcsv: found motion from 0 to 1000000000 s, expected at most 1000000 frames");
}

TEST(GyroMove, AFileOfTheFirstFrameIsAMoveOfOne) {
    GyroLog log;
    log.frame_rate = FrameRate{25, 1};
    log.orientations = {{-3, Eigen::Quaterniond::Identity()}};
    EXPECT_EQ(RefusalOf([&] { MoveOfGyro("a.mp4", log, {}); }),
              "a.mp4: found motion from 0 to -3 s, expected at most 1000000 frames");
    log.orientations = {{0, Eigen::Quaterniond::Identity()}};
    EXPECT_EQ(MoveOfGyro("a.mp4", log, {}).samples.size(), 1U);
}

}  // namespace
