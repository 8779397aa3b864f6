// Stages and layers as they are written, and what is read of them again.
#include <gtest/gtest.h>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;

std::string File(const std::string &name) { return TREMOLUX_SOURCE_DIR "/tests/data/usd/" + name + ".usda"; }
CameraMove Read(const std::string &name) { return ReadMove(std::filesystem::u8path(File(name)), {}); }

std::string LayerOver(const CameraMove &move) {
    FormatOptions options;
    options.usd_layer = true;
    return WriteUsda(move, options);
}

bool Has(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

void ExpectSameCamera(const CameraMove &a, const CameraMove &b) {
    ASSERT_EQ(a.samples.size(), b.samples.size());
    EXPECT_EQ(a.first_frame, b.first_frame);
    EXPECT_EQ(a.rate, b.rate);
    EXPECT_EQ(a.traits.path, b.traits.path);
    EXPECT_EQ(a.traits.is_orthographic, b.traits.is_orthographic);
    EXPECT_NEAR(a.aperture_width, b.aperture_width, 1e-9);
    EXPECT_NEAR(a.aperture_height.value_or(0), b.aperture_height.value_or(0), 1e-9);
    for (std::size_t i = 0; i < a.samples.size(); ++i) {
        EXPECT_LT(host::Length(a.samples[i].position - b.samples[i].position), 1e-6);
        EXPECT_LT(host::Length(a.samples[i].angles - b.samples[i].angles), 1e-7);
        EXPECT_NEAR(a.samples[i].focal_length, b.samples[i].focal_length, 1e-6);
        EXPECT_NEAR(a.samples[i].focus_distance, b.samples[i].focus_distance, 1e-6);
        for (int channel = 0; channel < kTraitChannelCount; ++channel) {
            const auto which = static_cast<TraitChannel>(channel);
            const double value = a.traits.At(which, i, -1), size = 1 + std::abs(value);
            EXPECT_NEAR(value, b.traits.At(which, i, -1), 1e-9 * size) << InfoOf(which).words;
        }
    }
}

// A move with everything that a file can say of its camera.
CameraMove FullMove(std::int64_t first_frame, const FrameRate &rate) {
    CameraMove move{first_frame, rate, {ReferencePose(), ReferencePose(), ReferencePose()}};
    move.samples[1].position.x += 1;
    move.aperture_width = 24.89;
    move.aperture_height = 18.66;
    move.traits.path = "/World/Shot_010/renderCam";
    move.traits.channels[kHorizontalOffset] = {1.25};
    move.traits.channels[kVerticalOffset] = {0, -0.5, -1};
    move.traits.channels[kFStop] = {2.8, 4, 5.6};
    move.traits.channels[kNearClip] = {0.5};
    move.traits.channels[kFarClip] = {1000, 2000, 3000};
    move.traits.channels[kShutterOpen] = {-0.25};
    move.traits.channels[kShutterClose] = {0.25};
    return move;
}

TEST(UsdStages, KeepEverythingAtEveryRateAndStart) {
    constexpr FrameRate kRates[] = {{24000, 1001}, {24, 1}, {25, 1},       {30000, 1001}, {30, 1},
                                    {48000, 1001}, {60, 1}, {60000, 1001}, {120000, 1001}};
    for (const FrameRate &rate : kRates) {
        for (const std::int64_t start : {-20, 0, 101}) {
            const CameraMove move = FullMove(start, rate);
            ExpectSameCamera(move, ReadUsda("move", WriteUsda(move, {}), {}));
        }
    }
}

TEST(UsdStages, HaveTheCameraAtItsOldPathInWordsThatAPrimMayHave) {
    CameraMove move = FullMove(0, {24, 1});
    const std::string text = WriteUsda(move, {});
    EXPECT_TRUE(Has(text, "defaultPrim = \"World\""));
    EXPECT_TRUE(
        Has(text, "def Xform \"World\"\n{\n    def Xform \"Shot_010\"\n    {\n        def Camera \"renderCam\"\n"));
    move.traits.path = "/1st/Cam.001 \"a\"";
    EXPECT_TRUE(Has(WriteUsda(move, {}), "def Xform \"_1st\"\n{\n    def Camera \"Cam_001__a_\"\n"));
}

TEST(UsdStages, KeepAnOrthographicView) {
    const CameraMove move = Read("orthographic");
    const std::string text = WriteUsda(move, {});
    EXPECT_TRUE(Has(text, "token projection = \"orthographic\""));
    ExpectSameCamera(move, ReadUsda("move", text, {}));
}

TEST(UsdLayers, SpeakOfTheStageInItsOwnUnits) {
    const std::string text = LayerOver(Read("metres_with_millimetre_lens"));
    EXPECT_FALSE(Has(text, "def "));
    for (const char *part :
         {"metersPerUnit = 1\n", "upAxis = \"Z\"",
          "over \"root\"\n{\n    over \"Camera\"\n    {\n        over Camera \"Camera\"",
          "float verticalApertureOffset = 3.6\n", "float2 clippingRange = (0.1, 100)\n",
          "xformOpOrder = [\"!resetXformStack!\", \"xformOp:transform\"]", "        1: 36,\n", "        3: 50,\n"}) {
        EXPECT_TRUE(Has(text, part)) << part << text;
    }
    // The position in metres, with Z up, as the file has it.
    EXPECT_TRUE(Has(text, "(7.35889148712158, -6.92579078674316, 4.95830917358398, 1)")) << text;
    // Tenths of a metre stay tenths of a metre.
    EXPECT_TRUE(Has(LayerOver(Read("z_up_metres")), "0: 0.35,\n"));
}

TEST(UsdLayers, KeepTheTimeCodesOfTheStage) {
    const CameraMove move = Read("codes_that_are_no_frames");
    const std::string text = LayerOver(move);
    for (const char *part : {"timeCodesPerSecond = 96", "framesPerSecond = 24", "endTimeCode = 100", "        96: "})
        EXPECT_TRUE(Has(text, part)) << part;
    ExpectSameCamera(move, ReadUsda("move", text, {}));
}

TEST(UsdLayers, SayNothingOfWhatTheMoveDoesNotKnow) {
    CameraMove move{0, {24, 1}, {ReferencePose()}};
    EXPECT_FALSE(Has(LayerOver(move), "clippingRange"));
    EXPECT_FALSE(Has(LayerOver(move), "verticalAperture"));
    // A stage says its film back whole: the picture's shape, 1920x1080, makes its height.
    EXPECT_TRUE(Has(WriteUsda(move, {}), "float verticalAperture.timeSamples = {\n        0: 20.25,\n"));
}

// What stands in the braces of the prim "World".
std::string WorldOf(const std::string &text) {
    const std::size_t begin = text.find('{', text.find("\"World\"")) + 1;
    return text.substr(begin, text.rfind('}') - begin);
}

TEST(UsdLayers, PutTheCameraWhereItWasWhateverMovesItBelow) {
    // A variant is weaker than what its prim says itself, as a stage is weaker than the layer above it.
    std::string below;
    {
        const Workplace workplace;
        ASSERT_EQ(workplace.RunBare({"convert", File("parents"), workplace.Path("out.usda"), "--usd-layer"}).status, 0);
        below = workplace.Read("out.usda");
    }
    const CameraMove move = Read("parents");
    std::string stage;
    {
        std::ifstream in(std::filesystem::u8path(File("parents")));
        stage.assign(std::istreambuf_iterator<char>(in), {});
    }
    const std::string both = "#usda 1.0\ndef Xform \"World\" (\n    variants = { string below = \"stage\" }\n)\n{\n" +
                             WorldOf(below) + "variantSet \"below\" = { \"stage\" {" + WorldOf(stage) + "} }\n}\n";
    ExpectSameCamera(move, ReadUsda("move", both, {}));
}

class UsdProgram : public testing::Test {
  protected:
    Workplace workplace_;
};

TEST_F(UsdProgram, SaysWhatItDecidedAndPassedOver) {
    const std::string out = workplace_.Path("out.usda"), in = File("metres_with_millimetre_lens");
    const Outcome outcome = workplace_.RunBare({"convert", in, out});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, in + ": the lens is taken to be in millimetres: in tenths of a unit of 1 m the focal length "
                                "would be 5000 mm, the film back 3600 mm wide\n");
}

TEST_F(UsdProgram, SaysWhatOfACameraATableHasNoPlaceFor) {
    const std::string out = workplace_.Path("out.csv");
    const Outcome outcome = workplace_.RunBare({"convert", File("everything_of_a_camera"), out});
    for (const char *part : {"vertical lens shift", "f-stop", "far clipping", "shutter opening", "the camera's name"})
        EXPECT_TRUE(Has(outcome.err, part)) << outcome.err;
}

TEST_F(UsdProgram, TakesTheCameraThatIsNamed) {
    const std::string out = workplace_.Path("out.csv"), in = File("several_cameras");
    EXPECT_EQ(workplace_.RunBare({"convert", in, out}).status, 2);
    EXPECT_EQ(workplace_.Read("out.csv"), "(missing)");
    ASSERT_EQ(workplace_.RunBare({"convert", in, out, "--camera", "Left"}).status, 0);
    EXPECT_NEAR(ReadCsv("c", workplace_.Read("out.csv"), {}).samples.at(0).position.x, -3, 1e-9);
}

TEST_F(UsdProgram, GivesAStillCameraFramesAndCutsThoseOfAMovingOne) {
    const std::string still = workplace_.Path("still.csv"), cut = workplace_.Path("cut.usda");
    ASSERT_EQ(workplace_.RunBare({"convert", File("still"), still, "--frames", "5:8"}).status, 0);
    EXPECT_EQ(ReadCsv("c", workplace_.Read("still.csv"), {}).first_frame, 5);
    ASSERT_EQ(workplace_.RunBare({"convert", File("everything_of_a_camera"), cut, "--frames", "1:2"}).status, 0);
    const CameraMove move = ReadUsda("c", workplace_.Read("cut.usda"), {});
    EXPECT_EQ(move.first_frame, 1);
    ASSERT_EQ(move.samples.size(), 2u);
    EXPECT_NEAR(move.traits.At(kFStop, 0, 0), 4.2, 1e-9);
    EXPECT_EQ(workplace_.RunBare({"convert", File("parents"), cut, "--frames", "1:9"}).status, 2);
}

TEST_F(UsdProgram, ShakesPartOfAMoveWithWhatBelongsToIt) {
    const std::string out = workplace_.Path("out.usda");
    const Outcome outcome = workplace_.Run({"shake", File("everything_of_a_camera"), "-o", out, "--frames", "1:2"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CameraMove move = ReadUsda("c", workplace_.Read("out.usda"), {});
    EXPECT_EQ(move.traits.path, "/World/renderCam");
    EXPECT_NEAR(move.traits.At(kFStop, 0, 0), 4.2, 1e-9);
}

}  // namespace
}  // namespace tremolux
