// The program as a user meets it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "library/formats/chan.h"
#include "library/formats/csv.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;
namespace fs = std::filesystem;

constexpr const char *kHeader = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";

// Pushes in along Z, pans a third of a degree a frame, zooms.
std::string Move(int first, int count) {
    std::ostringstream text;
    text << kHeader;
    for (int i = 0; i < count; ++i)
        text << first + i << ",10,150," << -300 + 2 * i << "," << i * 0.3 << ",-5,2," << 30 + 0.1 * i << "," << 400 - i
             << "\n";
    return text.str();
}

const std::vector<std::string> kHandHeld = {"--set", "Position Slow=1%", "--set", "Position Fast=1%",
                                            "--set", "Rotation Slow=5",  "--set", "Rotation Medium=3deg"};

// Every smoothing and every overshoot off: what goes in comes out at once.
std::vector<std::string> FiltersOff() {
    std::vector<std::string> settings;
    for (const char *id :
         {"6155", "6156", "6158", "6161", "6162", "6165", "6064", "6059", "6153", "6034", "6071", "6053", "6063"})
        settings.insert(settings.end(), {"--set", std::string(id) + "=0%"});
    return settings;
}

std::vector<std::string> Shake(const std::string &input, const std::string &output,
                               const std::vector<std::string> &more = {}) {
    std::vector<std::string> arguments = {"shake", input, "-o", output};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

int LineCount(const std::string &text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

class Program : public testing::Test {
  protected:
    tremolux::CameraMove ReadCsvFile(const std::string &name) {
        return tremolux::ReadCsv(name, workplace_.Read(name), {});
    }
    Workplace workplace_;
};

TEST_F(Program, WritesEveryFrameOfTheMoveIntoEachOutput) {
    const std::string move = workplace_.Write("move.csv", Move(0, 40));
    std::vector<std::string> arguments = Shake(move, workplace_.Path("a.csv"), kHandHeld);
    arguments.insert(arguments.end(), {"-o", workplace_.Path("b.chan")});
    const Outcome outcome = workplace_.Run(arguments);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              workplace_.Path("b.chan") + ": .chan files have no place for focus distance, film back and frame rate\n");
    const auto csv = ReadCsvFile("a.csv");
    const auto chan = tremolux::ReadChan("b.chan", workplace_.Read("b.chan"), {});
    ASSERT_EQ(csv.samples.size(), 40u);
    ASSERT_EQ(chan.samples.size(), 40u);
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_NEAR(csv.samples[i].position.z, chan.samples[i].position.z, 1e-9);
        EXPECT_NEAR(csv.samples[i].angles.x, chan.samples[i].angles.x, 1e-9);
        EXPECT_NEAR(csv.samples[i].focal_length, chan.samples[i].focal_length, 1e-9);
    }
}

TEST_F(Program, LeavesTheMoveAsItIsWithEveryAmountAtZero) {
    const std::string move = workplace_.Write("move.csv", Move(0, 30));
    ASSERT_EQ(workplace_.Run(Shake(move, workplace_.Path("out.csv"), FiltersOff())).status, 0);
    const auto in = ReadCsvFile("move.csv"), out = ReadCsvFile("out.csv");
    ASSERT_EQ(out.samples.size(), in.samples.size());
    for (std::size_t i = 0; i < in.samples.size(); ++i) {
        EXPECT_NEAR(out.samples[i].position.x, in.samples[i].position.x, 1e-9);
        EXPECT_NEAR(out.samples[i].position.z, in.samples[i].position.z, 1e-9);
        EXPECT_NEAR(out.samples[i].angles.x, in.samples[i].angles.x, 1e-9);
        EXPECT_NEAR(out.samples[i].angles.y, in.samples[i].angles.y, 1e-9);
        EXPECT_NEAR(out.samples[i].angles.z, in.samples[i].angles.z, 1e-9);
        EXPECT_NEAR(out.samples[i].focal_length, in.samples[i].focal_length, 1e-9);
        EXPECT_NEAR(out.samples[i].focus_distance, in.samples[i].focus_distance, 1e-9);
    }
}

TEST_F(Program, WritesWhatCanBeReadWhenAShakeSendsTheLensBeyondAnyLens) {
    // A zoom out as fast as can be, which swings past its end.
    std::string zoom = kHeader;
    for (int frame = 0; frame < 60; ++frame)
        zoom += std::to_string(frame) + ",0,0,0,0,0,0," + (frame < 10 ? "300" : "1") + ",500\n";
    const std::string move = workplace_.Write("zoom.csv", zoom), out = workplace_.Path("out.csv");
    const Outcome outcome =
        workplace_.Run(Shake(move, out, {"--set", "Overshoot Zoom=100%", "--set", "Overshoot Zoom Fade=0%"}));
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find(out + ": "), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(
                  "are beyond what a camera can have (a focal length from 1 to 10000 mm, a focus in front of it) "
                  "and held within\n"),
              std::string::npos)
        << outcome.err;
    double least = 1e9;
    for (const auto &sample : ReadCsvFile("out.csv").samples) least = std::min(least, sample.focal_length);
    EXPECT_EQ(least, 1);
}

TEST_F(Program, WritesTheSameBytesRunAfterRun) {
    const std::string move = workplace_.Write("move.csv", Move(0, 60));
    for (const char *name : {"a.csv", "b.csv"})
        ASSERT_EQ(workplace_.Run(Shake(move, workplace_.Path(name), kHandHeld)).status, 0);
    EXPECT_EQ(workplace_.Read("a.csv"), workplace_.Read("b.csv"));
}

TEST_F(Program, ShakesDifferentlyWithAnotherSeed) {
    const std::string move = workplace_.Write("move.csv", Move(0, 30));
    for (const char *seed : {"1", "2"}) {
        std::vector<std::string> more = kHandHeld;
        more.insert(more.end(), {"--seed", seed});
        ASSERT_EQ(workplace_.Run(Shake(move, workplace_.Path(std::string(seed) + ".csv"), more)).status, 0);
    }
    EXPECT_NE(workplace_.Read("1.csv"), workplace_.Read("2.csv"));
}

TEST_F(Program, WritesOfARangeWhatPlaybackFromTheStartShows) {
    const std::string move = workplace_.Write("move.csv", Move(-3, 40));
    ASSERT_EQ(workplace_.Run(Shake(move, workplace_.Path("all.csv"), kHandHeld)).status, 0);
    std::vector<std::string> more = kHandHeld;
    more.insert(more.end(), {"--frames", "10:12"});
    ASSERT_EQ(workplace_.Run(Shake(move, workplace_.Path("some.csv"), more)).status, 0);
    const std::string all = workplace_.Read("all.csv"), some = workplace_.Read("some.csv");
    ASSERT_EQ(LineCount(some), 4);
    const std::string rows = some.substr(some.find('\n') + 1);
    EXPECT_EQ(rows.rfind("10,", 0), 0u);
    EXPECT_NE(all.find("\n" + rows), std::string::npos);
}

TEST_F(Program, ReportsWhatWentInAndCameOutAndHowFarTheCameraStrayed) {
    const std::string move = workplace_.Write("move.csv", Move(0, 30));
    std::vector<std::string> more = kHandHeld;
    more.push_back("--report");
    const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), more));
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    for (const char *words :
         {"move.csv", "frames 0 to 29", "out.csv, 30 frames", "RMS", "peak", "scene units", "degrees", "per frame"})
        EXPECT_NE(outcome.out.find(words), std::string::npos) << words << "\n" << outcome.out;
}

TEST_F(Program, PrintsItsBannerAndItsRegistrationsInTheirOrder) {
    const Outcome outcome = workplace_.Run({"info"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out.rfind("TremoluxCam V(1.015), ", 0), 0u) << outcome.out;
    const std::size_t command = outcome.out.find("command 1039960"), tag = outcome.out.find("tag 1039736");
    ASSERT_NE(tag, std::string::npos);
    EXPECT_LT(command, tag);
}

TEST_F(Program, TracesOneJsonObjectAFrame) {
    const std::string move = workplace_.Write("move.csv", Move(0, 12));
    std::vector<std::string> arguments = FiltersOff();
    arguments.insert(arguments.begin(), {"trace", move, "--set", "Speed Variation=0%"});
    const Outcome outcome = workplace_.Run(arguments);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    std::istringstream lines(outcome.out);
    std::string line;
    int frame = 0;
    for (; std::getline(lines, line); ++frame) {
        const auto record = nlohmann::json::parse(line);
        EXPECT_EQ(record.at("frame"), frame);
        EXPECT_NEAR(record.at("time"), frame / 30.0, 1e-12);
        // At speed 1 without variation each frame advances by the 1 that the frame before it stored.
        EXPECT_EQ(record.at("clocks").at("shake"), static_cast<double>(frame));
        EXPECT_EQ(record.at("clocks").at("step"), 1.0);
        EXPECT_TRUE(record.at("changed").contains("10044"));
        EXPECT_NEAR(record.at("output").at("focal_length"), 30 + 0.1 * frame, 1e-9);
        EXPECT_NEAR(record.at("input").at("hpb").at(0), 0.3 * frame, 1e-9);
    }
    EXPECT_EQ(frame, 12);
}

// ---- Bad input: one line, its status, and no file touched

struct BadInput {
    std::string name, text, place;
};
void PrintTo(const BadInput &input, std::ostream *out) { *out << input.name; }

class BadInputs : public Program, public testing::WithParamInterface<BadInput> {};

TEST_P(BadInputs, AreRefusedInOneLineWithStatusTwo) {
    const std::string move = workplace_.Write(GetParam().name, GetParam().text);
    workplace_.Write("out.csv", "precious");
    const auto before = workplace_.Names();
    const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv")));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(LineCount(outcome.err), 1) << outcome.err;
    EXPECT_EQ(outcome.err.rfind(move + GetParam().place, 0), 0u) << outcome.err;
    EXPECT_NE(outcome.err.find("expected"), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(workplace_.Read("out.csv"), "precious");
    EXPECT_EQ(workplace_.Names(), before);
}

const std::string kRow0 = std::string(kHeader) + "0,1,2,3,4,5,6,36,500\n";

INSTANTIATE_TEST_SUITE_P(
    Each, BadInputs,
    testing::Values(BadInput{"empty.csv", "", ":1"}, BadInput{"header.csv", kHeader, ":"},
                    BadInput{"kind.csv", "%PDF-1.4\n1 0 obj\n", ":1"}, BadInput{"kind.xyz", kRow0, ":"},
                    BadInput{"cut.csv", kRow0 + "1,1,2,3", ":3"},
                    BadInput{"wide.csv", kRow0 + "1,1,2,3,4,5,6,36,500,9\n", ":3"},
                    BadInput{"word.csv", kRow0 + "1,one,2,3,4,5,6,36,500\n", ":3"},
                    BadInput{"nan.csv", kRow0 + "1,nan,2,3,4,5,6,36,500\n", ":3"},
                    BadInput{"infinity.csv", kRow0 + "1,1,inf,3,4,5,6,36,500\n", ":3"},
                    BadInput{"twice.csv", kRow0 + "0,1,2,3,4,5,6,36,500\n", ":3"},
                    BadInput{"backwards.csv", std::string(kHeader) + "5,1,2,3,4,5,6,36,500\n4,1,2,3,4,5,6,36,500\n",
                             ":3"},
                    BadInput{"gap.csv", kRow0 + "7,1,2,3,4,5,6,36,500\n", ":3"},
                    BadInput{"far.csv", std::string(kHeader) + "99999999999999999999,1,2,3,4,5,6,36,500\n", ":2"},
                    BadInput{"short.chan", "1 2 3\n", ":1"}, BadInput{"nan.chan", "1 1 2 3 4 nan 6 30\n", ":1"}),
    [](const auto &test) {
        std::string name = test.param.name;
        std::replace(name.begin(), name.end(), '.', 'x');
        return name;
    });

TEST_F(Program, RefusesAMissingFile) {
    const Outcome outcome = workplace_.Run(Shake(workplace_.Path("no.csv"), workplace_.Path("out.csv")));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err.rfind(workplace_.Path("no.csv") + ": ", 0), 0u) << outcome.err;
    EXPECT_EQ(LineCount(outcome.err), 1);
    EXPECT_TRUE(workplace_.Names().empty());
}

TEST_F(Program, RefusesAFileThatIsLargerThanAnyMove) {
    const std::string file = workplace_.Write("move.csv", "");
    fs::resize_file(file, (1ull << 28) + 1);  // without a byte in it on most file systems
    const Outcome outcome = workplace_.Run(Shake(file, workplace_.Path("out.csv")));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, file + ": found 268435457 bytes, expected at most 268435456\n");
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}

TEST_F(Program, RefusesRatesThatNobodyFilmsAt) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    for (const char *rate : {"0", "-24", "1e9", "nan", "many"}) {
        const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--fps", rate}));
        EXPECT_EQ(outcome.status, 2) << rate;
        EXPECT_EQ(LineCount(outcome.err), 1) << outcome.err;
    }
    EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
}

TEST_F(Program, NamesTheNearestParametersOfAnUnknownOne) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--set", "Shake Sped=150%"}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("'Shake Speed'"), std::string::npos) << outcome.err;
    EXPECT_EQ(LineCount(outcome.err), 1);
}

TEST_F(Program, RefusesALabelThatTwoParametersShare) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--set", "Overshoot Fade=50%"}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("6154"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("6035"), std::string::npos) << outcome.err;
}

TEST_F(Program, RefusesAValueOutsideTheParametersLimits) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--set", "Shake Smooth=150%"}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("100"), std::string::npos) << outcome.err;
}

TEST_F(Program, AnswersAModuleThatIsNoneWithStatusThree) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    const std::string text = workplace_.Write("text.so", "this is no library");
    for (const std::string &module : {text, workplace_.Path("missing.so"), workplace_.Path(".")}) {
        const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--module", module}));
        EXPECT_EQ(outcome.status, 3) << module;
        EXPECT_EQ(LineCount(outcome.err), 1) << outcome.err;
        EXPECT_EQ(outcome.err.rfind(module, 0), 0u) << outcome.err;
    }
    EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
}

TEST_F(Program, AnswersAModuleThatDoesNotStartWithStatusThree) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    // Its resources are not beside it.
    fs::copy_file(TREMOLUX_MODULE_FILE, workplace_.Path("alone.so"));
    const Outcome outcome =
        workplace_.Run(Shake(move, workplace_.Path("out.csv"), {"--module", workplace_.Path("alone.so")}));
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(LineCount(outcome.err), 1) << outcome.err;
}

TEST_F(Program, AnswersAnOutputThatCannotBeWrittenWithStatusFourAndLeavesTheOthersAlone) {
    const std::string move = workplace_.Write("move.csv", Move(0, 5));
    workplace_.Write("good.csv", "precious");
    fs::create_directory(workplace_.Path("folder.csv"));
    const std::string nowhere = workplace_.Path("nowhere") + "/out.csv";
    for (const std::string &bad : {nowhere, workplace_.Path("folder.csv")}) {
        const Outcome outcome = workplace_.Run(Shake(move, workplace_.Path("good.csv"), {"-o", bad}));
        EXPECT_EQ(outcome.status, 4) << bad;
        EXPECT_EQ(LineCount(outcome.err), 1) << outcome.err;
        EXPECT_EQ(workplace_.Read("good.csv"), "precious");
    }
    EXPECT_EQ(workplace_.Names(), (std::vector<std::string>{"folder.csv", "good.csv", "move.csv"}));
}

TEST_F(Program, RefusesUsageThatItDoesNotKnow) {
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{"dance"}, {"shake"}, {"shake", "a.csv"}, {"shake", "a.csv", "-o", "b.csv", "-x"}})
        EXPECT_EQ(workplace_.Run(arguments).status, 2);
}

TEST_F(Program, ShowsItsHelp) {
    const Outcome outcome = workplace_.Run({"--help"});
    EXPECT_EQ(outcome.status, 0);
    for (const char *command : {"shake", "trace", "info"})
        EXPECT_NE(outcome.out.find(command), std::string::npos) << command;
}

// ---- Real input

TEST_F(Program, ShakesTheSampleMoves) {
    for (const char *name : {"push_in.csv", "whip.csv"}) {
        const std::string sample = std::string(TREMOLUX_SOURCE_DIR) + "/samples/" + name;
        const Outcome outcome = workplace_.Run(Shake(sample, workplace_.Path(name), kHandHeld));
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_GE(ReadCsvFile(name).samples.size(), 240u);
    }
}

// The recordings are not part of the project: without their folder there is nothing to play.
TEST_F(Program, ShakesEveryRecording) {
    const char *folder = std::getenv("TREMOLUX_RECORDINGS");
    if (folder == nullptr) GTEST_SKIP() << "TREMOLUX_RECORDINGS is not set";
    int recordings = 0;
    for (const auto &entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".csv") continue;
        ++recordings;
        const Outcome outcome =
            workplace_.Run(Shake(entry.path().string(), workplace_.Path("out.csv"), {"--set", "Position Slow=1%"}));
        ASSERT_EQ(outcome.status, 0) << entry.path() << outcome.err;
        EXPECT_GT(ReadCsvFile("out.csv").samples.size(), 100u);
    }
    EXPECT_GT(recordings, 0);
}

}  // namespace
