// Drawings of a motion.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/program/run.h"
#include "tests/support/tools.h"

namespace {

using namespace program_test;

class Plot : public testing::Test {
  protected:
    void SetUp() override {
        if (!test_support::CanRun("gnuplot", workplace_.Settings())) GTEST_SKIP() << "no gnuplot on this system";
        std::string move = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 60; ++frame)
            move += std::to_string(frame) + "," + std::to_string(frame) + ",0,0,0,0,0\n";
        move_ = workplace_.Write("move.csv", move);
    }
    Outcome Shake(const std::vector<std::string> &more) const {
        std::vector<std::string> arguments = {"shake", move_, "-o", workplace_.Path("out.csv")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return workplace_.Run(arguments);
    }
    Workplace workplace_;
    std::string move_;
};

TEST_F(Plot, ShowsEveryChannelInItsUnitWithTheJolts) {
    const Outcome outcome =
        Shake({"--plot", workplace_.Path("p.svg"), "--set", "Jolt=on", "--set", "Custom Trigger=20"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string sheet = workplace_.Read("p.svg"), second = workplace_.Read("p-spectrum.svg");
    for (const char *text :
         {"x, cm", "y, cm", "z, cm", "heading, degrees", "pitch, degrees", "bank, degrees", "focal length, mm",
          "focus distance, cm", "time, seconds", "input camera", "shaken camera", ">jolt<"}) {
        EXPECT_NE(sheet.find(text), std::string::npos) << text;
    }
    for (const char *text : {"the path seen from above", "frequency, Hz", "RMS in a third of an octave, degrees",
                             "added to the position"}) {
        EXPECT_NE(second.find(text), std::string::npos) << text;
    }
}

TEST_F(Plot, IsAPictureToo) {
    ASSERT_EQ(Shake({"--plot", workplace_.Path("p.png")}).status, 0);
    EXPECT_EQ(workplace_.Read("p.png").substr(1, 3), "PNG");
    EXPECT_EQ(workplace_.Read("p-spectrum.png").substr(1, 3), "PNG");
}

TEST_F(Plot, OfACameraThatNothingMovesIsDrawnToo) {
    workplace_.Write("move.csv", "frame,x,y,z,h,p,b\n7,0,0,0,0,0,0\n");
    const Outcome outcome = Shake({"--plot", workplace_.Path("p.svg"), "--set", "Position Intensity=0", "--set",
                                   "Rotation Intensity=0", "--set", "Jolt=off"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(workplace_.Read("p-spectrum.svg").find("nothing was added"), std::string::npos);
}

TEST_F(Plot, OfAMoveOfOneOrTwoFramesIsDrawnToo) {
    for (const char *second : {"", "8,1,0,0,0,0,0\n"}) {
        workplace_.Write("move.csv", std::string("frame,x,y,z,h,p,b\n7,0,0,0,0,0,0\n") + second);
        for (const char *sheet : {"p.svg", "p.png"}) {
            const Outcome outcome = Shake({"--plot", workplace_.Path(sheet)});
            ASSERT_EQ(outcome.status, 0) << outcome.err;
        }
        EXPECT_NE(workplace_.Read("p-spectrum.svg").find("the path seen from above"), std::string::npos);
    }
}

TEST_F(Plot, HasRoomForItsAxisTitlesBesideLongNumbers) {
    // Next to nothing moves, far from the origin: numbers like -123.45 on the axes.
    workplace_.Write("move.csv",
                     "frame,x,y,z,h,p,b\n0,-123.45,-123.45,-123.45,0,0,0\n1,-123.45,-123.45,-123.45,0,0,0\n");
    const Outcome outcome = Shake({"--plot", workplace_.Path("p.svg"), "--set", "Position Intensity=0.001"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    constexpr double kLineHeight = 13;
    for (const char *sheet : {"p.svg", "p-spectrum.svg"}) {
        const std::string text = workplace_.Read(sheet);
        const std::string place = "translate(";
        int titles = 0;
        for (std::size_t turn = text.find("rotate(270)"); turn != std::string::npos;
             turn = text.find("rotate(270)", turn + 1), ++titles) {
            EXPECT_GE(std::stod(text.substr(text.rfind(place, turn) + place.size())), kLineHeight) << sheet;
        }
        EXPECT_GE(titles, 3) << sheet;
    }
}

TEST_F(Plot, IsRefusedInOtherFormatsBeforeAnythingIsDone) {
    const Outcome outcome = Shake({"--plot", workplace_.Path("p.pdf")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("found the extension '.pdf', expected .svg or .png"), std::string::npos) << outcome.err;
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}

#ifndef _WIN32
TEST_F(Plot, SaysWhatToInstallWhereGnuplotIsMissing) {
    const std::string path = std::getenv("PATH");
    setenv("PATH", workplace_.Settings().c_str(), 1);
    const Outcome outcome = Shake({"--plot", workplace_.Path("p.svg")});
    setenv("PATH", path.c_str(), 1);
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err, "gnuplot is missing: install it (on Debian the package gnuplot-nox)\n");
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}
#endif

}  // namespace
