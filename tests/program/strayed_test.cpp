#include "library/measures/strayed.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tremolux/words/report_text.h"

namespace tremolux {
namespace {

CameraMove MoveWith(std::vector<CameraSample> samples) { return {5, {30, 1}, std::move(samples)}; }

CameraSample At(const host::Vector &position, const host::Vector &degrees) {
    CameraSample sample;
    sample.position = position;
    sample.angles = degrees * kRadiansPerDegree;
    return sample;
}

TEST(TurnBetween, IsTheAngleOfATurnAboutOneAxis) {
    EXPECT_NEAR(TurnBetween({0, 0, 0}, host::Vector{30, 0, 0} * kRadiansPerDegree), 30, 1e-9);
    EXPECT_NEAR(TurnBetween({0, 0, 0}, host::Vector{0, -10, 0} * kRadiansPerDegree), 10, 1e-9);
    EXPECT_NEAR(TurnBetween({0, 0, 0}, host::Vector{360, 0, 5} * kRadiansPerDegree), 5, 1e-9);
    EXPECT_NEAR(TurnBetween({0, 0, 0}, host::Vector{180, 0, 0} * kRadiansPerDegree), 180, 1e-5);
}

TEST(TurnBetween, KeepsSmallTurns) {
    EXPECT_NEAR(TurnBetween({0.5, 0, 0}, {0.5 + 1e-9, 0, 0}) / (1e-9 / kRadiansPerDegree), 1, 1e-6);
}

TEST(Strayed, GivesRootMeanSquareAndPeak) {
    // Distances 0, 5 (from 3, 4) and 12: RMS sqrt((25 + 144) / 3), peak 12 at the third frame, 7. Turns 0, 0 and 6.
    const CameraMove input = MoveWith({At({0, 0, 0}, {0, 0, 0}), At({1, 1, 1}, {0, 0, 0}), At({0, 0, 0}, {10, 0, 0})});
    const CameraMove output =
        MoveWith({At({0, 0, 0}, {0, 0, 0}), At({4, 5, 1}, {0, 0, 0}), At({0, 0, 12}, {16, 0, 0})});
    const Strayed strayed = MeasureStrayed(input, output);
    EXPECT_NEAR(strayed.position.rms, std::sqrt(169.0 / 3), 1e-12);
    EXPECT_NEAR(strayed.position.peak, 12, 1e-12);
    EXPECT_EQ(strayed.position.peak_frame, 7);
    EXPECT_NEAR(strayed.angle.rms, std::sqrt(36.0 / 3), 1e-9);
    EXPECT_NEAR(strayed.angle.peak, 6, 1e-9);
}

TEST(Report, SaysWhatWentInWhatCameOutAndHowFarTheCameraStrayed) {
    const CameraMove input = MoveWith({At({0, 0, 0}, {0, 0, 0}), At({0, 0, 0}, {0, 0, 0}), At({0, 0, 0}, {0, 0, 0})});
    const CameraMove output = MoveWith({At({3, 4, 0}, {0, 0, 0}), At({0, 3, 4}, {0, 3, 0}), At({0, -5, 0}, {0, 0, 0})});
    // The turns are 0, 3 and 0: RMS sqrt(9 / 3).
    const ShakeReport report = {
        "in.csv", {"out.csv", "out.chan"}, "Brisk walk", 24, {"Shake Speed=150%", "Seed=7"}, {30, 1}, 12.34567};
    EXPECT_EQ(ReportText(report, input, output),
              "in       in.csv, frames 5 to 7 at 30 fps, 0.1 s\n"
              "preset   Brisk walk\n"
              "         made at 24 frames a second, and changed to keep its frequencies at this rate\n"
              "shake    Shake Speed=150%, Seed=7\n"
              "out      out.csv, 3 frames\n"
              "out      out.chan, 3 frames\n"
              "strayed  5 RMS, 5 peak (frame 5), scene units\n"
              "         1.732 RMS, 3 peak (frame 6), degrees\n"
              "time     12.346 microseconds per frame\n");
}

}  // namespace
}  // namespace tremolux
