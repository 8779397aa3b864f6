// What is written for renderers of captured scenes, read back by a small reader of its own.
#include "library/formats/radiance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/scene/angles.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using nlohmann::json;
using Numbers = std::vector<double>;

// The pose of a frame as it was read: where it stands, and what its picture shows to the right, above, and ahead.
struct Pose {
    host::Vector position, right, up, ahead;
};

Pose PoseOf(const Numbers &rows) {
    return {{rows.at(3), rows.at(7), rows.at(11)},
            {rows[0], rows[4], rows[8]},
            {rows[1], rows[5], rows[9]},
            {-rows[2], -rows[6], -rows[10]}};
}

// World to camera, looking along +Z with +Y down: the position is what is taken to 0, 0, 0.
Pose PoseOfInverse(const Numbers &rows) {
    Pose pose;
    pose.right = {rows.at(0), rows[1], rows[2]};
    pose.up = {-rows[4], -rows[5], -rows[6]};
    pose.ahead = {rows[8], rows[9], rows[10]};
    pose.position = pose.right * -rows[3] + pose.up * rows[7] + pose.ahead * -rows.at(11);
    return pose;
}

void ExpectNear(const host::Vector &found, const host::Vector &expected, double tolerance, const char *words) {
    EXPECT_LE(host::Length(found - expected), tolerance) << words;
}

// The reference pose, in units of the file: worked out apart from the program.
void ExpectReferencePose(const Pose &pose, double unit) {
    ExpectNear(pose.position, host::Vector{10, 150, 300} * (1 / unit), 1e-9, "position");
    ExpectNear(pose.right, {0.87030, -0.08583, -0.48499}, 1e-5, "right");
    ExpectNear(pose.up, {-0.01101, 0.98106, -0.19339}, 1e-5, "up");
    ExpectNear(pose.ahead, {-0.49240, -0.17365, -0.85287}, 1e-5, "ahead");
}

// A move that pans once round, with the reference pose in front.
CameraMove Move() {
    CameraMove move{101, {24000, 1001}, {ReferencePose()}};
    for (int i = 0; i < 30; ++i) {
        CameraSample sample = ReferencePose();
        sample.position = {1.0 * i, 100 - 2.0 * i, -3.0 * i};
        sample.angles = host::Vector{12.0 * i, 40 * std::sin(0.3 * i), 3.0 * i} * kRadiansPerDegree;
        move.samples.push_back(sample);
    }
    return move;
}

// Mirrored in z, the scene's own axes are the other programs'.
void ExpectMove(const std::vector<Pose> &poses, const CameraMove &move) {
    ASSERT_EQ(poses.size(), move.samples.size());
    const auto mirrored = [](const host::Vector &v) { return host::Vector{v.x, v.y, -v.z}; };
    for (std::size_t i = 0; i < poses.size(); ++i) {
        SCOPED_TRACE(i);
        const host::Matrix axes = host::HpbToMatrix(move.samples[i].angles);
        ExpectNear(poses[i].position, mirrored(move.samples[i].position), 1e-9, "position");
        ExpectNear(poses[i].right, mirrored(axes.v1), 1e-12, "right");
        ExpectNear(poses[i].up, mirrored(axes.v2), 1e-12, "up");
        ExpectNear(poses[i].ahead, mirrored(axes.v3), 1e-12, "ahead");
    }
}

Numbers Flat(const json &matrix) {
    Numbers numbers;
    for (const json &row : matrix) {
        for (const json &number : row) numbers.push_back(number.get<double>());
    }
    return numbers;
}

struct Line {
    std::int64_t time;
    Numbers lens, rows;
};
std::vector<Line> LinesOf(const std::string &text, std::string *name) {
    std::istringstream in(text);
    std::getline(in, *name);
    std::vector<Line> lines;
    Line line{0, Numbers(6), Numbers(12)};
    while (in >> line.time) {
        for (double &number : line.lens) in >> number;
        for (double &number : line.rows) in >> number;
        lines.push_back(line);
    }
    return lines;
}

// ---- transforms.json

TEST(Transforms, HoldThePoseOfEveryFrame) {
    const CameraMove move = Move();
    const json file = json::parse(WriteTransforms(move, {}));
    std::vector<Pose> poses;
    for (const json &frame : file.at("frames")) {
        const Numbers rows = Flat(frame.at("transform_matrix"));
        ASSERT_EQ(rows.size(), 16u);
        EXPECT_EQ(Numbers(rows.begin() + 12, rows.end()), (Numbers{0, 0, 0, 1}));
        poses.push_back(PoseOf(rows));
    }
    ExpectReferencePose(poses.at(0), 1);
    ExpectMove(poses, move);
    EXPECT_EQ(file["frames"][0].at("file_path"), "images/00101.png");
}

TEST(Transforms, HoldTheLensInPixels) {
    // 36 mm on 36 mm: the focal length is the picture's width. The angle across it is 2 atan(1 / 2).
    const json file = json::parse(WriteTransforms(Move(), {}));
    EXPECT_NEAR(file.at("fl_x").get<double>(), 1920, 1e-9);
    EXPECT_NEAR(file.at("fl_y").get<double>(), 1920, 1e-9);
    EXPECT_NEAR(file.at("cx").get<double>(), 960, 1e-9);
    EXPECT_NEAR(file.at("cy").get<double>(), 540, 1e-9);
    EXPECT_EQ(file.at("w"), 1920);
    EXPECT_EQ(file.at("h"), 1080);
    EXPECT_NEAR(file.at("camera_angle_x").get<double>(), 53.1301024 * kRadiansPerDegree, 1e-8);
}

TEST(Transforms, HoldTheLensOfEveryFrameWhereItZoomsOrShifts) {
    CameraMove move{1, {24, 1}, {ReferencePose(), ReferencePose()}};
    move.samples[1].focal_length = 72;
    // A tenth of the film back to the right, a fifth of its height up: the view's middle moves the other way.
    move.aperture_height = 18.0;
    move.traits.channels[kHorizontalOffset] = {3.6};
    move.traits.channels[kVerticalOffset] = {0, 3.6};
    const json file = json::parse(WriteTransforms(move, {}));
    EXPECT_FALSE(file.contains("fl_x"));
    const json &first = file["frames"][0], &second = file["frames"][1];
    EXPECT_NEAR(first.at("fl_x").get<double>(), 1920, 1e-9);
    EXPECT_NEAR(first.at("fl_y").get<double>(), 2160, 1e-9);
    EXPECT_NEAR(second.at("fl_x").get<double>(), 3840, 1e-9);
    EXPECT_NEAR(first.at("cx").get<double>(), 960 - 192, 1e-9);
    EXPECT_NEAR(first.at("cy").get<double>(), 540, 1e-9);
    EXPECT_NEAR(second.at("cy").get<double>(), 540 + 216, 1e-9);
}

TEST(Transforms, StandInTheUnitAndTheWorldThatAreWanted) {
    FormatOptions options;
    options.length_unit = 100;
    const std::string metres = WriteTransforms({1, {24, 1}, {ReferencePose()}}, options);
    ExpectReferencePose(PoseOf(Flat(json::parse(metres)["frames"][0].at("transform_matrix"))), 100);
    options.z_up = true;
    const std::string z_up = WriteTransforms({1, {24, 1}, {ReferencePose()}}, options);
    const Pose pose = PoseOf(Flat(json::parse(z_up)["frames"][0].at("transform_matrix")));
    ExpectNear(pose.position, {0.1, -3, 1.5}, 1e-9, "position");
    ExpectNear(pose.ahead, {-0.49240, 0.85287, -0.17365}, 1e-5, "ahead");
}

// ---- camera_path.json

TEST(CameraPath, HoldsPoseFieldOfViewAndRate) {
    const CameraMove move = Move();
    const json file = json::parse(WriteCameraPath(move, {}));
    EXPECT_EQ(file.at("camera_type"), "perspective");
    EXPECT_EQ(file.at("render_width"), 1920);
    EXPECT_EQ(file.at("render_height"), 1080);
    EXPECT_EQ(file.at("is_cycle"), false);
    EXPECT_TRUE(file.at("keyframes").empty());
    EXPECT_NEAR(file.at("fps").get<double>(), 23.976023976, 1e-9);
    EXPECT_NEAR(file.at("seconds").get<double>(), 31 * 1001.0 / 24000, 1e-12);
    std::vector<Pose> poses;
    for (const json &frame : file.at("camera_path")) {
        const auto rows = frame.at("camera_to_world").get<Numbers>();
        ASSERT_EQ(rows.size(), 16u);
        poses.push_back(PoseOf(rows));
        EXPECT_NEAR(frame.at("fov").get<double>(), 31.417276, 1e-6);
        EXPECT_NEAR(frame.at("aspect").get<double>(), 1920.0 / 1080, 1e-12);
    }
    ExpectReferencePose(poses.at(0), 1);
    ExpectMove(poses, move);
}

// ---- One matrix a line

TEST(PoseLines, HoldTimeLensAndPose) {
    CameraMove move = Move();
    move.traits.path = "/World/Shot";
    std::string name;
    const std::vector<Line> lines = LinesOf(WritePoseLines(move, {}), &name);
    EXPECT_EQ(name, "Shot");
    std::vector<Pose> poses;
    for (const Line &line : lines) {
        // Frame 101 at 24000 / 1001 a second, in whole microseconds.
        EXPECT_EQ(line.time, std::llround((101.0 + static_cast<double>(poses.size())) * 1001 / 24000 * 1e6));
        poses.push_back(PoseOfInverse(line.rows));
        const Numbers expected = {1, 1920.0 / 1080, 0.5, 0.5, 0, 0};
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(line.lens[i], expected[i], 1e-12) << i;
    }
    ExpectReferencePose(poses.at(0), 1);
    ExpectMove(poses, move);
}

// ---- By their names

TEST(RadianceFiles, AreKnownByTheirWholeNames) {
    EXPECT_EQ(FormatOf("a/transforms.json", FormatUse::kWrite).write, WriteTransforms);
    EXPECT_EQ(FormatOf("Shot.Transforms.JSON", FormatUse::kWrite).write, WriteTransforms);
    EXPECT_EQ(FormatOf("camera_path.json", FormatUse::kWrite).write, WriteCameraPath);
    EXPECT_EQ(FormatOf("shot.camera_path.json", FormatUse::kWrite).write, WriteCameraPath);
    EXPECT_EQ(FormatOf("mytransforms.json", FormatUse::kWrite).write, WriteJson);
    EXPECT_EQ(FormatOf("poses.txt", FormatUse::kWrite).write, WritePoseLines);
}

TEST(RadianceFiles, SayWhatTheyLose) {
    CameraMove move = Move();
    move.traits.channels[kFStop] = {2.8};
    move.traits.channels[kHorizontalOffset] = {1};
    EXPECT_EQ(LostIn(FormatOf("transforms.json", FormatUse::kWrite), move),
              "focus distance, frame rate, and focal length and film back but in pixels; f-stop");
    EXPECT_EQ(LostIn(FormatOf("camera_path.json", FormatUse::kWrite), move),
              "frame numbers, focus distance, and focal length and film back but as a field of view; horizontal lens "
              "shift; f-stop");
    EXPECT_EQ(LostIn(FormatOf("a.txt", FormatUse::kWrite), move),
              "focus distance, and focal length and film back but as their ratio; f-stop");
}

}  // namespace
}  // namespace tremolux
