// The panel on the command line.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/program/run.h"

namespace {

using namespace program_test;

class PanelCommand : public testing::Test {
  protected:
    std::string Text(std::vector<std::string> options = {}) {
        options.insert(options.begin(), "panel");
        const Outcome outcome = workplace_.Run(options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    static bool HasLine(const std::string &text, const std::string &line) {
        return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
    }
    void ExpectRefused(const std::vector<std::string> &options, const std::string &said) {
        const Outcome outcome = workplace_.Run(options);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
    Workplace workplace_;
};

TEST_F(PanelCommand, PrintsTabByTab) {
    const std::string text = Text();
    std::size_t at = 0;
    for (const char *tab :
         {"\nTremoluxCam\n====", "\nTarget\n====", "\nZoom\n====", "\nFocus\n====", "\nAdvanced\n===="}) {
        const std::size_t found = text.find(tab, at);
        ASSERT_NE(found, std::string::npos) << tab;
        at = found;
    }
    EXPECT_TRUE(HasLine(text, "  Position Intensity      100 %"));
    EXPECT_TRUE(HasLine(text, "  <Coffee Cup>   <Human>   <Car>   <House>   <Skyscraper>"));
    EXPECT_TRUE(HasLine(text, "> On/Off Toggles")) << "closed at first";
}

TEST_F(PanelCommand, ShowsSettingsInTheirUnits) {
    const std::string text =
        Text({"--set", "Position Intensity=150%", "--set", "Rotation Slow=12.5deg", "--set", "Interval=1:04"});
    EXPECT_TRUE(HasLine(text, "  Position Intensity      150 %"));
    EXPECT_TRUE(HasLine(text, "  Rotation Slow           12.5\xC2\xB0"));
    EXPECT_TRUE(HasLine(text, "  Interval                34 F"));
}

TEST_F(PanelCommand, MarksWhatATargetSwitchesOff) {
    EXPECT_TRUE(HasLine(Text(), "Target Smooth           25 % (disabled)"));
    EXPECT_TRUE(HasLine(Text(), "  Initial Rot Smooth      25 %"));
    EXPECT_TRUE(HasLine(Text({"--target"}), "Target Smooth           25 %"));
    EXPECT_TRUE(HasLine(Text({"--target"}), "  Initial Rot Smooth      25 % (disabled)"));
}

TEST_F(PanelCommand, MarksAllButUnBakeOfABakedTag) {
    const std::string text = Text({"--baked"});
    EXPECT_TRUE(HasLine(text, "<Quick Bake> (disabled)   <Brute Force Bake> (disabled)   <Un-Bake>"));
    EXPECT_TRUE(HasLine(text, "  Position Intensity      100 % (disabled)"));
}

TEST_F(PanelCommand, WritesTheSamePageEveryTime) {
    EXPECT_EQ(workplace_.Run({"panel", "-o", workplace_.Path("a.html")}).status, 0);
    EXPECT_EQ(workplace_.Run({"panel", "--html", workplace_.Path("b.html")}).status, 0);
    const std::string page = workplace_.Read("a.html");
    EXPECT_EQ(page, workplace_.Read("b.html"));
    EXPECT_EQ(page.rfind("<!doctype html>", 0), 0u);
    EXPECT_NE(page.find("On/Off Toggles"), std::string::npos);
    EXPECT_NE(page.find("Input Smoothing &amp; Overshoot"), std::string::npos);
}

TEST_F(PanelCommand, KeepsTextsFromBreakingThePage) {
    EXPECT_EQ(
        workplace_.Run({"panel", "--set", "Name=\"><script>alert(1)</script>", "--html", workplace_.Path("a.html")})
            .status,
        0);
    EXPECT_EQ(workplace_.Read("a.html").find("<script>alert"), std::string::npos);
}

TEST_F(PanelCommand, RefusesUnknownPresetsAndPlacesThatCannotBeWritten) {
    ExpectRefused({"panel", "--preset", "Nobody"}, "'Nobody'");
    const Outcome outcome = workplace_.Run({"panel", "--html", workplace_.Path("missing") + "/a.html"});
    EXPECT_NE(outcome.status, 0);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
}

}  // namespace
