// Tables of phone apps and trackers: by the words of their header lines.
#include "library/gyro/rate_table.h"

#include <cmath>

#include "library/formats/csv.h"
#include "library/gyro/gyro_move.h"
#include "tests/program/gyro/support.h"

namespace {

using namespace gyro_test;
using namespace tremolux;

constexpr double kDegree = kRadiansPerDegree;

GyroLog SensorTable(const std::string &text, const RateTableOptions &options = {}) {
    const SourceText source("a.csv", text);
    const std::optional<RateColumns> columns = FindRateColumns(source);
    if (!columns) throw Failure(kExitInput, "another table");
    return ReadRateTable("a.csv", source, *columns, options);
}
std::string SensorRefusal(const std::string &text) {
    return RefusalOf([&] { SensorTable(text); });
}
bool HasNote(const GyroLog &log, const std::string &part) {
    for (const std::string &note : log.notes) {
        if (note.find(part) != std::string::npos) return true;
    }
    return false;
}

TEST(SensorTable, TheHeadersOfAppsAreKnown) {
    for (const std::string header :
         {"time,gx,gy,gz", "timestamp;gyro_x;gyro_y;gyro_z", "t\twx\twy\twz", "seconds_elapsed,gyroX,gyroY,gyroZ",
          "Time (s),Gyroscope x (rad/s),Gyroscope y (rad/s),Gyroscope z (rad/s)", "time,x,y,z",
          "time,rotationRateX,rotationRateY,rotationRateZ"}) {
        const char separator = SeparatorOf(header);
        std::string row = "0.01 0.1 0.2 0.3\n", first = "0 0 0 0\n";
        std::replace(row.begin(), row.end(), ' ', separator);
        std::replace(first.begin(), first.end(), ' ', separator);
        std::string table = header;
        table.append("\n").append(first).append(row);
        const GyroLog log = SensorTable(table);
        ASSERT_EQ(log.rates.size(), 2U) << header;
        EXPECT_EQ(log.rates[1].value, Eigen::Vector3d(0.1, 0.2, 0.3)) << header;
        EXPECT_EQ(log.rates[1].time, 0.01) << header;
    }
}

TEST(SensorTable, ColumnsStandInAnyOrderAndElapsedSecondsGoBeforeAClock) {
    const GyroLog log =
        SensorTable("time,seconds_elapsed,z,y,x\n1700000000000000000,0.5,3,2,1\n1700000000010000000,0.51,3,2,1\n",
                    {AngleUnit::kRadians, std::nullopt});
    EXPECT_EQ(log.rates[0].value, Eigen::Vector3d(1, 2, 3));
    EXPECT_EQ(log.rates[0].time, 0.5);
}

TEST(SensorTable, TheStepSaysTheUnitOfTheTimes) {
    for (const auto &[step, unit] :
         {std::pair("0.005", 1.0), std::pair("5", 1e-3), std::pair("5000", 1e-6), std::pair("5000000", 1e-9)}) {
        const GyroLog log = SensorTable(std::string("time,gx,gy,gz\n0,0,0,0\n") + step + ",0,0,0\n");
        EXPECT_NEAR(log.rates[1].time, 0.005, 1e-12) << unit;
    }
    // A name goes before the step: 100 milliseconds.
    EXPECT_NEAR(SensorTable("timestamp_ms,gx,gy,gz\n0,0,0,0\n0.1,0,0,0\n").rates[1].time, 1e-4, 1e-15);
}

TEST(SensorTable, DegreesAreKnownByTheHeaderTheOptionOrTheirSize) {
    EXPECT_NEAR(SensorTable("time,gx (deg/s),gy (deg/s),gz (deg/s)\n0,1,0,0\n").rates[0].value.x(), kDegree, 1e-15);
    EXPECT_NEAR(SensorTable("time,gx [dps],gy [dps],gz [dps]\n0,1,0,0\n").rates[0].value.x(), kDegree, 1e-15);
    EXPECT_NEAR(SensorTable("time,gx,gy,gz\n0,1,0,0\n", {AngleUnit::kDegrees, std::nullopt}).rates[0].value.x(),
                kDegree, 1e-15);
    const GyroLog large = SensorTable("time,gx,gy,gz\n0,30,0,0\n1,-30,0,0\n");
    EXPECT_NEAR(large.rates[0].value.x(), 30 * kDegree, 1e-14);
    EXPECT_TRUE(HasNote(large, "taken as degrees a second"));
    EXPECT_EQ(SensorTable("time,gx,gy,gz\n0,1,0,0\n").rates[0].value.x(), 1);
}

TEST(SensorTable, APhoneIsHeldTheWayThatGravitySays) {
    const auto first = [](const std::string &up) {
        return SensorTable("time,gx,gy,gz,ax,ay,az\n0,1,2,3," + up + "\n").rates[0].value;
    };
    EXPECT_EQ(first("0,9.8,1"), Eigen::Vector3d(1, 2, 3));
    // Its left side is up: the picture's right is the phone's upper end, y.
    EXPECT_EQ(first("-9.8,1,0"), Eigen::Vector3d(2, -1, 3));
    EXPECT_EQ(first("9.8,1,0"), Eigen::Vector3d(-2, 1, 3));
    EXPECT_EQ(first("0,-1,0"), Eigen::Vector3d(-1, -2, 3));
    EXPECT_TRUE(HasNote(SensorTable("time,gx,gy,gz,ax,ay,az\n0,1,2,3,-1,0,0\n"), "held sideways, its left side up"));
    // Whatever gravity says: letters as in the option.
    Eigen::Matrix3d turned;
    turned << 0, 0, 1, 0, 1, 0, -1, 0, 0;
    EXPECT_EQ(SensorTable("time,gx,gy,gz\n0,1,2,3\n", {std::nullopt, turned}).rates[0].value,
              Eigen::Vector3d(3, 2, -1));
}

TEST(SensorTable, AccelerationsInGAreKnownByTheirSize) {
    EXPECT_NEAR(SensorTable("time,gx,gy,gz,ax,ay,az\n0,0,0,0,0,1,0\n").accelerations[0].value.y(), 9.80665, 1e-12);
    EXPECT_NEAR(SensorTable("time,gx,gy,gz,ax,ay,az\n0,0,0,0,0,9.7,0\n").accelerations[0].value.y(), 9.7, 1e-12);
}

TEST(SensorTable, QuaternionsOfAPhoneAreThoseOfItsPicture) {
    // The phone's world has z up. Upright and facing along its +y: x to x, y to z, z to -y, a turn of 90 degrees about
    // x.
    const double half = std::sqrt(0.5);
    const std::string upright = std::to_string(half) + "," + std::to_string(half) + ",0,0\n";
    const GyroLog log = SensorTable("time,qw,qx,qy,qz\n0," + upright + "0.1," + upright);
    const Eigen::Matrix3d axes = log.orientations[0].rotation.toRotationMatrix();
    EXPECT_LT((axes - Eigen::Matrix3d::Identity()).norm(), 1e-5);
    EXPECT_TRUE(HasNote(log, "its z up"));
    // A tracker's world with y up is the picture's as it is.
    const GyroLog tracker = SensorTable("time,w,x,y,z\n0,1,0,0,0\n0.1,0.8,0,0.6,0\n");
    EXPECT_NEAR(tracker.orientations[1].rotation.y(), 0.6, 1e-12);
    EXPECT_TRUE(HasNote(tracker, "its y up"));
}

TEST(SensorTable, YawPitchAndRollAreTurnsAboutThePicturesAxes) {
    const auto angles = [](const std::string &row) {
        const CameraMove move =
            ReadCsv("a.csv", "time,yaw (deg),pitch (deg),roll (deg)\n0,0,0,0\n0.1," + row + "\n", {});
        return move.samples.back().angles * (1 / kDegree);
    };
    EXPECT_NEAR(angles("30,0,0").x, 30, 1e-9);
    EXPECT_NEAR(angles("0,20,0").y, 20, 1e-9);
    EXPECT_NEAR(angles("0,0,10").z, -10, 1e-9);
}

TEST(SensorTable, OtherTablesAreLeftToTheirReaders) {
    for (const std::string header : {"frame,x,y,z,h,p,b", "frame,pos_x,pos_y,pos_z,rot_x,rot_y,rot_z", "time,x,y,z,fov",
                                     "frame,time,gx,gy,gz", "time,altitude", ""})
        EXPECT_EQ(SensorRefusal(header + "\n1,2,3,4,5,6,7\n"), "another table") << header;
}

TEST(SensorTable, BadRowsAreRefusedAtTheirPlaces) {
    EXPECT_EQ(SensorRefusal("time,gx,gy,gz\n0,1,2\n"), "a.csv:2:1: found 3 columns, expected at least 4");
    EXPECT_EQ(SensorRefusal("time,gx,gy,gz\n0,1,inf,2\n"),
              "a.csv:2:5: found 'inf', expected a number from -1000000000000 to 1000000000000 for a rate");
    EXPECT_EQ(SensorRefusal("time,qw,qx,qy,qz\n0,0,0,0,0\n"),
              "a.csv:2:3: found '0', expected a quaternion of length 1");
    EXPECT_EQ(SensorRefusal("time,gx,gy,gz\n"), "a.csv: found no rows, expected samples of a sensor");
    EXPECT_EQ(SensorRefusal("time,gx,gy,gz\n0,1,2,3"),
              "a.csv:2:8: found the end of the file, expected a line end (the file may be cut off)");
}

}  // namespace
