#include "library/formats/recording.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

constexpr char kHeader[] = "frame,pos_x,pos_y,pos_z,rot_x,rot_y,rot_z\n";

host::Vector DegreesOf(const std::string &rotation) {
    const CameraMove move = ReadCsv("move", std::string(kHeader) + "0,0,0,0," + rotation + "\n", {});
    return move.samples.at(0).angles * (1 / kRadiansPerDegree);
}

void ExpectDegrees(const std::string &rotation, const host::Vector &expected) {
    const host::Vector degrees = DegreesOf(rotation);
    EXPECT_NEAR(degrees.x, expected.x, 1e-9) << rotation;
    EXPECT_NEAR(degrees.y, expected.y, 1e-9) << rotation;
    EXPECT_NEAR(degrees.z, expected.z, 1e-9) << rotation;
}

// 30, 10 and 5 degrees in radians.
constexpr char k30[] = "0.5235987755982988", k10[] = "0.17453292519943295", k5[] = "0.08726646259971647";

TEST(Recording, TurnsMetresIntoSceneUnitsAndMirrorsDepth) {
    const CameraMove move = ReadCsv("move", std::string(kHeader) + "-1,0.1,1.5,3,0,0,0\n", {});
    EXPECT_EQ(move.first_frame, -1);
    EXPECT_NEAR(move.samples.at(0).position.x, 10, 1e-12);
    EXPECT_NEAR(move.samples.at(0).position.y, 150, 1e-12);
    EXPECT_NEAR(move.samples.at(0).position.z, -300, 1e-12);
}

TEST(Recording, HasTwentyFourFramesASecond) {
    EXPECT_EQ(ReadCsv("move", std::string(kHeader) + "1,0,0,0,0,0,0\n", {}).rate, (FrameRate{24, 1}));
}

TEST(Recording, IsRefusedBeyondWhatAMoveHolds) {
    // 1e10 metres are the 1e12 scene units that are the limit.
    const CameraMove move = ReadCsv("move", std::string(kHeader) + "1,-1e10,0,1e10,0,0,0\n", {});
    EXPECT_EQ(move.samples.at(0).position.x, -1e12);
    EXPECT_EQ(ReadCsv("again", WriteCsv(move, {}), {}).samples.at(0).position.z, -1e12);
    EXPECT_EQ(RefusalOf(ReadCsv, std::string(kHeader) + "1,0,0,1.1e10,1,3,0\n"),
              "move:2:7: found '1.1e10', expected a number from -10000000000 to 10000000000 for pos_z");
}

TEST(Recording, TakesATurnAboutEachAxis) {
    // About x: the view rises. About y, seen from above against the clock: the heading grows. About z, seen from
    // behind the camera against the clock: the bank falls.
    ExpectDegrees(std::string(k10) + ",0,0", {0, 10, 0});
    ExpectDegrees(std::string("0,") + k30 + ",0", {30, 0, 0});
    ExpectDegrees(std::string("0,0,") + k5, {0, 0, -5});
}

TEST(Recording, StartsNearZeroForTurnsTheOtherWay) {
    ExpectDegrees(std::string("0,-") + k30 + ",0", {-30, 0, 0});
    ExpectDegrees(std::string("0,0,-") + k5, {0, 0, 5});
}

TEST(Recording, AppliesXBeforeY) {
    // Pitch first, then heading about the upright axis: exactly heading and pitch.
    ExpectDegrees(std::string(k10) + "," + k30 + ",0", {30, 10, 0});
}

TEST(Recording, AppliesYBeforeZ) {
    // The view direction (-sin 30, 0, -cos 30) after a turn of 5 degrees about z is (-sin 30 cos 5, -sin 30 sin 5,
    // -cos 30): pitch asin(-sin 30 sin 5), heading atan2(sin 30 cos 5, cos 30).
    const double s30 = 0.5, c30 = std::sqrt(0.75), s5 = std::sin(5 * kRadiansPerDegree),
                 c5 = std::cos(5 * kRadiansPerDegree);
    const host::Vector degrees = DegreesOf(std::string("0,") + k30 + "," + k5);
    EXPECT_NEAR(degrees.x, std::atan2(s30 * c5, c30) / kRadiansPerDegree, 1e-9);
    EXPECT_NEAR(degrees.y, std::asin(-s30 * s5) / kRadiansPerDegree, 1e-9);
}

TEST(Recording, IsRefusedWithItsOwnColumns) {
    EXPECT_EQ(RefusalOf(ReadCsv, "frame,pos_x,pos_y\n"),
              "move:1:18: found no column pos_z, expected a header line with "
              "frame,pos_x,pos_y,pos_z,rot_x,rot_y,rot_z");
    EXPECT_EQ(RefusalOf(ReadCsv, std::string(kHeader) + "0,0,0,0,0,zero,0\n"),
              "move:2:11: found 'zero', expected a number from -1000000000000 to 1000000000000 for rot_y");
}

}  // namespace
}  // namespace tremolux
