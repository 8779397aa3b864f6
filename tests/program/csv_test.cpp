#include <gtest/gtest.h>

#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

constexpr char kHeader[] = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
constexpr char kShortHeader[] = "frame,x,y,z,h,p,b\n";

CameraMove Read(const std::string &text) { return ReadCsv("move", text, {}); }
std::string Refusal(const std::string &text) { return RefusalOf(ReadCsv, text); }

const std::string kExpectedHeader =
    "expected a header line with frame,x,y,z,h,p,b and perhaps focal_length,focus_distance; --columns describes other "
    "tables";

TEST(Csv, HoldsTheReferencePoseAsItIs) {
    const CameraMove move = Read(std::string(kHeader) + "1,10,150,-300,30,-10,5,36,500\n");
    ASSERT_EQ(move.samples.size(), 1u);
    EXPECT_EQ(move.first_frame, 1);
    EXPECT_EQ(move.rate, (FrameRate{30, 1}));
    const CameraSample &sample = move.samples[0], pose = ReferencePose();
    EXPECT_TRUE(host::operator==(sample.position, pose.position));
    EXPECT_TRUE(host::operator==(sample.angles, pose.angles));
    EXPECT_EQ(sample.focal_length, 36);
    EXPECT_EQ(sample.focus_distance, 500);
    EXPECT_EQ(WriteCsv(move, {}), std::string(kHeader) + "1,10,150,-300,30,-10,5,36,500\n");
}

TEST(Csv, TakesUsualLensValuesWhereTheFileHasNone) {
    const CameraMove move = Read(std::string(kShortHeader) + "0,1,2,3,4,5,6\n");
    EXPECT_EQ(move.samples.at(0).focal_length, 36);
    EXPECT_EQ(move.samples.at(0).focus_distance, 2000);
}

TEST(Csv, FindsColumnsByTheirNames) {
    const CameraMove move = Read("focus_distance,b,p,h,z,y,x,frame\n700,6,5,4,3,2,1,9\n");
    EXPECT_EQ(move.first_frame, 9);
    EXPECT_TRUE(host::operator==(move.samples.at(0).position, {1, 2, 3}));
    EXPECT_EQ(move.samples.at(0).focus_distance, 700);
    EXPECT_EQ(move.samples.at(0).focal_length, 36);
}

TEST(Csv, AcceptsByteOrderMarksCarriageReturnsBlanksAndBlankLinesAtTheEnd) {
    const CameraMove move = Read("\xEF\xBB\xBF frame , x,y,z,h,p,b\r\n-1, 1,2,3,4,5,6 \r\n0,1,2,3,4,5,6\r\n\r\n  \n");
    EXPECT_EQ(move.first_frame, -1);
    EXPECT_EQ(move.LastFrame(), 0);
}

TEST(Csv, UnderstandsSemicolonsTabsAndDecimalCommas) {
    for (const char *text :
         {"frame;x;y;z;h;p;b\n1;10,5;-150;3e2;0,25;0;0\n", "frame\tx\ty\tz\th\tp\tb\n1\t10,5\t-150\t300\t0,25\t0\t0\n",
          "frame,x,y,z,h,p,b\n1,\"10,5\",-150,300,\"0,25\",0,0\n",
          "frame;x;y;z;h;p;b\n1.0;10.5;-150;\"300,0\";0.25;0;0\n"}) {
        const CameraMove move = Read(text);
        EXPECT_EQ(move.first_frame, 1) << text;
        EXPECT_TRUE(host::operator==(move.samples.at(0).position, {10.5, -150, 300})) << text;
        EXPECT_NEAR(move.samples.at(0).angles.x / kRadiansPerDegree, 0.25, 1e-12) << text;
    }
}

TEST(Csv, RefusesNumbersWithTwoMarks) {
    EXPECT_EQ(Refusal("frame;x;y;z;h;p;b\n1;1.234,5;0;0;0;0;0\n"),
              "move:2:3: found '1.234,5', expected a number from -1000000000000 to 1000000000000 for x");
}

TEST(Csv, FillsEqualGapsWhereThatIsWanted) {
    const std::string text = std::string(kShortHeader) + "4,0,0,0,0,0,0\n6,2,0,0,0,0,0\n8,4,0,0,0,0,0\n";
    EXPECT_EQ(
        Refusal(text),
        "move:3:1: found '6', expected frame 5 (frames follow each other without gaps; --retime fills equal ones)");
    FormatOptions options;
    options.fills_gaps = true;
    const CameraMove move = ReadCsv("move", text, options);
    EXPECT_EQ(move.first_frame, 4);
    ASSERT_EQ(move.samples.size(), 5u);
    // Straight and at one speed: so is what lies between.
    for (int i = 0; i < 5; ++i) EXPECT_NEAR(move.samples[static_cast<std::size_t>(i)].position.x, i, 1e-12) << i;
    EXPECT_EQ(move.notes, std::vector<std::string>{"holds every 2. frame; those between them are interpolated"});
    try {
        ReadCsv("move", text + "9,5,0,0,0,0,0\n", options);
        FAIL() << "accepted";
    } catch (const Failure &failure) {
        EXPECT_STREQ(failure.what(),
                     "move:5:1: found '9', expected frame 10 (as far from the one before as the first two are)");
    }
}

TEST(Csv, MakesAnglesContinuous) {
    // 179 to -179 degrees is a turn of 2 degrees: it goes on to 181.
    const CameraMove move = Read(std::string(kShortHeader) + "0,0,0,0,179,0,0\n1,0,0,0,-179,0,0\n");
    EXPECT_NEAR(move.samples.at(1).angles.x / kRadiansPerDegree, 181, 1e-9);
}

TEST(Csv, RefusesAnEmptyFile) {
    EXPECT_EQ(Refusal(""), "move:1:1: found an empty file, " + kExpectedHeader);
    EXPECT_EQ(Refusal("\n \r\n"), "move:1:1: found an empty file, " + kExpectedHeader);
}

TEST(Csv, RefusesAFileWithoutFrames) {
    EXPECT_EQ(Refusal(kShortHeader), "move:2:1: found the end of the file, expected at least one frame");
}

TEST(Csv, RefusesHeaderLinesThatAreNone) {
    EXPECT_EQ(Refusal("1,2,3\n"), "move:1:1: found '1', " + kExpectedHeader);
    EXPECT_EQ(Refusal("frame,x,y,z,h,p,b,roll\n"), "move:1:19: found 'roll', " + kExpectedHeader);
    EXPECT_EQ(Refusal("frame,x,y,z,h,p\n"), "move:1:16: found no column b, " + kExpectedHeader);
    EXPECT_EQ(Refusal("frame,x,x,y,z,h,p,b\n"), "move:1:9: found 'x', expected each column once");
}

TEST(Csv, RefusesAWrongNumberOfColumnsAtTheLinesEndOrTheFirstSurplusOne) {
    EXPECT_EQ(Refusal(std::string(kShortHeader) + "0,1,2,3,4,5,6\n1,2,3\n"),
              "move:3:6: found 3 columns, expected 7 columns as in the header line");
    EXPECT_EQ(Refusal(std::string(kShortHeader) + "0,1,2,3,4,5,6,7\n"),
              "move:2:15: found 8 columns, expected 7 columns as in the header line");
    EXPECT_EQ(Refusal(std::string(kShortHeader) + "0,1,2,3,4,5,6\n\n1,1,2,3,4,5,6\n"),
              "move:3:1: found an empty line, expected 7 columns as in the header line");
}

TEST(Csv, RefusesWhatIsNoNumberWhereItStands) {
    const std::string expected = ", expected a number from -1000000000000 to 1000000000000 for y";
    for (const std::string text : {"nan", "inf", "-inf", "1e999", "1e13", "two", "1.2.3", ""}) {
        EXPECT_EQ(Refusal(std::string(kShortHeader) + "0,1," + text + ",3,4,5,6\n"),
                  "move:2:5: found '" + text + "'" + expected);
    }
}

TEST(Csv, RefusesAFileThatWasCutOffInItsLastNumber) {
    EXPECT_EQ(Refusal(std::string(kShortHeader) + "0,1,2,3,4,5,6.2"),
              "move:2:16: found the end of the file, expected a line end (the file may be cut off)");
}

TEST(Csv, RefusesFramesOutOfOrderTwiceAndAfterAGap) {
    const std::string start = std::string(kShortHeader) + "5,1,2,3,4,5,6\n6,1,2,3,4,5,6\n";
    const std::string expected = ", expected frame 7 (frames follow each other without gaps)";
    for (const std::string frame : {"5", "6", "8", "-7"}) {
        EXPECT_EQ(Refusal(start + frame + ",1,2,3,4,5,6\n"), "move:4:1: found '" + frame + "'" + expected);
    }
}

TEST(Csv, RefusesFramesThatAreNoWholeOrAbsurdNumbers) {
    const std::string expected = ", expected a whole frame number from -10000000 to 10000000";
    for (const std::string frame : {"0.5", "nan", "1e3", "10000001", "99999999999999999999", ""}) {
        EXPECT_EQ(Refusal(std::string(kShortHeader) + frame + ",1,2,3,4,5,6\n"),
                  "move:2:1: found '" + frame + "'" + expected);
    }
}

TEST(Csv, RefusesLensesThatNobodyBuilds) {
    const std::string expected = ", expected a number from 1 to 10000 for focal_length";
    for (const std::string lens : {"0", "-36", "0.5", "10001"}) {
        EXPECT_EQ(Refusal(std::string(kHeader) + "0,1,2,3,4,5,6," + lens + ",500\n"),
                  "move:2:15: found '" + lens + "'" + expected);
    }
    EXPECT_EQ(Refusal(std::string(kHeader) + "0,1,2,3,4,5,6,36,-1\n"),
              "move:2:18: found '-1', expected a number from 0 to 1000000000000 for focus_distance");
}

TEST(Csv, RefusesMoreThanAMillionFrames) {
    std::string text = kShortHeader;
    for (int frame = 0; frame <= 1000000; ++frame) text += std::to_string(frame) + ",0,0,0,0,0,0\n";
    EXPECT_EQ(Refusal(text), "move:1000002:1: found '1000000', expected the end of the file (at most 1000000 frames)");
}

TEST(Csv, ShowsUnprintableInputWithoutPrintingIt) {
    EXPECT_EQ(Refusal(std::string("\x1b[31mred\x07\n")), "move:1:1: found '?[31mred?', " + kExpectedHeader);
}

TEST(Csv, WritesWhatItReadsAgainByteForByte) {
    const std::string text = std::string(kHeader) + "0,0.5,-2.25,1000000,0,89.5,-180,24,12.125\n" +
                             "1,0.123456789012,3,4,5,6,-187,24.5,12\n";
    EXPECT_EQ(WriteCsv(Read(text), {}), text);
}

}  // namespace
}  // namespace tremolux
