// The page about a shaken move.
#include "tremolux/pictures/report_page.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/program/run.h"
#include "tests/support/tools.h"

namespace tremolux {
namespace {

using namespace program_test;

constexpr double kTurn = 6.28318530717958647693;

// A camera that stands, and one that sways beside it: 2 cm at 1 Hz along x, and so many degrees at 0.25 Hz of heading.
ReportContents Swaying(double degrees) {
    ReportContents contents;
    contents.title = "a <b> & \"c\".csv";
    contents.motion.input.samples.resize(1200);
    contents.motion.output = contents.motion.input;
    for (std::size_t i = 0; i < 1200; ++i) {
        const double seconds = static_cast<double>(i) / 30;
        contents.motion.output.samples[i].position.x = 2 * std::cos(kTurn * seconds);
        contents.motion.output.samples[i].angles.x = degrees * kRadiansPerDegree * std::sin(kTurn * 0.25 * seconds);
    }
    contents.picture_width = 1920;
    contents.added = MeasureAddedMotion(contents.motion.input, contents.motion.output, 1920);
    contents.settings = {{"Shake <Speed>", "120 %", "100 %"}};
    contents.plots = {"<svg/>", "<svg class=\"dark\"/>"};
    contents.spectra = {"<svg/>", "<svg class=\"dark\"/>"};
    contents.made_by = "Made by: tremolux report \"c\" <now>";
    contents.film = "film";
    return contents;
}

TEST(ReportPage, TellsTheFiguresOfAKnownSway) {
    const std::string page = ReportPage(Swaying(0.5));
    // RMS 2 / sqrt(2) cm, peak 2 cm, speed 2 pi 2 / sqrt(2) RMS; all of it between 0.5 and 3 Hz, at 1 Hz.
    EXPECT_NE(page.find("<tr><th>X, cm</th><td>1.41</td><td>2</td>"), std::string::npos);
    EXPECT_NE(page.find("<td>0</td><td>1.41</td><td>0</td><td>1</td></tr>"), std::string::npos);
    // 0.5 degrees peak are 0.354 RMS.
    EXPECT_NE(page.find("<tr><th>heading, deg</th><td>0.354</td><td>0.5</td>"), std::string::npos);
    EXPECT_NE(page.find("<th>Shake &lt;Speed&gt;</th><td>120 %</td><td>100 %</td>"), std::string::npos);
    EXPECT_NE(page.find("Made by: tremolux report &quot;c&quot; &lt;now&gt;"), std::string::npos);
    EXPECT_NE(page.find("<h1>a &lt;b&gt; &amp; &quot;c&quot;.csv</h1>"), std::string::npos);
}

TEST(ReportPage, WarnsOfSlowSwayBeyondTheLimit) {
    EXPECT_EQ(ReportPage(Swaying(1)).find("may make people sick"), std::string::npos);
    EXPECT_NE(ReportPage(Swaying(3)).find("may make people sick"), std::string::npos);
}

class ReportCommand : public testing::Test {
  protected:
    void SetUp() override {
        for (const char *tool : {"ffmpeg", "gnuplot"}) {
            if (!test_support::CanRun(tool, workplace_.Settings())) GTEST_SKIP() << "no " << tool << " on this system";
        }
    }
    Workplace workplace_;
};

TEST_F(ReportCommand, WritesOnePageThatNeedsNothingElse) {
    std::string move = "frame,x,y,z,h,p,b\n";
    for (int frame = 0; frame < 12; ++frame) move += std::to_string(frame) + ",0,160,0,0,0,0\n";
    const Outcome outcome =
        workplace_.Run({"report", workplace_.Write("move.csv", move), "-o", workplace_.Path("r.html"), "--set",
                        "Shake Speed=120%", "--resolution", "64x36"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string page = workplace_.Read("r.html");
    EXPECT_NE(page.find("<h1>move.csv</h1>"), std::string::npos);
    EXPECT_NE(page.find("<th>Shake Speed</th><td>120 %</td><td>100 %</td>"), std::string::npos);
    EXPECT_NE(page.find("src=\"data:video/mp4;base64,"), std::string::npos);
    EXPECT_NE(page.find("src=\"data:image/svg+xml;base64,"), std::string::npos);
    EXPECT_EQ(page.find("http"), std::string::npos);
    EXPECT_EQ(workplace_.Names(), (std::vector<std::string>{"move.csv", "r.html"}));
}

TEST_F(ReportCommand, TakesAMoveOfOneFrameOrTwo) {
    for (const char *second : {"", "1,0,161,0,0,0,0\n"}) {
        const std::string move = std::string("frame,x,y,z,h,p,b\n0,0,160,0,0,0,0\n") + second;
        const Outcome outcome = workplace_.Run(
            {"report", workplace_.Write("move.csv", move), "-o", workplace_.Path("r.html"), "--resolution", "64x36"});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_NE(workplace_.Read("r.html").find("src=\"data:video/mp4;base64,"), std::string::npos);
    }
}

TEST(ReportPageName, IsRefusedUnlessItIsAPagesBeforeAnythingIsDone) {
    const Workplace workplace;
    const std::string page = workplace.Path("m.pdf");
    const Outcome outcome = workplace.Run({"report", workplace.Path("missing.csv"), "-o", page});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, page + ": found the extension '.pdf', expected .html\n");
}

}  // namespace
}  // namespace tremolux
