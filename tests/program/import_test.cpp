// Scenes that Blender opens for the program: here by a stand-in that leaves what the script of the real one would.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "library/formats/right_handed.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"
#include "tremolux/blender/imported_move.h"

namespace tremolux {
namespace {

using nlohmann::json;
using program_test::Outcome;
using program_test::Workplace;

// The reference pose in Blender: metres, Z up; the columns of its matrix are right, up and back. Computed from R =
// Ry(30) Rx(-10) Rz(-5) and a quarter about X, apart from the program's code.
json PoseRow(double lens) {
    return {0.870297133613,
            0.484990543083,
            -0.0858316511774,
            -0.0110146096574,
            0.193389349047,
            0.98106026219,
            0.492403876506,
            -0.852868531952,
            0.173648177667,
            0.1,
            -3.0,
            1.5,
            lens,
            5.0,
            0.0,
            0.0,
            0.0,
            0.1,
            1000.0};
}

json Result() {
    return {{"camera", "/Rig/Shot"},
            {"orthographic", false},
            {"view", 6.0},
            {"kind", ".blend"},
            {"fps", 24},
            {"fps_base", 1.001},
            {"metres", 1.0},
            {"sensor", {36.0, 24.0}},
            {"fit", "AUTO"},
            {"picture", {1920, 1080}},
            {"pixel", {1.0, 1.0}},
            {"first", 101},
            {"samples", {PoseRow(36), PoseRow(50)}},
            {"notes", json::array()}};
}

CameraMove MoveOf(const json &result) { return ReadImported("a.blend", result.dump()).move; }

std::string RefusalOf(const json &result) {
    try {
        MoveOf(result);
        return "accepted";
    } catch (const Failure &failure) {
        return failure.what();
    }
}

TEST(ImportedMove, IsTheCameraInTheScenesUnitsAndAxes) {
    const CameraMove move = MoveOf(Result());
    EXPECT_EQ(move.rate, (FrameRate{24000, 1001}));
    EXPECT_EQ(move.first_frame, 101);
    ASSERT_EQ(move.samples.size(), 2u);
    const CameraSample &sample = move.samples[0], expected = ReferencePose();
    EXPECT_NEAR(host::Length(sample.position - expected.position), 0, 1e-9);
    EXPECT_NEAR(host::Length(sample.angles - expected.angles), 0, 1e-9);
    EXPECT_EQ(sample.focal_length, 36);
    EXPECT_EQ(move.samples[1].focal_length, 50);
    EXPECT_NEAR(sample.focus_distance, 500, 1e-9);
    EXPECT_EQ(move.traits.path, "/Rig/Shot");
    EXPECT_EQ(move.traits.channels[kNearClip], std::vector<double>{10});
    EXPECT_EQ(move.traits.channels[kFarClip], std::vector<double>{100000});
    EXPECT_FALSE(move.traits.Has(kFStop));
    EXPECT_FALSE(move.traits.Has(kHorizontalOffset));
}

TEST(ImportedMove, HasTheFilmBackThatThePictureLeavesOfTheSensor) {
    json result = Result();
    EXPECT_EQ(MoveOf(result).aperture_width, 36);
    EXPECT_NEAR(*MoveOf(result).aperture_height, 20.25, 1e-12);  // 36 * 1080 / 1920
    result["fit"] = "VERTICAL";
    EXPECT_NEAR(MoveOf(result).aperture_width, 24.0 * 16 / 9, 1e-12);
    EXPECT_EQ(*MoveOf(result).aperture_height, 24);
    result["fit"] = "AUTO";
    result["picture"] = {1080, 1920};
    EXPECT_NEAR(MoveOf(result).aperture_width, 20.25, 1e-12);
    EXPECT_EQ(*MoveOf(result).aperture_height, 36);
    result = Result();
    result["kind"] = ".fbx";  // says the film back's own height, and no picture
    EXPECT_EQ(*MoveOf(result).aperture_height, 24);
    result["kind"] = ".dae";
    EXPECT_FALSE(MoveOf(result).aperture_height);
}

TEST(ImportedMove, OfAnOrthographicCameraHasTheFilmBackOfWhatItSees) {
    json result = Result();
    result["orthographic"] = true;
    result["samples"][0][14] = result["samples"][1][14] = 0.25;  // of what is seen
    CameraMove move = MoveOf(result);
    EXPECT_TRUE(move.traits.is_orthographic);
    EXPECT_NEAR(move.aperture_width, 6000, 1e-9);  // 6 m along the wider side
    EXPECT_NEAR(*move.aperture_height, 6000.0 * 9 / 16, 1e-9);
    EXPECT_EQ(move.traits.channels[kHorizontalOffset], std::vector<double>{1500});
    result["fit"] = "VERTICAL";
    move = MoveOf(result);
    EXPECT_NEAR(*move.aperture_height, 6000, 1e-9);
    EXPECT_NEAR(move.aperture_width, 6000.0 * 16 / 9, 1e-9);
    result["metres"] = 0.01;  // a scene in centimetres
    EXPECT_NEAR(*MoveOf(result).aperture_height, 60, 1e-9);
    result["view"] = 0;
    EXPECT_EQ(RefusalOf(result), "a.blend: found the size of what is seen 0, expected one from 1e-06 to 1000000000000");
}

TEST(ImportedMove, CarriesShiftAndStopWhereTheyAreThere) {
    json result = Result();
    result["samples"][0][14] = 0.25;  // of 36 mm
    result["samples"][1][14] = 0.5;
    result["samples"][0][16] = result["samples"][1][16] = 2.8;
    const CameraMove move = MoveOf(result);
    EXPECT_EQ(move.traits.channels[kHorizontalOffset], (std::vector<double>{9, 18}));
    EXPECT_EQ(move.traits.channels[kFStop], std::vector<double>{2.8});
}

TEST(ImportedMove, RefusesWhatNoCameraIs) {
    json result = Result();
    result["samples"][1][12] = 0;
    EXPECT_EQ(RefusalOf(result), "a.blend: found the focal length of frame 102 0.0, expected one from 1 to 10000");
    result = Result();
    for (std::size_t i = 0; i < 3; ++i) result["samples"][1][i] = 0;
    EXPECT_EQ(RefusalOf(result),
              "a.blend: found a mirrored or flat matrix of frame 102, expected a camera that is turned and placed");
    result = Result();
    result["samples"] = json::array();
    EXPECT_EQ(RefusalOf(result), "a.blend: found 0 frames, expected 1 to 1000000");
    result = Result();
    result.erase("fps");
    EXPECT_EQ(RefusalOf(result), "a.blend: found a result of Blender that is cut off, expected the camera's frames");
    EXPECT_EQ(RefusalOf({{"refused", "found no camera, expected one"}}), "a.blend: found no camera, expected one");
    result = Result();
    result["samples"][0][0] = "x";
    EXPECT_NE(RefusalOf(result), "accepted");
}

TEST(Reading, NamesTheImportOfWhatBlenderOpens) {
    const Workplace workplace;
    for (const char *extension : {".fbx", ".abc", ".dae", ".blend", ".x3d", ".usdc"}) {
        const std::string file = workplace.Write(std::string("a") + extension, "binary");
        for (const char *command : {"convert", "inspect"}) {
            std::vector<std::string> arguments = {command, file};
            if (arguments[0] == "convert") arguments.push_back(workplace.Path("o.csv"));
            const Outcome outcome = workplace.RunBare(arguments);
            EXPECT_EQ(outcome.status, 2);
            EXPECT_EQ(outcome.err.rfind(file + ": found a " + extension + " file, expected ", 0), 0u) << outcome.err;
            EXPECT_NE(outcome.err.find("`tremolux import " + file + " -o MOVE.json`"), std::string::npos)
                << outcome.err;
            EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1);
        }
    }
}

#ifndef _WIN32

// With the stand-in as the only blender.
class Import : public testing::Test {
  protected:
    Import() : scene_(workplace_.Write("a.blend", "BLENDER")), path_(std::getenv("PATH")) {}
    ~Import() override { setenv("PATH", path_.c_str(), 1); }
    // `body` is what it does with the script's arguments: $1 is the scene, $2 the place of the result.
    void StandIn(const std::string &body) const {
        const std::filesystem::path file = workplace_.Settings() / "blender";
        std::ofstream(file)
            << "#!/bin/sh\nfor word; do words=\"$words$word|\"; done\nwhile [ \"$1\" != -- ]; do shift; done\nshift\n" +
                   body + "\n";
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        setenv("PATH", (workplace_.Settings().string() + ":" + path_).c_str(), 1);
    }
    // That leaves a result.
    void Opens(const json &result) const {
        std::ofstream(workplace_.Settings() / "result") << result.dump();
        StandIn("cp '" + (workplace_.Settings() / "result").string() + "' \"$2\"; echo \"$words\" > '" +
                (workplace_.Settings() / "words").string() + "'");
    }
    Outcome Run(std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments = {"import", scene_, "-o", workplace_.Path("move.json")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return workplace_.RunBare(arguments);
    }
    void ExpectNothingWritten() const { EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"a.blend"}); }
    Workplace workplace_;
    const std::string scene_, path_;
};

TEST_F(Import, WritesTheCameraOfTheScene) {
    Opens(Result());
    const Outcome outcome = Run();
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CameraMove move = ReadJson("m", workplace_.Read("move.json"), {});
    EXPECT_EQ(move.rate, (FrameRate{24000, 1001}));
    EXPECT_EQ(move.first_frame, 101);
    EXPECT_NEAR(move.samples.at(1).position.x, 10, 1e-9);
}

TEST_F(Import, NeverTrustsTheScene) {
    Opens(Result());
    ASSERT_EQ(Run({"--camera", "Shot", "--frames", "5:9", "--fps", "23.976"}).status, 0);
    std::ifstream file(workplace_.Settings() / "words");
    std::string words;
    std::getline(file, words);
    EXPECT_EQ(words.rfind("--background|--factory-startup|--disable-autoexec|--python-exit-code|1|--python|", 0), 0u)
        << words;
    const std::string last = "|Shot|5:9|24|1.001|";
    EXPECT_EQ(words.substr(words.size() - last.size()), last);
}

TEST_F(Import, RelabelsAndRetimesLikeAnyRead) {
    Opens(Result());
    const Outcome outcome = Run({"--fps", "24"});
    ASSERT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err.rfind(scene_ + ": the file says 24000/1001 (23.976) frames a second, --fps 24: ", 0), 0u)
        << outcome.err;
    ASSERT_EQ(Run({"--retime", "48000/1001"}).status, 0);
    EXPECT_EQ(ReadJson("m", workplace_.Read("move.json"), {}).samples.size(), 3u);
}

TEST_F(Import, SaysInOneLineWhatTheScriptRefuses) {
    Opens({{"refused", "found 2 cameras, expected one, or --camera with one of /A, /B"}});
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, scene_ + ": found 2 cameras, expected one, or --camera with one of /A, /B\n");
    ExpectNothingWritten();
}

TEST_F(Import, SaysInOneLineThatBlenderFailed) {
    StandIn("echo 'first' >&2; echo 'Segmentation fault' >&2; exit 11");
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err, "blender failed: Segmentation fault\n");
    StandIn("exit 0");
    EXPECT_EQ(Run().err, scene_ + ": found that Blender ended without a result, expected a scene that it opens\n");
    ExpectNothingWritten();
}

TEST_F(Import, SaysWhatToInstallWhereBlenderIsMissing) {
    setenv("PATH", workplace_.Settings().c_str(), 1);
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err, "blender is missing: install it (on Debian the package blender)\n");
    ExpectNothingWritten();
}

TEST_F(Import, EndsBlenderWithItself) {
    // The stand-in interrupts the program that has started it, and would then never end.
    StandIn("echo $$ > '" + (workplace_.Settings() / "process").string() + "'; kill -TERM $PPID; exec sleep 1000000");
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.err, "interrupted: nothing was written\n");
    ExpectNothingWritten();
    std::ifstream file(workplace_.Settings() / "process");
    std::string process;
    std::getline(file, process);
    ASSERT_FALSE(process.empty());
    EXPECT_FALSE(std::filesystem::exists("/proc/" + process));
}

TEST_F(Import, RefusesWhatBlenderDoesNotOpenAndWrongOptionsBeforeItRuns) {
    StandIn("exit 9");
    const std::string csv = workplace_.Write("m.csv", "frame\n");
    EXPECT_EQ(workplace_.RunBare({"import", csv, "-o", workplace_.Path("o.json")}).status, 2);
    EXPECT_EQ(workplace_.RunBare({"import", workplace_.Path("no.fbx"), "-o", workplace_.Path("o.json")}).status, 2);
    EXPECT_EQ(workplace_.RunBare({"import", scene_, "-o", workplace_.Path("o.xyz")}).status, 2);
    EXPECT_EQ(Run({"--frames", "9:5"}).err.rfind("--frames: found '9:5', expected FIRST:LAST", 0), 0u);
}

#endif

}  // namespace
}  // namespace tremolux
