// A film of a real camera, in the folder that TREMOLUX_GYRO names: its rates and what it made of them itself.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/value/radians.h"
#include "library/gyro/gpmf_log.h"
#include "library/gyro/orientation.h"
#include "tests/program/gyro/support.h"

namespace {

using namespace tremolux;

class ActionCamera : public testing::Test {
  protected:
    void SetUp() override {
        const char *folder = std::getenv("TREMOLUX_GYRO");
        if (folder == nullptr) GTEST_SKIP() << "TREMOLUX_GYRO is not set";
        folder_ = folder;
    }
    GyroLog Film() const {
        FileSource source(folder_ / "max-heromode.mp4");
        return ReadFilmLog("max-heromode.mp4", &source);
    }
    std::filesystem::path folder_;
};

// Rotation vectors of the way from `start` on, in degrees, on the camera's axes at the start.
Eigen::Vector3d TurnSince(const Eigen::Quaterniond &start, const Eigen::Quaterniond &now) {
    const Eigen::AngleAxisd turn(start.conjugate() * now);
    const double angle = std::remainder(turn.angle(), 360 * host::kRadiansPerDegree);
    return turn.axis() * angle / host::kRadiansPerDegree;
}

TEST_F(ActionCamera, EverySampleOfTheFilmIsThere) {
    const GyroLog log = Film();
    EXPECT_EQ(log.camera, "GoPro Max");
    EXPECT_EQ(log.rates.size(), 2082U);
    EXPECT_EQ(log.accelerations.size(), 2082U);
    EXPECT_EQ(log.orientations.size(), 316U);
    EXPECT_EQ(log.frame_rate, (FrameRate{30000, 1001}));
}

TEST_F(ActionCamera, IntegratedRatesTurnAsTheCameraSaysAboutEachAxis) {
    const GyroLog log = Film();
    const std::vector<GyroOrientation> integrated = Integrated(log.rates, Eigen::Vector3d::Zero());
    // The clocks of the two differ by 20 ms: where the camera says an orientation, its sensor is that much further.
    constexpr double kOffset = 0.02;
    constexpr std::size_t kStart = 10;
    const Eigen::Quaterniond own_start = log.orientations[kStart].rotation;
    const Eigen::Quaterniond start = OrientationAt(integrated, log.orientations[kStart].time + kOffset);
    Eigen::Vector3d squares = Eigen::Vector3d::Zero(), own_squares = Eigen::Vector3d::Zero();
    double angle_squares = 0, count = 0;
    for (std::size_t i = kStart; i < log.orientations.size(); ++i) {
        const double time = log.orientations[i].time + kOffset;
        if (time > integrated.back().time) break;
        const Eigen::Vector3d own = TurnSince(own_start, log.orientations[i].rotation);
        const Eigen::Vector3d turn = TurnSince(start, OrientationAt(integrated, time));
        squares += (own - turn).cwiseAbs2();
        own_squares += own.cwiseAbs2();
        angle_squares += std::pow(own.norm() - turn.norm(), 2);
        ++count;
    }
    EXPECT_GT(count, 300);
    EXPECT_LT(std::sqrt(angle_squares / count), 0.3);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_LT(std::sqrt(squares[axis] / count), 0.3) << axis;
        // Each turns by far more, so that a wrong sign or another axis would not pass.
        EXPECT_GT(std::sqrt(own_squares[axis] / count), 1.0) << axis;
    }
}

TEST_F(ActionCamera, TheAccelerometerAndTheCamerasOwnGravityAgreeOnWhereDownIs) {
    const GyroLog log = Film();
    Eigen::Vector3d up = Eigen::Vector3d::Zero(), down = Eigen::Vector3d::Zero();
    for (const GyroSample &sample : log.accelerations) up += sample.value;
    for (const GyroSample &sample : log.gravity) down += sample.value;
    EXPECT_GT(up.normalized().dot(-down.normalized()), std::cos(3 * host::kRadiansPerDegree));
    EXPECT_NEAR(up.norm() / static_cast<double>(log.accelerations.size()), kStandardGravity, 0.3);
}

TEST_F(ActionCamera, OlderPayloadsSayTheirOwnOrder) {
    for (const auto &[name, rates] : {std::pair("hero5.raw", 399U), std::pair("Fusion.raw", 3300U)}) {
        std::ifstream stream(folder_ / name, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(stream)), {});
        EXPECT_EQ(ReadPayloadLog(name, bytes).rates.size(), rates) << name;
    }
}

}  // namespace
