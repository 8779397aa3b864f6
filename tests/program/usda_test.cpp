#include <gtest/gtest.h>

#include <cmath>

#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

std::string Refusal(const std::string &text) { return RefusalOf(ReadUsda, text); }

// The reference pose at frame 0 and the same a little further on, as another program would write it.
const std::string kReference = R"(#usda 1.0
(
    "a comment"
    defaultPrim = "World"
    metersPerUnit = 0.01
    upAxis = "Y"
    customLayerData = { string made = "by hand" }
    timeCodesPerSecond = 25
)
def Xform "World" (
    kind = "assembly"
)
{
    def Camera "Camera" # the one
    {
        token projection = "perspective"
        float2 clippingRange = (1, 1000000)
        float horizontalAperture = 36
        float focalLength.timeSamples = { 0: 36, 2: 38 }
        float focusDistance = 500 ( doc = "focus" )
        matrix4d xformOp:transform.timeSamples = {
            0: ( (0.870297133613, -0.0858316511774, -0.484990543083, 0), (-0.0110146096574, 0.98106026219, -0.193389349047, 0), (0.492403876506, 0.173648177667, 0.852868531952, 0), (10, 150, 300, 1) ),
            2: ( (0.870297133613, -0.0858316511774, -0.484990543083, 0), (-0.0110146096574, 0.98106026219, -0.193389349047, 0), (0.492403876506, 0.173648177667, 0.852868531952, 0), (12, 150, 300, 1) ),
        }
        uniform token[] xformOpOrder = ["xformOp:transform"]
    }
}
)";

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

void ExpectReferencePose(const CameraSample &sample) {
    const CameraSample pose = ReferencePose();
    EXPECT_LT(host::Length(sample.position - pose.position), 1e-9);
    EXPECT_LT(host::Length(sample.angles - pose.angles), 1e-9);
    EXPECT_NEAR(sample.focal_length, 36, 1e-9);
    EXPECT_NEAR(sample.focus_distance, 500, 1e-9);
}

TEST(Usda, ReadsTheReferencePose) {
    const CameraMove move = ReadUsda("move", kReference, {});
    ASSERT_EQ(move.samples.size(), 3u);
    EXPECT_EQ(move.first_frame, 0);
    EXPECT_EQ(move.rate, (FrameRate{25, 1}));
    EXPECT_NEAR(move.aperture_width, 36, 1e-12);
    ExpectReferencePose(move.samples[0]);
    // Between samples everything runs straight on.
    EXPECT_NEAR(move.samples[1].position.x, 11, 1e-9);
    EXPECT_NEAR(move.samples[1].focal_length, 37, 1e-9);
}

TEST(Usda, ReadsAByteOrderMarkAndLineEndsOfWindows) {
    std::string text = "\xEF\xBB\xBF";
    for (const char c : kReference) text += c == '\n' ? "\r\n" : std::string(1, c);
    ExpectReferencePose(ReadUsda("move", text, {}).samples.at(0));
}

TEST(Usda, ReadsMetresAndZUp) {
    // x, y, z of the Y-up world is x, -z, y here; the lens is in tenths of a metre.
    std::string text = Replaced(kReference, "metersPerUnit = 0.01", "metersPerUnit = 1");
    text = Replaced(text, "upAxis = \"Y\"", "upAxis = \"Z\"");
    text = Replaced(text, "horizontalAperture = 36", "horizontalAperture = 0.36");
    text = Replaced(text, "{ 0: 36, 2: 38 }", "{ 0: 0.36, 2: 0.38 }");
    text = Replaced(text, "focusDistance = 500", "focusDistance = 5");
    const std::size_t samples = text.find("            0: (");
    text = text.substr(0, samples) +
           "0: ( (0.870297133613, 0.484990543083, -0.0858316511774, 0), (-0.0110146096574, 0.193389349047, "
           "0.98106026219, 0), (0.492403876506, -0.852868531952, 0.173648177667, 0), (0.1, -3, 1.5, 1) ) }\n" +
           "uniform token[] xformOpOrder = [\"xformOp:transform\"] } }\n";
    const CameraMove move = ReadUsda("move", text, {});
    ASSERT_EQ(move.samples.size(), 3u);  // the lens has samples up to 2
    ExpectReferencePose(move.samples[0]);
    EXPECT_NEAR(move.aperture_width, 36, 1e-12);
}

TEST(Usda, ReadsACameraThatStandsInSomethingThatMoves) {
    // The world is turned by +90 degrees about y and moved by (100, 0, 0): a point (x, y, z) of it comes to (100 + z,
    // y, -x).
    const std::string text = Replaced(kReference, "kind = \"assembly\"\n)\n{", R"(kind = "assembly"
)
{
    matrix4d xformOp:transform = ( (0, 0, -1, 0), (0, 1, 0, 0), (1, 0, 0, 0), (100, 0, 0, 1) )
    uniform token[] xformOpOrder = ["xformOp:transform"]
)");
    const CameraSample sample = ReadUsda("move", text, {}).samples.at(0);
    EXPECT_LT(host::Length(sample.position - host::Vector{400, 150, 10}), 1e-9);
    // Heading is the turn about y.
    EXPECT_NEAR(sample.angles.x, (30 + 90) * kRadiansPerDegree, 1e-9);
    EXPECT_NEAR(sample.angles.y, -10 * kRadiansPerDegree, 1e-9);
}

TEST(Usda, WritesTheStageAsTheSceneIs) {
    const std::string text = WriteUsda({5, {24, 1}, {ReferencePose(), ReferencePose()}}, {});
    for (const char *line : {"metersPerUnit = 0.01", "upAxis = \"Y\"", "startTimeCode = 5", "endTimeCode = 6",
                             "timeCodesPerSecond = 24", "float verticalAperture.timeSamples = {\n        5: 20.25,"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST(Usda, TakesTheRateOfTheCommandLineWhereTheFileHasABrokenOne) {
    const std::string text = Replaced(kReference, "timeCodesPerSecond = 25", "timeCodesPerSecond = 0.5");
    EXPECT_EQ(Refusal(text),
              "move:8:26: found 0.5, expected a rate from 1 to 2500 frames per second, such as 24, 23.976 or "
              "24000/1001, for timeCodesPerSecond; --fps says another");
    FormatOptions options;
    options.rate = FrameRate{24, 1};
    EXPECT_EQ(ReadUsda("move", text, options).rate, (FrameRate{24, 1}));
}

TEST(Usda, IsRefusedWithThePlaceAndWhatWasExpected) {
    EXPECT_EQ(Refusal("PXR-USDC"),
              "move: found a binary scene description, expected text, which `usdcat -o FILE.usda FILE` makes of it");
    EXPECT_EQ(Refusal("#usda 1.0\n"), "move:1:1: found no camera, expected a Camera");
    EXPECT_EQ(Refusal("#usda 1.0\ndef Camera \"C\"\n{\n"),
              "move:3:2: found the end of the file, expected an attribute "
              "with its type, a prim, or '}'");
    EXPECT_EQ(Refusal(Replaced(kReference, "upAxis = \"Y\"", "upAxis = \"X\"")),
              "move:6:14: found another upAxis, expected \"Y\" or \"Z\"");
    EXPECT_EQ(Refusal(Replaced(kReference, "horizontalAperture = 36", "horizontalAperture = nan")),
              "move:18:15: found nan, expected a number for horizontalAperture");
}

TEST(Usda, IsRefusedHoweverItIsBroken) {
    const std::string order = "uniform token[] xformOpOrder = [\"xformOp:transform\"]";
    for (const auto &[what, with] : std::vector<std::pair<std::string, std::string>>{
             {order, "uniform token[] xformOpOrder = [\"xformOp:skew\", \"xformOp:transform\"]"},
             {order, order + " def Camera \"Other\" {}"},
             {"(10, 150, 300, 1)", "(10, 150, 300)"},
             {"(10, 150, 300, 1)", "(10, 150, 300, 2)"},
             {"(10, 150, 300, 1)", "(1e300, 150, 300, 1)"},
             {"(0.870297133613, -0.0858316511774, -0.484990543083, 0)", "(0, 0, 0, 0)"},
             {"2: ( (", "0: ( ("},
             {"2: ( (", "3000000: ( ("},
             {"\"perspective\"", "\"perspective"},
             {"def Xform \"World\" (", std::string(100000, '(')},
             {"(1, 1000000)", std::string(100000, '(')},
             {"metersPerUnit = 0.01", "metersPerUnit = 0"},
             {"{ 0: 36, 2: 38 }", "{ 0: 36, 2: 0 }"},
             {"{ 0: 36, 2: 38 }", "{ 0: 36 2: 38 }"}}) {
        const std::string refusal = Refusal(Replaced(kReference, what, with));
        EXPECT_EQ(refusal.rfind("move:", 0), 0u) << refusal << " for " << with.substr(0, 80);
        EXPECT_NE(refusal.find(", expected "), std::string::npos) << refusal;
    }
}

}  // namespace
}  // namespace tremolux
