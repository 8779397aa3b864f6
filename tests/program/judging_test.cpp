// Shear through a rolling shutter, and the distance from a recording.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "host/value/radians.h"
#include "library/fit/against.h"
#include "library/measures/rolling_shutter.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;

CameraMove Turning(host::Vector speed) {
    CameraMove move;
    move.rate = {25, 1};
    move.first_frame = 10;
    for (int i = 0; i < 50; ++i) {
        CameraSample sample;
        sample.angles = speed * (i / 25.0);
        sample.focal_length = 36;
        move.samples.push_back(sample);
    }
    return move;
}

TEST(RollingShutters, LeanByTheSpeedTimesTheReadoutTimesThePixelsOfARadian) {
    // 36 mm before a film back of 36 mm: 1920 pixels a radian. 0.5 radians a second for 20 ms are 0.01 radians.
    const RollingShutter pan = MeasureRollingShutter(Turning({0.5, 0, 0}), 0.02, 1920);
    EXPECT_NEAR(pan.shear.rms, 19.2, 1e-6);
    EXPECT_NEAR(pan.shear.peak, 19.2, 1e-6);
    EXPECT_NEAR(pan.stretch.peak, 0, 1e-6);
    const RollingShutter tilt = MeasureRollingShutter(Turning({0, 0.5, 0}), 0.02, 1920);
    EXPECT_NEAR(tilt.stretch.rms, 19.2, 1e-6);
    EXPECT_NEAR(tilt.shear.peak, 0, 1e-6);
}

TEST(RollingShutters, LeanMoreThroughALongerLensAndAreAboutTheCamerasOwnAxes) {
    CameraMove move = Turning({0.5, 0, 0});
    for (CameraSample &sample : move.samples) {
        sample.focal_length = 72;
        sample.angles.z = host::kPi / 2;  // held upright, a pan runs along the picture's height
    }
    const RollingShutter upright = MeasureRollingShutter(move, 0.02, 1920);
    EXPECT_NEAR(upright.stretch.rms, 38.4, 1e-6);
    EXPECT_NEAR(upright.shear.rms, 0, 1e-6);
}

TEST(RollingShutters, TellTheFrameOfTheWorst) {
    CameraMove move = Turning({0, 0, 0});
    for (std::size_t i = 31; i < move.samples.size(); ++i) move.samples[i].angles.x = 0.1;
    const RollingShutter shutter = MeasureRollingShutter(move, 0.01, 1000);
    EXPECT_EQ(shutter.shear.peak_frame, 40);
    EXPECT_NEAR(shutter.shear.peak, 0.1 * 25 * 0.01 * 1000, 1e-6);
    move.samples.resize(1);
    EXPECT_EQ(MeasureRollingShutter(move, 0.01, 1000).shear.rms, 0);
}

CameraMove Swaying(double size) {
    CameraMove move;
    move.rate = {25, 1};
    for (int i = 0; i < 250; ++i) {
        CameraSample sample;
        for (const double hertz : {0.5, 2.0, 6.0}) sample.position.y += size * std::sin(2 * host::kPi * hertz * i / 25);
        sample.angles.z = 0.01 * sample.position.y;
        move.samples.push_back(sample);
    }
    return move;
}

TEST(Against, TheSameShakeIsAtNoDistanceAndTwiceItAtLnTwo) {
    PlayedMotion motion;
    motion.input = Swaying(0);
    for (std::size_t i = 0; i < motion.input.samples.size(); ++i)
        motion.input.samples[i].position.x = 3 * static_cast<double>(i);
    motion.output = motion.input;
    const CameraMove recorded = Swaying(1), twice = Swaying(2);
    const auto distance = [&](const CameraMove &added) {
        for (std::size_t i = 0; i < added.samples.size(); ++i) {
            motion.output.samples[i].position.y = added.samples[i].position.y;
            motion.output.samples[i].angles.z = added.samples[i].angles.z;
        }
        return DistanceFromRecording(motion, recorded, "recorded");
    };
    EXPECT_NEAR(distance(recorded), 0, 1e-9);
    EXPECT_NEAR(distance(twice), std::log(2.0), 1e-9);
}

class Judging : public testing::Test {
  protected:
    Outcome Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--fps", "25", "--quiet"});
        return workplace_.Run(arguments);
    }
    Workplace workplace_;
    const std::string still_ = workplace_.Write("still.csv", WriteCsv(Swaying(0), {}));
    const std::string recording_ = workplace_.Write("recording.csv", WriteCsv(Swaying(1), {}));
};

TEST_F(Judging, IsPrintedAndInTheJson) {
    const std::vector<std::string> judged = {"shake",
                                             still_,
                                             "-o",
                                             workplace_.Path("out.csv"),
                                             "--readout",
                                             "16",
                                             "--against",
                                             recording_,
                                             "--from-recording",
                                             recording_,
                                             "--recording-alone"};
    const Outcome text = Run(judged);
    ASSERT_EQ(text.status, 0) << text.err;
    for (const char *words : {"shutter", "pixels of 1920", "read in 16 ms", "against", "D 0."})
        EXPECT_NE(text.out.find(words), std::string::npos) << words << "\n" << text.out;
    std::vector<std::string> with_json = judged;
    with_json.emplace_back("--json");
    const auto json = nlohmann::json::parse(Run(with_json).out);
    EXPECT_LT(json.at("against").at("distance"), 0.2) << "the recording beside itself";
    EXPECT_EQ(json.at("rolling_shutter").at("readout_ms"), 16);
}

TEST_F(Judging, IsRefusedInOneLineBeforeAnythingIsDone) {
    const auto refused = [&](const std::vector<std::string> &arguments) {
        std::vector<std::string> all = {"shake", still_, "-o", workplace_.Path("none.csv")};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = Run(all);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_FALSE(std::filesystem::exists(std::filesystem::u8path(workplace_.Path("none.csv"))));
        return outcome.err;
    };
    EXPECT_NE(refused({"--readout", "-1"}).find("--readout"), std::string::npos);
    EXPECT_NE(refused({"--against", workplace_.Path("nothing.csv")}).find("nothing.csv"), std::string::npos);
    EXPECT_NE(refused({"--against", still_}).find("still.csv"), std::string::npos) << "a recording that stands still";
}

}  // namespace
}  // namespace tremolux
