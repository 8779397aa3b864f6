// Two cameras, the second of which takes what the first one makes.
#include "library/presets/pair.h"

#include <gtest/gtest.h>

#include "library/measures/strayed.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;

class Pairs : public testing::Test {
  protected:
    static std::string Move() {
        std::string text = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 120; ++frame)
            text += std::to_string(frame) + "," + std::to_string(frame) + ",160,0," + std::to_string(0.3 * frame) +
                    ",0,0\n";
        return text;
    }
    static std::string Still() {
        std::string text = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 48; ++frame) text += std::to_string(frame) + ",0,0,0,0,0,0\n";
        return text;
    }
    CameraMove Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"-o", workplace_.Path("out.csv"), "--fps", "24", "--quiet"});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return ReadCsv("out.csv", workplace_.Read("out.csv"), {});
    }
    void Save(const std::string &name, std::vector<std::string> settings) {
        std::vector<std::string> arguments = {"presets", "save", name, "--set", "Jolt=off"};
        for (const std::string &setting : settings) arguments.insert(arguments.end(), {"--set", setting});
        ASSERT_EQ(workplace_.Run(arguments).status, 0);
    }
    void ExpectSame(const CameraMove &a, const CameraMove &b) {
        ASSERT_EQ(a.samples.size(), b.samples.size());
        ASSERT_FALSE(a.samples.empty());
        for (std::size_t i = 0; i < a.samples.size(); ++i) {
            EXPECT_NEAR(host::Length(a.samples[i].position - b.samples[i].position), 0, 1e-9) << i;
            EXPECT_NEAR(TurnBetween(a.samples[i].angles, b.samples[i].angles), 0, 1e-7) << i;
        }
    }
    Workplace workplace_;
    const std::string input_ = workplace_.Write("in.csv", Move());
};

TEST_F(Pairs, TheSecondShakesWhatTheFirstHasShaken) {
    Save("Sway", {"Position Slow=10%", "Rotation Slow=20deg", "Seed=1", "Initial Pos Smooth=30%"});
    Save("Step",
         {"Position Medium=50%", "Rotation Medium=20deg", "Seed=2", "Shake Speed=150%", "Initial Pos Smooth=60%"});
    const CameraMove first = Run({"shake", input_, "--preset", "Sway"});
    const std::string between = workplace_.Write("between.csv", workplace_.Read("out.csv"));
    const CameraMove one_by_one =
        Run({"shake", between, "--preset", "Step", "--set", "Initial Pos Smooth=0", "--set", "Initial Rot Smooth=0",
             "--set", "Initial Pos Overshoot=0", "--set", "Initial Rot Overshoot=0"});
    const CameraMove pair = Run({"shake", input_, "--preset", "Sway", "--then", "Step"});
    ExpectSame(pair, one_by_one);
    EXPECT_GT(MeasureStrayed(first, pair).position.rms, 0.1) << "the second does something";
}

TEST_F(Pairs, APresetThenItselfIsNotTheSameTakeTwice) {
    Save("Sway", {"Position Slow=10%", "Seed=1"});
    const CameraMove still = Run({"shake", input_, "--set", "Jolt=off"}),
                     one = Run({"shake", input_, "--preset", "Sway"}),
                     two = Run({"shake", input_, "--preset", "Sway", "--then", "Sway"});
    double doubled = 0;
    for (std::size_t i = 0; i < two.samples.size(); ++i)
        doubled = std::max(doubled, host::Length(two.samples[i].position - one.samples[i].position -
                                                 (one.samples[i].position - still.samples[i].position)));
    EXPECT_GT(doubled, 0.5);
}

TEST_F(Pairs, AnotherSeedIsAnotherTakeOfBoth) {
    Save("Nothing", {"Seed=5"});
    Save("Sway", {"Position Slow=10%", "Seed=1"});
    const std::vector<std::string> pair = {"shake", input_, "--preset", "Nothing", "--then", "Sway"};
    std::vector<std::string> other = pair;
    other.insert(other.end(), {"--seed", "6"});
    const CameraMove a = Run(pair), b = Run(other), again = Run(other);
    EXPECT_GT(MeasureStrayed(a, b).position.rms, 0.1);
    ExpectSame(b, again);
}

TEST_F(Pairs, ABakeAndASavedSceneHoldBothCameras) {
    Save("Sway", {"Position Slow=10%", "Seed=1"});
    Save("Step", {"Rotation Medium=40deg", "Seed=2"});
    const std::vector<std::string> pair = {"shake", input_, "--preset", "Sway", "--then", "Step"};
    const CameraMove live = Run(pair);
    for (const char *kind : {"brute", "quick"}) {
        std::vector<std::string> baking = pair;
        baking.insert(baking.end(), {"--bake", kind, "--scene", workplace_.Path(std::string(kind) + ".scene")});
        const CameraMove baked = Run(baking);
        ASSERT_EQ(baked.samples.size(), live.samples.size());
        EXPECT_LT(MeasureStrayed(live, baked).position.peak, 1e-3) << kind;
        EXPECT_LT(MeasureStrayed(live, baked).angle.peak, 1e-3) << kind;
        for (const char *camera : {"First Camera", "Second Camera"}) {
            const Outcome keys =
                workplace_.Run({"keys", workplace_.Path(std::string(kind) + ".scene"), "--camera", camera});
            EXPECT_EQ(keys.status, 0) << keys.err;
            EXPECT_GT(std::count(keys.out.begin(), keys.out.end(), '\n'), 100) << camera;
        }
    }
}

TEST_F(Pairs, ABuiltInWalkIsAPair) {
    const std::string still = workplace_.Write("still.csv", Still());
    const Outcome outcome = workplace_.RunBare(
        {"shake", still, "-o", workplace_.Path("out.csv"), "--preset", "Brisk walk", "--fps", "24", "--quiet",
         "--scene", workplace_.Path("walk.scene"), "--user-folder", workplace_.Path("user")});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Outcome second = workplace_.Run({"keys", workplace_.Path("walk.scene"), "--camera", "Second Camera"});
    EXPECT_EQ(second.status, 0) << second.err;
}

TEST_F(Pairs, AnUnknownSecondPresetIsRefused) {
    const Outcome outcome = workplace_.Run({"shake", input_, "-o", workplace_.Path("out.csv"), "--then", "Nobody"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("--then: found no preset 'Nobody'"), std::string::npos) << outcome.err;
}

TEST(PresetPair, IsReadBackFromTheBytesOfItsFile) {
    host::Container first, second;
    first.Set(1002, host::Data("Walk"));
    second.Set(1002, host::Data("Step"));
    EXPECT_FALSE(SecondOf(first));
    const host::Container pair = PresetOfBytes("pair", BytesOfPreset(WithSecond(first, second)));
    EXPECT_EQ(NameOfPreset(pair), "Walk");
    ASSERT_TRUE(SecondOf(pair));
    EXPECT_EQ(NameOfPreset(*SecondOf(pair)), "Step");
}

}  // namespace
}  // namespace tremolux
