// Tables of other programs, by columns that are described.
#include "library/formats/table.h"

#include <gtest/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

TableLayout Columns(const std::string &text) {
    TableLayout layout;
    AddColumns("--columns", text, &layout);
    return layout;
}

CameraMove Read(const std::string &text, const TableLayout &layout, const FormatOptions &options = {}) {
    return ReadTable("move", text, layout, options);
}

template <typename Work>
std::string RefusalIn(Work work) {
    try {
        work();
        return "accepted";
    } catch (const Failure &failure) {
        return failure.what();
    }
}

void ExpectReferencePose(const CameraSample &sample) {
    EXPECT_LE(host::Length(sample.position - ReferencePose().position), 1e-9);
    EXPECT_LE(host::Length(sample.angles - ReferencePose().angles), 1e-9);
}

std::string Row(const std::vector<double> &numbers) {
    std::string text = "1";
    for (const double number : numbers) text += "," + FormatNumber(number);
    return text + "\n";
}

constexpr char kTurns[] = "frame=F,x=TX,y=TY,z=TZ,rx=RX,ry=RY,rz=RZ";
constexpr char kTurnsHeader[] = "F,TX,TY,TZ,RX,RY,RZ\n";
constexpr char kQuaternion[] = "frame=1,x=2,y=3,z=4,qw=5,qx=6,qy=7,qz=8";

// ---- Axes

TEST(Table, TakesTurnsOfARightHandedWorld) {
    // Order z, x, y takes pitch, heading and minus the bank as they are, and z turns its sign.
    TableLayout layout = Columns(kTurns);
    layout.order = kOrderZxy;
    const CameraMove move = Read(std::string(kTurnsHeader) + "1,10,150,300,-10,30,-5\n", layout);
    EXPECT_EQ(move.first_frame, 1);
    ExpectReferencePose(move.samples.at(0));
    EXPECT_TRUE(move.notes.empty());
}

TEST(Table, TakesRadiansAndAnyUnit) {
    TableLayout layout = Columns(kTurns);
    layout.order = kOrderZxy;
    layout.radians = true;
    layout.length_unit = 100;
    const double d = kRadiansPerDegree;
    ExpectReferencePose(Read(kTurnsHeader + Row({0.1, 1.5, 3, -10 * d, 30 * d, -5 * d}), layout).samples.at(0));
}

TEST(Table, TurnsSignsWhereTheColumnsSaySo) {
    TableLayout layout = Columns("frame=F,x=TX,y=TY,z=-TZ,rx=-RX,ry=RY,rz=RZ");
    layout.order = kOrderZxy;
    ExpectReferencePose(Read(std::string(kTurnsHeader) + "1,10,150,-300,10,30,-5\n", layout).samples.at(0));
}

// With a = H/2, b = P/2, c = -B/2, as products of half angles.
Quaternion ReferenceQuaternion() {
    const double a = 15 * kRadiansPerDegree, b = -5 * kRadiansPerDegree, c = -2.5 * kRadiansPerDegree;
    return {std::cos(a) * std::cos(b) * std::cos(c) + std::sin(a) * std::sin(b) * std::sin(c),
            std::cos(a) * std::sin(b) * std::cos(c) + std::sin(a) * std::cos(b) * std::sin(c),
            std::sin(a) * std::cos(b) * std::cos(c) - std::cos(a) * std::sin(b) * std::sin(c),
            std::cos(a) * std::cos(b) * std::sin(c) - std::sin(a) * std::sin(b) * std::cos(c)};
}

TEST(Table, TakesQuaternionsOfAnyLength) {
    const Quaternion q = ReferenceQuaternion();
    for (const double length : {1.0, -1.0, 3.0}) {
        ExpectReferencePose(
            Read(Row({10, 150, 300, length * q.w, length * q.x, length * q.y, length * q.z}), Columns(kQuaternion))
                .samples.at(0));
    }
    EXPECT_EQ(RefusalIn([] { Read("1,0,0,0,0,0,0,0\n", Columns(kQuaternion)); }),
              "move:1:9: found '0', expected a quaternion that is not 0 0 0 0");
}

TEST(Table, TakesWorldsWhoseZPointsUp) {
    // (x, y, z) becomes (x, -z, y), and a quarter turn about x stands before the rotation.
    TableLayout layout = Columns(kQuaternion);
    layout.z_up = true;
    const double s = std::sqrt(0.5);
    const Quaternion q = Quaternion{s, s, 0, 0} * ReferenceQuaternion();
    ExpectReferencePose(Read(Row({10, -300, 150, q.w, q.x, q.y, q.z}), layout).samples.at(0));
}

TEST(Table, TakesCamerasWhoseYPointsDown) {
    // Their axes are the others' after half a turn about the camera's own x.
    TableLayout layout = Columns(kQuaternion);
    layout.camera_y_down = true;
    const Quaternion q = ReferenceQuaternion() * Quaternion{0, 1, 0, 0};
    ExpectReferencePose(Read(Row({10, 150, 300, q.w, q.x, q.y, q.z}), layout).samples.at(0));
}

TEST(Table, TakesLeftHandedWorlds) {
    // The mirror in z keeps turns about z and reverses the others.
    TableLayout layout = Columns(kTurns);
    layout.left_handed = true;
    layout.order = kOrderZxy;
    ExpectReferencePose(Read(std::string(kTurnsHeader) + "1,10,150,-300,10,-30,-5\n", layout).samples.at(0));
}

TEST(Table, TakesHeadingPitchAndBankInAnyWorld) {
    TableLayout layout = Columns("frame=F,x=X,y=Y,z=Z,h=PAN,p=TILT,b=ROLL");
    const std::string header = "F,X,Y,Z,PAN,TILT,ROLL\n";
    ExpectReferencePose(Read(header + "1,10,150,300,30,-10,5\n", layout).samples.at(0));
    layout.z_up = true;
    ExpectReferencePose(Read(header + "1,10,-300,150,30,-10,5\n", layout).samples.at(0));
    layout.z_up = false;
    layout.left_handed = true;
    ExpectReferencePose(Read(header + "1,10,150,-300,30,-10,5\n", layout).samples.at(0));
}

// ---- Lens

TEST(Table, TakesLensesAsFocalLengthsOrAnglesOfView) {
    // 36 mm on 36 mm: 2 atan(0.5) across the picture, 2 atan(0.28125) up it at 1920 x 1080.
    const double focal = Read("1,0,36\n", Columns("frame=1,x=2,focal_length=3")).samples.at(0).focal_length;
    const double fov = Read("1,0,53.13010235415598\n", Columns("frame=1,x=2,fov=3")).samples.at(0).focal_length;
    const double vfov = Read("1,0,31.417276\n", Columns("frame=1,x=2,vfov=3")).samples.at(0).focal_length;
    EXPECT_EQ(focal, 36);
    EXPECT_NEAR(fov, 36, 1e-9);
    EXPECT_NEAR(vfov, 36, 1e-5);
}

TEST(Table, RefusesLensesThatNobodyHas) {
    EXPECT_EQ(RefusalIn([] { Read("1,0,0.035\n", Columns("frame=1,x=2,focal_length=3")); }),
              "move:1:5: found '0.035', expected millimetres from 1 to 10000 for focal_length");
    EXPECT_EQ(RefusalIn([] {
                  Read("1,0,180\n", Columns("frame=1,x=2,fov=3"));
              }).rfind("move:1:5: found '180', expected an angle of view from ", 0),
              0u);
    EXPECT_EQ(RefusalIn([] { Read("1,0,-1\n", Columns("frame=1,x=2,focus_distance=3")); }),
              "move:1:5: found '-1', expected a distance of 0 or more for focus_distance");
}

// ---- Text

TEST(Table, FindsItsHeaderInACommentAndBehindOtherLines) {
    for (const char *head : {"# exported\n# F TX TY TZ RX RY RZ\n", "Camera path\n\nf;tx;ty;tz;rx;ry;rz\n"}) {
        const CameraMove move =
            Read(std::string(head) + (head[0] == '#' ? "1 2 3 4 0 0 0\n" : "1;2;3;4;0;0;0\n"), Columns(kTurns));
        EXPECT_TRUE(host::operator==(move.samples.at(0).position, {2, 3, -4})) << head;
    }
}

TEST(Table, NeedsNoHeaderForPlacesAndNoLastLineEnd) {
    for (const char *text :
         {"1 2 3 4", "1\t2\t3\t4", "1;2;3;4", "# by places\n1,0  2,0  3,0  4,0", "frame a b c\n1 2 3 4"}) {
        const CameraMove move = Read(text, Columns("frame=1,x=2,y=3,z=4"));
        ASSERT_EQ(move.samples.size(), 1u) << text;
        EXPECT_TRUE(host::operator==(move.samples[0].position, {2, 3, -4})) << text;
    }
}

TEST(Table, TakesNoRowWithTextForItsHeader) {
    const CameraMove move = Read("a.png 1 2 3 4\nb.png 2 2 3 4\n", Columns("frame=2,x=3,y=4,z=5"));
    EXPECT_EQ(move.samples.size(), 2u);
}

TEST(Table, TellsWhatItDoesNotUse) {
    const CameraMove move = Read("F,X,take,a,b,c,d,e\n1,0,7,0,0,0,0,0\n", Columns("frame=F,x=X"));
    EXPECT_EQ(move.notes, (std::vector<std::string>{"no column is a rotation: the camera never turns",
                                                    "not used: the columns 'take', 'a', 'b', 'c', 'd' and 1 more"}));
}

TEST(Table, CountsRowsWhereNothingSaysTheirFrames) {
    const CameraMove move = Read("X,PAN\n1,0\n2,0\n", Columns("x=X,h=PAN"));
    EXPECT_EQ(move.first_frame, 0);
    EXPECT_EQ(move.samples.size(), 2u);
    EXPECT_EQ(move.notes, std::vector<std::string>{"no column is a frame or a time: rows are frames from 0 on"});
}

TEST(Table, IsRefusedWithoutOneOfItsColumns) {
    EXPECT_EQ(RefusalIn([] { Read("F,X\n1,2\n", Columns("frame=F,x=TX|PX")); }),
              "move:1:1: found 'F,X', expected a header line with F, TX|PX (or --columns with other names, or places "
              "from 1)");
    EXPECT_EQ(RefusalIn([] { Read("1,2\n", Columns("frame=1,x=3")); }),
              "move:1:4: found 2 columns, expected at least 3 columns");
    EXPECT_EQ(RefusalIn([] { Read("F,X\n1,2\n3\n", Columns("frame=F,x=X")); }),
              "move:3:2: found 1 column, expected at least 2 columns");
    EXPECT_EQ(RefusalIn([] { Read("F,X\n", Columns("frame=F,x=X")); }),
              "move:2:1: found the end of the file, expected at least one row");
}

TEST(Table, RefusesColumnsThatItDoesNotKnow) {
    EXPECT_EQ(RefusalIn([] { Columns("x=A,x=B"); }), "--columns: found 'x=B', expected each name once");
    EXPECT_EQ(RefusalIn([] { Columns("x"); }), "--columns: found 'x', expected NAME=COLUMN, as in x=TX");
    EXPECT_EQ(RefusalIn([] { Columns("x="); }), "--columns: found 'x=', expected NAME=COLUMN, as in x=TX");
    EXPECT_EQ(RefusalIn([] { Columns("w=A"); }).rfind("--columns: found 'w', expected frame, time, ", 0), 0u);
    EXPECT_EQ(RefusalIn([] { TableNamed("--table", "none"); }),
              "--table: found 'none', expected tremolux, trajectory, blender, maya or unity");
}

// ---- Times

std::string Times(double start, double step, int count, double unit = 1, double rounding = 0) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        double time = (start + i * step) * unit;
        if (rounding > 0) time = std::round(time / rounding) * rounding;
        text += FormatNumber(time) + "," + std::to_string(10 * i) + "\n";
    }
    return text;
}

TEST(Table, KnowsTheRateAndTheFirstFrameFromTimes) {
    const TableLayout layout = Columns("time=1,x=2");
    const struct {
        double start, step, unit, rounding;
        FrameRate rate;
    } cases[] = {{0, 1.0 / 24, 1, 0, {24, 1}},
                 {4, 1001.0 / 24000, 1, 0, {24000, 1001}},
                 {0, 1.0 / 30, 1000, 1, {30, 1}},  // whole milliseconds
                 {1, 1001.0 / 60000, 1000, 0.01, {60000, 1001}},
                 {2, 1.0 / 60, 1e6, 1, {60, 1}},
                 {0, 1.0 / 17, 1, 0, {17, 1}},
                 {0, 1, 1, 0, {1, 1}}};
    for (const auto &one : cases) {
        const CameraMove move = Read(Times(one.start, one.step, 200, one.unit, one.rounding), layout);
        EXPECT_EQ(move.rate, one.rate) << FrameRateText(move.rate);
        ASSERT_EQ(move.samples.size(), 200u) << FrameRateText(one.rate);
        EXPECT_EQ(move.first_frame, std::llround(one.start * one.rate.PerSecond()));
        for (std::size_t i = 0; i < 200; ++i) EXPECT_EQ(move.samples[i].position.x, 10.0 * static_cast<double>(i));
    }
}

TEST(Table, BeginsAtFrameZeroForClocksThatCountFromLongAgo) {
    const CameraMove move = Read(Times(1305031102, 0.04, 50), Columns("time=1,x=2"));
    EXPECT_EQ(move.rate, (FrameRate{25, 1}));
    EXPECT_EQ(move.first_frame, 0);
    EXPECT_EQ(move.samples.size(), 50u);
}

TEST(Table, InterpolatesFramesThatLieBetweenRows) {
    FormatOptions options;
    options.rate = FrameRate{24, 1};
    // 100 rows a second at 1000 units a second: frame n lies at n / 24 seconds.
    const CameraMove move = Read(Times(0, 0.01, 101), Columns("time=1,x=2"), options);
    ASSERT_EQ(move.samples.size(), 25u);
    for (std::size_t i = 0; i < 25; ++i)
        EXPECT_NEAR(move.samples[i].position.x, 1000.0 * static_cast<double>(i) / 24, 1e-6) << i;
}

TEST(Table, FillsInRowsThatAreMissing) {
    const CameraMove move = Read("0,0\n1,10\n2,20\n4,40\n5,50\n", Columns("time=1,x=2"));
    ASSERT_EQ(move.samples.size(), 6u);
    EXPECT_GT(move.samples[3].position.x, 25);
    EXPECT_LT(move.samples[3].position.x, 35);
    EXPECT_EQ(move.samples[4].position.x, 40);
}

TEST(Table, RefusesTimesThatDoNotRise) {
    const TableLayout layout = Columns("time=1,x=2");
    EXPECT_EQ(RefusalIn([&] { Read("0,0\n0.1,0\n0.1,0\n", layout); }),
              "move:3:1: found '0.1', expected a time after the one above");
}

// ---- Known ones

TEST(Table, KnowsTrajectories) {
    // Metres, z up, a camera with y down.
    const double s = std::sqrt(0.5);
    const Quaternion q = Quaternion{s, s, 0, 0} * ReferenceQuaternion() * Quaternion{0, 1, 0, 0};
    std::string text = "# timestamp tx ty tz qx qy qz qw\n";
    for (const char *time : {"100.00", "100.04"}) {
        text += time + std::string(" 0.1 -3 1.5 ") + FormatNumber(q.x) + " " + FormatNumber(q.y) + " " +
                FormatNumber(q.z) + " " + FormatNumber(q.w) + "\n";
    }
    const CameraMove move = Read(text, TableNamed("--table", "trajectory"));
    EXPECT_EQ(move.rate, (FrameRate{25, 1}));
    EXPECT_EQ(move.first_frame, 2500);
    ExpectReferencePose(move.samples.at(1));
}

TEST(Table, KnowsTheOthersByTheirColumns) {
    // A level camera that looks along the world's depth, 1.5 m up: in each table's own way.
    const struct {
        const char *table, *text;
    } cases[] = {{"blender",
                  "frame,location_x,location_y,location_z,rotation_x,rotation_y,rotation_z,lens\n"
                  "1,0.1,-3,1.5,1.5707963267948966,0,0,36\n"},
                 {"maya",
                  "Frame\ttranslateX\ttranslateY\ttranslateZ\trotateX\trotateY\trotateZ\tfocalLength\n"
                  "1\t10\t150\t300\t0\t0\t0\t36\n"},
                 {"unity",
                  "frame,position_x,position_y,position_z,rotation_x,rotation_y,rotation_z,rotation_w,fov\n"
                  "1,0.1,1.5,-3,0,0,0,1,31.4172758\n"},
                 {"tremolux", "frame,x,y,z,h,p,b\n1,10,150,-300,0,0,0\n"}};
    for (const auto &one : cases) {
        const CameraMove move = Read(one.text, TableNamed("--table", one.table));
        const CameraSample &sample = move.samples.at(0);
        EXPECT_LE(host::Length(sample.position - host::Vector{10, 150, -300}), 1e-9) << one.table;
        EXPECT_LE(host::Length(sample.angles), 1e-9) << one.table;
        EXPECT_NEAR(sample.focal_length, 36, 1e-4) << one.table;
        EXPECT_TRUE(move.notes.empty()) << one.table << ": " << move.notes.front();
    }
}

}  // namespace
}  // namespace tremolux
