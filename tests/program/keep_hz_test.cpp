// The same motion in hertz at another frame rate.
#include <gtest/gtest.h>

#include <cmath>

#include "library/frame_rates/smoothing_filter.h"
#include "library/measures/motion.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;

constexpr int kSeconds = 60;
const std::vector<std::string> kSlowAndMedium = {
    "Position Slow=40%", "Position Medium=80%", "Rotation Slow=8",   "Rotation Medium=10",
    "Position Fast=0",   "Rotation Fast=0",     "Speed Variation=0", "Jolt=off"};

class KeepHertz : public testing::Test {
  protected:
    AddedMotion Shaken(int rate, const std::vector<std::string> &settings, const std::vector<std::string> &more) {
        std::string still = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < kSeconds * rate; ++frame) still += std::to_string(frame) + ",0,0,0,0,0,0\n";
        std::vector<std::string> arguments = {"shake", workplace_.Write("still.csv", still),
                                              "-o",    workplace_.Path("out.csv"),
                                              "--fps", std::to_string(rate)};
        for (const std::string &setting : settings) arguments.insert(arguments.end(), {"--set", setting});
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        said_ = outcome.err;
        FormatOptions options;
        CameraMove in = ReadCsv("in", still, options), out = ReadCsv("out", workplace_.Read("out.csv"), options);
        in.rate = out.rate = {rate, 1};
        return MeasureAddedMotion(in, out, 1920);
    }
    Workplace workplace_;
    std::string said_;
};

TEST_F(KeepHertz, KeepsTheBandsBelowThreeHertz) {
    for (const char *smooth : {"Shake Smooth=0", "Shake Smooth=30%"}) {
        std::vector<std::string> settings = kSlowAndMedium;
        settings.push_back(smooth);
        const AddedMotion at_30 = Shaken(30, settings, {});
        for (const int rate : {24, 60}) {
            const AddedMotion kept = Shaken(rate, settings, {"--keep-hz", "30"});
            for (std::size_t c = 0; c < 6; ++c) {
                for (const std::size_t band : {0u, 1u}) {
                    EXPECT_NEAR(kept.camera[c].band_rms[band] / at_30.camera[c].band_rms[band], 1, 0.05)
                        << smooth << " " << rate << " " << kept.camera[c].name << " " << kBands[band].name;
                }
            }
        }
    }
}

TEST_F(KeepHertz, IsTheSamePathInSeconds) {
    // Noise alone is one curve over time: twice the rate passes the same places.
    std::vector<std::string> settings = kSlowAndMedium;
    settings.push_back("Shake Smooth=0");
    const AddedMotion at_30 = Shaken(30, settings, {}), at_60 = Shaken(60, settings, {"--keep-hz", "30"});
    for (std::size_t frame = 0; frame < 600; frame += 7) {
        EXPECT_NEAR(at_60.camera[3].samples[2 * frame], at_30.camera[3].samples[frame], 1e-6) << frame;
    }
}

TEST_F(KeepHertz, ChangesNothingAtTheSameRateAndSaysWhatItCannotKeep) {
    Shaken(30, {"Initial Pos Overshoot=20%", "Speed Variation=10%"}, {});
    const std::string plain = workplace_.Read("out.csv");
    Shaken(30, {"Initial Pos Overshoot=20%", "Speed Variation=10%"}, {"--keep-hz", "30"});
    EXPECT_EQ(workplace_.Read("out.csv"), plain);
    EXPECT_EQ(said_, "");
    Shaken(60, {"Initial Pos Overshoot=20%", "Speed Variation=10%"}, {"--keep-hz", "30"});
    EXPECT_NE(said_.find("--keep-hz: these still go by the frame: Initial Pos Overshoot"), std::string::npos) << said_;
    EXPECT_NE(said_.find("Speed Variation"), std::string::npos) << said_;
}

TEST_F(KeepHertz, TakesTheTrueRate) {
    const std::string move = workplace_.Write("move.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n1,0,0,0,0,0,0\n");
    const auto shaken = [&](const char *rate) {
        const Outcome outcome = workplace_.Run({"shake", move, "-o", workplace_.Path("o.csv"), "--fps", "24000/1001",
                                                "--keep-hz", rate, "--set", "Position Slow=40%"});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return workplace_.Read("o.csv");
    };
    EXPECT_EQ(shaken("23.976"), shaken("24000/1001"));
    EXPECT_NE(shaken("23.976"), shaken("24"));
}

TEST_F(KeepHertz, RefusesARateThatIsNone) {
    const std::string move = workplace_.Write("move.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n");
    for (const char *rate : {"0", "x", "-30", "1e9"}) {
        const Outcome outcome = workplace_.Run({"shake", move, "-o", workplace_.Path("o.csv"), "--keep-hz", rate});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err.rfind("--keep-hz: found ", 0), 0u) << outcome.err;
    }
}

TEST(SmoothingFilters, AreFoundFromWhatTheyDo) {
    const SmoothingFilter filter = {0.35, 0.3};
    std::vector<double> goal, smoothed = {0, 0};
    for (int i = 0; i < 50; ++i) goal.push_back(std::sin(i * i));
    for (std::size_t i = 2; i < goal.size(); ++i) {
        const double last = smoothed[i - 1];
        smoothed.push_back(last + filter.p * (last - smoothed[i - 2]) + filter.q * (goal[i] - last));
    }
    const SmoothingFilter found = FitFilter(goal, smoothed);
    EXPECT_NEAR(found.p, filter.p, 1e-9);
    EXPECT_NEAR(found.q, filter.q, 1e-9);
}

TEST(SmoothingFilters, LetASineThroughByTheirGain) {
    const SmoothingFilter filter = {0.35, 0.3};
    constexpr double kCycles = 0.05, kTurn = 6.28318530717958647693;
    double last = 0, before = 0, largest = 0;
    for (int i = 0; i < 2000; ++i) {
        const double next = last + filter.p * (last - before) + filter.q * (std::sin(kTurn * kCycles * i + 0.1) - last);
        before = last;
        last = next;
        if (i > 1000) largest = std::max(largest, std::abs(next));
    }
    EXPECT_NEAR(GainOf(filter, kCycles), largest, 0.02 * largest);
    EXPECT_EQ(GainOf({}, 0.2), 1);
}

}  // namespace
}  // namespace tremolux
