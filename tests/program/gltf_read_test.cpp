#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "library/formats/format.h"
#include "library/formats/gltf_rate.h"
#include "tests/program/formats_support.h"
#include "tests/program/gltf_support.h"

namespace tremolux {
namespace {

using nlohmann::json;

CameraMove Read(const GltfFixture &file, const FormatOptions &options = {}) {
    return ReadGltf("move", file.Text(), options);
}

FormatOptions AtRate(int rate) {
    FormatOptions options;
    options.rate = FrameRate{rate, 1};
    return options;
}

void ExpectPosition(const CameraSample &sample, double x, double y, double z) {
    EXPECT_NEAR(sample.position.x, x, 1e-5);
    EXPECT_NEAR(sample.position.y, y, 1e-5);
    EXPECT_NEAR(sample.position.z, z, 1e-5);
}

bool Notes(const CameraMove &move, const std::string &words) {
    for (const std::string &note : move.notes) {
        if (note.find(words) != std::string::npos) return true;
    }
    return false;
}

const float kRoot = static_cast<float>(std::sqrt(0.5));

TEST(GltfReader, TakesMetresAndMirrorsTheDepth) {
    GltfFixture file;
    file.Move({0, 1}, {1, 2, 3, 1, 2, 3});
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 2u);
    ExpectPosition(move.samples[0], 100, 200, -300);
    // A right angle of view, square: the film back of 36 mm is seen through 18 mm.
    EXPECT_NEAR(move.samples[0].focal_length, 18, 1e-9);
    EXPECT_NEAR(move.aperture_height.value_or(0), 36, 1e-9);
    EXPECT_EQ(move.traits.path, "/Shot");
    EXPECT_EQ(move.traits.channels[kNearClip], std::vector<double>{25});
}

TEST(GltfReader, HoldsStepsUntilTheNextKey) {
    GltfFixture file;
    file.Move({0, 1, 2}, {0, 0, 0, 1, 0, 0, 5, 0, 0}, "STEP");
    const CameraMove move = Read(file, AtRate(2));
    ASSERT_EQ(move.samples.size(), 5u);
    const double expected[] = {0, 0, 100, 100, 500};
    for (std::size_t i = 0; i < 5; ++i) ExpectPosition(move.samples[i], expected[i], 0, 0);
}

TEST(GltfReader, DrawsStraightLinesBetweenKeys) {
    GltfFixture file;
    file.Move({0, 1}, {0, 0, 0, 4, 0, 8});
    const CameraMove move = Read(file, AtRate(4));
    ASSERT_EQ(move.samples.size(), 5u);
    ExpectPosition(move.samples[1], 100, 0, -200);
    ExpectPosition(move.samples[3], 300, 0, -600);
}

TEST(GltfReader, TurnsOnTheSphereTheShortWay) {
    // A quarter about y to the left, the second quaternion with the other sign: a third of the way is 30 degrees.
    GltfFixture file;
    file.Turn({0, 3}, {0, 0, 0, 1, 0, -kRoot, 0, -kRoot});
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(move.samples[i].angles.x, 30 * static_cast<double>(i) * kRadiansPerDegree, 1e-6) << i;
}

TEST(GltfReader, FollowsCubicSplines) {
    // From 0 with 2 m/s to 1 m with -1 m/s within 2 s. In the middle: (0 + 1) / 2 + 2 s (2 + 1) / 8 = 1.25 m; at a
    // quarter, t = 1/4: 5/32 of the end, 9/64 · 2 s of the first slope, -3/64 · 2 s of the second:
    // 0.15625 + 0.5625 + 0.09375 = 0.8125 m.
    GltfFixture file;
    file.Move({0, 2}, {9, 9, 9, 0, 0, 0, 2, 0, 0, -1, 0, 0, 1, 0, 0, 9, 9, 9}, "CUBICSPLINE");
    const CameraMove move = Read(file, AtRate(2));
    ASSERT_EQ(move.samples.size(), 5u);
    ExpectPosition(move.samples[0], 0, 0, 0);
    ExpectPosition(move.samples[1], 81.25, 0, 0);
    ExpectPosition(move.samples[2], 125, 0, 0);
    ExpectPosition(move.samples[4], 100, 0, 0);
}

TEST(GltfReader, NormalizesRotationsOfCubicSplines) {
    // Without slopes the middle of no turn and a quarter is their sum: an eighth of a turn, of length below 1.
    GltfFixture file;
    file.Turn({0, 2}, {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, kRoot, 0, kRoot, 0, 0, 0, 0}, "CUBICSPLINE");
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 3u);
    EXPECT_NEAR(move.samples[1].angles.x, 45 * kRadiansPerDegree, 1e-6);
}

TEST(GltfReader, GoesThroughEveryParent) {
    // The grandparent is a matrix that moves by (1, 0, 0) m and doubles; the parent turns by a quarter about y and is
    // stretched; the camera stands 1 m behind (+z): after the turn +x, times 3, doubled, moved: 7 m.
    GltfFixture file;
    file.json["nodes"] = {
        {{"name", "Shot"}, {"camera", 0}},
        {{"name", "World"}, {"children", {2}}, {"matrix", {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 0, 0, 1}}},
        {{"children", {0}}, {"rotation", {0, kRoot, 0, kRoot}}, {"scale", {1, 1, 3}}}};
    file.Move({0, 1}, {0, 0, 1, 0, 0, 2});
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 2u);
    ExpectPosition(move.samples[0], 700, 0, 0);
    ExpectPosition(move.samples[1], 1300, 0, 0);
    EXPECT_NEAR(move.samples[0].angles.x, 90 * kRadiansPerDegree, 1e-6);
    EXPECT_EQ(move.traits.path, "/World/Node2/Shot");
}

TEST(GltfReader, FollowsAnAnimatedParent) {
    GltfFixture file;
    file.json["nodes"].push_back({{"name", "Dolly"}, {"children", {0}}});
    file.json["nodes"][0]["translation"] = {0, 1, 0};
    const std::size_t times = file.Floats({0, 1}, "SCALAR", 1);
    file.Animate({{"node", 1}, {"path", "scale"}}, times, file.Floats({1, 1, 1, 3, 3, 3}, "VEC3", 3));
    file.Animate({{"node", 1}, {"path", "translation"}}, times, file.Floats({0, 0, 0, 2, 0, 0}, "VEC3", 3));
    const CameraMove move = Read(file, AtRate(2));
    ASSERT_EQ(move.samples.size(), 3u);
    ExpectPosition(move.samples[1], 100, 200, 0);
    ExpectPosition(move.samples[2], 200, 300, 0);
    EXPECT_TRUE(Notes(move, "2 animations move this camera"));
}

TEST(GltfReader, ZoomsByAPointer) {
    GltfFixture file;
    const std::size_t times = file.Floats({0, 1}, "SCALAR", 1);
    const auto pointer = [](const char *text) {
        return json{{"path", "pointer"}, {"extensions", {{"KHR_animation_pointer", {{"pointer", text}}}}}};
    };
    const float third = static_cast<float>(std::acos(-1) / 3);
    file.Animate(pointer("/cameras/0/perspective/yfov"), times, file.Floats({third, 2 * third}, "SCALAR", 1));
    file.Animate(pointer("/cameras/0/perspective/aspectRatio"), times, file.Floats({1, 2}, "SCALAR", 1));
    file.Animate(pointer("/nodes/0/translation"), times, file.Floats({0, 0, 0, 1, 0, 0}, "VEC3", 3));
    const CameraMove move = Read(file, AtRate(2));
    ASSERT_EQ(move.samples.size(), 3u);
    // 18 mm over the tangents of 30, 45 and 60 degrees.
    EXPECT_NEAR(move.samples[0].focal_length, 18 * std::sqrt(3), 1e-5);
    EXPECT_NEAR(move.samples[1].focal_length, 18, 1e-5);
    EXPECT_NEAR(move.samples[2].focal_length, 18 / std::sqrt(3), 1e-5);
    ExpectPosition(move.samples[2], 100, 0, 0);
    EXPECT_TRUE(Notes(move, "aspectRatio' is passed over"));
}

TEST(GltfReader, UnderstandsEveryKindOfNumber) {
    // The same quarter turn about x as normalized whole numbers; 90 of 127 and its like are within 0.3 degrees of it.
    const std::string bytes[] = {std::string("\x5A\0\0\x5A", 4), std::string("\xB4\0\0\xB4", 4),
                                 std::string("\x82\x5A\0\0\0\0\x82\x5A", 8),
                                 std::string("\x04\xB5\0\0\0\0\x04\xB5", 8)};
    const int types[] = {5120, 5121, 5122, 5123};
    for (std::size_t i = 0; i < 4; ++i) {
        GltfFixture file;
        const std::size_t output = file.Accessor({{"bufferView", file.View(bytes[i])},
                                                  {"componentType", types[i]},
                                                  {"normalized", true},
                                                  {"count", 1},
                                                  {"type", "VEC4"}});
        file.Animate({{"node", 0}, {"path", "rotation"}}, file.Floats({0}, "SCALAR", 1), output);
        EXPECT_NEAR(Read(file).samples[0].angles.y, 90 * kRadiansPerDegree, 0.005) << types[i];
    }
    // The lowest signed number is -1, as the one above it is.
    GltfFixture file;
    const std::size_t output = file.Accessor({{"bufferView", file.View("\x80\x81\x7F")},
                                              {"componentType", 5120},
                                              {"normalized", true},
                                              {"count", 1},
                                              {"type", "VEC3"}});
    file.Animate({{"node", 0}, {"path", "translation"}}, file.Floats({0}, "SCALAR", 1), output);
    ExpectPosition(Read(file).samples[0], -100, -100, -100);
}

TEST(GltfReader, StepsOverWhatStandsBetweenItsNumbers) {
    GltfFixture file;
    const std::size_t both = file.Floats({0, 1, 0, 0, 1, 2, 0, 0}, "VEC4", 4);
    file.json["bufferViews"][0]["byteStride"] = 16;
    file.json["accessors"][both] = {{"bufferView", 0}, {"componentType", 5126}, {"count", 2}, {"type", "SCALAR"}};
    const std::size_t places =
        file.Accessor({{"bufferView", 0}, {"byteOffset", 4}, {"componentType", 5126}, {"count", 2}, {"type", "VEC3"}});
    file.Animate({{"node", 0}, {"path", "translation"}}, both, places);
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 2u);
    ExpectPosition(move.samples[0], 100, 0, 0);
    ExpectPosition(move.samples[1], 200, 0, 0);
}

TEST(GltfReader, FillsInSparseNumbers) {
    GltfFixture file;
    const std::size_t times = file.Floats({0, 1, 2}, "SCALAR", 1);
    const std::size_t indices = file.View(std::string("\x01\0\0\0", 4));
    file.Floats({7, 0, 0}, "VEC3", 3);
    const std::size_t values = file.json["bufferViews"].size() - 1;
    const std::size_t places = file.Accessor({{"componentType", 5126},
                                              {"count", 3},
                                              {"type", "VEC3"},
                                              {"sparse",
                                               {{"count", 1},
                                                {"indices", {{"bufferView", indices}, {"componentType", 5121}}},
                                                {"values", {{"bufferView", values}}}}}});
    file.Animate({{"node", 0}, {"path", "translation"}}, times, places);
    const CameraMove move = Read(file, AtRate(1));
    ASSERT_EQ(move.samples.size(), 3u);
    ExpectPosition(move.samples[0], 0, 0, 0);
    ExpectPosition(move.samples[1], 700, 0, 0);
    ExpectPosition(move.samples[2], 0, 0, 0);
}

TEST(GltfReader, FindsACameraByItsNameOrPath) {
    GltfFixture file;
    file.json["nodes"] = {{{"name", "Wide"}, {"camera", 0}, {"translation", {1, 0, 0}}},
                          {{"name", "Rig"}, {"children", {2}}},
                          {{"name", "Long"}, {"camera", 0}, {"translation", {2, 0, 0}}}};
    FormatOptions options;
    options.camera = "/Rig/Long";
    EXPECT_NEAR(Read(file, options).samples[0].position.x, 200, 1e-9);
    options.camera = "Wide";
    EXPECT_NEAR(Read(file, options).samples[0].position.x, 100, 1e-9);
    EXPECT_EQ(RefusalOf(ReadGltf, file.Text()),
              "move:/nodes: found 2 cameras, expected --camera with one of '/Wide', '/Rig/Long'");
}

TEST(GltfReader, ReadsAStillCameraAsOneFrame) {
    const CameraMove move = Read(GltfFixture());
    EXPECT_EQ(move.samples.size(), 1u);
    EXPECT_EQ(move.first_frame, 0);
    EXPECT_TRUE(Notes(move, "nothing moves this camera"));
    EXPECT_TRUE(Notes(move, "36 mm wide"));
}

TEST(GltfReader, CarriesAnOrthographicCamera) {
    GltfFixture file;
    file.json["cameras"] = {
        {{"type", "orthographic"}, {"orthographic", {{"xmag", 0.02}, {"ymag", 0.01}, {"znear", 0}, {"zfar", 2}}}}};
    const CameraMove move = Read(file);
    EXPECT_TRUE(move.traits.is_orthographic);
    EXPECT_NEAR(move.aperture_width, 40, 1e-9);
    EXPECT_NEAR(*move.aperture_height, 20, 1e-9);
    EXPECT_EQ(move.traits.channels[kFarClip], std::vector<double>{200});
}

TEST(GltfReader, CarriesAnOrthographicViewOfAnySize) {
    GltfFixture file;
    file.json["cameras"] = {
        {{"type", "orthographic"}, {"orthographic", {{"xmag", 25}, {"ymag", 12.5}, {"znear", 0}, {"zfar", 2}}}}};
    const CameraMove move = Read(file);
    EXPECT_NEAR(move.aperture_width, 50000, 1e-6);
    EXPECT_NEAR(*move.aperture_height, 25000, 1e-6);
}

TEST(GltfReader, FindsTheRateInTheTimesOfTheKeys) {
    for (const FrameRate &rate : {FrameRate{24, 1},
                                  {25, 1},
                                  {30, 1},
                                  {48, 1},
                                  {50, 1},
                                  {60, 1},
                                  {24000, 1001},
                                  {30000, 1001},
                                  {60000, 1001},
                                  {48000, 1001},
                                  {120, 1},
                                  {120000, 1001}}) {
        GltfFixture file;
        std::vector<float> times, metres;
        for (int frame = 7; frame < 2000; ++frame) {
            times.push_back(static_cast<float>(frame * static_cast<double>(rate.denominator) / rate.numerator));
            for (const int x : {frame, 0, 0}) metres.push_back(static_cast<float>(x));
        }
        file.Move(times, metres);
        const CameraMove move = Read(file);
        EXPECT_EQ(move.rate, rate) << FrameRateText(rate);
        EXPECT_EQ(move.first_frame, 7);
        ASSERT_EQ(move.samples.size(), 1993u);
        EXPECT_EQ(move.samples[1992].position.x, 199900);
        EXPECT_TRUE(Notes(move, "no frame rate"));
    }
}

TEST(GltfReader, TakesTheLikeliestRateOfSeveral) {
    EXPECT_EQ(FrameRateOfTimes({0, 1, 2}), (FrameRate{30, 1}));
    EXPECT_EQ(FrameRateOfTimes({0, 1 / 24.0}), (FrameRate{24, 1}));
    EXPECT_EQ(FrameRateOfTimes({0, 1001 / 24000.0}), (FrameRate{24000, 1001}));
    EXPECT_FALSE(FrameRateOfTimes({0, 0.1234567, 1}));
}

class FilesBeside : public ::testing::Test {
  protected:
    FilesBeside() : folder_(std::filesystem::temp_directory_path() / "tremolux_gltf_files_beside") {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_ / "shot");
        file_.Move({0, 1}, {1, 0, 0, 2, 0, 0});
        Write("shot/bytes of it.bin");
        Write("outside.bin");
    }
    ~FilesBeside() override { std::filesystem::remove_all(folder_); }

    void Write(const std::string &name) const { std::ofstream(folder_ / name, std::ios::binary) << file_.bytes; }
    std::string TextWith(const std::string &uri) const {
        json document = file_.json;
        document["buffers"] = {{{"byteLength", file_.bytes.size()}, {"uri", uri}}};
        return document.dump();
    }
    std::string Refusal(const std::string &uri, const std::filesystem::path &folder) const {
        FormatOptions options;
        options.folder = folder;
        try {
            ReadGltf("move", TextWith(uri), options);
            return "accepted";
        } catch (const Failure &failure) {
            return failure.what();
        }
    }

    std::filesystem::path folder_;
    GltfFixture file_;
};

TEST_F(FilesBeside, AreReadFromTheFileFolder) {
    const std::filesystem::path file = folder_ / "shot" / "move.gltf";
    std::ofstream(file, std::ios::binary) << TextWith("bytes%20of%20it.bin");
    EXPECT_NEAR(ReadMove(file, {}).samples[0].position.x, 100, 1e-5);
}

TEST_F(FilesBeside, AreNotReadFromElsewhere) {
    const std::string expected = ", expected the name of a file in the same folder";
    for (const std::string &uri :
         {std::string("../outside.bin"), std::string("%2e%2e/outside.bin"), (folder_ / "outside.bin").generic_string(),
          std::string("file:outside.bin"), std::string("a/../../outside.bin"), std::string("..\\outside.bin")})
        EXPECT_NE(Refusal(uri, folder_ / "shot").find(expected), std::string::npos) << Refusal(uri, folder_ / "shot");
    std::error_code no_links;
    std::filesystem::create_symlink(folder_ / "outside.bin", folder_ / "shot" / "link.bin", no_links);
    if (!no_links) {
        EXPECT_NE(Refusal("link.bin", folder_ / "shot").find(expected), std::string::npos);
    }
    EXPECT_EQ(Refusal("gone.bin", folder_ / "shot"),
              "move:/buffers/0/uri: found 'gone.bin', which is not there, expected a file beside this one");
}

TEST_F(FilesBeside, AreNotReadWhereNoFolderIsKnown) {
    EXPECT_NE(Refusal("outside.bin", {}).find("no folder is known here"), std::string::npos);
}

}  // namespace
}  // namespace tremolux
