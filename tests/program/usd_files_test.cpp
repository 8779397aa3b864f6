// Scene descriptions in the shapes that exporters write: each camera stands where its ops, multiplied out here, put it.
#include <gtest/gtest.h>

#include "tests/program/formats_support.h"
#include "tests/program/row_matrix.h"

namespace tremolux {
namespace {

using rows::Move;
using rows::One;
using rows::Scale;
using rows::X;
using rows::Y;
using rows::Z;

std::filesystem::path File(const std::string &name) {
    return std::filesystem::u8path(TREMOLUX_SOURCE_DIR "/tests/data/usd/" + name + ".usda");
}

CameraMove Read(const std::string &name, const FormatOptions &options = {}) { return ReadMove(File(name), options); }

bool HasNote(const CameraMove &move, const std::string &part) {
    return std::any_of(move.notes.begin(), move.notes.end(),
                       [&part](const std::string &note) { return note.find(part) != std::string::npos; });
}

// Rows of length 1: right, up, back and the position in centimetres, of a Y-up world.
rows::Matrix RowsOf(const CameraSample &sample) {
    const double degree = kRadiansPerDegree;
    return Z(-sample.angles.z / degree) * X(sample.angles.y / degree) * Y(sample.angles.x / degree) *
           Move(sample.position.x, sample.position.y, -sample.position.z);
}

void ExpectAt(const CameraSample &sample, const rows::Matrix &expected, const std::string &where) {
    const rows::Matrix found = RowsOf(sample);
    for (std::size_t row = 0; row < 4; ++row) {
        double length = 1;
        if (row < 3) length = std::hypot(expected[row][0], expected[row][1], expected[row][2]);
        for (std::size_t column = 0; column < 3; ++column)
            EXPECT_NEAR(found[row][column], expected[row][column] / length, 1e-9)
                << where << " " << row << " " << column;
    }
}

struct StillCase {
    const char *file;
    rows::Matrix camera;  // the innermost op first
};

TEST(UsdFiles, HaveTheirCameraWhereTheirOpsPutIt) {
    const rows::Matrix at = Move(1, 2, 3);
    const rows::Matrix pivoted = Move(-2, 0, -1) * Scale(3, 3, 3) * Move(2, 0, 1) * Move(-5, -6, -7) * Y(90) * X(10) *
                                 Y(20) * Z(30) * Move(5, 6, 7) * Move(1, -1, 2) * Move(100, 50, 25);
    // A quaternion of the cosine and sine of half the angle: 0.8 and 0.6 about y, 0.6 and 0.8 about x.
    const double about_y = 2 * std::atan2(0.6, 0.8) / kRadiansPerDegree,
                 about_x = 2 * std::atan2(0.8, 0.6) / kRadiansPerDegree;
    // The matrix in the file is a quarter about y, then (3, 0, 0).
    const rows::Matrix undone =
        X(-about_x) * (Move(-3, 0, 0) * Y(-90)) * Move(1, 0, -4) * Scale(0.5, 0.5, 0.5) * (X(-15) * Y(-25) * Z(-35));
    const StillCase cases[] = {
        {"translate", Move(10, 20, 30)},
        {"rotate_xyz", X(20) * Y(-35) * Z(50) * at},
        {"rotate_xzy", X(20) * Z(50) * Y(-35) * at},
        {"rotate_yxz", Y(-35) * X(20) * Z(50) * at},
        {"rotate_yzx", Y(-35) * Z(50) * X(20) * at},
        {"rotate_zxy", Z(50) * X(20) * Y(-35) * at},
        {"rotate_zyx", Z(50) * Y(-35) * X(20) * at},
        {"single_axes", Z(7.5) * X(-15) * Y(40) * Move(4, 5, 6)},
        {"single_translates_and_scales", Move(0, 0, -6) * Move(4, 0, 0) * Scale(2, 2, 2)},
        {"orient_quatf", Y(about_y) * Move(0, 170, 400)},
        {"orient_quath_any_length", Y(about_y)},
        {"transform", Y(90) * Move(7, 8, 9)},
        {"transform_matrix4f_with_suffix", X(90) * Move(7, 8, 9)},
        {"pivots", pivoted},
        {"inverted_turns_and_scales", undone},
        {"half_values", Y(60) * X(30) * Z(-45) * Move(1.5, 2.25, -8)},
        {"without_an_order", One()},
        {"order_without_its_op", Move(10, 20, 30)},
        {"parent_resets", X(20) * Y(-35) * Z(50) * at * Move(0, 50, 0)},
        {"camera_resets_in_its_order", X(20) * Y(-35) * Z(50) * at},
        {"parent_scaled", X(20) * Y(-35) * Z(50) * at * Scale(100, 100, 100)},
        {"still", at},
        {"variants", Move(-7, 300, 0)},
        {"orthographic", X(-90) * Move(0, 5000, 0)},
        {"other_files", at},
        {"text_around_it", at},
        {"cameras_that_do_not_count", at},
        {"fallbacks", One()},
        // Metres, Z up: turned by -90 degrees about x.
        {"z_up_metres", X(80) * Z(25) * Move(100, -400, 170) * X(-90)},
    };
    for (const StillCase &known : cases) {
        const CameraMove move = Read(known.file);
        ASSERT_EQ(move.samples.size(), 1u) << known.file;
        EXPECT_EQ(move.first_frame, 0) << known.file;
        ExpectAt(move.samples[0], known.camera, known.file);
        EXPECT_FALSE(HasNote(move, "stretches")) << known.file;
    }
}

TEST(UsdFiles, MoveWithAllThatTheyStandIn) {
    const CameraMove move = Read("parents");
    ASSERT_EQ(move.samples.size(), 3u);
    EXPECT_EQ(move.first_frame, 1);
    for (int i = 0; i < 3; ++i) {
        const double share = i / 2.0;
        const rows::Matrix head = Z(30 * share) * X(10 * share) * Y(20 * share) * Move(0, 10 + 20 * share, 0);
        ExpectAt(move.samples[static_cast<std::size_t>(i)],
                 X(20) * Y(-35) * Z(50) * Move(1, 2, 3) * head * (Y(90) * Move(100, 0, 0)), "parents");
    }
}

TEST(UsdFiles, TurnOnTheSphereTheShortWay) {
    // From no turn to a quarter about y, which is written with the other sign.
    const CameraMove move = Read("orient_quatd_on_the_sphere");
    ASSERT_EQ(move.samples.size(), 4u);
    for (int i = 0; i < 4; ++i) ExpectAt(move.samples[static_cast<std::size_t>(i)], Y(30 * i), "on the sphere");
}

TEST(UsdFiles, LoseTheShapeOfAStretchedCameraAndSaySo) {
    const CameraMove stretched = Read("parent_stretched");
    // Back, (sin 45, 0, cos 45), becomes (2, 0, 1) / sqrt 5; up stays up.
    const double length = std::sqrt(5);
    const rows::Matrix expected = {
        {{1 / length, 0, -2 / length, 0}, {0, 1, 0, 0}, {2 / length, 0, 1 / length, 0}, {2, 2, 3, 1}}};
    ExpectAt(stretched.samples.at(0), expected, "stretched");
    EXPECT_TRUE(HasNote(stretched, "stretches the camera"));
}

TEST(UsdFiles, KeepTheViewOfAMirroredCameraAndSaySo) {
    const CameraMove mirrored = Read("parent_mirrored");
    rows::Matrix expected = X(20) * Y(-35) * Z(50) * Move(1, 2, 3) * Scale(-1, 1, 1);
    for (double &number : expected[0]) number = -number;  // right, as a right-handed camera has it
    ExpectAt(mirrored.samples.at(0), expected, "mirrored");
    EXPECT_TRUE(HasNote(mirrored, "mirrors the camera"));
}

TEST(UsdFiles, HaveTheirLensInTenthsOfAUnit) {
    const CameraMove move = Read("z_up_metres");
    EXPECT_NEAR(move.samples.at(0).focal_length, 35, 1e-9);
    EXPECT_NEAR(move.aperture_width, 24, 1e-9);
    EXPECT_NEAR(move.aperture_height.value_or(0), 18, 1e-9);
    EXPECT_NEAR(move.samples[0].focus_distance, 250, 1e-9);
    EXPECT_NEAR(move.traits.At(kHorizontalOffset, 0, 0), 1.2, 1e-9);
    EXPECT_NEAR(move.traits.At(kNearClip, 0, 0), 10, 1e-9);
    EXPECT_NEAR(move.traits.At(kFarClip, 0, 0), 10000, 1e-9);
    EXPECT_EQ(move.notes, std::vector<std::string>());
}

TEST(UsdFiles, HaveTheirLensInMillimetresWhereTenthsOfAMetreMakeNone) {
    const CameraMove move = Read("metres_with_millimetre_lens");
    ASSERT_EQ(move.samples.size(), 3u);
    EXPECT_EQ(move.first_frame, 1);
    EXPECT_EQ(move.rate, (FrameRate{24, 1}));
    EXPECT_NEAR(move.samples[0].focal_length, 50, 1e-9);
    EXPECT_NEAR(move.aperture_width, 36, 1e-9);
    EXPECT_NEAR(move.traits.At(kVerticalOffset, 0, 0), 3.6, 1e-9);
    EXPECT_FALSE(move.traits.Has(kHorizontalOffset));
    EXPECT_NEAR(move.traits.At(kShutterOpen, 0, 0), -0.25, 1e-12);
    EXPECT_TRUE(HasNote(move, "in millimetres"));
    EXPECT_EQ(move.traits.path, "/root/Camera/Camera");
    ExpectAt(move.samples[1],
             X(63.559303) * Z(47.691944) * Move(745.8891487121582, -692.5790786743164, 495.8309173583984) * X(-90),
             "Z up, metres");
}

TEST(UsdFiles, KeepTheTelevisionRate) {
    const CameraMove move = Read("television_rate");
    EXPECT_EQ(move.rate, (FrameRate{24000, 1001}));
    EXPECT_EQ(move.first_frame, 1001);
    ASSERT_EQ(move.samples.size(), 4u);
    EXPECT_NEAR(move.samples[2].position.x, 2, 1e-9);
}

TEST(UsdFiles, RunStraightBetweenCodesBesideFramesAndStopAtNone) {
    const CameraMove move = Read("codes_beside_frames");
    EXPECT_EQ(move.first_frame, -2);
    ASSERT_EQ(move.samples.size(), 9u);
    // Held before -1.5, held there up to None at 0.25, then from (1, 0, 0) at 0.5 to (9, 0, 0) at 4.5.
    const double x[] = {-3, -3, -3, 2, 4, 6, 8, 9, 9};
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_NEAR(move.samples[i].position.x, x[i], 1e-9) << i;
        EXPECT_NEAR(move.samples[i].focal_length, 20 + 5.0 * static_cast<double>(i), 1e-9) << i;
    }
}

TEST(UsdFiles, HoldWholeNumbersAndStandStillWithoutAValue) {
    const CameraMove move = Read("values_that_hold");
    ASSERT_EQ(move.samples.size(), 5u);
    EXPECT_NEAR(move.samples[3].focus_distance, 100, 1e-9);
    EXPECT_NEAR(move.samples[4].focus_distance, 300, 1e-9);
    EXPECT_NEAR(move.samples[3].focal_length, 65, 1e-9);
    const double x[] = {5, 5, 0, 0, 0};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(move.samples[i].position.x, x[i], 1e-9) << i;
}

TEST(UsdFiles, AreReadAtTheirFramesWhereTimeCodesAreNone) {
    const CameraMove move = Read("codes_that_are_no_frames");
    EXPECT_EQ(move.rate, (FrameRate{24, 1}));
    ASSERT_EQ(move.samples.size(), 26u);  // codes 0 to 100, four a frame
    EXPECT_NEAR(move.samples[10].position.x, 40, 1e-9);
    EXPECT_NEAR(move.traits.At(kShutterClose, 0, 0), 0.5, 1e-12);
    EXPECT_TRUE(HasNote(move, "96 time codes a second"));
}

TEST(UsdFiles, GiveAStillCameraTheFramesThatAreAskedFor) {
    FormatOptions options;
    options.frames = {5, 14};
    const CameraMove move = Read("still", options);
    EXPECT_EQ(move.first_frame, 5);
    EXPECT_EQ(move.samples.size(), 10u);
    EXPECT_EQ(Read("parents", options).first_frame, 1);  // which moves
}

TEST(UsdFiles, GiveTheFramesOfTheirSamplesWhereTheStageHasNoRange) {
    const CameraMove move = Read("range_of_the_samples");
    EXPECT_EQ(move.first_frame, 10);
    EXPECT_EQ(move.samples.size(), 4u);
    EXPECT_TRUE(HasNote(move, "10 to 13"));
}

TEST(UsdFiles, AskWhichOfSeveralCamerasIsMeant) {
    const auto refusal = [](const std::string &camera) -> std::string {
        FormatOptions options;
        options.camera = camera;
        try {
            Read("several_cameras", options);
            return "accepted";
        } catch (const Failure &failure) {
            const std::string line = failure.what();
            return line.substr(line.find(": found"));
        }
    };
    EXPECT_EQ(refusal(""), ": found 3 cameras, expected --camera with one of /World/Left, /World/Right, /Spare/Right");
    EXPECT_EQ(refusal("Right"), ": found 2 cameras, expected --camera with one of /World/Right, /Spare/Right");
    EXPECT_EQ(refusal("Middle"),
              ": found no camera 'Middle', expected --camera with one of /World/Left, /World/Right, /Spare/Right");
    FormatOptions left, right;
    left.camera = "Left";
    right.camera = "/World/Right";
    EXPECT_NEAR(Read("several_cameras", left).samples.at(0).position.x, -3, 1e-12);
    EXPECT_NEAR(Read("several_cameras", right).samples.at(0).position.x, 3, 1e-12);
}

TEST(UsdFiles, TakeTheVariantsThatAreChosenBehindWhatThePrimSaysItself) {
    const CameraMove move = Read("variants");
    EXPECT_NEAR(move.samples.at(0).focal_length, 135, 1e-9);
    EXPECT_NEAR(move.aperture_width, 24, 1e-9);
    EXPECT_NEAR(move.samples[0].focus_distance, 444, 1e-9);
}

TEST(UsdFiles, CarryAnOrthographicViewOfAnySize) {
    const CameraMove move = Read("orthographic");
    EXPECT_TRUE(move.traits.is_orthographic);
    EXPECT_NEAR(move.aperture_width, 50000, 1e-6);
    EXPECT_NEAR(move.aperture_height.value_or(0), 25000, 1e-6);
    EXPECT_EQ(move.traits.path, "/World/Top");
}

TEST(UsdFiles, CarryWhatTheySayOfACameraBesideItsMotion) {
    const CameraMove move = Read("everything_of_a_camera");
    ASSERT_EQ(move.samples.size(), 3u);
    const CameraTraits &traits = move.traits;
    EXPECT_EQ(traits.channels[kFStop].size(), 3u);
    EXPECT_NEAR(traits.At(kFStop, 1, 0), 4.2, 1e-9);
    EXPECT_EQ(traits.channels[kHorizontalOffset], std::vector<double>{1.2});
    EXPECT_NEAR(traits.At(kVerticalOffset, 1, 0), -1.5, 1e-9);
    EXPECT_EQ(traits.channels[kNearClip], std::vector<double>{0.5});
    EXPECT_EQ(traits.channels[kFarClip], std::vector<double>{kMaxNumber});
    EXPECT_EQ(traits.channels[kShutterOpen], std::vector<double>{-0.25});
    EXPECT_EQ(traits.channels[kShutterClose], std::vector<double>{0.25});
    EXPECT_NEAR(move.samples[1].focus_distance, 200, 1e-9);
    EXPECT_EQ(traits.path, "/World/renderCam");
    EXPECT_TRUE(HasNote(move, "exposure, stereoRole, clippingPlanes"));
}

TEST(UsdFiles, KeepTheAngleOfViewOfAFilmBackThatChanges) {
    const CameraMove move = Read("film_back_that_changes");
    ASSERT_EQ(move.samples.size(), 2u);
    EXPECT_NEAR(move.aperture_width, 24, 1e-9);
    EXPECT_NEAR(move.samples[1].focal_length, 20, 1e-9);  // 30 on 36 mm is 20 on 24 mm
    EXPECT_TRUE(HasNote(move, "film back changes"));
    EXPECT_FALSE(HasNote(move, "shape"));
}

TEST(UsdFiles, MeanWhatTheFormatSaysWhereTheySayNothing) {
    const CameraMove move = Read("fallbacks");
    EXPECT_EQ(move.rate, (FrameRate{24, 1}));
    EXPECT_NEAR(move.samples.at(0).focal_length, 50, 1e-9);
    EXPECT_NEAR(move.aperture_width, 20.955, 1e-9);
    EXPECT_NEAR(move.aperture_height.value_or(0), 15.2908, 1e-9);
    EXPECT_EQ(move.samples[0].focus_distance, 0);
    EXPECT_EQ(move.notes, std::vector<std::string>());
    for (const auto &channel : move.traits.channels) EXPECT_TRUE(channel.empty());
}

TEST(UsdFiles, SayThatOtherFilesAreNotFollowed) {
    EXPECT_TRUE(HasNote(Read("other_files"), "not followed: subLayers, references, payload;"));
    EXPECT_NE(RefusalOf(ReadUsda, "#usda 1.0\ndef \"A\" ( references = @b.usda@ )\n{\n}\n").find("references"),
              std::string::npos);
}

}  // namespace
}  // namespace tremolux
