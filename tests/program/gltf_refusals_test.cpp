// glTF files that are broken, each refused with one line that says where.
#include <gtest/gtest.h>

#include <functional>

#include "library/formats/gltf_container.h"
#include "tests/program/formats_support.h"
#include "tests/program/gltf_support.h"

namespace tremolux {
namespace {

using nlohmann::json;

struct Broken {
    const char *name;
    std::function<void(json &)> breaks;
    const char *line;  // what the refusal begins with
};

// Two keys: accessor 0 and view 0 are the times, 1 the positions.
GltfFixture Good() {
    GltfFixture file;
    file.Move({0, 1}, {0, 0, 0, 1, 0, 0});
    return file;
}

json Sparse(std::size_t count, int index_type) {
    return {{"count", count},
            {"indices", {{"bufferView", 1}, {"componentType", index_type}}},
            {"values", {{"bufferView", 1}}}};
}

const Broken kBroken[] = {
    {"no version", [](json &f) { f.erase("asset"); }, "move:/asset/version: found nothing, expected \"2.0\""},
    {"old version", [](json &f) { f["asset"]["version"] = "1.0"; }, "move:/asset/version: found '1.0'"},
    {"no camera", [](json &f) { f["nodes"][0].erase("camera"); }, "move:/nodes: found no node with a camera"},
    {"camera that is not there", [](json &f) { f["nodes"][0]["camera"] = 1; },
     "move:/nodes/0/camera: found 1, expected the number of one of the 1 of /cameras"},
    {"negative camera", [](json &f) { f["nodes"][0]["camera"] = -1; }, "move:/nodes/0/camera: found -1"},
    {"camera by name", [](json &f) { f["nodes"][0]["camera"] = "a"; }, "move:/nodes/0/camera: found 'a'"},
    {"nodes that are none", [](json &f) { f["nodes"] = 7; }, "move:/nodes: found 7, expected an array"},
    {"node that is its own child", [](json &f) { f["nodes"][0]["children"] = {0}; },
     "move:/nodes/0/children/0: found 0"},
    {"circle of nodes",
     [](json &f) {
         f["nodes"].push_back({{"children", {0}}});
         f["nodes"][0]["children"] = {1};
     },
     "move:/nodes/0: found a node that is its own ancestor"},
    {"two parents",
     [](json &f) {
         f["nodes"].push_back({{"children", {0}}});
         f["nodes"].push_back({{"children", {0}}});
     },
     "move:/nodes/2/children/0: found 0, expected a node that has no other parent"},
    {"deep tree",
     [](json &f) {
         for (int i = 0; i < 1000; ++i) f["nodes"].push_back({{"children", {i}}});
     },
     "move:/nodes/0: found a node that is its own ancestor, or more than 256 deep"},
    {"short matrix",
     [](json &f) {
         f["nodes"][0]["matrix"] = {1, 2};
     },
     "move:/nodes/0/matrix: found an array of 2, expected 16 numbers"},
    {"flat camera",
     [](json &f) {
         f["nodes"][0]["scale"] = {0, 0, 0};
     },
     "move:/nodes/0: found axes without length"},
    {"other projection", [](json &f) { f["cameras"][0]["type"] = "fisheye"; }, "move:/cameras/0/type: found 'fisheye'"},
    {"no angle", [](json &f) { f["cameras"][0]["perspective"].erase("yfov"); },
     "move:/cameras/0/perspective/yfov: found nothing, expected a number"},
    {"angle of 0", [](json &f) { f["cameras"][0]["perspective"]["yfov"] = 0; },
     "move:/cameras/0/perspective/yfov: found 0 radians at 0 seconds"},
    {"aspect ratio of 0", [](json &f) { f["cameras"][0]["perspective"]["aspectRatio"] = 0; },
     "move:/cameras/0/perspective/aspectRatio: found 0"},
    {"channel without sampler", [](json &f) { f["animations"][0]["channels"][0]["sampler"] = 3; },
     "move:/animations/0/channels/0/sampler: found 3"},
    {"channel for no node", [](json &f) { f["animations"][0]["channels"][0]["target"]["node"] = 3; },
     "move:/animations/0/channels/0/target/node: found 3"},
    {"other interpolation", [](json &f) { f["animations"][0]["samplers"][0]["interpolation"] = "EASE"; },
     "move:/animations/0/samplers/0/interpolation: found 'EASE', expected STEP, LINEAR or CUBICSPLINE"},
    {"spline with too few numbers", [](json &f) { f["animations"][0]["samplers"][0]["interpolation"] = "CUBICSPLINE"; },
     "move:/animations/0/samplers/0/output: found 2 elements, expected 6"},
    {"wrong width", [](json &f) { f["accessors"][1]["type"] = "VEC4"; },
     "move:/accessors/1/type: found 'VEC4', expected 3 numbers an element"},
    {"unknown width", [](json &f) { f["accessors"][1]["type"] = "MAT4"; },
     "move:/accessors/1/type: found 'MAT4', expected SCALAR"},
    {"unknown numbers", [](json &f) { f["accessors"][1]["componentType"] = 5130; },
     "move:/accessors/1/componentType: found 5130"},
    {"more numbers than bytes", [](json &f) { f["accessors"][1]["count"] = 3; },
     "move:/accessors/1: found 36 bytes from 0 on, expected elements inside the 24 bytes"},
    {"count beyond memory", [](json &f) { f["accessors"][1]["count"] = 4e15; }, "move:/accessors/1/count: found 4"},
    {"part of a number", [](json &f) { f["accessors"][1]["count"] = 1.5; },
     "move:/accessors/1/count: found 1.5, expected a whole number"},
    {"offset beyond the view", [](json &f) { f["accessors"][1]["byteOffset"] = 4294967296; },
     "move:/accessors/1: found 24 bytes from 4294967296 on"},
    {"narrow stride", [](json &f) { f["bufferViews"][1]["byteStride"] = 4; },
     "move:/bufferViews/1/byteStride: found 4, expected at least the 12 bytes"},
    {"view beyond the buffer", [](json &f) { f["bufferViews"][1]["byteOffset"] = 9; },
     "move:/bufferViews/1: found 24 bytes from 9 on, expected a part of the buffer's 32 bytes"},
    {"compressed view", [](json &f) { f["bufferViews"][1]["extensions"]["EXT_meshopt_compression"] = json::object(); },
     "move:/bufferViews/1: found EXT_meshopt_compression"},
    {"too many sparse numbers", [](json &f) { f["accessors"][1]["sparse"] = Sparse(9, 5121); },
     "move:/accessors/1/sparse/count: found 9"},
    {"signed sparse places", [](json &f) { f["accessors"][1]["sparse"] = Sparse(1, 5126); },
     "move:/accessors/1/sparse/indices/componentType: found 5126"},
    {"sparse place beyond the numbers",
     [](json &f) {
         f["accessors"][1]["sparse"] = Sparse(1, 5121);
         f["accessors"][1]["sparse"]["indices"]["byteOffset"] = 15;  // the highest byte of 1.0f
     },
     "move:/accessors/1/sparse/indices: found element 63, expected one of the accessor's 2"},
    {"no keys", [](json &f) { f["accessors"][0]["count"] = 0; }, "move:/animations/0/samplers/0/input: found no keys"},
    {"no such accessor", [](json &f) { f["animations"][0]["samplers"][0]["output"] = 8; },
     "move:/animations/0/samplers/0/output: found 8"},
};

TEST(GltfRefusals, SayPlaceAndWhatWasExpected) {
    ASSERT_EQ(RefusalOf(ReadGltf, Good().Text()), "accepted");
    for (const Broken &broken : kBroken) {
        GltfFixture file = Good();
        broken.breaks(file.json);
        const std::string line = RefusalOf(ReadGltf, file.Text());
        EXPECT_EQ(line.substr(0, std::string(broken.line).size()), broken.line) << broken.name;
        EXPECT_NE(line.find(", expected "), std::string::npos) << broken.name;
        EXPECT_EQ(line.find('\n'), std::string::npos) << broken.name;
    }
}

TEST(GltfRefusals, SayThatTimesFall) {
    GltfFixture file;
    file.Move({1, 0}, {0, 0, 0, 1, 0, 0});
    EXPECT_EQ(RefusalOf(ReadGltf, file.Text()),
              "move:/animations/0/samplers/0/input: found times out of order, expected times that rise");
}

TEST(GltfRefusals, SayWhereABufferIsBroken) {
    const auto refusal = [](const json &buffer) {
        json file = Good().json;
        file["buffers"] = json::array({buffer});
        return RefusalOf(ReadGltf, file.dump());
    };
    EXPECT_EQ(refusal({{"byteLength", 32}}),
              "move:/buffers/0: found no uri, expected a buffer with an uri or a binary chunk");
    EXPECT_EQ(refusal({{"byteLength", 32}, {"uri", "data:;base64,AAAA"}}),
              "move:/buffers/0/byteLength: found 32, expected at most the 3 bytes that are there");
    for (const char *uri : {"data:;base64,A", "data:;base64,A*==", "data:text/plain,abc", "data:"})
        EXPECT_NE(refusal({{"byteLength", 1}, {"uri", uri}}).find("expected \"data:...;base64,\" and base64"),
                  std::string::npos)
            << uri;
}

TEST(GltfRefusals, SayWhereTheTextIsNoJson) {
    EXPECT_EQ(RefusalOf(ReadGltf, "{\n\"asset\": }"), "move:2:10: found '}', expected JSON");
    EXPECT_EQ(RefusalOf(ReadGltf, ""), "move:1:1: found the end of the file, expected JSON");
    EXPECT_EQ(RefusalOf(ReadGltf, "{\"a\": 1e999}").substr(0, 21), "move: found a number ");
    EXPECT_EQ(RefusalOf(ReadGltf, std::string(100000, '[')),
              "move: found JSON nested more than 200 deep, expected a camera file");
}

TEST(GltfRefusals, SayTooManyFrames) {
    GltfFixture file;
    file.Move({0, 1e5F}, {0, 0, 0, 1, 0, 0});
    EXPECT_NE(RefusalOf(ReadGltf, file.Text()).find("found 3000001 frames, expected at most 1000000"),
              std::string::npos);
    GltfFixture late;
    late.Move({0, 1e9F}, {0, 0, 0, 1, 0, 0});
    EXPECT_NE(RefusalOf(ReadGltf, late.Text()).find("expected frames up to 10000000"), std::string::npos);
    GltfFixture far;
    far.Move({0}, {1e11F, 0, 0});
    EXPECT_NE(RefusalOf(ReadGltf, far.Text()).find("found a place beyond every limit"), std::string::npos);
}

TEST(GlbRefusals, SayTheByteThatIsWrong) {
    const GltfFixture file = Good();
    json document = file.json;
    document["buffers"] = {{{"byteLength", file.bytes.size()}}};
    const std::string glb = GltfContainer(document.dump(), file.bytes);
    ASSERT_EQ(RefusalOf(ReadGltf, glb), "accepted");
    ASSERT_EQ(glb.size() % 4, 0u);
    const auto with = [&](std::size_t at, char byte) {
        std::string broken = glb;
        broken[at] = byte;
        return RefusalOf(ReadGltf, broken);
    };
    EXPECT_EQ(with(4, 3), "move:byte 4: found version 3, expected version 2");
    EXPECT_EQ(with(11, 'x').substr(0, 30), "move:byte 8: found a length of");
    EXPECT_EQ(with(15, 'x').substr(0, 30), "move:byte 12: found a chunk of");
    EXPECT_EQ(with(16, 'x'), "move:byte 12: found another chunk, expected the chunk of JSON first");
    EXPECT_EQ(RefusalOf(ReadGltf, glb.substr(0, 7)),
              "move:byte 7: found the end of the file, expected a header of 12 bytes");
    for (std::size_t size = 4; size < glb.size(); size += 3)
        EXPECT_NE(RefusalOf(ReadGltf, glb.substr(0, size)).find(", expected "), std::string::npos) << size;
    // Only the header, of a file that says no more.
    EXPECT_EQ(RefusalOf(ReadGltf, std::string("glTF\2\0\0\0\x0C\0\0\0", 12)),
              "move:byte 12: found the end of the file, expected a chunk of JSON");
}

}  // namespace
}  // namespace tremolux
