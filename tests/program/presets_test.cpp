// Presets on the command line.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/program/run.h"

namespace {

using namespace program_test;
namespace fs = std::filesystem;

// With a copy of the product's module: what is imported goes into its folder.
class PresetsCommand : public testing::Test {
  protected:
    PresetsCommand() {
        const fs::path built = fs::path(TREMOLUX_PROGRAM_FILE).parent_path() / "plugins" / "TremoluxCam";
        fs::copy(built, folder_, fs::copy_options::recursive);
        module_ = (folder_ / fs::path(TREMOLUX_MODULE_FILE).filename()).string();
    }
    Outcome Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--module", module_});
        return workplace_.Run(arguments);
    }
    std::string Text(const std::vector<std::string> &arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    void ExpectRefused(const std::vector<std::string> &arguments, const std::string &said, int status = 2) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, status) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
    static bool Has(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }
    fs::path UserRoot() const { return workplace_.Settings() / "home" / "plugins" / "TremoluxCam"; }
    std::string Still() const {
        return workplace_.Write("still.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n1,0,0,0,0,0,0\n");
    }

    Workplace workplace_;
    fs::path folder_ = workplace_.Settings() / "module";
    std::string module_;
};

TEST_F(PresetsCommand, ListsCategoriesWithTheirPresetsAndSentences) {
    const std::string text = Text({"presets"});
    EXPECT_EQ(text.rfind("Hand-held\n  Standing still  ", 0), 0u) << text.substr(0, 100);
    for (const char *category : {"\nWalking and running\n", "\nVehicles\n", "\nMoods\n"})
        EXPECT_TRUE(Has(text, category));
    EXPECT_EQ(text, Text({"presets", "list"}));
}

TEST_F(PresetsCommand, HasAtLeastFortyEightInEightCategories) {
    const std::string text = Text({"presets"});
    int categories = 0, presets = 0;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        if (text[at] == '\n') continue;
        ++(text[at] == ' ' ? presets : categories);
    }
    EXPECT_GE(categories, 8);
    EXPECT_GE(presets, 48);
}

TEST_F(PresetsCommand, ListsTheFilesThatAreLeftOutWithTheReason) {
    Text({"presets", "save", "Mine"});
    EXPECT_FALSE(Has(Text({"presets"}), "Left out"));
    const fs::path file = UserRoot() / "User" / "00_Mine";
    fs::resize_file(file, fs::file_size(file) - 1);
    const std::string text = Text({"presets"});
    const std::string told =
        "\nLeft out\n  " + file.u8string() + ": found it damaged, expected a preset as it was saved\n";
    ASSERT_GE(text.size(), told.size());
    EXPECT_EQ(text.substr(text.size() - told.size()), told);
    EXPECT_FALSE(Has(text, "\nUser\n"));
}

TEST_F(PresetsCommand, ShowsAPresetInUnits) {
    const std::string text = Text({"presets", "show", "standing STILL"});
    EXPECT_TRUE(Has(text, "Shake Speed                   "));
    EXPECT_TRUE(Has(text, "6154 Overshoot Fade           100 %\n"));
    EXPECT_FALSE(Has(text, "Overall Scale"));
}

TEST_F(PresetsCommand, ShowsOnlyWhatDiffers) {
    EXPECT_EQ(Text({"presets", "diff", "Standing still", "Hand-held/Standing still"}), "");
    Text({"presets", "save", "Mine", "--from", "Standing still", "--set", "Rotation Slow=12.5deg"});
    const std::string text = Text({"presets", "diff", "Standing still", "Mine"});
    EXPECT_EQ(text.rfind("Rotation Slow ", 0), 0u) << text;
    EXPECT_TRUE(Has(text, "12.5\xC2\xB0\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
}

TEST_F(PresetsCommand, SavesAPresetThatCanBePlayed) {
    EXPECT_TRUE(Has(Text({"presets", "save", "Mine", "--set", "Position Slow=0.5%"}), "saved Mine in "));
    EXPECT_TRUE(fs::exists(UserRoot() / "User" / "00_Mine"));
    EXPECT_TRUE(Has(Text({"presets"}), "\nUser\n  Mine\n"));
    const std::string still = Still();
    Text({"shake", still, "--preset", "User/Mine", "-o", workplace_.Path("a.csv")});
    Text({"shake", still, "--preset", "Mine", "--set", "Position Slow=0%", "-o", workplace_.Path("b.csv")});
    EXPECT_NE(workplace_.Read("a.csv"), workplace_.Read("b.csv")) << "settings come on top of the preset";
}

TEST_F(PresetsCommand, ReplacesOnlyWhenTold) {
    Text({"presets", "save", "Mine"});
    ExpectRefused({"presets", "save", "mine", "--set", "Seed=1"}, "--replace");
    Text({"presets", "save", "Mine", "--set", "Seed=1", "--replace"});
    EXPECT_TRUE(Has(Text({"presets", "show", "Mine"}), "Seed                          1\n"));
    Text({"presets", "save", "Shared", "--default"});
    ExpectRefused({"presets", "save", "Shared", "--replace"}, "Preset name has already been used, choose another.");
}

TEST_F(PresetsCommand, RefusesNamesThatNoFileCanHave) {
    ExpectRefused({"presets", "save", ""}, "expected a name", 4);
    ExpectRefused({"presets", "save", std::string(200, 'x')}, "expected a name", 4);
}

TEST_F(PresetsCommand, FindsPresetsByAnyPartThatIsUnambiguous) {
    const std::string still = Still(), out = workplace_.Path("a.csv");
    for (const char *name : {"Hand-held/Standing still", "standing still", "Standing"})
        Text({"shake", still, "--preset", name, "-o", out});
    ExpectRefused({"shake", still, "--preset", "e", "-o", workplace_.Path("no.csv")},
                  "presets 'e', expected one of them");
    ExpectRefused({"shake", still, "--preset", "Standing stil1", "-o", workplace_.Path("no.csv")},
                  "did you mean 'Hand-held/Standing still'?");
    ExpectRefused({"presets", "show", "stnading still"}, "did you mean 'Hand-held/Standing still'?");
    EXPECT_EQ(Text({"presets", "show", "STILL hand standing"}), Text({"presets", "show", "Standing still"}));
    EXPECT_EQ(Text({"presets", "show", "walk"}), Text({"presets", "show", "Brisk walk"}));
    ExpectRefused({"presets", "show", "vehicles"}, "expected one of them: 'Vehicles/");
    // A word of its own is nearer than the start of "Careful", which the panel has before it.
    ExpectRefused({"presets", "show", "car"}, "expected one of them: 'Vehicles/City car', ");
    ExpectRefused({"shake", still, "--preset", "Nowhere/Standing still", "-o", workplace_.Path("no.csv")}, "--preset");
    EXPECT_EQ(workplace_.Read("no.csv"), "(missing)");
}

TEST_F(PresetsCommand, ExportsAndImports) {
    Text({"presets", "save", "Mine", "--set", "Seed=77"});
    EXPECT_TRUE(Has(Text({"presets", "export", "Mine"}), "Exports"));
    const fs::path exported = UserRoot() / "Exports" / "User" / "00_Mine";
    ASSERT_TRUE(fs::exists(exported));
    Text({"presets", "export", "Standing still"});
    EXPECT_TRUE(fs::exists(UserRoot() / "Exports" / "1_Hand-held" / "1_Standing still"));
    Text({"presets", "export", "--all", "--built-in"});
    EXPECT_TRUE(fs::is_directory(UserRoot() / "Exports" / "2_Walking and running"));

    fs::remove(UserRoot() / "User" / "00_Mine");
    EXPECT_EQ(Text({"presets", "import", exported.string()}), "imported 1 into User\n");
    EXPECT_TRUE(Has(Text({"presets", "show", "Mine"}), "Seed                          77\n"));
    Text({"presets", "import", exported.string(), "--category", "Own category"});
    EXPECT_TRUE(Has(Text({"presets"}), "\nOwn category\n"));
    EXPECT_TRUE(fs::exists(exported)) << "what was given stays";
}

TEST_F(PresetsCommand, ImportsNothingButPresets) {
    ExpectRefused({"presets", "import", workplace_.Write("note", "no preset")}, "found no preset");
    ExpectRefused({"presets", "import", workplace_.Path("missing")}, "missing");
    Text({"presets", "save", "Mine"});
    const std::string file = (UserRoot() / "User" / "00_Mine").string();
    for (const char *category : {"../up", "/abs", "..", ".", "a/b", ""})
        ExpectRefused({"presets", "import", file, "--category", category}, "--category");
    EXPECT_FALSE(fs::exists(folder_ / "up"));
}

TEST_F(PresetsCommand, ImportsAllFilesOrNone) {
    Text({"presets", "save", "Mine"});
    const fs::path saved = UserRoot() / "User" / "00_Mine", twin = fs::path(workplace_.Path("twin")) / "00_Mine";
    fs::create_directories(twin.parent_path());
    fs::copy_file(saved, twin);
    ExpectRefused({"presets", "import", saved.string(), twin.string()}, "holds no such file", 4);
    EXPECT_TRUE(fs::is_empty(folder_ / "Imports" / "User"));
}

TEST_F(PresetsCommand, TellsAndChoosesTheUsersFolder) {
    EXPECT_EQ(Text({"presets", "path"}), (UserRoot() / "User").string() + "\n");
    fs::create_directories(workplace_.Path("other"));
    EXPECT_EQ(Text({"presets", "path", workplace_.Path("other")}), workplace_.Path("other") + "\n");
    EXPECT_EQ(Text({"presets", "path"}), workplace_.Path("other") + "\n") << "it is remembered";
    Text({"presets", "save", "Mine"});
    EXPECT_TRUE(fs::exists(fs::path(workplace_.Path("other")) / "00_Mine"));
    EXPECT_EQ(Text({"presets", "path", "--reset"}), (UserRoot() / "User").string() + "\n");
    ExpectRefused({"presets", "path", workplace_.Path("missing")}, "expected a folder that is there");
}

TEST_F(PresetsCommand, ShowsAPresetOnThePanel) {
    const std::string text = Text({"panel", "--preset", "Standing still"});
    EXPECT_TRUE(Has(text, "Category [Hand-held v]   Preset [Standing still v]"));
}

}  // namespace
