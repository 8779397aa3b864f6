// From rates to rotations: on the sphere, levelled, and between samples.
#include "library/gyro/orientation.h"

#include <cmath>

#include "host/value/radians.h"
#include "library/gyro/gyro_bias.h"
#include "library/gyro/gyro_motion.h"
#include "tests/program/gyro/support.h"

namespace {

using namespace tremolux;

constexpr double kDegree = host::kRadiansPerDegree, kPi = 180 * kDegree;

Eigen::Quaterniond About(const Eigen::Vector3d &axis, double angle) {
    return Eigen::Quaterniond(Eigen::AngleAxisd(angle, axis));
}

// Samples of a function of time, from 0 to `seconds`.
template <typename Value>
std::vector<GyroSample> Sampled(double seconds, int per_second, Value value) {
    std::vector<GyroSample> samples;
    for (int i = 0; i <= static_cast<int>(seconds * per_second); ++i) {
        const double time = static_cast<double>(i) / per_second;
        samples.push_back({time, value(time)});
    }
    return samples;
}

const Eigen::Vector3d kX = Eigen::Vector3d::UnitX(), kY = Eigen::Vector3d::UnitY(), kZ = Eigen::Vector3d::UnitZ();

TEST(Orientation, AHelixOfHeadingAndPitchIsFollowedToAMillionth) {
    // R(t) = Ry(a) Rx(b), a = 0.8 t, b = 0.5 sin 2t: the rates on its own axes are Rx(-b) (0, a', 0) + (b', 0, 0).
    const auto rate = [](double t) {
        const double b = 0.5 * std::sin(2 * t);
        return Eigen::Vector3d(std::cos(2 * t), 0.8 * std::cos(b), -0.8 * std::sin(b));
    };
    const std::vector<GyroOrientation> path = Integrated(Sampled(3, 2000, rate), Eigen::Vector3d::Zero());
    for (const GyroOrientation &at : path) {
        const Eigen::Quaterniond exact = About(kY, 0.8 * at.time) * About(kX, 0.5 * std::sin(2 * at.time));
        ASSERT_LT(exact.angularDistance(at.rotation), 1e-6) << at.time;
    }
}

TEST(Orientation, ASteadyTurnIsExactHoweverLongTheSteps) {
    const Eigen::Vector3d rate(0.3, -0.7, 0.2);
    const auto path = Integrated({{0, rate}, {0.5, rate}, {2, rate}}, Eigen::Vector3d::Zero());
    EXPECT_LT(path.back().rotation.angularDistance(About(rate.normalized(), 2 * rate.norm())), 1e-14);
}

TEST(Orientation, BetweenTwoSamplesTheShorterWayIsTaken) {
    Eigen::Quaterniond far = About(kY, 0.4);
    far.coeffs() = -far.coeffs();
    const std::vector<GyroOrientation> path = {{1, About(kY, 0)}, {3, far}};
    EXPECT_LT(OrientationAt(path, 1.5).angularDistance(About(kY, 0.1)), 1e-14);
    EXPECT_LT(OrientationAt(path, 0).angularDistance(About(kY, 0)), 1e-14);
    EXPECT_LT(OrientationAt(path, 9).angularDistance(About(kY, 0.4)), 1e-14);
}

TEST(Orientation, GravityStopsTheDriftOfPitchAndBankAndLeavesTheHeading) {
    // A camera that stands, with 0.3 degrees a second of error about each axis, for a minute.
    const auto rates =
        Sampled(60, 100, [](double) { return Eigen::Vector3d(0.3 * kDegree, 0.3 * kDegree, 0.3 * kDegree); });
    const auto ups = Sampled(60, 100, [](double) { return Eigen::Vector3d(0, kStandardGravity, 0); });
    std::vector<GyroOrientation> path = Integrated(rates, Eigen::Vector3d::Zero());
    const Eigen::Vector3d drifted = path.back().rotation * kY;
    EXPECT_GT(std::acos(drifted.y()), 15 * kDegree);
    LevelSlowly(ups, 5, &path);
    for (const GyroOrientation &at : path)
        ASSERT_LT(std::acos(std::min(1.0, (at.rotation * kY).y())), 1.3 * kDegree) << at.time;
    EXPECT_GT((path.back().rotation * kX).cross(kX).norm(), std::sin(15 * kDegree));
}

TEST(Orientation, WhatShakesTheAccelerometerDoesNotTiltTheCamera) {
    const auto rates = Sampled(20, 200, [](double) { return Eigen::Vector3d(0, 0, 0); });
    // Steps of a walk: 2 a second, sideways and upwards.
    const auto ups = Sampled(20, 200, [](double t) {
        return Eigen::Vector3d(2 * std::sin(4 * kPi * t), kStandardGravity + 4 * std::sin(8 * kPi * t), 0);
    });
    std::vector<GyroOrientation> path = Integrated(rates, Eigen::Vector3d::Zero());
    LevelSlowly(ups, 5, &path);
    for (const GyroOrientation &at : path)
        ASSERT_LT(at.rotation.angularDistance(Eigen::Quaterniond::Identity()), 0.5 * kDegree);
}

TEST(Orientation, ATiltedStartIsFound) {
    // Pitched up by 20 degrees: up is (0, cos 20, -sin 20) on the camera's axes.
    const Eigen::Vector3d up(0, std::cos(20 * kDegree), -std::sin(20 * kDegree));
    std::vector<GyroOrientation> path = {{0, Eigen::Quaterniond::Identity()}, {1, Eigen::Quaterniond::Identity()}};
    LevelOnce({{0, up}, {1, up}}, &path);
    EXPECT_LT(path.back().rotation.angularDistance(About(kX, 20 * kDegree)), 1e-12);
}

TEST(Orientation, ACameraThatHangsUpsideDownIsTurnedUpright) {
    std::vector<GyroOrientation> path = {{0, Eigen::Quaterniond::Identity()}};
    LevelOnce({{0, -kY}}, &path);
    EXPECT_NEAR((path.front().rotation * -kY - kY).norm(), 0, 1e-12);
}

TEST(Orientation, AnAccelerometerThatFeelsNothingLevelsNothing) {
    std::vector<GyroOrientation> path = {{0, About(kZ, 0.5)}};
    LevelSlowly({{0, Eigen::Vector3d::Zero()}}, 5, &path);
    LevelOnce({{0, kX}, {1, -kX}}, &path);
    EXPECT_LT(path.back().rotation.angularDistance(About(kZ, 0.5)), 1e-14);
}

TEST(GyroBias, IsTheMeanRateOfTheStillSeconds) {
    const Eigen::Vector3d error(0.004, -0.002, 0.001);
    const auto rates = Sampled(10, 100, [&](double t) {
        return t < 4 ? error : Eigen::Vector3d(error + Eigen::Vector3d(0, 0.5 * std::sin(t), 0));
    });
    const GyroBias bias = BiasOf(rates);
    EXPECT_EQ(bias.from, BiasFrom::kStillPart);
    EXPECT_LT((bias.rate - error).norm(), 1e-12);
}

TEST(GyroBias, IsTheMeanOfTheWholeWhereNothingStandsStill) {
    const auto rates = Sampled(10, 100, [](double t) { return Eigen::Vector3d(0.01, 0.2 * std::sin(2 * kPi * t), 0); });
    const GyroBias bias = BiasOf(rates);
    EXPECT_EQ(bias.from, BiasFrom::kWhole);
    EXPECT_LT((bias.rate - Eigen::Vector3d(0.01, 0, 0)).norm(), 1e-9);
}

TEST(GyroBias, APanIsNoError) {
    const auto rates = Sampled(10, 100, [](double t) { return Eigen::Vector3d(0, 0.3 + 0.1 * std::sin(7 * t), 0); });
    EXPECT_EQ(BiasOf(rates).from, BiasFrom::kNothing);
    EXPECT_EQ(BiasOf(rates).rate, Eigen::Vector3d(0, 0, 0));
}

TEST(GyroMotion, OrientationsOfTheCameraGoBeforeItsRates) {
    GyroLog log;
    log.rates = Sampled(1, 100, [](double) { return Eigen::Vector3d(1, 0, 0); });
    log.orientations = {{0, About(kY, 0)}, {1, About(kY, 0.2)}};
    const GyroMotion motion = MotionOf(log);
    EXPECT_TRUE(motion.is_own);
    EXPECT_LT(motion.orientations.back().rotation.angularDistance(About(kY, 0.2)), 1e-14);
}

}  // namespace
