// Bakes and buttons on saved scenes, from the command line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "tests/program/run.h"

namespace {

using namespace program_test;

const std::vector<std::string> kShaky = {"--set", "Position Slow=2%",  "--set", "Rotation Slow=9",
                                         "--set", "Zoom Drift Slow=2%"};

class Scenes : public testing::Test {
  protected:
    Scenes() {
        std::string text = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
        for (int frame = 0; frame < 50; ++frame)
            text += std::to_string(frame) + "," + std::to_string(4 * frame) + ",150,-300," +
                    std::to_string(0.5 * frame) + ",0,0,35,400\n";
        workplace_.Write("move.csv", text);
    }
    std::string Text(const std::vector<std::string> &arguments) {
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.out;
    }
    void ExpectRefused(const std::vector<std::string> &arguments, const std::string &said) {
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
    }
    void Shake(const std::string &out, std::vector<std::string> more) {
        std::vector<std::string> arguments = {"shake", Path("move.csv"), "-o", Path(out), "--quiet"};
        arguments.insert(arguments.end(), kShaky.begin(), kShaky.end());
        arguments.insert(arguments.end(), more.begin(), more.end());
        Text(arguments);
    }
    std::string Path(const std::string &name) { return workplace_.Path(name); }
    Workplace workplace_;
};

// Every number of two tables.
double Difference(const std::string &a, const std::string &b) {
    std::istringstream left(a), right(b);
    std::string x, y;
    double most = 0;
    std::getline(left, x);
    std::getline(right, y);
    EXPECT_EQ(x, y) << "the same columns";
    while (std::getline(left, x) && std::getline(right, y)) {
        std::istringstream fields_x(x), fields_y(y);
        for (std::string u, v; std::getline(fields_x, u, ',') && std::getline(fields_y, v, ',');)
            most = std::max(most, std::fabs(std::stod(u) - std::stod(v)));
    }
    EXPECT_TRUE(!std::getline(left, x) && !std::getline(right, y)) << "as many rows";
    return most;
}

TEST_F(Scenes, BakedMovesAreTheLiveOnes) {
    Shake("live.csv", {});
    for (const char *bake : {"quick", "brute"}) {
        Shake("baked.csv", {"--bake", bake});
        EXPECT_LT(Difference(workplace_.Read("live.csv"), workplace_.Read("baked.csv")), 1e-6) << bake;
    }
    ExpectRefused({"shake", Path("move.csv"), "-o", Path("x.csv"), "--bake", "slow"}, "--bake");
}

TEST_F(Scenes, BakedQuicklyDoNotSeeAZoomAndSaySo) {
    std::string zoom = "frame,x,y,z,h,p,b,focal_length\n";
    for (int frame = 0; frame < 30; ++frame)
        zoom += std::to_string(frame) + ",0,0,0,0,0,0," + std::to_string(30 + frame) + "\n";
    const std::string move = workplace_.Write("zoom.csv", zoom);
    for (const std::string bake : {"quick", "brute"}) {
        const Outcome outcome = workplace_.Run({"shake", move, "-o", Path("baked.csv"), "--bake", bake, "--set",
                                                "Zoom=off", "--set", "6162=0", "--quiet"});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, bake == "quick" ? "--bake quick: the move zooms, which a quick bake does not see; "
                                                 "--bake brute does\n"
                                               : "");
    }
    EXPECT_EQ(workplace_.Run({"shake", Path("move.csv"), "-o", Path("x.csv"), "--bake", "quick", "--quiet"}).err, "");
}

TEST_F(Scenes, AreBakedAndUnBaked) {
    Shake("live.csv", {"--scene", Path("live.scene")});
    EXPECT_EQ(Text({"bake", Path("live.scene"), "--brute", "-o", Path("baked.scene"), "--quiet"}),
              "Camera: 400 keys on 8 tracks\n");
    EXPECT_NE(workplace_.Read("baked.scene"), workplace_.Read("live.scene"));
    ExpectRefused({"press", "Zero Pos", Path("baked.scene"), "--in-place"}, "disabled");
    EXPECT_EQ(Text({"bake", Path("baked.scene"), "--undo", "--in-place"}), "Camera: 0 keys on 0 tracks\n");
    Text({"press", "Zero Pos", Path("baked.scene"), "--in-place"});
    ExpectRefused({"bake", Path("live.scene")}, "expected one of --quick, --brute and --undo");
    ExpectRefused({"bake", Path("live.scene"), "--quick", "--undo"}, "expected one of");
}

TEST_F(Scenes, GetTheirKeysBackFromABake) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    // Two channels change over 50 frames; of the others one key holds.
    EXPECT_EQ(Text({"keys", Path("a.scene"), "--import", Path("move.csv"), "--in-place"}),
              "Camera: 106 keys on 8 tracks\n");
    const std::string keys = Text({"keys", Path("a.scene")});
    EXPECT_EQ(std::count(keys.begin(), keys.end(), '\n'), 107);
    EXPECT_NE(keys.find("\nPosition . X,49,196\n"), std::string::npos) << keys;
    EXPECT_NE(keys.find("\nFocal Length,0,35\n"), std::string::npos) << keys;
    for (const char *bake : {"--quick", "--brute"}) {
        Text({"bake", Path("a.scene"), bake, "--quiet", "--in-place"});
        EXPECT_NE(Text({"keys", Path("a.scene")}), keys);
        Text({"bake", Path("a.scene"), "--undo", "--quiet", "--in-place"});
        EXPECT_EQ(Text({"keys", Path("a.scene")}), keys);
    }
    EXPECT_EQ(Text({"keys", Path("a.scene"), "--camera", "Input Camera"}), keys);
    ExpectRefused({"keys", Path("a.scene"), "--import", Path("missing.csv"), "--in-place"}, "missing.csv");
    ExpectRefused({"keys", Path("a.scene"), "--camera", "Nobody"}, "found no camera 'Nobody'");
}

TEST_F(Scenes, OpenTheGuideForHelp) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    const std::string opened = Text({"press", "?", Path("a.scene"), "--in-place"});
    EXPECT_EQ(opened.substr(0, 16), "opened: file:///");
    EXPECT_NE(opened.find("/res/guide.html\n"), std::string::npos) << opened;
}

TEST_F(Scenes, AreNeverWrittenOverAnInputOrAnotherOutput) {
    const std::string move = workplace_.Read("move.csv");
    ExpectRefused({"shake", Path("move.csv"), "-o", Path("x.csv"), "--scene", Path("move.csv")}, "the input itself");
    ExpectRefused({"shake", Path("move.csv"), "-o", Path("x.csv"), "--scene", Path("x.csv")}, "found twice");
    EXPECT_EQ(workplace_.Read("move.csv"), move);
    EXPECT_EQ(workplace_.Read("x.csv"), "(missing)");
}

TEST_F(Scenes, TellWhatAButtonAsked) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    EXPECT_EQ(Text({"press", "Save", Path("a.scene"), "--in-place", "--answer", "Mine"}), "name -> Mine\n");
    EXPECT_EQ(Text({"press", "Save", Path("a.scene"), "--in-place", "--answer", "mine", "--answer", "no"}),
              "name -> mine\nOverride existing preset? -> no\n");
    EXPECT_NE(
        Text({"press", "Save", Path("a.scene"), "--in-place", "--control", "--answer", "Other", "--answer", "yes"})
            .find("Saving as a default preset -> yes"),
        std::string::npos);
    EXPECT_EQ(Text({"press", "6003", Path("a.scene"), "--in-place"}), "name -> cancelled\n");
}

TEST_F(Scenes, GetAHandHeldCamera) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    Text({"apply", Path("a.scene"), "--camera", "Input Camera", "-o", Path("b.scene")});
    ExpectRefused({"press", "Coffee Cup", Path("b.scene"), "--in-place"}, "found 2 TremoluxCam tags");
    Text({"press", "Coffee Cup", Path("b.scene"), "--in-place", "--camera", "TremoluxCam"});
    EXPECT_EQ(Text({"apply", Path("b.scene"), "--in-place", "--answer", "no"}),
              "No camera selected, create a camera? -> no\n");
}

TEST_F(Scenes, ChangeOnlyWhereTheUserSaid) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    const std::string scene = workplace_.Read("a.scene");
    const std::string expected = "expected either -o FILE or --in-place";
    const std::vector<std::vector<std::string>> jobs = {{"press", "Coffee Cup", Path("a.scene")},
                                                        {"bake", Path("a.scene"), "--quick"},
                                                        {"apply", Path("a.scene"), "--camera", "Camera"},
                                                        {"keys", Path("a.scene"), "--import", Path("move.csv")}};
    for (std::vector<std::string> job : jobs) {
        ExpectRefused(job, job.front() + ": found none, " + expected);
        job.insert(job.end(), {"--in-place", "-o", Path("b.scene")});
        ExpectRefused(job, job.front() + ": found both, " + expected);
    }
    ExpectRefused({"keys", Path("a.scene"), "--in-place"}, "--import");
    EXPECT_EQ(workplace_.Read("a.scene"), scene);
    EXPECT_EQ(workplace_.Read("b.scene"), "(missing)");
    Text({"press", "Coffee Cup", Path("a.scene"), "-o", Path("b.scene")});
    EXPECT_EQ(workplace_.Read("a.scene"), scene);
    EXPECT_NE(workplace_.Read("b.scene"), scene);
    EXPECT_NE(workplace_.Read("b.scene"), "(missing)");
}

TEST_F(Scenes, GetTheCameraThatTheCommandAsksAbout) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    const std::string scene = workplace_.Read("a.scene");
    ExpectRefused({"apply", Path("a.scene"), "--in-place"}, "expected --camera NAME, or --answer yes for a new one");
    EXPECT_EQ(workplace_.Read("a.scene"), scene);
    EXPECT_EQ(Text({"apply", Path("a.scene"), "-o", Path("b.scene"), "--answer", "yes"}),
              "No camera selected, create a camera? -> yes\n");
    // The new camera has the tag, and an input to be moved by.
    Text({"keys", Path("b.scene"), "--camera", "TremoluxCam"});
    ExpectRefused({"press", "Coffee Cup", Path("b.scene"), "--in-place"}, "found 2 TremoluxCam tags");
}

// Positions of the first frames, as a table of keys and a camera table have them.
std::vector<double> KeysOf(const std::string &keys, const std::string &parameter) {
    std::vector<double> values;
    std::istringstream lines(keys);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(parameter + ",", 0) == 0) values.push_back(std::stod(line.substr(line.rfind(',') + 1)));
    return values;
}

std::vector<double> ColumnOf(const std::string &table, int column) {
    std::vector<double> values;
    std::istringstream lines(table);
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string field;
        for (int i = 0; i <= column; ++i) std::getline(fields, field, ',');
        values.push_back(std::stod(field));
    }
    return values;
}

TEST_F(Scenes, GetTheTwoCamerasOfAPair) {
    Text({"presets", "save", "Sway", "--set", "Position Slow=10%", "--set", "Jolt=off", "--set", "Seed=1"});
    Text({"presets", "save", "Step", "--set", "Position Medium=50%", "--set", "Jolt=off", "--set", "Seed=2", "--set",
          "Initial Pos Smooth=60%"});
    Shake("live.csv", {"--scene", Path("a.scene")});
    Text({"shake", Path("move.csv"), "--preset", "Sway", "--then", "Step", "-o", Path("pair.csv"), "--quiet"});
    Text({"apply", Path("a.scene"), "--camera", "Input Camera", "--preset", "Sway", "--then", "Step", "-o",
          Path("b.scene")});
    Text({"bake", Path("b.scene"), "--brute", "--camera", "Second Camera", "--in-place", "--quiet"});
    const std::string keys = Text({"keys", Path("b.scene"), "--camera", "Second Camera"});
    const std::vector<double> built = KeysOf(keys, "Position . Y"), shaken = ColumnOf(workplace_.Read("pair.csv"), 2);
    ASSERT_EQ(built.size(), 50U);
    ASSERT_EQ(shaken.size(), 50U);
    for (std::size_t i = 0; i < 50; ++i) EXPECT_NEAR(built[i], shaken[i], 1e-9) << i;
    ExpectRefused({"apply", Path("a.scene"), "--camera", "Input Camera", "--preset", "Nothing", "-o", Path("c.scene")},
                  "--preset: found no preset 'Nothing'");
    EXPECT_EQ(workplace_.Read("c.scene"), "(missing)");
}

TEST_F(Scenes, ListTheirKeysIntoAFile) {
    Shake("live.csv", {"--scene", Path("a.scene")});
    const std::string listed = Text({"keys", Path("a.scene"), "--camera", "Input Camera"});
    EXPECT_EQ(Text({"keys", Path("a.scene"), "--camera", "Input Camera", "-o", Path("keys.csv")}), "");
    EXPECT_EQ(workplace_.Read("keys.csv"), listed);
    EXPECT_NE(listed.find("\nRotation . H,"), std::string::npos) << listed;
}

TEST_F(Scenes, AreRefusedWhenTheyAreNone) {
    ExpectRefused({"press", "Save", workplace_.Write("text", "no scene"), "--in-place"}, "no scene");
    ExpectRefused({"press", "Save", Path("missing"), "-o", Path("new")}, "missing");
    Shake("live.csv", {"--scene", Path("a.scene")});
    ExpectRefused({"press", "Nothing", Path("a.scene"), "--in-place"}, "press: found no parameter");
    ExpectRefused({"press", "Seed", Path("a.scene"), "--in-place"}, "expected a button");
    ExpectRefused({"press", "Save", Path("a.scene"), "--in-place", "--camera", "Nobody"}, "found no camera 'Nobody'");
    ExpectRefused({"apply", Path("a.scene"), "--in-place", "--camera", "Nobody"}, "found no camera 'Nobody'");
}

}  // namespace
