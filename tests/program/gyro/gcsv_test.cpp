// Text logs of rate sensors: the ways in which they are written.
#include "library/gyro/gcsv.h"

#include "tests/program/gyro/support.h"

namespace {

using namespace gyro_test;
using namespace tremolux;

constexpr const char *kKeys =
    "GYROFLOW IMU LOG\nversion,1.3\nid,camera_1\norientation,YxZ\ntscale,0.001\ngscale,0.01\nascale,0.5\n";

GyroLog Gcsv(const std::string &text) { return ReadGcsv("a.gcsv", text); }
std::string GcsvRefusal(const std::string &text) {
    return RefusalOf([&] { Gcsv(text); });
}

TEST(Gcsv, CountsBecomeRatesOnThePicturesAxes) {
    // The picture's x is the sensor's y, its y the sensor's -x.
    const GyroLog log = Gcsv(std::string(kKeys) + "t,gx,gy,gz,ax,ay,az\n0,100,200,300,2,4,6\n5,0,0,-100,0,0,2\n");
    ASSERT_EQ(log.rates.size(), 2U);
    EXPECT_EQ(log.rates[0].value, Eigen::Vector3d(2, -1, 3));
    EXPECT_EQ(log.rates[1].time, 0.005);
    // Half a g for each count.
    EXPECT_NEAR(log.accelerations[0].value.x(), 2 * 9.80665, 1e-12);
    EXPECT_NEAR(log.accelerations[0].value.y(), -1 * 9.80665, 1e-12);
    EXPECT_EQ(log.camera, "camera_1");
}

TEST(Gcsv, OtherWritersAreRead) {
    for (const std::string text :
         {"CAMERA IMU LOG\nversion: 1.3\nTSCALE,0.01\ngscale,1\n t,gx,gy,gz\n0,1,2,3\n1,1,2,3\n",
          "GYROFLOW IMU LOG\n\n  tscale, 0.01\n gscale: 1\n\nunknown,key,of,many\n t,gx,gy,gz\n\n0,1,2,3\n\n1,1,2,3\n",
          "GYROFLOW IMU LOG\r\ntscale,0.01\r\ngscale,1\r\nt,gx,gy,gz,mx,my,mz\r\n0,1,2,3,9,9,9\r\n1,1,2,3,9,9,9\r\n",
          "GYROFLOW IMU LOG,,,\ntscale,0.01,,\ngscale,1,,\nframe_readout_time,,,\nt,gx,gy,gz\n0,1,2,3\n1,1,2,3\n",
          "\xEF\xBB\xBFGYROFLOW IMU LOG\ntscale,0.01\ngscale,1\nT,GX,GY,GZ,temp\n0,1,2,3,20\n1,1,2,3,20\n"}) {
        const GyroLog log = Gcsv(text);
        ASSERT_EQ(log.rates.size(), 2U) << text;
        EXPECT_EQ(log.rates[1].value, Eigen::Vector3d(1, 2, 3)) << text;
        EXPECT_EQ(log.rates[1].time, 0.01) << text;
        EXPECT_TRUE(log.accelerations.empty()) << text;
    }
}

TEST(Gcsv, TheReadoutOfThePictureIsKept) {
    const GyroLog log = Gcsv(
        "GYROFLOW IMU "
        "LOG\nframe_readout_time,16.5\nframe_readout_direction,0\ntscale,1\ngscale,1\nt,gx,gy,gz\n0,1,1,1\n");
    EXPECT_EQ(log.readout_ms, 16.5);
}

TEST(Gcsv, TimesThatRepeatOrJumpBackAreLeftOut) {
    const GyroLog log = Gcsv(std::string(kKeys) + "t,gx,gy,gz\n0,1,1,1\n5,1,1,1\n5,2,2,2\n3,2,2,2\n10,1,1,1\n");
    EXPECT_EQ(log.rates.size(), 3U);
    EXPECT_EQ(log.rates.back().time, 0.01);
    EXPECT_EQ(log.notes.back(), "2 samples are left out, for times that repeat or jump back");
}

TEST(Gcsv, ALastRowThatWasCutOffIsLeftOut) {
    for (const std::string last : {"10,1,1", "10,1,1,", "10,1,1,1"}) {
        const GyroLog log = Gcsv(std::string(kKeys) + "t,gx,gy,gz\n0,1,1,1\n5,1,1,1\n" + last);
        EXPECT_EQ(log.rates.size(), 2U) << last;
        EXPECT_EQ(log.notes.front(), "the last row was cut off and is left out");
    }
}

TEST(Gcsv, WhatIsNotSaidIsTakenFromTheStepAndNoted) {
    // Steps of 5000: microseconds.
    const GyroLog log = Gcsv("GYROFLOW IMU LOG\nt,gx,gy,gz\n0,1,2,3\n5000,1,2,3\n10000,1,2,3\n");
    EXPECT_NEAR(log.rates.back().time, 0.01, 1e-15);
    EXPECT_EQ(log.notes,
              (std::vector<std::string>{"the axes are not said ('orientation'): taken as the picture's x, y and z",
                                        "no scale of the rates ('gscale'): taken as radians a second",
                                        "no scale of the times ('tscale'): taken from their step"}));
}

TEST(Gcsv, WhatChangesTheMeaningIsRefused) {
    EXPECT_EQ(GcsvRefusal("GYROFLOW IMU LOG\nversion,1.3\n"),
              "a.gcsv:2:1: found no line of columns that begins with t, expected a log of a rate sensor: 't,gx,gy,gz' "
              "behind its keys");
    EXPECT_EQ(GcsvRefusal(""),
              "a.gcsv:1:1: found no line of columns that begins with t, expected a log of a rate sensor: 't,gx,gy,gz' "
              "behind its keys");
    EXPECT_EQ(GcsvRefusal("X\nt,ax,ay,az\n"), "a.gcsv:2:1: found no columns gx, gy and gz, expected them behind t");
    EXPECT_EQ(GcsvRefusal("X\norientation,XXZ\n"),
              "a.gcsv:2:13: found 'XXZ', expected the letters x, y and z in some order, small or capital");
    EXPECT_EQ(GcsvRefusal("X\ngscale,0\n"), "a.gcsv:2:8: found '0', expected a number other than 0 for gscale");
    EXPECT_EQ(GcsvRefusal("X\ntscale,-1\n"), "a.gcsv:2:8: found '-1', expected a number above 0 for tscale");
    EXPECT_EQ(GcsvRefusal("X\ntscale\n"),
              "a.gcsv:2:7: found '', expected a number from -1000000 to 1000000 for tscale");
    EXPECT_EQ(GcsvRefusal(std::string(kKeys) + "t,gx,gy,gz\n0,1,nan,1\n"),
              "a.gcsv:9:5: found 'nan', expected a number from -1000000000000 to 1000000000000 for gy");
    EXPECT_EQ(GcsvRefusal(std::string(kKeys) + "t,gx,gy,gz\n0,1\n1,1,1,1\n"),
              "a.gcsv:9:1: found 2 columns, expected at least 4");
    EXPECT_EQ(GcsvRefusal(std::string(kKeys) + "t,gx,gy,gz\n"),
              "a.gcsv: found no rows, expected samples of a rate sensor");
    EXPECT_EQ(GcsvRefusal(std::string(kKeys) + "t,gx,gy,gz\n0,1,1,2000000\n"),
              "a.gcsv: found 20000 after 0 s, expected what a sensor measures, at most 10000");
}

}  // namespace
