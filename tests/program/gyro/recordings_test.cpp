// Recorded motion on the command line: what inspect tells of it, and the options that say what a table does not.
#include <nlohmann/json.hpp>

#include "tests/program/gyro/payload_writer.h"
#include "tests/program/gyro/support.h"
#include "tests/program/run.h"

namespace {

using namespace gyro_test;
using namespace program_test;

constexpr const char *kLog =
    "GYROFLOW IMU LOG\nid,box_cam\norientation,XYZ\ntscale,0.001\ngscale,0.1\nframe_readout_time,16.5\nt,gx,gy,gz\n"
    "0,0,10,0\n500,0,10,0\n1000,0,10,0\n";

constexpr const char *kNothingTakenAway =
    "note          no part stands still and the mean rate is a turn: nothing is taken away as the sensor's error\n";

TEST(Recordings, InspectTellsTheSensorsAndWhatWasDecided) {
    const Workplace workplace;
    const Outcome outcome = workplace.RunBare({"inspect", workplace.Write("a.gcsv", kLog)});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    for (const std::string line :
         {"format        .gcsv\n", "recorded by   box_cam\n",
          "gyro          3 samples in 1 s, 2 a second; radians a second\n", "turns from    the integrated rates\n",
          "readout       16.5 ms\n", "frames        0 to 30, 31 in 1.033 s\n",
          "rotation      heading 0 to 57.296 degrees\n", kNothingTakenAway})
        EXPECT_NE(outcome.out.find(line), std::string::npos) << line << outcome.out;
}

TEST(Recordings, InspectTellsPrograms) {
    const Workplace workplace;
    const Outcome outcome = workplace.RunBare({"inspect", workplace.Write("a.gcsv", kLog), "--json"});
    const nlohmann::json recorded = nlohmann::json::parse(outcome.out).at("recorded");
    EXPECT_EQ(recorded["camera"], "box_cam");
    EXPECT_EQ(recorded["sensors"]["gyro"]["samples"], 3);
    EXPECT_EQ(recorded["sensors"]["gyro"]["samples_per_second"], 2.0);
    EXPECT_EQ(recorded["turns_from"], "rates");
    EXPECT_EQ(recorded["bias_from"], "nothing");
    EXPECT_EQ(recorded["readout_ms"], 16.5);
}

TEST(Recordings, SamplesArePrintedAsTheyWereRecorded) {
    const Workplace workplace;
    const std::string file = workplace.Write("a.gcsv", kLog);
    EXPECT_EQ(workplace.RunBare({"inspect", file, "--samples", "gyro"}).out, "t,x,y,z\n0,0,1,0\n0.5,0,1,0\n1,0,1,0\n");
    EXPECT_EQ(workplace.RunBare({"inspect", file, "--samples", "all"}).err,
              "--samples: found 'all', expected gyro, accelerometer, gravity or orientations\n");
    const std::string move = workplace.Write("b.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n");
    EXPECT_EQ(workplace.RunBare({"inspect", move, "--samples", "gyro"}).err,
              move + ": found a camera move, expected a recording of a sensor for --samples\n");
}

TEST(Recordings, OptionsSayWhatATableDoesNot) {
    const Workplace workplace;
    const std::string file = workplace.Write("a.csv", "time,gx,gy,gz\n0,1,2,4\n0.1,1,2,4\n");
    const Outcome outcome =
        workplace.RunBare({"inspect", file, "--samples", "gyro", "--rates", "rad", "--sensor-axes", "zXY"});
    EXPECT_EQ(outcome.out, "t,x,y,z\n0,-4,1,2\n0.1,-4,1,2\n");
    const std::string log = workplace.Write("a.gcsv", kLog);
    EXPECT_EQ(workplace.RunBare({"inspect", log, "--samples", "gyro", "--sensor-axes", "yXZ"}).out,
              "t,x,y,z\n0,-1,0,0\n0.5,-1,0,0\n1,-1,0,0\n");
    EXPECT_EQ(workplace.RunBare({"inspect", file, "--rates", "turns"}).err,
              "--rates: found 'turns', expected rad or deg\n");
    EXPECT_EQ(workplace.RunBare({"inspect", file, "--sensor-axes", "XXY"}).err,
              "--sensor-axes: found 'XXY', expected the letters x, y and z in some order, small ones for the opposite: "
              "YxZ\n");
}

TEST(Recordings, AFilmIsShakenAndConvertedAtItsOwnRate) {
    const Workplace workplace;
    const std::string gyro = Stream(TextItem("ORIN", "XZY") + ShortsItem("GYRO", 3, std::vector<int>(90, 0)));
    const std::string film = workplace.Write("a.mp4", FilmBytes({Device(1, "Camera", gyro)}));
    const Outcome shaken = workplace.Run({"shake", film, "-o", workplace.Path("b.json"), "--quiet"});
    EXPECT_EQ(shaken.status, 0) << shaken.err;
    EXPECT_NE(shaken.err.find("a.mp4: the rates are integrated"), std::string::npos) << shaken.err;
    EXPECT_NE(workplace.RunBare({"inspect", workplace.Path("b.json")}).out.find("rate          30000/1001"),
              std::string::npos);
    const Outcome streamed =
        workplace.RunBare({"convert", "-", "-o", workplace.Path("c.csv"), "--format", ".gcsv"}, kLog);
    EXPECT_EQ(streamed.status, 0) << streamed.err;
    EXPECT_NE(workplace.Read("c.csv").find("\n30,"), std::string::npos);
}

TEST(Recordings, AFilmWithoutMotionIsRefusedAndNothingIsWritten) {
    const Workplace workplace;
    FilmShape shape;
    shape.motion_format = "tmcd";
    const std::string film = workplace.Write("a.mp4", FilmBytes({""}, shape));
    const Outcome outcome = workplace.RunBare({"convert", film, "-o", workplace.Path("b.csv")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              film + ": found a film without a track of motion, expected one of 'gpmd', as action cameras write it\n");
    EXPECT_EQ(workplace.Names(), (std::vector<std::string>{"a.mp4"}));
}

}  // namespace
