#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

#include "library/formats/base64.h"
#include "tests/program/formats_support.h"

namespace tremolux {
namespace {

using nlohmann::json;

std::string Decoded(const std::string &text) {
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0, count = 0;
    for (const char c : text.substr(0, text.find('='))) {
        bits = bits << 6 | static_cast<unsigned>(digits.find(c));
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 255);
    }
    return bytes;
}

// The numbers behind an accessor, as any reader of the format finds them.
std::vector<float> Numbers(const json &file, std::size_t accessor) {
    const std::string uri = file["buffers"][0]["uri"];
    const std::string bytes = Decoded(uri.substr(uri.find(',') + 1));
    const json &view = file["bufferViews"][file["accessors"][accessor]["bufferView"].get<std::size_t>()];
    std::vector<float> numbers(view["byteLength"].get<std::size_t>() / 4);
    std::memcpy(numbers.data(), bytes.data() + view["byteOffset"].get<std::size_t>(), numbers.size() * 4);
    return numbers;
}

CameraMove TwoFrames(double second_focal_length) {
    CameraMove move{30, {30, 1}, {ReferencePose(), ReferencePose()}};
    move.samples[1].focal_length = second_focal_length;
    return move;
}

TEST(Gltf, CarriesTheReferencePoseInMetresAndSeconds) {
    const json file = json::parse(WriteGltf(TwoFrames(36), {}));
    const json &animation = file["animations"][0];
    ASSERT_EQ(animation["channels"].size(), 2u);
    const auto sampled = [&](std::size_t channel, const char *side) {
        return Numbers(file, animation["samplers"][channel][side].get<std::size_t>());
    };
    EXPECT_EQ(sampled(0, "input"), (std::vector<float>{1.0F, static_cast<float>(31.0 / 30)}));
    const std::vector<float> metres = sampled(0, "output");
    EXPECT_NEAR(metres[0], 0.1, 1e-6);
    EXPECT_NEAR(metres[1], 1.5, 1e-6);
    EXPECT_NEAR(metres[2], 3, 1e-6);
    // What looks along -Z turns to (-0.49240, -0.17365, -0.85287): twice the products of the quaternion.
    const std::vector<float> q = sampled(1, "output");
    EXPECT_NEAR(-2 * (q[0] * q[2] + q[3] * q[1]), -0.49240, 1e-5);
    EXPECT_NEAR(-2 * (q[1] * q[2] - q[3] * q[0]), -0.17365, 1e-5);
    EXPECT_NEAR(file["cameras"][0]["perspective"]["yfov"].get<double>() / kRadiansPerDegree, 31.4173, 1e-4);
    EXPECT_EQ(file.count("extensionsUsed"), 0u);
    EXPECT_EQ(file["cameras"][0]["extras"]["focus_distance_m"][0], 5);
}

TEST(Gltf, CarriesZoomByAPointer) {
    const json file = json::parse(WriteGltf(TwoFrames(50), {}));
    EXPECT_EQ(file["extensionsUsed"][0], "KHR_animation_pointer");
    const json &channel = file["animations"][0]["channels"][2];
    EXPECT_EQ(channel["target"]["path"], "pointer");
    EXPECT_EQ(channel["target"].count("node"), 0u);
    EXPECT_EQ(channel["target"]["extensions"]["KHR_animation_pointer"]["pointer"], "/cameras/0/perspective/yfov");
    const std::size_t output = file["animations"][0]["samplers"][2]["output"];
    EXPECT_NEAR(Numbers(file, output)[1], 2 * std::atan(20.25 / 100), 1e-6);
}

TEST(Gltf, KeepsTurnsInOneHemisphereAndTimesRising) {
    CameraMove move{-5, {2500, 1}, std::vector<CameraSample>(2000)};
    for (std::size_t i = 0; i < move.samples.size(); ++i)
        move.samples[i].angles = {0.05 * static_cast<double>(i), 1, 2};
    const json file = json::parse(WriteGltf(move, {}));
    const auto times = Numbers(file, 0), turns = Numbers(file, 2);
    EXPECT_EQ(times[0], 0);
    for (std::size_t i = 1; i < times.size(); ++i) {
        EXPECT_GT(times[i], times[i - 1]);
        float cosine = 0;
        for (std::size_t part = 0; part < 4; ++part) cosine += turns[4 * i + part] * turns[4 * i - 4 + part];
        EXPECT_GT(cosine, 0.99F) << i;
    }
}

TEST(Gltf, PutsTheLensOfTheFilmBackIntoTheFile) {
    CameraMove move = TwoFrames(36);
    move.aperture_height = 24;
    move.traits.path = "/Rig/Long";
    move.traits.channels[kNearClip] = {50};
    move.traits.channels[kFarClip] = {20000};
    const json file = json::parse(WriteGltf(move, {}));
    const json &perspective = file["cameras"][0]["perspective"];
    EXPECT_NEAR(perspective["aspectRatio"].get<double>(), 1.5, 1e-12);
    EXPECT_NEAR(perspective["yfov"].get<double>(), 2 * std::atan(12.0 / 36), 1e-12);
    EXPECT_NEAR(perspective["znear"].get<double>(), 0.5, 1e-12);
    EXPECT_NEAR(perspective["zfar"].get<double>(), 200, 1e-12);
    EXPECT_EQ(file["nodes"][0]["name"], "Long");
}

TEST(Gltf, WritesTheViewOfAnOrthographicCamera) {
    CameraMove move = TwoFrames(50);
    move.traits.is_orthographic = true;
    const json file = json::parse(WriteGltf(move, {}));
    EXPECT_EQ(file["cameras"][0]["type"], "orthographic");
    EXPECT_NEAR(file["cameras"][0]["orthographic"]["xmag"].get<double>(), 0.018, 1e-12);
    EXPECT_NEAR(file["cameras"][0]["orthographic"]["ymag"].get<double>(), 0.010125, 1e-12);
    EXPECT_EQ(file.count("extensionsUsed"), 0u);
}

TEST(Glb, HoldsTheSameDocumentAndBytesInTwoChunks) {
    const CameraMove move = TwoFrames(50);
    const std::string glb = WriteGlb(move, {});
    const auto word = [&](std::size_t at) {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 4; ++i) bits |= std::uint32_t{static_cast<unsigned char>(glb[at + i])} << (8 * i);
        return bits;
    };
    EXPECT_EQ(word(0), 0x46546C67u);
    EXPECT_EQ(word(4), 2u);
    EXPECT_EQ(word(8), glb.size());
    EXPECT_EQ(word(16), 0x4E4F534Au);
    const std::size_t text = word(12), binary = 20 + text;
    ASSERT_EQ(binary % 4, 0u);
    EXPECT_EQ(word(binary + 4), 0x004E4942u);
    EXPECT_EQ(binary + 8 + word(binary), glb.size());
    json document = json::parse(glb.substr(20, text)), other = json::parse(WriteGltf(move, {}));
    const std::string uri = other["buffers"][0]["uri"];
    EXPECT_EQ(glb.substr(binary + 8, document["buffers"][0]["byteLength"].get<std::size_t>()),
              Decoded(uri.substr(uri.find(',') + 1)));
    other["buffers"][0].erase("uri");
    EXPECT_EQ(document, other);
}

TEST(Base64, IsThatOfTheStandard) {
    // The examples of RFC 4648.
    EXPECT_EQ(Base64(""), "");
    EXPECT_EQ(Base64("f"), "Zg==");
    EXPECT_EQ(Base64("fo"), "Zm8=");
    EXPECT_EQ(Base64("foo"), "Zm9v");
    EXPECT_EQ(Base64("foobar"), "Zm9vYmFy");
}

TEST(Base64, ComesBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(BytesOfBase64(Base64(bytes)), bytes);
        bytes += static_cast<char>(i * 7);
    }
    EXPECT_EQ(BytesOfBase64("Zm8"), "fo");
    for (const char *text : {"A", "A===", "Zm9*", "Zm=v"}) EXPECT_FALSE(BytesOfBase64(text)) << text;
}

}  // namespace
}  // namespace tremolux
