// Moves that no camera makes are asked about.
#include "library/formats/unit_question.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "library/formats/format.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

constexpr UnitAdvice kAdvice = {"--length", "--angle", "--lens"};

// Two seconds at 24 frames a second along `way` centimetres.
CameraMove Dolly(double way) {
    CameraMove move{0, {24, 1}, std::vector<CameraSample>(49)};
    for (std::size_t i = 0; i < 49; ++i) move.samples[i].position.x = way * static_cast<double>(i) / 48;
    return move;
}

std::string Question(CameraMove move) {
    AskAboutUnits(kAdvice, &move);
    return move.notes.empty() ? "" : move.notes.size() == 1 ? move.notes.front() : "more than one line";
}

TEST(UnitQuestion, IsNotAskedOfCamerasThatStandOrMoveAsCamerasDo) {
    for (const double way : {0.0, 1e-5, 2.0, 500.0, 19000.0}) EXPECT_EQ(Question(Dolly(way)), "") << way;
}

TEST(UnitQuestion, IsAskedOfWaysThatAreTooShortOrTooLong) {
    EXPECT_EQ(Question(Dolly(0.03)),
              "the camera's whole way is 0.03 cm in 2 seconds: are the lengths in another unit? --length says so");
    EXPECT_EQ(Question(Dolly(50000)),
              "the camera's whole way is 50000 cm in 2 seconds: are the lengths in another unit? --length says so");
}

TEST(UnitQuestion, IsAskedOfPicturesThatTurnByMoreThanTheirWidth) {
    // A pan of 2 degrees a frame whose numbers are taken for radians.
    CameraMove move = Dolly(100);
    for (std::size_t i = 0; i < move.samples.size(); ++i) move.samples[i].angles.x = 2.0 * static_cast<double>(i);
    EXPECT_EQ(Question(move),
              "from frame to frame the camera turns by 115 degrees, more than its picture is wide: are the "
              "angles in another unit? --angle says so");
    // One cut is no shake.
    move = Dolly(100);
    for (std::size_t i = 20; i < move.samples.size(); ++i) move.samples[i].angles.x = 3;
    EXPECT_EQ(Question(move), "");
}

TEST(UnitQuestion, IsAskedOfFocusAndLensThatNobodyHas) {
    CameraMove move = Dolly(100);
    for (CameraSample &sample : move.samples) sample.focus_distance = 5;
    EXPECT_EQ(Question(move),
              "the camera's focus is never further than 5 cm: are the lengths in another unit? --length says so");
    move = Dolly(100);
    for (CameraSample &sample : move.samples) sample.focal_length = 3.5;
    // 2 atan(36 / 7) = 157.99 degrees.
    EXPECT_EQ(Question(move), "the lens sees 158 degrees: is the film back another one? --lens says so");
}

TEST(UnitQuestion, IsAskedOfTablesAndChannelFilesAlone) {
    std::string chan, csv = "frame,x,y,z,h,p,b\n";
    for (int i = 0; i < 60; ++i) {
        chan += std::to_string(i) + " 0 " + std::to_string(0.001 * i) + " 0 0 0 0\n";
        csv += std::to_string(i) + ",0," + std::to_string(0.001 * i) + ",0,0,0,0\n";
    }
    const CameraMove from_chan = ReadChan("move", chan, {}), from_csv = ReadCsv("move", csv, {});
    ASSERT_EQ(from_chan.notes.size(), 1u);
    EXPECT_NE(from_chan.notes[0].find("--unit says so"), std::string::npos);
    ASSERT_EQ(from_csv.notes.size(), 1u);
    EXPECT_NE(from_csv.notes[0].find("--table tremolux --unit m says so"), std::string::npos);
    EXPECT_TRUE(ReadJson("move", WriteJson(from_csv, {}), {}).notes.empty());
}

TEST(UnitQuestion, IsNotAskedOfSamplesAndRecordings) {
    std::vector<std::filesystem::path> folders = {std::string(TREMOLUX_SOURCE_DIR) + "/samples"};
    if (const char *recordings = std::getenv("TREMOLUX_RECORDINGS"); recordings != nullptr)
        folders.emplace_back(recordings);
    for (const std::filesystem::path &folder : folders) {
        for (const auto &entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() != ".csv") continue;
            FormatOptions options;
            options.only_positions = entry.path().filename() == "subject.csv";
            const CameraMove move = ReadMove(entry.path(), options);
            EXPECT_TRUE(move.notes.empty()) << entry.path() << ": " << move.notes.front();
            EXPECT_EQ(Question(move), "") << entry.path();
        }
    }
}

}  // namespace
}  // namespace tremolux
