// What is written in a format and read back is the same camera.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "library/formats/right_handed.h"
#include "library/measures/strayed.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

constexpr double kQuarter = 1.57079632679489661923;

double Between(double low, double high) { return low + (high - low) * (*rc::gen::inRange(0, 1000001) / 1e6); }

// One in four looks straight up or down, or next to it.
CameraSample AnyCamera() {
    CameraSample sample;
    sample.position = {Between(-1e5, 1e5), Between(-1e5, 1e5), Between(-1e5, 1e5)};
    const double pitches[] = {Between(-kQuarter, kQuarter), Between(-kQuarter, kQuarter), kQuarter,
                              -kQuarter + std::pow(10, -Between(2, 12))};
    sample.angles = {Between(-6, 6), pitches[*rc::gen::inRange(0, 4)], Between(-6, 6)};
    sample.focal_length = Between(8, 400);
    sample.focus_distance = Between(1, 1e5);
    return sample;
}

CameraMove AnyMove() {
    CameraMove move;
    move.first_frame = *rc::gen::inRange(-50, 1000);
    constexpr FrameRate kRates[] = {{1, 1}, {24, 1}, {24000, 1001}, {25, 2}, {30000, 1001}, {60, 1}, {120000, 1001}};
    move.rate = kRates[*rc::gen::inRange(0, 7)];
    move.aperture_width = Between(5, 70);
    const int frames = *rc::gen::inRange(1, 8);
    for (int i = 0; i < frames; ++i) move.samples.push_back(AnyCamera());
    return move;
}

struct Kept {
    bool focus, rate_and_film_back;
};

void ExpectSame(const CameraMove &wrote, const CameraMove &read, const Kept &kept) {
    RC_ASSERT(read.first_frame == wrote.first_frame);
    RC_ASSERT(read.samples.size() == wrote.samples.size());
    if (kept.rate_and_film_back) {
        RC_ASSERT(read.rate == wrote.rate);
        RC_ASSERT(std::abs(read.aperture_width - wrote.aperture_width) < 1e-9);
    }
    for (std::size_t i = 0; i < read.samples.size(); ++i) {
        const CameraSample &a = wrote.samples[i], &b = read.samples[i];
        RC_ASSERT(host::Length(a.position - b.position) < 1e-6);
        RC_ASSERT(TurnBetween(a.angles, b.angles) * kRadiansPerDegree < 1e-7);
        RC_ASSERT(std::abs(a.focal_length - b.focal_length) < 1e-6);
        if (kept.focus) RC_ASSERT(std::abs(a.focus_distance - b.focus_distance) < 1e-6);
    }
}

RC_GTEST_PROP(RoundTrip, CsvKeepsEveryCamera, ()) {
    const CameraMove move = AnyMove();
    ExpectSame(move, ReadCsv("move", WriteCsv(move, {}), {}), {true, false});
}

RC_GTEST_PROP(RoundTrip, JsonKeepsEveryCameraWithItsRateAndFilmBack, ()) {
    const CameraMove move = AnyMove();
    ExpectSame(move, ReadJson("move", WriteJson(move, {}), {}), {true, true});
}

RC_GTEST_PROP(RoundTrip, UsdaKeepsEveryCameraWithItsRateAndFilmBack, ()) {
    const CameraMove move = AnyMove();
    ExpectSame(move, ReadUsda("move", WriteUsda(move, {}), {}), {true, true});
}

RC_GTEST_PROP(RoundTrip, ChanKeepsEveryCameraInEveryOrderAndUnit, ()) {
    const CameraMove move = AnyMove();
    FormatOptions options;
    options.aperture_width = move.aperture_width;
    options.length_unit = *rc::gen::element(0.1, 1.0, 2.54, 30.48, 100.0);
    options.width = *rc::gen::inRange(100, 4000);
    options.rotation_order = *RotationOrderNamed(*rc::gen::element("xyz", "xzy", "yxz", "yzx", "zxy", "ZYX"));
    ExpectSame(move, ReadChan("move", WriteChan(move, options), options), {false, false});
}

RC_GTEST_PROP(RotationOrders, ComeBackFromTheirRotation, ()) {
    const RotationOrder order = *RotationOrderNamed(*rc::gen::element("xyz", "xzy", "yxz", "yzx", "zxy", "zyx"));
    const host::Vector angles = {Between(-3, 3), Between(-3, 3), Between(-3, 3)};
    const host::Vector back = NearestAngles(angles, RotationAngles(RotationOf(angles, order), order), order);
    RC_ASSERT(host::Length(back - angles) < 1e-6);
}

TEST(RotationOrders, TurnTheFirstNamedAxisFirst) {
    // "xyz" turns about x first: a quarter about x takes up (0, 1, 0) to (0, 0, 1), then a quarter about y to (1, 0,
    // 0).
    const host::Matrix turned = RotationOf({kQuarter, kQuarter, 0}, *RotationOrderNamed("xyz"));
    EXPECT_NEAR(turned.v2.x, 1, 1e-12);
    EXPECT_NEAR(turned.v2.y, 0, 1e-12);
    EXPECT_NEAR(turned.v2.z, 0, 1e-12);
}

TEST(RotationOrders, AreNamedByEachAxisOnce) {
    EXPECT_EQ(RotationOrderNamed("zxy"), kOrderZxy);
    for (const char *name : {"", "xy", "xxy", "xyw", "xyzx"}) EXPECT_FALSE(RotationOrderNamed(name)) << name;
}

TEST(RightHandedCamera, LooksWhereTheReferencePoseDoes) {
    // Computed apart from this code: directions of the reference pose in right-handed worlds.
    const host::Matrix y_up = RightHanded(ReferencePose()), z_up = ZUpOf(y_up);
    const auto near = [](const host::Vector &v, double x, double y, double z) {
        return host::Length(v - host::Vector{x, y, z}) < 2e-5;
    };
    EXPECT_TRUE(near(y_up.off, 10, 150, 300));
    EXPECT_TRUE(near(y_up.v3 * -1, -0.49240, -0.17365, -0.85287));
    EXPECT_TRUE(near(y_up.v1, 0.87030, -0.08583, -0.48499));
    EXPECT_TRUE(near(z_up.v3 * -1, -0.49240, 0.85287, -0.17365));
    EXPECT_TRUE(near(z_up.off, 10, -300, 150));
}

RC_GTEST_PROP(RightHandedCamera, HasTheSameTurnAsQuaternionAndMatrix, ()) {
    const CameraSample sample = AnyCamera();
    const host::Matrix camera = RightHanded(sample);
    const Quaternion q = RightHandedQuaternion(sample.angles);
    // The first and the last column of a unit quaternion's matrix.
    const host::Vector right = {1 - 2 * (q.y * q.y + q.z * q.z), 2 * (q.x * q.y + q.w * q.z),
                                2 * (q.x * q.z - q.w * q.y)};
    const host::Vector back = {2 * (q.x * q.z + q.w * q.y), 2 * (q.y * q.z - q.w * q.x),
                               1 - 2 * (q.x * q.x + q.y * q.y)};
    RC_ASSERT(host::Length(right - camera.v1) < 1e-9);
    RC_ASSERT(host::Length(back - camera.v3) < 1e-9);
}

}  // namespace
}  // namespace tremolux
