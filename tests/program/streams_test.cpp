// "-" in the place of files.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/program/run.h"

namespace {

using namespace program_test;

class Streams : public testing::Test {
  protected:
    Streams() {
        std::ostringstream text;
        text << "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
        for (int frame = 0; frame < 20; ++frame) text << frame << "," << 2 * frame << ",150,-300,0,-5,0,35,400\n";
        move_ = text.str();
        workplace_.Write("move.csv", move_);
    }
    std::string Path(const std::string &name) { return workplace_.Path(name); }
    // Nothing but the result on the standard output.
    std::string Piped(const std::vector<std::string> &arguments, const std::string &input) {
        const Outcome outcome = workplace_.RunBare(arguments, input);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.out;
    }
    void ExpectRefused(const std::vector<std::string> &arguments, const std::string &line) {
        const Outcome outcome = workplace_.RunBare(arguments, move_);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(outcome.err.rfind(line, 0), 0u) << outcome.err;
    }
    Workplace workplace_;
    std::string move_;
};

TEST_F(Streams, CarryTheBytesThatFilesWouldHold) {
    ASSERT_EQ(workplace_.RunBare({"convert", Path("move.csv"), "-o", Path("a.glb"), "-o", Path("a.json")}).status, 0);
    for (const char *format : {".glb", ".json"}) {
        const std::string bytes = workplace_.Read(std::string("a") + format);
        EXPECT_EQ(Piped({"convert", "-", "-o", "-", "--format", ".csv", "--to-format", format}, move_), bytes);
        EXPECT_EQ(Piped({"convert", "-", "-o", "-", "--format", format, "--to-format", "csv"}, bytes),
                  Piped({"convert", Path(std::string("a") + format), "-o", "-", "--to-format", ".csv"}, ""));
    }
    ASSERT_EQ(workplace_.RunBare({"shake", Path("move.csv"), "-o", Path("shaken.csv")}).status, 0);
    EXPECT_EQ(Piped({"shake", "-", "-o", "-", "--format", ".csv"}, move_), workplace_.Read("shaken.csv"));
}

TEST_F(Streams, LeaveTheReportToTheErrorOutput) {
    const Outcome outcome =
        workplace_.RunBare({"shake", "-", "-o", "-", "-o", Path("a.csv"), "--format", ".csv", "--report"}, move_);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, workplace_.Read("a.csv"));
    EXPECT_NE(outcome.err.find("strayed"), std::string::npos) << outcome.err;
}

TEST_F(Streams, AreInspectedTracedAndKeyed) {
    EXPECT_NE(Piped({"inspect", "-", "--format", ".csv"}, move_).find("20"), std::string::npos);
    const std::string trace = Piped({"trace", "-", "--format", ".csv"}, move_);
    EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'), 20);
    EXPECT_EQ(Piped({"panel", "-o", "-"}, "").rfind("<!doctype html>", 0), 0u);
}

TEST_F(Streams, StandOnceEachWayAndSayTheirFormat) {
    ExpectRefused({"convert", "-", "-o", Path("a.csv")}, "-: found no format, expected --format .csv or another of ");
    ExpectRefused({"convert", Path("move.csv"), "-o", "-"}, "-: found no format, expected --to-format .csv");
    ExpectRefused({"convert", "-", "-o", "-", "--format", ".xyz"}, "stdout.xyz: found the extension '.xyz'");
    ExpectRefused({"convert", "-", "-o", "-", "-o", "-", "--format", ".csv"},
                  "-: found twice, expected the standard output once");
    ExpectRefused({"shake", "-", "--target", "-", "-o", Path("a.csv"), "--format", ".csv"},
                  "-: found twice, expected the standard input once");
    ExpectRefused({"shake", Path("move.csv"), "-o", Path("a.csv"), "--scene", "-"}, "--scene: found '-'");
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}

TEST_F(Streams, NameTheirLinesInMessages) {
    const Outcome outcome =
        workplace_.RunBare({"convert", "-", "-o", Path("a.csv"), "--format", ".csv"}, move_ + "x,1\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err.rfind("stdin.csv:22:", 0), 0u) << outcome.err;
}

}  // namespace
