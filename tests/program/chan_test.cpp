#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

CameraMove Read(const std::string &text, const FormatOptions &options = {}) { return ReadChan("move", text, options); }
std::string Refusal(const std::string &text) { return RefusalOf(ReadChan, text); }

const std::string kEightColumns = "expected 8 columns (frame tx ty tz rx ry rz vfov)";

std::vector<double> Numbers(const std::string &line) {
    std::vector<double> numbers;
    const std::string row = line.substr(0, line.size() - 1);  // the fields point into it
    for (const Field &field : BlankFields(row)) numbers.push_back(*ParseNumber(field.text));
    return numbers;
}

TEST(Chan, WritesTheReferencePose) {
    // Mirrored in Z: z turns its sign. Order Z, X, Y takes (pitch, heading, -bank) as they are. The vertical field of
    // view is 2 atan(36 * 1080 / 1920 / (2 * 36)) = 2 atan(0.28125) = 31.417276 degrees.
    const std::vector<double> expected = {1, 10, 150, 300, -10, 30, -5, 31.417276};
    const std::vector<double> written = Numbers(WriteChan({1, {30, 1}, {ReferencePose()}}, {}));
    ASSERT_EQ(written.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(written[i], expected[i], 1e-6) << i;
}

TEST(Chan, ReadsTheReferencePose) {
    const CameraMove move = Read("1  10 150 300  -10 30 -5  31.417276\n");
    ASSERT_EQ(move.samples.size(), 1u);
    EXPECT_EQ(move.first_frame, 1);
    const CameraSample &sample = move.samples[0], pose = ReferencePose();
    EXPECT_TRUE(host::operator==(sample.position, pose.position));
    EXPECT_TRUE(host::operator==(sample.angles, pose.angles));
    EXPECT_NEAR(sample.focal_length, 36, 1e-5);
    EXPECT_EQ(sample.focus_distance, 2000);
}

TEST(Chan, AgreesWithTheMirroredMatrixOfTheReferencePose) {
    // Where the reference camera looks in a right-handed scene, computed apart from the angles.
    const CameraMove move = Read("1  10 150 300  -10 30 -5  31.417276\n");
    const host::Matrix matrix = host::HpbToMatrix(move.samples.at(0).angles);
    EXPECT_NEAR(matrix.v3.x, -0.49240, 1e-5);
    EXPECT_NEAR(matrix.v3.y, -0.17365, 1e-5);
    EXPECT_NEAR(-matrix.v3.z, -0.85287, 1e-5);
    EXPECT_NEAR(matrix.v1.x, 0.87030, 1e-5);
    EXPECT_NEAR(matrix.v1.y, -0.08583, 1e-5);
    EXPECT_NEAR(-matrix.v1.z, -0.48499, 1e-5);
}

TEST(Chan, TakesFilesAsOthersWriteThem) {
    // Frames with a fraction of nothing, several blanks and tabs, blank lines, no last line end.
    const CameraMove move = Read("\r\n1.000000   10\t150 300  -10 30 -5\r\n\r\n 2.000000   11\t150 300  -10 30 -5");
    EXPECT_EQ(move.first_frame, 1);
    ASSERT_EQ(move.samples.size(), 2u);
    EXPECT_EQ(move.samples[1].position.x, 11);
    EXPECT_EQ(Refusal("1.5 0 0 0 0 0 0 40\n"),
              "move:1:1: found '1.5', expected a whole frame number from -10000000 to 10000000");
}

TEST(Chan, TurnsAWorldWhoseZPointsUp) {
    // The reference pose: (x, -z, y) of the Y-up one, and a quarter about x more: in the order XYZ of an upright camera
    // with heading alone, rx is 90 and rz the heading.
    FormatOptions z_up;
    z_up.z_up = true;
    z_up.rotation_order = kOrderXyz;
    const CameraMove move = Read("1  10 -300 150  90 0 30\n", z_up);
    EXPECT_TRUE(host::operator==(move.samples.at(0).position, {10, 150, -300}));
    EXPECT_NEAR(move.samples.at(0).angles.x, 30 * kRadiansPerDegree, 1e-12);
    EXPECT_NEAR(move.samples.at(0).angles.y, 0, 1e-12);
    EXPECT_NEAR(move.samples.at(0).angles.z, 0, 1e-12);
    const std::vector<double> expected = {1, 10, -300, 150, 90, 0, 30}, written = Numbers(WriteChan(move, z_up));
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(written.at(i), expected[i], 1e-9) << i;
}

TEST(Chan, ComesBackFromAWorldWhoseZPointsUpInEveryOrder) {
    for (const char *name : {"xyz", "xzy", "yxz", "yzx", "zxy", "zyx"}) {
        FormatOptions z_up;
        z_up.z_up = true;
        z_up.rotation_order = *RotationOrderNamed(name);
        const CameraSample back = Read(WriteChan({1, {30, 1}, {ReferencePose()}}, z_up), z_up).samples.at(0);
        EXPECT_LE(host::Length(back.position - ReferencePose().position), 1e-9) << name;
        EXPECT_LE(host::Length(back.angles - ReferencePose().angles), 1e-12) << name;
    }
}

TEST(Chan, ScalesLengthsByTheUnit) {
    FormatOptions metres;
    metres.length_unit = 100;
    const CameraMove move = Read("0 0.1 1.5 3 0 0 0\n", metres);
    EXPECT_NEAR(move.samples.at(0).position.x, 10, 1e-12);
    EXPECT_NEAR(move.samples.at(0).position.y, 150, 1e-12);
    EXPECT_NEAR(move.samples.at(0).position.z, -300, 1e-12);
    const std::vector<double> written = Numbers(WriteChan(move, metres));
    EXPECT_NEAR(written.at(1), 0.1, 1e-12);
    EXPECT_NEAR(written.at(3), 3, 1e-12);
}

TEST(Chan, HoldsTheFarthestPlaceInAnyUnit) {
    CameraMove move;
    move.samples.resize(1);
    move.samples[0].position = {1e12, -1e12, 1e12};
    for (const double unit : {0.001, 0.3, 7.0, 100.0, 1000.0}) {
        FormatOptions options;
        options.length_unit = unit;
        const CameraMove again = ReadChan("move", WriteChan(move, options), options);
        EXPECT_NEAR(again.samples.at(0).position.x, 1e12, 1e-3) << unit;
        EXPECT_LE(again.samples.at(0).position.x, 1e12) << unit;
        EXPECT_NO_THROW(ReadCsv("move", WriteCsv(again, {}), {})) << unit;
    }
}

TEST(Chan, TakesTheAspectOfThePicture) {
    // A square picture: the film back is as high as wide, and 36 mm give 2 atan(0.5) = 53.130102 degrees.
    FormatOptions square;
    square.width = square.height = 512;
    EXPECT_NEAR(Numbers(WriteChan({1, {30, 1}, {ReferencePose()}}, square)).at(7), 53.130102, 1e-6);
}

TEST(Chan, SkipsCommentsAndTakesFilesWithoutAFieldOfView) {
    const CameraMove move = Read("# exported\r\n 0\t1 2 3  4 5 6\r\n# between\n1 1 2 3 4 5 6\n\n");
    EXPECT_EQ(move.samples.size(), 2u);
    EXPECT_EQ(move.samples.at(0).focal_length, 36);
}

TEST(Chan, RefusesEmptyFilesAndFilesWithoutFrames) {
    EXPECT_EQ(Refusal(""), "move:1:1: found an empty file, " + kEightColumns);
    EXPECT_EQ(Refusal("# nothing\n"), "move:2:1: found the end of the file, expected at least one frame");
}

TEST(Chan, RefusesAWrongNumberOfColumns) {
    EXPECT_EQ(Refusal("0 1 2 3 4 5\n"), "move:1:12: found 6 columns, " + kEightColumns);
    EXPECT_EQ(Refusal("0 1 2 3 4 5 6 30 9\n"), "move:1:18: found 9 columns, " + kEightColumns);
    EXPECT_EQ(Refusal("0 1 2 3 4 5 6 30\n1 1 2 3 4 5 6\n"), "move:2:14: found 7 columns, " + kEightColumns);
    EXPECT_EQ(Refusal("0 1 2 3 4 5 6\n1 1 2 3 4 5 6 30\n"),
              "move:2:15: found 8 columns, expected 7 columns (frame tx ty tz rx ry rz)");
}

TEST(Chan, RefusesNumbersThatAreNone) {
    for (const std::string text : {"nan", "inf", "1e999", "1e13", "x"}) {
        EXPECT_EQ(Refusal("0 1 2 " + text + " 4 5 6 30\n"),
                  "move:1:7: found '" + text + "', expected a number from -1000000000000 to 1000000000000 for tz");
    }
}

TEST(Chan, RefusesFramesOutOfOrder) {
    EXPECT_EQ(Refusal("3 1 2 3 4 5 6\n2 1 2 3 4 5 6\n"),
              "move:2:1: found '2', expected frame 4 (frames follow each other without gaps)");
}

TEST(Chan, RefusesFieldsOfViewThatNoLensHas) {
    for (const std::string text : {"-1", "181", "nan"}) {
        EXPECT_EQ(Refusal("0 1 2 3 4 5 6 " + text + "\n"),
                  "move:1:15: found '" + text + "', expected a number from 0 to 180 for vfov");
    }
    for (const std::string text : {"0", "180", "179.999", "1e-9"}) {
        EXPECT_EQ(Refusal("0 1 2 3 4 5 6 " + text + "\n")
                      .rfind("move:1:15: found '" + text + "', expected a vertical field of view from ", 0),
                  0u)
            << text;
    }
}

double Tenths(int limit) { return *rc::gen::inRange(-limit * 10, limit * 10 + 1) / 10.0; }

RC_GTEST_PROP(Chan, KeepsEveryPoseOfACsvFile, ()) {
    CameraSample sample;
    sample.position = {Tenths(100000), Tenths(100000), Tenths(100000)};
    sample.angles = host::Vector{Tenths(720), Tenths(90), Tenths(180)} * kRadiansPerDegree;
    sample.focal_length = *rc::gen::inRange(10, 100000) / 10.0;
    FormatOptions options;
    options.length_unit = *rc::gen::element(1.0, 100.0, 0.1, 2.54, 30.48);
    options.width = *rc::gen::inRange(1, 8193);
    options.height = *rc::gen::inRange(1, 4097);

    const CameraMove from_csv = ReadCsv("csv", WriteCsv({7, {30, 1}, {sample}}, options), options);
    const CameraMove from_chan = ReadChan("chan", WriteChan(from_csv, options), options);
    const CameraSample &back = from_chan.samples.at(0);
    RC_ASSERT(from_chan.first_frame == 7);
    RC_ASSERT(host::Length(back.position - sample.position) <= 1e-8);
    RC_ASSERT(host::Length(back.angles - sample.angles) <= 1e-12);
    RC_ASSERT(std::abs(back.focal_length - sample.focal_length) <= 1e-9 * sample.focal_length);
}

}  // namespace
}  // namespace tremolux
