// Settings that come nearest to a recording.
#include "library/fit/fit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <numeric>

#include "host/value/radians.h"
#include "library/failure.h"
#include "library/fit/balance.h"
#include "library/shots/embedded_host.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"
#include "tests/support/tools.h"

namespace tremolux {
namespace {

using namespace program_test;
using host::kPi;

constexpr double kRate = 24;
constexpr std::size_t kMinute = 1440;

std::vector<double> Sine(double hertz, double amplitude, std::size_t count = kMinute) {
    std::vector<double> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = amplitude * std::sin(2 * kPi * hertz * static_cast<double>(i) / kRate);
    return samples;
}

AxisMotion OnX(const std::vector<double> &samples) {
    AxisMotion motion;
    motion.fill(std::vector<double>(samples.size()));
    motion[0] = samples;
    return motion;
}

TEST(ShakeLevelsOf, ASineIsInItsBandWithTheRmsOfASine) {
    constexpr double kHertz[] = {0.5, 2.5, 8};
    for (std::size_t band = 0; band < kFitBands.size(); ++band) {
        const ShakeLevels levels = MeasureLevels({OnX(Sine(kHertz[band], 3))}, kRate);
        for (std::size_t other = 0; other < kFitBands.size(); ++other)
            EXPECT_NEAR(levels[0].bands[other], other == band ? 3 / std::sqrt(2.0) : 0, 0.02);
        EXPECT_NEAR(levels[0].total, 3 / std::sqrt(2.0), 0.02);
        EXPECT_TRUE(levels[1].IsStill());
    }
}

TEST(ShakeLevelsOf, ADriftIsNoShake) {
    std::vector<double> samples(kMinute);
    for (std::size_t i = 0; i < kMinute; ++i) {
        const double share = (static_cast<double>(i) + 0.5) / kMinute;
        // Eleven half periods in a minute are 0.092 Hz.
        samples[i] = 7 + 120 * share + 30 * std::cos(11 * kPi * share);
    }
    const double drift = RemoveDrift(kRate, &samples);
    for (const double left : samples) EXPECT_NEAR(left, 0, 1e-9);
    // A line's variance is a twelfth of its square; with the cosine's half it shares little.
    EXPECT_NEAR(drift, 120 * 120 / 12.0 + 30 * 30 / 2.0, 0.1 * 120 * 120 / 12.0);
}

TEST(DistanceBetween, IsNothingToItselfAndTheLogarithmOfAFactor) {
    const ShakeLevels one = MeasureLevels({OnX(Sine(2, 1))}, kRate), three = MeasureLevels({OnX(Sine(2, 3))}, kRate);
    ASSERT_GT(one[0].total, 0);
    EXPECT_EQ(DistanceOf(one, one), 0);
    EXPECT_NEAR(DistanceOf(three, one), std::log(3), 1e-9);
    EXPECT_NEAR(DistanceOf(one, three), std::log(3), 1e-9);
}

TEST(DistanceBetween, WhatDoesNotMoveIsAThousandfoldOffAndAxesThatStandStillAreNotAsked) {
    const ShakeLevels wanted = MeasureLevels({OnX(Sine(2, 1))}, kRate);
    EXPECT_NEAR(DistanceOf(ShakeLevels{}, wanted), std::log(1000), 1e-9);
    ShakeLevels more = wanted;
    more[4].bands = {9, 9, 9};
    EXPECT_EQ(DistanceOf(more, wanted), 0);
}

// Powers of three layers in four terms that differ, alike for the axes.
LayerPowers SomePowers() {
    LayerPowers powers{};
    constexpr TermPowers kLayersPowers[kLayers] = {
        {4, 0.1, 0.001, 4.101, 0}, {0.3, 2, 0.05, 2.35, 0}, {0.01, 0.4, 1, 1.41, 0}};
    for (auto &axis : powers) std::copy(std::begin(kLayersPowers), std::end(kLayersPowers), axis.begin());
    return powers;
}

TEST(BalanceOfLayers, IsFoundAgainFromThePowersThatItMakes) {
    const LayerPowers powers = SomePowers();
    constexpr double kWeights[] = {0.5, 0.2, 0.7}, kAmplitudes[] = {1, 0.3, 2};
    ShakeLevels wanted{};
    for (std::size_t axis = 0; axis < kGroupAxes; ++axis) {
        const auto rms = [&](std::size_t term) {
            double sum = 0;
            for (std::size_t layer = 0; layer < kLayers; ++layer)
                sum += kWeights[layer] * kWeights[layer] * powers[axis][layer][term];
            return kAmplitudes[axis] * std::sqrt(sum);
        };
        for (std::size_t band = 0; band < kFitBands.size(); ++band) wanted[axis].bands[band] = rms(band);
        wanted[axis].total = rms(kTotalTerm);
    }
    const Balance found = FindBalance(powers, WishOf(wanted, 0), 1000);
    EXPECT_LT(found.loss, 0.05);
    for (std::size_t axis = 0; axis < kGroupAxes; ++axis)
        for (std::size_t layer = 0; layer < kLayers; ++layer)
            EXPECT_NEAR(found.weights[layer] * found.amplitudes[axis] / (kWeights[layer] * kAmplitudes[axis]), 1, 0.03);
}

TEST(BalanceOfLayers, StaysWithinWhatTheSlidersReach) {
    ShakeLevels wanted{};
    wanted[0].bands = {1, 1, 50};
    wanted[0].total = 50;
    const Balance found = FindBalance(SomePowers(), WishOf(wanted, 0), 4);
    for (const double weight : found.weights) EXPECT_LE(weight * found.amplitudes[0], 4 * (1 + 1e-6));
    EXPECT_GT(found.loss, 0);
}

TEST(SettingsOfAGroup, AreTheProductsOfWeightAndAmplitudeWithinTheSliders) {
    constexpr std::array<double, 3> kWeights = {0.3, 2, 7}, kAmplitudes = {0.5, 1, 0.25};
    const GroupSettings group = SpreadOverSliders(kWeights, kAmplitudes, kMostPositionWeight);
    EXPECT_LE(group.intensity, kMostIntensity);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_LE(group.ratios[axis], kMostRatio);
        for (std::size_t layer = 0; layer < 3; ++layer) {
            EXPECT_LE(group.weights[layer], kMostPositionWeight);
            EXPECT_NEAR(group.intensity * group.ratios[axis] * group.weights[layer],
                        kWeights[layer] * kAmplitudes[axis], 1e-12);
        }
    }
}

// The module with its presets.
std::string BuiltIn() {
    namespace fs = std::filesystem;
    return (fs::path(TREMOLUX_PROGRAM_FILE).parent_path() / "plugins" / "TremoluxCam" /
            fs::path(TREMOLUX_MODULE_FILE).filename())
        .string();
}

class Fitting : public testing::Test {
  protected:
    static std::string Table(const CameraMove &move) {
        std::string text = "frame,x,y,z,h,p,b\n";
        for (std::size_t i = 0; i < move.samples.size(); ++i) {
            const CameraSample &s = move.samples[i];
            text += std::to_string(i);
            for (const double value : {s.position.x, s.position.y, s.position.z, s.angles.x / kRadiansPerDegree,
                                       s.angles.y / kRadiansPerDegree, s.angles.z / kRadiansPerDegree})
                text += "," + std::to_string(value);
            text += "\n";
        }
        return text;
    }
    std::string Still(std::size_t frames) {
        CameraMove move;
        move.samples.resize(frames);
        return workplace_.Write("still.csv", Table(move));
    }
    // What the arguments make of a camera that stands still.
    CameraMove Shaken(std::vector<std::string> arguments, std::size_t frames = 240) {
        arguments.insert(arguments.begin(),
                         {"shake", Still(frames), "-o", workplace_.Path("shaken.csv"), "--fps", "24", "--quiet"});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        CameraMove move = ReadCsv("shaken.csv", workplace_.Read("shaken.csv"), {});
        move.rate = {24, 1};
        return move;
    }
    Outcome Fit(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "fit");
        arguments.insert(arguments.end(), {"--fps", "24", "--quiet", "--module", BuiltIn()});
        return workplace_.Run(arguments);
    }
    Workplace workplace_;
};

// Of settings far from each other, played with a seed that no fit tries.
TEST_F(Fitting, FindsSettingsAgainThatMoveAlike) {
    const EmbeddedHost host(TREMOLUX_MODULE_FILE, workplace_.Path("home"));
    Fitter fitter({24, 1}, 240, [](double) {});
    ShakeSettings calm, rough;
    calm.speed = 0.7;
    calm.smooth = 0.5;
    calm.seed = 4711;
    calm.position_weights = {0.1, 0.4, 0.5};
    calm.rotation_weights = {10, 5, 40};
    calm.position_ratios = calm.rotation_ratios = {1, 0.5, 1.5};
    rough.speed = 1.7;
    rough.variation = 0.6;
    rough.seed = 815;
    rough.rotation_weights = {20, 60, 0};
    rough.rotation_ratios = {0.3, 1, 0.8};
    for (const ShakeSettings &settings : {calm, rough}) {
        const ShakeLevels wanted = fitter.LevelsOfSeed(settings);
        const ShakeSettings found = fitter.Fit(wanted);
        EXPECT_LT(DistanceOf(fitter.LevelsOfSeed(found), wanted), 0.1);
        EXPECT_LT(DistanceOf(fitter.Levels(found, kJudgedTakes), wanted), 0.3);
    }
}

TEST_F(Fitting, HoldsEverythingWithinTheSlidersForWhatIsBeyondThem) {
    const EmbeddedHost host(TREMOLUX_MODULE_FILE, workplace_.Path("home"));
    Fitter fitter({24, 1}, 240, [](double) {});
    ShakeLevels wanted{};
    for (AxisLevels &axis : wanted) axis = {{1e5, 1e5, 1e5}, 2e5, 0};
    const ShakeSettings found = fitter.Fit(wanted);
    EXPECT_LE(found.speed, kMostSpeed);
    EXPECT_GE(found.variation, kLeastVariation);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_LE(found.position_weights[i], kMostPositionWeight);
        EXPECT_LE(found.rotation_weights[i], kMostRotationWeight);
        EXPECT_LE(found.position_ratios[i], kMostRatio);
        EXPECT_LE(found.rotation_ratios[i], kMostRatio);
    }
}

TEST_F(Fitting, TwoCamerasMakeWhatOneBalanceForAllAxesCannot) {
    const EmbeddedHost host(TREMOLUX_MODULE_FILE, workplace_.Path("home"));
    Fitter fitter({24, 1}, 240, [](double) {});
    // A step lifts at 2 Hz where the way sideways is slow.
    ShakeLevels wanted{};
    wanted[0] = {{3, 0.1, 0.003}, 3, 0};
    wanted[1] = {{0.3, 2, 0.003}, 2, 0};
    wanted[2] = {{1, 0.1, 0.003}, 1, 0};
    const double alone = DistanceOf(fitter.Levels(fitter.Search(wanted), kJudgedTakes), wanted),
                 pair = DistanceOf(fitter.Levels(fitter.FitPair(wanted), kJudgedTakes), wanted);
    EXPECT_LT(pair, 0.75 * alone);
}

TEST_F(Fitting, WritesAPresetThatPlaysNearerToTheRecordingThanAnyThatThereWas) {
    const CameraMove recorded = Shaken({"--set", "Position Slow=7%", "--set", "Rotation Medium=25deg", "--set", "P=60%",
                                        "--set", "Shake Speed=130%", "--set", "Seed=77", "--set", "Jolt=off"});
    const std::string recording = workplace_.Write("recording.csv", Table(recorded));
    const Outcome outcome = Fit({recording, "-o", workplace_.Path("Mine"), "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_LT(json.at("after").at("distance_of_own_seed"), 0.3);
    EXPECT_LT(json.at("after").at("distance"), json.at("before").at("distance"));
    EXPECT_EQ(json.at("half_by_half").size(), 2U);

    const CameraMove played = Shaken({"--preset", workplace_.Path("Mine")});
    const RecordedShake a = CutIntoParts(recorded, "recording"), b = CutIntoParts(played, "played");
    EXPECT_NEAR(DistanceOf(b.Levels(), a.Levels()), json.at("after").at("distance_of_own_seed"), 1e-3);
}

TEST_F(Fitting, DrawsBothSpectraAndTakes) {
    if (!test_support::CanRun("gnuplot", workplace_.Settings())) GTEST_SKIP() << "no gnuplot on this system";
    const std::string recording =
        workplace_.Write("recording.csv", Table(Shaken({"--set", "Rotation Slow=7deg", "--set", "Jolt=off"})));
    const Outcome outcome = Fit({recording, "-o", workplace_.Path("Mine"), "--plot", workplace_.Path("plot.svg")});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string drawing = workplace_.Read("plot.svg");
    for (const char *word : {"recorded", "fitted", "heading", "Hz"})
        EXPECT_NE(drawing.find(word), std::string::npos) << word;
}

TEST_F(Fitting, SaysWhatItFoundForEachAxisAndBand) {
    const std::string recording = workplace_.Write(
        "recording.csv",
        Table(Shaken({"--set", "Rotation Slow=7deg", "--set", "Rotation Medium=9deg", "--set", "Jolt=off"})));
    const Outcome outcome = Fit({recording, "-o", workplace_.Path("Mine"), "--layers", "2"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    for (const char *axis : {"heading", "pitch", "bank"}) EXPECT_NE(outcome.out.find(axis), std::string::npos) << axis;
    EXPECT_EQ(outcome.out.find("\nx "), std::string::npos) << "the position stands still";
    for (const char *words : {"below 1 Hz", "1 to 4 Hz", "4 to 12 Hz", "D 0.", "one half and judged by the other"})
        EXPECT_NE(outcome.out.find(words), std::string::npos) << words;
    EXPECT_EQ(Shaken({"--preset", workplace_.Path("Mine")}).samples.size(), 240U);
}

TEST_F(Fitting, NeedsNoPresets) {
    const std::string recording =
        workplace_.Write("recording.csv", Table(Shaken({"--set", "Rotation Slow=7deg", "--set", "Jolt=off"})));
    const Outcome outcome =
        workplace_.Run({"fit", recording, "-o", workplace_.Path("Mine"), "--fps", "24", "--quiet", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_FALSE(nlohmann::json::parse(outcome.out).contains("before"));
    EXPECT_NE(
        workplace_.Run({"fit", recording, "-o", workplace_.Path("Mine"), "--fps", "24", "--quiet"}).out.find("D 0."),
        std::string::npos);
}

TEST_F(Fitting, RefusesWhatCannotBeFittedInOneLine) {
    const auto refused = [&](const std::vector<std::string> &arguments) {
        const Outcome outcome = Fit(arguments);
        EXPECT_NE(outcome.status, 0);
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(workplace_.Read("Mine"), "(missing)");
        return outcome.err;
    };
    EXPECT_NE(refused({Still(40), "-o", workplace_.Path("Mine")}).find("expected at least 2"), std::string::npos);
    EXPECT_NE(refused({Still(100), "-o", workplace_.Path("Mine")}).find("a camera that stands still"),
              std::string::npos);
    EXPECT_NE(refused({Still(100), "-o", workplace_.Path("Mine"), "--layers", "3"}).find("--layers: found '3'"),
              std::string::npos);
}

TEST_F(Fitting, TheNearestPresetToAPresetsOwnMotionIsThatPreset) {
    const std::string recording = workplace_.Write(
        "recording.csv", Table(Shaken({"--preset", "Gravel bike", "--seed", "3", "--module", BuiltIn()}, kMinute)));
    const Outcome outcome =
        workplace_.Run({"presets", "nearest", recording, "--fps", "24", "--quiet", "--json", "--module", BuiltIn()});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const auto near = nlohmann::json::parse(outcome.out).at("nearest");
    ASSERT_GT(near.size(), 60U);
    EXPECT_EQ(near.at(0).at("name"), "Gravel bike");
    for (std::size_t i = 1; i < near.size(); ++i) EXPECT_GE(near.at(i).at("distance"), near.at(i - 1).at("distance"));
}

}  // namespace
}  // namespace tremolux
