// Pictures of the world through a camera.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"
#include "tests/support/tools.h"
#include "tremolux/pictures/film.h"
#include "tremolux/process/in_order.h"

namespace tremolux {
namespace {

using namespace program_test;

constexpr Colour kRed = {1, 0, 0};

// A red square that stands upright, its middle at `middle`.
World RedSquare(const host::Vector &middle, double size) {
    const double h = size / 2;
    World world;
    world.ground = {0, -100, 0};
    world.quads.push_back({{{middle + host::Vector{-h, -h, 0}, middle + host::Vector{h, -h, 0},
                             middle + host::Vector{h, h, 0}, middle + host::Vector{-h, h, 0}}},
                           kRed});
    return world;
}

bool IsRed(const Picture &picture, int x, int y) {
    const std::size_t at = static_cast<std::size_t>(y * picture.width + x) * 3;
    return static_cast<unsigned char>(picture.rgb[at]) > 200 && static_cast<unsigned char>(picture.rgb[at + 1]) < 60;
}

struct Extent {
    int left = 1 << 20, right = -1, top = 1 << 20, bottom = -1;
};

Extent RedExtent(const Picture &picture) {
    Extent extent;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (!IsRed(picture, x, y)) continue;
            extent.left = std::min(extent.left, x);
            extent.right = std::max(extent.right, x);
            extent.top = std::min(extent.top, y);
            extent.bottom = std::max(extent.bottom, y);
        }
    }
    return extent;
}

CameraSample InFocusAt(double distance, double focal_length) {
    CameraSample camera;
    camera.focal_length = focal_length;
    camera.focus_distance = distance;
    return camera;
}

TEST(Look, IsATruePerspectiveOfTheFocalLength) {
    // 100 cm at 500 cm fill a fifth of the picture's width at 36 mm on 36 mm, and twice that at 72 mm: 40 and 80 of
    // 200.
    for (const double focal_length : {36.0, 72.0}) {
        const Picture picture = Look(RedSquare({0, 0, 500}, 100), InFocusAt(500, focal_length), 36, 200, 150);
        const int half = static_cast<int>(focal_length / 36 * 20);
        const Extent red = RedExtent(picture);
        EXPECT_NEAR(red.left, 100 - half, 1);
        EXPECT_NEAR(red.right, 99 + half, 1);
        EXPECT_NEAR(red.top, 75 - half, 1);
        EXPECT_NEAR(red.bottom, 74 + half, 1);
    }
}

TEST(Look, TurnsThePictureAgainstTheCamera) {
    // Heading turns the camera to its left, so that the square moves to the right: 500 cm ahead, tan(10 degrees) * 200.
    CameraSample camera = InFocusAt(500, 36);
    camera.angles.x = 10 * kRadiansPerDegree;
    const Extent left = RedExtent(Look(RedSquare({0, 0, 500}, 20), camera, 36, 200, 150));
    EXPECT_NEAR((left.left + left.right + 1) / 2.0, 100 + 200 * std::tan(10 * kRadiansPerDegree), 1.5);
    // A pitch up moves it down.
    camera.angles = {0, 10 * kRadiansPerDegree, 0};
    const Extent up = RedExtent(Look(RedSquare({0, 0, 500}, 20), camera, 36, 200, 150));
    EXPECT_NEAR((up.top + up.bottom + 1) / 2.0, 75 + 200 * std::tan(10 * kRadiansPerDegree), 1.5);
}

TEST(Look, BlursWhatIsOutOfFocus) {
    const World world = RedSquare({0, 0, 500}, 100);
    const auto soft_pixels = [&](double focus) {
        const Picture picture = Look(world, InFocusAt(focus, 100), 36, 480, 270);
        int soft = 0;  // between the square's red and the sky on the row of its middle
        for (int x = 0; x < picture.width; ++x) {
            const auto green =
                static_cast<unsigned char>(picture.rgb[static_cast<std::size_t>(135 * picture.width + x) * 3 + 1]);
            soft += green > 20 && green < 190;
        }
        return soft;
    };
    EXPECT_LE(soft_pixels(500), 2);
    EXPECT_GT(soft_pixels(100), 12);
}

TEST(Look, ShowsWhatIsNearerInFrontAndNothingBehindTheCamera) {
    World world = RedSquare({0, 0, 500}, 100);
    World near = RedSquare({0, 0, 300}, 100);
    near.quads[0].colour = {0, 0, 1};
    world.quads.insert(world.quads.begin(), near.quads[0]);
    EXPECT_EQ(RedExtent(Look(world, InFocusAt(300, 36), 36, 200, 150)).right, -1);
    EXPECT_EQ(RedExtent(Look(RedSquare({0, 0, -500}, 100), InFocusAt(500, 36), 36, 200, 150)).right, -1);
    // What the camera stands in is cut off before it, not drawn upside down.
    EXPECT_NO_FATAL_FAILURE(Look(RedSquare({0, 0, 0}, 100), InFocusAt(0, 36), 36, 20, 16));
}

TEST(Preview, HasAnEvenSizeWithTheProportionsOfThePicture) {
    EXPECT_EQ(PreviewSize(1920, 1080).width, 480);
    EXPECT_EQ(PreviewSize(1920, 1080).height, 270);
    for (const auto &[width, height] : {std::pair(1, 1000000), std::pair(1000000, 1), std::pair(333, 222)}) {
        EXPECT_EQ(PreviewSize(width, height).height % 2, 0);
        EXPECT_GE(PreviewSize(width, height).height, 60);
        EXPECT_LE(PreviewSize(width, height).height, 960);
    }
}

class PreviewFile : public testing::Test {
  protected:
    void SetUp() override {
        if (!test_support::CanRun("ffmpeg", workplace_.Settings())) GTEST_SKIP() << "no ffmpeg on this system";
        std::string move = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 8; ++frame) move += std::to_string(frame) + ",0,160,0,0,0,0\n";
        move_ = workplace_.Write("move.csv", move);
    }
    Outcome Preview(const std::string &file) const {
        return workplace_.Run({"preview", move_, "-o", workplace_.Path(file), "--resolution", "64x36"});
    }
    Workplace workplace_;
    std::string move_;
};

TEST_F(PreviewFile, IsAFilmOrAPicture) {
    for (const char *file : {"a.mp4", "a.gif", "a.png"}) {
        const Outcome outcome = Preview(file);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }
    EXPECT_EQ(workplace_.Read("a.mp4").substr(4, 4), "ftyp");
    EXPECT_EQ(workplace_.Read("a.gif").substr(0, 6), "GIF89a");
    EXPECT_EQ(workplace_.Read("a.png").substr(1, 3), "PNG");
    Preview("b.png");
    EXPECT_EQ(workplace_.Read("a.png"), workplace_.Read("b.png"));
}

// Width and height of a .png file.
std::pair<int, int> SizeOfPng(const std::string &bytes) {
    const auto number = [&bytes](std::size_t at) {
        int value = 0;
        for (std::size_t i = at; i < at + 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes.at(i));
        return value;
    };
    return {number(16), number(20)};
}

TEST_F(PreviewFile, HasTheSizeThatIsAskedForWithOneCameraOrBoth) {
    const auto size_with = [this](const std::vector<std::string> &more) {
        std::vector<std::string> arguments = {"preview", move_, "-o", workplace_.Path("a.png"), "--frames", "0:0"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return SizeOfPng(workplace_.Read("a.png"));
    };
    // Borders of 6 around and between, and 18 for the caption.
    EXPECT_EQ(size_with({"--size", "200x100"}), std::make_pair(2 * 200 + 18, 100 + 12 + 18));
    EXPECT_EQ(size_with({"--size", "200x100", "--only", "shaken"}), std::make_pair(200 + 12, 100 + 12 + 18));
    EXPECT_EQ(size_with({"--size", "200x100", "--only", "shaken,rotation"}), std::make_pair(200 + 12, 100 + 12 + 18));
    for (const char *wrong : {"200", "201x100", "0x0", "200x99999", "axb"}) {
        const Outcome outcome = workplace_.Run({"preview", move_, "-o", workplace_.Path("b.png"), "--size", wrong});
        EXPECT_EQ(outcome.status, 2) << wrong;
        EXPECT_EQ(outcome.err.rfind("--size: found '", 0), 0u) << outcome.err;
    }
}

TEST_F(PreviewFile, SaysBelowThePictureWhatItIsAndWhichFrame) {
    const auto strip = [this](const std::vector<std::string> &more) {
        std::vector<std::string> arguments = {"preview", move_, "-o", workplace_.Path("a.png"), "--size", "200x100"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(workplace_.Run(arguments).status, 0);
        return workplace_.Read("a.png");
    };
    // A tag without amounts: nothing but the words differ.
    const std::string first = strip({"--frames", "0:0"});
    EXPECT_NE(strip({"--frames", "1:1"}), first);
    EXPECT_NE(strip({"--frames", "0:0", "--seed", "7"}), first);
    EXPECT_EQ(strip({"--frames", "0:0"}), first);
}

TEST(InOrder, ResultsComeOneAfterTheOtherHoweverLongEachTakes) {
    std::vector<std::size_t> used;
    MakeInOrder(
        200,
        [](std::size_t i) {
            // The first of each ten takes longest.
            double work = 0;
            for (unsigned k = 0; k < (i % 10 == 0 ? 200000U : 10U); ++k) work += std::sqrt(static_cast<double>(k));
            return std::make_pair(i, work);
        },
        [&](std::size_t i, const std::pair<std::size_t, double> &result) {
            EXPECT_EQ(result.first, i);
            used.push_back(i);
        });
    ASSERT_EQ(used.size(), 200u);
    for (std::size_t i = 0; i < used.size(); ++i) EXPECT_EQ(used[i], i);
}

TEST(InOrder, WhatIsThrownOnEitherSideEndsTheWork) {
    const auto one = [](std::size_t) { return 1; };
    const auto nothing = [](std::size_t, int) {};
    const auto breaks = [](std::size_t i) {
        if (i == 20) throw std::runtime_error("made");
        return 1;
    };
    const auto breaks_in_use = [](std::size_t i, int) {
        if (i == 20) throw std::runtime_error("used");
    };
    EXPECT_THROW(MakeInOrder(50, breaks, nothing), std::runtime_error);
    EXPECT_THROW(MakeInOrder(50, one, breaks_in_use), std::runtime_error);
    MakeInOrder(0, one, nothing);
}

TEST_F(PreviewFile, OfOneOrTwoFramesIsAFilmTooAndAPicture) {
    for (const char *second : {"", "1,0,160,0,0,0,0\n"}) {
        workplace_.Write("move.csv", std::string("frame,x,y,z,h,p,b\n0,0,160,0,0,0,0\n") + second);
        for (const char *file : {"a.mp4", "a.gif", "a.png"}) {
            const Outcome outcome = Preview(file);
            EXPECT_EQ(outcome.status, 0) << file << ": " << outcome.err;
        }
    }
}

TEST_F(PreviewFile, IsRefusedInOtherFormatsAndWithoutAMove) {
    EXPECT_EQ(Preview("a.avi").status, 2);
    const Outcome outcome = workplace_.Run({"preview", "-o", workplace_.Path("a.gif")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "preview: expected either a camera move or --all-presets\n");
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}

#ifndef _WIN32
TEST_F(PreviewFile, SaysWhatToInstallWhereFfmpegIsMissing) {
    const std::string path = std::getenv("PATH");
    setenv("PATH", workplace_.Settings().c_str(), 1);
    const Outcome outcome = Preview("a.mp4");
    setenv("PATH", path.c_str(), 1);
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err, "ffmpeg is missing: install it (on Debian the package ffmpeg)\n");
    EXPECT_EQ(workplace_.Names(), std::vector<std::string>{"move.csv"});
}
#endif

}  // namespace
}  // namespace tremolux
