#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "library/moves/retime.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

std::string Refusal(const std::string &text) { return RefusalOf(ReadJson, text); }
std::string WithFrames(const std::string &frames) { return "{\n\"frames\": [\n" + frames + "\n]}"; }

TEST(Json, SaysItsUnitsAndConventions) {
    const auto json = nlohmann::json::parse(WriteJson({1, {24, 1}, {ReferencePose()}, 25}, {}));
    EXPECT_EQ(json["units"]["position"], "centimetres");
    EXPECT_EQ(json["units"]["hpb"], "degrees");
    EXPECT_NE(json["conventions"]["axes"].get<std::string>().find("left-handed"), std::string::npos);
    EXPECT_EQ(json["frames_per_second"], 24);
    EXPECT_EQ(json["film_back_width"], 25);
    EXPECT_EQ(json["frames"][0]["frame"], 1);
    EXPECT_EQ(json["frames"][0]["position"], (std::vector<double>{10, 150, -300}));
    EXPECT_NEAR(json["frames"][0]["hpb"][0].get<double>(), 30, 1e-12);
    EXPECT_EQ(json["frames"][0]["focus_distance"], 500);
}

TEST(Json, NeedsNoMoreThanFramesWithPositionAndAngles) {
    const CameraMove move =
        ReadJson("move", "\xEF\xBB\xBF" + WithFrames("{\"hpb\":[1,2,3],\r\n\"position\":[4,5,6],\"frame\":7}"), {});
    ASSERT_EQ(move.samples.size(), 1u);
    EXPECT_EQ(move.first_frame, 7);
    EXPECT_EQ(move.rate, (FrameRate{30, 1}));
    EXPECT_EQ(move.aperture_width, 36);
    EXPECT_EQ(move.samples[0].position.z, 6);
    EXPECT_NEAR(move.samples[0].angles.x, kRadiansPerDegree, 1e-15);
    EXPECT_EQ(move.samples[0].focal_length, 36);
}

TEST(Json, CarriesATraitOnceOrInEveryFrame) {
    const std::string frame = "\"position\":[0,0,0],\"hpb\":[0,0,0]";
    const CameraMove move = ReadJson("move",
                                     "{\"near_clip\": 2, \"camera\": \"/A/B\", \"projection\": \"orthographic\",\n"
                                     "\"frames\": [{\"frame\":0,\"f_stop\":4," +
                                         frame + "},{\"frame\":1,\"f_stop\":8," + frame + "}]}",
                                     {});
    EXPECT_EQ(move.traits.channels[kNearClip], std::vector<double>{2});
    EXPECT_EQ(move.traits.channels[kFStop], (std::vector<double>{4, 8}));
    EXPECT_EQ(move.traits.path, "/A/B");
    EXPECT_TRUE(move.traits.is_orthographic);
    const std::string with = "{\"frame\":0,\"f_stop\":4," + frame + "}", without = ",{\"frame\":1," + frame + "}";
    EXPECT_NE(Refusal(WithFrames(with + without)).find("found 1 frames with f_stop, expected it in every one of the 2"),
              std::string::npos);
    EXPECT_NE(
        Refusal("{\"f_stop\": 3, \"frames\": [" + with + "]}").find("found '.frames[].f_stop' here, expected it once"),
        std::string::npos);
    EXPECT_NE(Refusal("{\"f_stop\": 3, \"f_stop\": 4}").find("found '.f_stop' here"), std::string::npos);
    EXPECT_NE(Refusal("{\"projection\": \"round\"}").find("found 'round', expected 'perspective'"), std::string::npos);
    EXPECT_NE(Refusal("{\"exposure\": 3}").find("found 3 for '.exposure'"), std::string::npos);
}

TEST(Json, HasATraitOnEveryFrameBetweenThoseOfTheFile) {
    const auto frame = [](int number, int f_stop) {
        return "{\"frame\":" + std::to_string(number) + ",\"f_stop\":" + std::to_string(f_stop) +
               ",\"position\":[0,0,0],\"hpb\":[0,0,0]}";
    };
    FormatOptions options;
    options.fills_gaps = true;
    const CameraMove move = ReadJson("move", WithFrames(frame(0, 2) + "," + frame(4, 4) + "," + frame(8, 8)), options);
    EXPECT_EQ(move.samples.size(), 9u);
    EXPECT_EQ(move.traits.channels[kFStop], (std::vector<double>{2, 2.5, 3, 3.5, 4, 5, 6, 7, 8}));
    const CameraMove retimed = Retimed(move, {60, 1});
    EXPECT_EQ(retimed.traits.channels[kFStop].size(), retimed.samples.size());
}

TEST(Json, HasAFilmBackAsLargeAsWhatAnOrthographicCameraSees) {
    const std::string film_back = "{\n \"film_back_width\": 50000, \"film_back_height\": 0.5",
                      frames = ", \"frames\": [{\"frame\": 0, \"position\": [0, 0, 0], \"hpb\": [0, 0, 0]}]";
    const CameraMove move = ReadJson("move", film_back + ", \"projection\": \"orthographic\"" + frames + "}", {});
    EXPECT_EQ(move.aperture_width, 50000);
    EXPECT_EQ(move.aperture_height, 0.5);
    EXPECT_EQ(Refusal(film_back + frames + "}"),
              "move:2:21: found 50000, expected a number from 1 to 2000 for '.film_back_width'");
}

TEST(Json, IsRefusedWithThePlaceAndWhatWasExpected) {
    const std::string good = "{\"frame\":0,\"position\":[0,0,0],\"hpb\":[0,0,0]}";
    EXPECT_EQ(Refusal(WithFrames(good + ",\n{\"frame\":2,\"position\":[0,0,0],\"hpb\":[0,0,0]}")),
              "move:4:10: found 2, expected frame 1 (frames follow each other without gaps; --retime fills equal "
              "ones)");
    EXPECT_EQ(Refusal(WithFrames("{\"frame\":0,\n\"position\":[0,0]}")),
              "move:4:16: found 2 numbers, expected 3 numbers");
    EXPECT_EQ(Refusal(WithFrames("{\"frame\":0}")),
              "move:3:11: found the end of a frame, expected a frame with frame, position and hpb");
    EXPECT_EQ(Refusal("{\"frames\": []}"), "move:1:14: found no frames, expected at least one frame in \"frames\"");
    EXPECT_EQ(Refusal("[1]"), "move:1:1: found an array for '', expected what docs/formats.md lists for a camera move");
    EXPECT_NE(
        Refusal("{\n\"units\": {\"position\": \"metres\"}}").find("move:2:30: found 'metres', expected 'centimetres'"),
        std::string::npos);
    const std::string rate =
        "a rate from 1 to 2500 frames per second, such as 24, 23.976 or 24000/1001 or [24000, 1001]; --fps says "
        "another";
    EXPECT_EQ(Refusal("{\"frames_per_second\": 0.5}"), "move:1:23: found 0.5, expected " + rate);
    EXPECT_EQ(Refusal("{\"frames_per_second\": [24000]}"), "move:1:29: found 1 numbers, expected " + rate);
    EXPECT_EQ(Refusal(""), "move:1:1: found an empty file, expected JSON");
}

TEST(Json, IsRefusedHoweverItIsBroken) {
    const std::string good = "{\"frame\":0,\"position\":[0,0,0],\"hpb\":[0,0,0]}";
    for (const std::string &text :
         {std::string("{"), std::string("{\"frames\": [1]}"), WithFrames(good + "," + good), WithFrames(good) + "x",
          WithFrames("{\"frame\":1e99,\"position\":[0,0,0],\"hpb\":[0,0,0]}"), WithFrames("[" + good + "]"),
          WithFrames("{\"frame\":0.5,\"position\":[0,0,0],\"hpb\":[0,0,0]}"), std::string(100000, '['),
          WithFrames("{\"frame\":0,\"position\":[0,0,0,0],\"hpb\":[0,0,0]}"), WithFrames("null"),
          WithFrames("{\"frame\":0,\"position\":[1e999,0,0],\"hpb\":[0,0,0]}"), std::string("{\"frames\": 3}"),
          std::string("1"), WithFrames("{\"frame\":0,\"position\":[0,0,0],\"hpb\":[0,0,0],\"focal_length\":0}"),
          WithFrames("{\"frame\":0,\"position\":[0,0,0],\"hpb\":[0,0,0],\"hpb\":[0,0,0]}"),
          WithFrames("{\"frame\":0,\"position\":[0,0,0],\"hpb\":[0,0,0],\"focallength\":50}")}) {
        const std::string refusal = Refusal(text);
        EXPECT_EQ(refusal.rfind("move:", 0), 0u) << refusal << " for " << text.substr(0, 80);
        EXPECT_NE(refusal.find(", expected "), std::string::npos) << refusal;
    }
}

}  // namespace
}  // namespace tremolux
