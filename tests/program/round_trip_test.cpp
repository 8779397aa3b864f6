// What is written in a format and read back is the same camera.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

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

// Each trait may be missing, the same on all frames, or of its own on each.
CameraMove AnyMoveWithTraits() {
    CameraMove move = AnyMove();
    move.first_frame = *rc::gen::element(-20, 0, 101);
    if (*rc::gen::inRange(0, 2) == 1) move.aperture_height = Between(5, 70);
    move.traits.path = *rc::gen::element("", "/Camera", "/World/Shot 1/\"Long\" lens");
    move.traits.is_orthographic = *rc::gen::inRange(0, 4) == 0;
    if (move.traits.is_orthographic) {
        // From a coin to a country.
        const double size = std::pow(10, Between(-2, 8));
        move.aperture_width *= size;
        if (move.aperture_height) move.aperture_height = *move.aperture_height * size;
    }
    for (std::vector<double> &values : move.traits.channels) {
        const int kind = *rc::gen::inRange(0, 3);
        const std::size_t count = kind == 2 ? move.samples.size() : static_cast<std::size_t>(kind);
        for (std::size_t i = 0; i < count; ++i) values.push_back(Between(-10, 1000));
    }
    return move;
}

void ExpectSameTraits(const CameraMove &wrote, const CameraMove &read) {
    RC_ASSERT(read.aperture_height.has_value() == wrote.aperture_height.has_value());
    if (wrote.aperture_height)
        RC_ASSERT(std::abs(*read.aperture_height - *wrote.aperture_height) <= 1e-9 * *wrote.aperture_height);
    RC_ASSERT(read.traits.path == wrote.traits.path);
    RC_ASSERT(read.traits.is_orthographic == wrote.traits.is_orthographic);
    for (std::size_t i = 0; i < wrote.traits.channels.size(); ++i) {
        const std::vector<double> &a = wrote.traits.channels[i], &b = read.traits.channels[i];
        RC_ASSERT(a.size() == b.size());
        for (std::size_t k = 0; k < a.size(); ++k) RC_ASSERT(std::abs(a[k] - b[k]) < 1e-9);
    }
}

struct Kept {
    bool focus, rate_and_film_back;
};

void ExpectSame(const CameraMove &wrote, const CameraMove &read, const Kept &kept) {
    RC_ASSERT(read.first_frame == wrote.first_frame);
    RC_ASSERT(read.samples.size() == wrote.samples.size());
    if (kept.rate_and_film_back) {
        RC_ASSERT(read.rate == wrote.rate);
        RC_ASSERT(std::abs(read.aperture_width - wrote.aperture_width) <= 1e-9 * wrote.aperture_width);
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

RC_GTEST_PROP(RoundTrip, JsonKeepsWhatIsCarriedBesideTheMotion, ()) {
    const CameraMove move = AnyMoveWithTraits();
    const CameraMove read = ReadJson("move", WriteJson(move, {}), {});
    ExpectSame(move, read, {true, true});
    ExpectSameTraits(move, read);
}

RC_GTEST_PROP(RoundTrip, GltfAndGlbKeepEveryCameraAndWhatIsCarriedBesideItsMotion, ()) {
    const CameraMove move = AnyMoveWithTraits();
    for (const std::string &bytes : {WriteGltf(move, {}), WriteGlb(move, {})}) {
        const CameraMove read = ReadGltf("move", bytes, {});
        ExpectSame(move, read, {true, true});
        ExpectSameTraits(move, read);
        RC_ASSERT(read.notes.empty());
    }
}

RC_GTEST_PROP(RoundTrip, GltfKeepsTheMotionToItsFloatsWhereItsExtrasAreGone, ()) {
    CameraMove move = AnyMove();
    FormatOptions options;
    options.rate = move.rate;
    options.aperture_width = move.aperture_width;
    nlohmann::json file = nlohmann::json::parse(WriteGltf(move, options));
    file["cameras"][0].erase("extras");
    const CameraMove read = ReadGltf("move", file.dump(), options);
    RC_ASSERT(read.samples.size() == move.samples.size());
    RC_ASSERT(read.first_frame == std::max<std::int64_t>(move.first_frame, 0));
    for (std::size_t i = 0; i < read.samples.size(); ++i) {
        const CameraSample &a = move.samples[i], &b = read.samples[i];
        // Half a step of 32-bit floats is 6e-8 of the number.
        RC_ASSERT(host::Length(a.position - b.position) < 1.1e-7 * host::Length(a.position) + 1e-9);
        RC_ASSERT(TurnBetween(a.angles, b.angles) * kRadiansPerDegree < 1e-6);
        RC_ASSERT(std::abs(a.focal_length - b.focal_length) < 1e-6 * a.focal_length);
    }
}

TEST(RoundTrip, KeepsTenThousandGltfFramesAtEveryRate) {
    for (const FrameRate &rate :
         {FrameRate{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {60000, 1001}, {120000, 1001}}) {
        CameraMove move{101, rate, std::vector<CameraSample>(10000)};
        for (std::size_t i = 0; i < move.samples.size(); ++i)
            move.samples[i].position.x = std::sin(static_cast<double>(i)) * 100;
        const CameraMove read = ReadGltf("move", WriteGlb(move, {}), {});
        EXPECT_EQ(read.rate, rate);
        EXPECT_EQ(read.first_frame, 101);
        ASSERT_EQ(read.samples.size(), 10000u);
        EXPECT_NEAR(read.samples[9999].position.x, move.samples[9999].position.x, 1e-9);
    }
}

TEST(RoundTrip, TakesTheKeysOfAGltfFileThatAnotherProgramChanged) {
    CameraMove move{10, {25, 1}, {ReferencePose(), ReferencePose(), ReferencePose()}, 25};
    nlohmann::json file = nlohmann::json::parse(WriteGltf(move, {}));
    file["nodes"].push_back({{"children", {0}}, {"translation", {1, 0, 0}}});
    const CameraMove read = ReadGltf("move", file.dump(), {});
    EXPECT_EQ(read.rate, (FrameRate{25, 1}));
    EXPECT_EQ(read.first_frame, 10);
    EXPECT_EQ(read.aperture_width, 25);
    ASSERT_EQ(read.samples.size(), 3u);
    EXPECT_NEAR(read.samples[0].position.x, 110, 1e-5);
    EXPECT_NEAR(read.samples[0].focal_length, 36, 1e-5);
    ASSERT_EQ(read.notes.size(), 1u);
    EXPECT_NE(read.notes[0].find("the keys are taken"), std::string::npos);
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

TEST(BeyondLimits, TellsWhichFramesAreHeldWhereTheyAreWritten) {
    CameraMove move;
    move.first_frame = 10;
    move.samples.resize(4);
    EXPECT_EQ(BeyondLimits(move), "");
    move.samples[3].focus_distance = -1e-3;
    const std::string limits =
        "beyond what a camera can have (a focal length from 1 to 10000 mm, a focus in front of it) and held within";
    EXPECT_EQ(BeyondLimits(move), "frame 13 is " + limits);
    move.samples[1].focal_length = 0.5;
    EXPECT_EQ(BeyondLimits(move), "2 frames, from frame 11 on, are " + limits);
    for (const char *name : {"a.json", "a.csv"}) {
        const CameraMove read = MoveFromBytes(name, MoveText(name, move, {}), {});
        EXPECT_EQ(read.samples[1].focal_length, 1) << name;
        EXPECT_EQ(read.samples[3].focus_distance, 0) << name;
        EXPECT_EQ(read.samples[2].focal_length, 36) << name;
    }
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
