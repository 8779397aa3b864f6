// Payloads of an action camera: what each type of number says, and what is refused.
#include "library/gyro/gpmf.h"

#include "library/gyro/gpmf_log.h"
#include "tests/program/gyro/payload_writer.h"
#include "tests/program/gyro/support.h"

namespace {

using namespace gyro_test;
using namespace tremolux;

// A sensor of one row of three equal numbers, as these bytes are.
double NumberOf(char type, int bytes, std::uint64_t bits) {
    const std::string number = BigEndian(bits, bytes);
    const std::string gyro = Item("GYRO", type, 3 * bytes, 1, number + number + number);
    return ReadGpmf("a.raw", Device(1, "Camera", Stream(gyro))).at(0).streams.at(0).values.at(2);
}

GyroLog LogOf(const std::string &streams) { return ReadPayloadLog("a.raw", Device(1, "Camera", streams)); }

std::string GpmfRefusal(const std::string &payload) {
    return RefusalOf([&] { ReadPayloadLog("a.raw", payload); });
}

TEST(Gpmf, EveryTypeOfNumberIsReadWithItsSign) {
    EXPECT_EQ(NumberOf('b', 1, 0xFE), -2);
    EXPECT_EQ(NumberOf('B', 1, 0xFE), 254);
    EXPECT_EQ(NumberOf('s', 2, 0x8000), -32768);
    EXPECT_EQ(NumberOf('S', 2, 0x8000), 32768);
    EXPECT_EQ(NumberOf('l', 4, 0xFFFFFFFF), -1);
    EXPECT_EQ(NumberOf('L', 4, 0xFFFFFFFF), 4294967295.0);
    EXPECT_EQ(NumberOf('f', 4, 0xBFC00000), -1.5);
    EXPECT_EQ(NumberOf('d', 8, 0xBFF8000000000000), -1.5);
    EXPECT_EQ(NumberOf('j', 8, 0xFFFFFFFFFFFFFFFD), -3);
    EXPECT_EQ(NumberOf('j', 8, 0x8000000000000000), -9223372036854775808.0);
    EXPECT_EQ(NumberOf('J', 8, 3), 3);
    // Fixed point: 16 bits before the point, or 32.
    EXPECT_EQ(NumberOf('q', 4, 0xFFFE8000), -1.5);
    EXPECT_EQ(NumberOf('Q', 8, 0x0000000180000000), 1.5);
}

TEST(Gpmf, AScaleDividesAllColumnsOrEachItsOwn) {
    const auto values = [](const std::string &scale) {
        return ReadGpmf("a.raw", Device(1, "C", Stream(scale + ShortsItem("GYRO", 3, {8, 12, -20}))))
            .at(0)
            .streams.at(0)
            .values;
    };
    EXPECT_EQ(values(ShortsItem("SCAL", 1, {4})), (std::vector<double>{2, 3, -5}));
    EXPECT_EQ(values(ShortsItem("SCAL", 1, {2, 3, 10})), (std::vector<double>{4, 4, -2}));
    EXPECT_EQ(values(""), (std::vector<double>{8, 12, -20}));
}

TEST(Gpmf, LettersSayWhichAxisEachColumnIs) {
    // X points to the left of the picture, Y backwards, Z up. The columns are X, -Z and Y.
    const GyroLog log = LogOf(Stream(TextItem("ORIN", "XzY") + ShortsItem("GYRO", 3, {1, 2, 3})));
    EXPECT_EQ(log.rates.at(0).value, Eigen::Vector3d(-1, -2, 3));
}

TEST(Gpmf, WithoutLettersColumnsAreZXAndY) {
    const GyroLog log = LogOf(Stream(ShortsItem("GYRO", 3, {1, 2, 3})));
    EXPECT_EQ(log.rates.at(0).value, Eigen::Vector3d(-2, 1, 3));
}

TEST(Gpmf, AMatrixMakesTheWantedAxes) {
    // Z = -b, X = a, Y = c of the columns a, b and c: what "XzY" says.
    const GyroLog log = LogOf(Stream(FloatsItem("MTRX", 9, {0, -1, 0, 1, 0, 0, 0, 0, 1}) + TextItem("ORIO", "ZXY") +
                                     ShortsItem("GYRO", 3, {1, 2, 3})));
    EXPECT_EQ(log.rates.at(0).value, Eigen::Vector3d(-1, -2, 3));
}

TEST(Gpmf, GravityIsSaidToTheRightDownAndForwards) {
    const GyroLog log = LogOf(Stream(ShortsItem("SCAL", 1, {10}) + ShortsItem("GRAV", 3, {1, 9, 2})) +
                              Stream(ShortsItem("GYRO", 3, {0, 0, 0})));
    EXPECT_EQ(log.gravity.at(0).value, Eigen::Vector3d(0.1, -0.9, -0.2));
}

TEST(Gpmf, OrientationsAreThoseOfTheWorldSeenFromTheCamera) {
    // Half a turn less a little about "down" in the file; the camera turned the other way about down, so about up.
    const GyroLog log = LogOf(Stream(FloatsItem("CORI", 4, {0.8F, 0, 0.6F, 0})));
    const Eigen::Quaterniond &rotation = log.orientations.at(0).rotation;
    EXPECT_NEAR(rotation.w(), 0.8, 1e-7);
    EXPECT_NEAR(rotation.y(), 0.6, 1e-7);
}

TEST(Gpmf, SamplesLieEvenlyInTheirSecond) {
    const GyroLog log = LogOf(Stream(ShortsItem("GYRO", 3, {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4})));
    ASSERT_EQ(log.rates.size(), 4U);
    EXPECT_EQ(log.rates[3].time, 0.75);
}

TEST(Gpmf, TheCamerasClockSaysHowLongAPayloadIs) {
    const auto payload = [](std::uint64_t microseconds) {
        return Device(
            1, "C",
            Stream(Item("STMP", 'J', 8, 1, BigEndian(microseconds, 8)) + ShortsItem("GYRO", 3, {1, 1, 1, 2, 2, 2})));
    };
    const GyroLog log = ReadPayloadLog("a.raw", payload(5000000) + payload(6500000));
    ASSERT_EQ(log.rates.size(), 4U);
    EXPECT_EQ(log.rates[1].time, 0.75);
    EXPECT_EQ(log.rates[2].time, 1.5);
}

TEST(Gpmf, ASecondDeviceIsLeftOutAndSaid) {
    const std::string gyro = Stream(ShortsItem("GYRO", 3, {1, 1, 1}));
    const GyroLog log = ReadPayloadLog("a.raw", Device(1, "Camera", gyro) + Device(2, "Drone", gyro));
    EXPECT_EQ(log.camera, "Camera");
    EXPECT_EQ(log.rates.size(), 1U);
    EXPECT_EQ(log.notes.back(), "another device, 'Drone', is left out");
}

TEST(Gpmf, OtherStreamsAndPaddingArePassedOver) {
    const std::string places = Stream(Item("GPS5", 'l', 20, 1, std::string(20, '\1')) + Item("TYPE", 'c', 1, 1, "f"));
    const GyroLog log = ReadPayloadLog(
        "a.raw", Device(1, "C", places + Stream(ShortsItem("GYRO", 3, {1, 1, 1}) + std::string(12, '\0'))) +
                     std::string(8, '\0'));
    EXPECT_EQ(log.rates.size(), 1U);
}

TEST(Gpmf, LengthsBeyondTheEndAreRefused) {
    const std::string whole = Device(1, "C", Stream(ShortsItem("GYRO", 3, {1, 2, 3})));
    for (std::size_t size = 1; size < whole.size(); ++size)
        EXPECT_NE(GpmfRefusal(whole.substr(0, size)).find("a.raw: byte "), std::string::npos) << size;
    EXPECT_EQ(GpmfRefusal(Device(1, "C", Nested("STRM", "GYROs\x06" + BigEndian(65535, 2)))),
              "a.raw: byte 48: found 0 bytes, expected 393210 bytes of 'GYRO' here");
}

TEST(Gpmf, WhatIsNoPayloadIsRefused) {
    const std::string expected = ", expected a device ('DEVC'): the file is no payload of a camera's metadata";
    EXPECT_EQ(GpmfRefusal("GIF89a\1\1"), "a.raw: byte 0: found 'GIF8'" + expected);
    EXPECT_EQ(GpmfRefusal(TextItem("ABCD", "text")), "a.raw: byte 0: found 'ABCD'" + expected);
    EXPECT_EQ(GpmfRefusal(""),
              "a.raw: found no rates and no orientations, expected a camera's motion ('GYRO' or 'CORI')");
}

TEST(Gpmf, MoreThanHoursOfPayloadsAreRefused) {
    EXPECT_EQ(GpmfRefusal(std::string((std::size_t{1} << 26) + 1, '\0')),
              "a.raw: found 67108865 bytes, expected payloads of at most 67108864");
}

TEST(Gpmf, NumbersThatMeanNothingAreRefused) {
    const auto of = [](const std::string &items) { return GpmfRefusal(Device(1, "C", Stream(items))); };
    EXPECT_NE(of(ShortsItem("GYRO", 2, {1, 2})).find("found 2 columns of 'GYRO', expected 3"), std::string::npos);
    EXPECT_NE(of(ShortsItem("SCAL", 1, {0}) + ShortsItem("GYRO", 3, {1, 2, 3})).find("none of them 0"),
              std::string::npos);
    EXPECT_NE(of(ShortsItem("SCAL", 1, {1, 2}) + ShortsItem("GYRO", 3, {1, 2, 3})).find("found 2 scales"),
              std::string::npos);
    EXPECT_NE(of(Item("GYRO", 'f', 12, 1, std::string(12, '\xFF'))).find("expected finite numbers"), std::string::npos);
    EXPECT_NE(of(Item("GYRO", 'c', 3, 1, "abc")).find("expected numbers"), std::string::npos);
    EXPECT_NE(of(TextItem("ORIN", "XXY") + ShortsItem("GYRO", 3, {1, 2, 3})).find("expected X, Y and Z, each once"),
              std::string::npos);
    EXPECT_NE(of(FloatsItem("MTRX", 2, {1, 0}) + ShortsItem("GYRO", 3, {1, 2, 3})).find("3 rows and 3 columns"),
              std::string::npos);
    EXPECT_NE(of(FloatsItem("SCAL", 1, {1e-40F}) +
                 Item("GYRO", 'd', 24, 1, BigEndian(0x7FE0000000000000, 8) + std::string(16, '\0')))
                  .find("found what no sensor measures"),
              std::string::npos);
    EXPECT_NE(of(FloatsItem("GRAV", 3, {1e30F, 0, 0})).find("found what no sensor measures"), std::string::npos);
    EXPECT_NE(of(FloatsItem("GYRO", 3, {1, 2, 20000})).find("found what no sensor measures"), std::string::npos);
}

}  // namespace
