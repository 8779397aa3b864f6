// The tool that turns the presets' texts into preset files.
#include <gtest/gtest.h>

#include "library/presets/pair.h"
#include "tests/program/run.h"
#include "tests/support/process.h"

namespace {

using namespace program_test;
namespace fs = std::filesystem;

class PresetCompiler : public testing::Test {
  protected:
    PresetCompiler() { fs::create_directories(workplace_.Path("texts/1_A")); }
    void Text(const std::string &file, const std::string &text) { workplace_.Write("texts/1_A/" + file, text); }
    // Its exit status; what it said is in "said".
    int Compile() {
        return test_support::RunProcess(
            {TREMOLUX_COMPILER_FILE, TREMOLUX_MODULE_FILE, workplace_.Path("texts"), workplace_.Path("result")},
            workplace_.Path("out"), workplace_.Path("said"));
    }
    void ExpectRefused(const std::string &text, const std::string &said) {
        Text("1_Bad.txt", text);
        EXPECT_NE(Compile(), 0) << text;
        EXPECT_NE(workplace_.Read("said").find("1_Bad.txt"), std::string::npos) << workplace_.Read("said");
        EXPECT_NE(workplace_.Read("said").find(said), std::string::npos) << workplace_.Read("said");
    }
    Workplace workplace_;
};

constexpr std::int32_t kSeed = 6142;
const std::string kHead = "name = Good\nabout = A sentence.\n\n[settings]\n";

TEST_F(PresetCompiler, WritesEachCategoryAndTheListOfAll) {
    Text("1_Good.txt",
         kHead + "# a comment\nPosition Slow = 0.5 %\n6154 Overshoot Fade = 80 %\nInterval = 12 frames\n");
    Text("2_Other.txt", "name = Other\nabout = Another.\n");
    ASSERT_EQ(Compile(), 0) << workplace_.Read("said");
    EXPECT_TRUE(fs::is_regular_file(workplace_.Path("result/Presets/1_A/1_Good")));
    EXPECT_TRUE(fs::is_regular_file(workplace_.Path("result/Presets/1_A/2_Other")));
    EXPECT_NE(workplace_.Read("result/presets.json").find("\"about\": \"A sentence.\""), std::string::npos);
    EXPECT_FALSE(fs::exists(workplace_.Path("result/.user")));
}

TEST_F(PresetCompiler, PutsASecondCamerasSettingsIntoTheFile) {
    Text("1_Alone.txt", kHead + "Position Slow = 0.5 %\n");
    Text("2_Pair.txt",
         "name = Pair\nabout = Two.\n\n[settings]\nSeed = 3\n\n[then]\nSeed = 4711\n\n[aim]\nsource = x\n\n"
         "[measured]\nx = 1 2 3 cm\n\n[motion]\nframe rate = 25\n");
    ASSERT_EQ(Compile(), 0) << workplace_.Read("said");
    const auto read = [&](const char *name) {
        return tremolux::ReadPresetFile(workplace_.Path(std::string("result/Presets/1_A/") + name));
    };
    EXPECT_FALSE(tremolux::SecondOf(read("1_Alone")));
    const host::Container pair = read("2_Pair");
    EXPECT_EQ(pair.Real(kSeed), 3);
    ASSERT_TRUE(tremolux::SecondOf(pair));
    EXPECT_EQ(tremolux::SecondOf(pair)->Real(kSeed), 4711);
    EXPECT_NE(workplace_.Read("result/presets.json").find("\"frames_per_second\": 25"), std::string::npos);
}

TEST_F(PresetCompiler, ForgetsPresetsThatAreGone) {
    Text("1_Good.txt", kHead);
    ASSERT_EQ(Compile(), 0);
    fs::rename(workplace_.Path("texts/1_A/1_Good.txt"), workplace_.Path("texts/1_A/2_Good.txt"));
    ASSERT_EQ(Compile(), 0);
    EXPECT_FALSE(fs::exists(workplace_.Path("result/Presets/1_A/1_Good")));
}

TEST_F(PresetCompiler, RefusesWhatItDoesNotUnderstandWithFileAndReason) {
    ExpectRefused(kHead + "Position Slo = 1 %\n", "did you mean 'Position Slow'?");
    ExpectRefused(kHead + "Overshoot Fade = 1 %\n", "6154 or 6035");
    ExpectRefused(kHead + "6154 Position Slow = 1 %\n", "found no parameter");
    ExpectRefused(kHead + "Initial Pos Smooth = 120 %\n", "120");
    ExpectRefused(kHead + "Position Slow = fast\n", "fast");
    ExpectRefused(kHead + "just words\n", ":5:1: found 'just words'");
    ExpectRefused("nam = Good\n", ":1:1: found 'nam'");
    ExpectRefused("name = Good\n", "no sentence");
    ExpectRefused("name = a/b\nabout = A.\n", "file names");
    ExpectRefused(kHead + "Seed = 1", "line end");
    ExpectRefused(kHead + "[then]\nPosition Slo = 1 %\n", "did you mean 'Position Slow'?");
}

TEST_F(PresetCompiler, RefusesTwoPresetsOfOneName) {
    Text("1_A.txt", kHead);
    ExpectRefused(kHead, "second preset 'Good'");
}

}  // namespace
