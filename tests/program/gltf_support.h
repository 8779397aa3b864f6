// Small glTF files for tests: a JSON document whose numbers lie in one buffer.
#pragma once

#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "library/formats/base64.h"

// One camera of a right angle, square, at node 0; what else it has is put into `json`.
struct GltfFixture {
    nlohmann::json json = {{"asset", {{"version", "2.0"}}},
                           {"nodes", {{{"name", "Shot"}, {"camera", 0}}}},
                           {"cameras",
                            {{{"type", "perspective"},
                              {"perspective", {{"yfov", 1.5707963267948966}, {"aspectRatio", 1}, {"znear", 0.25}}}}}},
                           {"accessors", nlohmann::json::array()},
                           {"bufferViews", nlohmann::json::array()},
                           {"animations", nlohmann::json::array()}};
    std::string bytes;

    // A buffer view of these bytes; its index.
    std::size_t View(const std::string &data) {
        json["bufferViews"].push_back({{"buffer", 0}, {"byteOffset", bytes.size()}, {"byteLength", data.size()}});
        bytes += data;
        return json["bufferViews"].size() - 1;
    }
    // An accessor of floats; its index. As the tests' machine has its bytes in the file's order.
    std::size_t Floats(const std::vector<float> &numbers, const char *type, std::size_t width) {
        std::string data(numbers.size() * 4, '\0');
        std::memcpy(&data[0], numbers.data(), data.size());
        return Accessor(
            {{"bufferView", View(data)}, {"componentType", 5126}, {"count", numbers.size() / width}, {"type", type}});
    }
    std::size_t Accessor(const nlohmann::json &accessor) {
        json["accessors"].push_back(accessor);
        return json["accessors"].size() - 1;
    }
    // An animation of one channel.
    void Animate(const nlohmann::json &target, std::size_t input, std::size_t output,
                 const char *interpolation = "LINEAR") {
        json["animations"].push_back(
            {{"channels", {{{"sampler", 0}, {"target", target}}}},
             {"samplers", {{{"input", input}, {"output", output}, {"interpolation", interpolation}}}}});
    }
    void Move(const std::vector<float> &times, const std::vector<float> &metres, const char *interpolation = "LINEAR") {
        const std::size_t input = Floats(times, "SCALAR", 1);
        Animate({{"node", 0}, {"path", "translation"}}, input, Floats(metres, "VEC3", 3), interpolation);
    }
    void Turn(const std::vector<float> &times, const std::vector<float> &quaternions,
              const char *interpolation = "LINEAR") {
        const std::size_t input = Floats(times, "SCALAR", 1);
        Animate({{"node", 0}, {"path", "rotation"}}, input, Floats(quaternions, "VEC4", 4), interpolation);
    }
    std::string Text() const {
        nlohmann::json file = json;
        file["buffers"] = {
            {{"byteLength", bytes.size()}, {"uri", "data:application/octet-stream;base64," + tremolux::Base64(bytes)}}};
        return file.dump();
    }
};
