// Motions whose figures are known beforehand.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "library/measures/motion.h"

namespace tremolux {
namespace {

constexpr double kTurn = 6.28318530717958647693;

std::vector<double> Sine(double amplitude, double frequency, double rate, double seconds, double phase = 0.3) {
    std::vector<double> samples;
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i)
        samples.push_back(amplitude * std::sin(kTurn * frequency * i / rate + phase));
    return samples;
}

CameraMove Still(std::size_t frames, int rate) {
    CameraMove move;
    move.rate = {rate, 1};
    move.samples.resize(frames);
    return move;
}

// Root mean square of a sine of amplitude 1.
const double kSineRms = std::sqrt(0.5);

RC_GTEST_PROP(SpectrumOf, ASineLiesInItsBandAndNowhereElse, ()) {
    const double rate = *rc::gen::element(24.0, 25.0, 30.0, 60.0);
    const double amplitude = *rc::gen::inRange(1, 1000) / 100.0;
    const double frequency = *rc::gen::inRange(70, 240) / 100.0;  // within 0.5 to 3 Hz, leakage too
    const double phase = *rc::gen::inRange(0, 628) / 100.0;
    const Spectrum spectrum = MeasureSpectrum(Sine(amplitude, frequency, rate, 20, phase), rate);
    RC_ASSERT(std::abs(BandRms(spectrum, 0.5, 3) / (amplitude * kSineRms) - 1) < 0.01);
    RC_ASSERT(BandRms(spectrum, 0, 0.5) < 0.01 * amplitude);
    RC_ASSERT(BandRms(spectrum, 3, 12) < 0.01 * amplitude);
    const auto lines = StrongestPeaks(spectrum, 3);
    RC_ASSERT(lines.size() == 1u);
    RC_ASSERT(std::abs(lines[0].frequency / frequency - 1) < 0.01);
    RC_ASSERT(std::abs(lines[0].rms / (amplitude * kSineRms) - 1) < 0.01);
}

TEST(SpectrumOf, TwoSinesHasBothLinesTheStrongerFirst) {
    std::vector<double> samples = Sine(1, 0.4, 30, 40), fast = Sine(2, 5, 30, 40);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] += fast[i] + 100;
    const auto lines = StrongestPeaks(MeasureSpectrum(samples, 30), 3);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].frequency, 5, 0.05);
    EXPECT_NEAR(lines[1].frequency, 0.4, 0.004);
    EXPECT_NEAR(lines[1].rms, kSineRms, 0.01 * kSineRms);
}

TEST(SpectrumOf, NothingIsNothing) {
    for (const std::size_t count : {0u, 1u, 2u, 7u, 100u}) {
        const Spectrum spectrum = MeasureSpectrum(std::vector<double>(count, 3.5), 30);
        EXPECT_LT(BandRms(spectrum, 0, 15), 1e-12) << count;
        EXPECT_TRUE(StrongestPeaks(spectrum, 3).empty()) << count;
    }
}

TEST(AddedMotion, OfAKnownSwayIsMeasuredToAHundredth) {
    // 2 cm at 0.8 Hz to the right and 1.5 degrees at 1 Hz of heading, which turns to the left.
    const CameraMove input = Still(900, 30);
    CameraMove output = input;
    const auto x = Sine(2, 0.8, 30, 30), h = Sine(1.5, 1, 30, 30);
    for (std::size_t i = 0; i < 900; ++i) {
        output.samples[i].position.x = x[i];
        output.samples[i].angles.x = h[i] * kRadiansPerDegree;
    }
    const AddedMotion motion = MeasureAddedMotion(input, output, 1920);
    const Channel &sideways = motion.camera[0], &heading = motion.camera[3];
    EXPECT_NEAR(sideways.rms, 2 * kSineRms, 0.02 * kSineRms);
    EXPECT_NEAR(sideways.peak, 2, 0.02);
    EXPECT_NEAR(sideways.band_rms[1], 2 * kSineRms, 0.02 * kSineRms);
    EXPECT_NEAR(sideways.speed_peak, 2 * kTurn * 0.8, 0.01 * 2 * kTurn * 0.8);
    EXPECT_NEAR(sideways.lines.at(0).frequency, 0.8, 0.008);
    EXPECT_NEAR(heading.rms, 1.5 * kSineRms, 0.015 * kSineRms);
    EXPECT_NEAR(heading.lines.at(0).frequency, 1, 0.01);
    EXPECT_NEAR(motion.turn_peak, 1.5 * kTurn, 0.01 * 1.5 * kTurn);
    EXPECT_NEAR(motion.turn_rms, 1.5 * kTurn * kSineRms, 0.01 * 1.5 * kTurn);
    for (const std::size_t still : {1u, 2u, 4u, 5u}) EXPECT_LT(motion.camera[still].rms, 1e-12) << still;
    EXPECT_FALSE(motion.MakesSick());
}

TEST(AddedMotion, TellsHowManyPixelsThePictureMoves) {
    // A turn of one degree is 33.5 pixels of 1920 at 36 mm on 36 mm; of the focus at 20 m, 10 cm are 9.6.
    const CameraMove input = Still(2, 30);
    CameraMove output = input;
    output.samples[1].angles.y = kRadiansPerDegree;
    EXPECT_NEAR(MeasureAddedMotion(input, output, 1920).picture[1].peak, 33.5, 0.05);
    output.samples[1].angles.y = 0;
    output.samples[1].position.x = 10;
    EXPECT_NEAR(MeasureAddedMotion(input, output, 1920).picture[0].samples[1], -9.6, 1e-9);
}

TEST(AddedMotion, WarnsOfASlowSwayBeyondTheLimitAlone) {
    const auto swaying = [](double degrees, double frequency, double host::Vector::*angle) {
        const CameraMove input = Still(1800, 30);
        CameraMove output = input;
        const auto samples = Sine(degrees, frequency, 30, 60);
        for (std::size_t i = 0; i < samples.size(); ++i)
            output.samples[i].angles.*angle = samples[i] * kRadiansPerDegree;
        return MeasureAddedMotion(input, output, 1920);
    };
    // 2 % of the width are 38.4 pixels: a sine of 1.62 degrees RMS 1.146 at 36 mm.
    EXPECT_FALSE(swaying(1.58, 0.25, &host::Vector::x).MakesSick());
    EXPECT_TRUE(swaying(1.66, 0.25, &host::Vector::x).MakesSick());
    EXPECT_FALSE(swaying(1.66, 1.25, &host::Vector::x).MakesSick());
    EXPECT_TRUE(swaying(5, 0.25, &host::Vector::z).MakesSick());
    EXPECT_NEAR(swaying(5, 0.25, &host::Vector::z).roll, 5 * kSineRms, 0.05 * kSineRms);
}

}  // namespace
}  // namespace tremolux
