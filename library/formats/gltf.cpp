#include "library/formats/gltf.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <nlohmann/json.hpp>

#include "library/formats/base64.h"
#include "library/formats/lens.h"
#include "library/formats/right_handed.h"

namespace tremolux {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kMetresPerSceneUnit = 0.01;
constexpr double kNear = 0.01, kFar = 10000;  // metres
constexpr int kFloat = 5126;
constexpr const char *kPointer = "KHR_animation_pointer";
// Frames below this one are further apart than 32-bit floats at their times.
constexpr std::int64_t kMaxDistinctFrame = std::int64_t{1} << 22;

static_assert(std::numeric_limits<float>::is_iec559);

// One column of numbers a frame, each a 32-bit float with the lowest byte first.
class Buffer {
  public:
    // The accessor's index. `numbers` has `width` of them a frame.
    std::size_t Add(const std::vector<float> &numbers, std::size_t width, const char *type) {
        Json accessor = {{"bufferView", views_.size()},
                         {"componentType", kFloat},
                         {"count", numbers.size() / width},
                         {"type", type}};
        if (width == 1) {
            accessor["min"] = {*std::min_element(numbers.begin(), numbers.end())};
            accessor["max"] = {*std::max_element(numbers.begin(), numbers.end())};
        }
        views_.push_back({{"buffer", 0}, {"byteOffset", bytes_.size()}, {"byteLength", numbers.size() * 4}});
        accessors_.push_back(accessor);
        for (const float number : numbers) {
            std::uint32_t bits;
            std::memcpy(&bits, &number, sizeof bits);
            for (unsigned shift = 0; shift < 32; shift += 8) bytes_ += static_cast<char>(bits >> shift & 255);
        }
        return accessors_.size() - 1;
    }

    void WriteInto(Json *document) const {
        (*document)["accessors"] = accessors_;
        (*document)["bufferViews"] = views_;
        (*document)["buffers"] = {
            {{"byteLength", bytes_.size()}, {"uri", "data:application/octet-stream;base64," + Base64(bytes_)}}};
    }

  private:
    std::string bytes_;
    Json views_ = Json::array(), accessors_ = Json::array();
};

float AsFloat(double value) {
    constexpr double kMax = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kMax, kMax));
}

double VerticalAngle(const CameraMove &move, const CameraSample &sample, const FormatOptions &options) {
    return AngleOfView(move.aperture_width * options.height / options.width, sample.focal_length);
}

struct Columns {
    std::vector<float> times, translations, rotations, angles;  // seconds, metres, x y z w, radians
};

// Times are those of the frames; where they would be below 0 or not distinct, they count from the first frame.
std::int64_t FrameAtTimeZero(const CameraMove &move) {
    return move.first_frame < 0 || move.LastFrame() > kMaxDistinctFrame ? move.first_frame : 0;
}

Columns ColumnsOf(const CameraMove &move, const FormatOptions &options) {
    Columns columns;
    Quaternion turn{1, 0, 0, 0};
    double frame = static_cast<double>(move.first_frame - FrameAtTimeZero(move));
    for (const CameraSample &sample : move.samples) {
        columns.times.push_back(AsFloat(frame++ / move.rate.PerSecond()));
        const host::Vector metres = RightHanded(sample).off * kMetresPerSceneUnit;
        for (const double value : {metres.x, metres.y, metres.z}) columns.translations.push_back(AsFloat(value));
        turn = InHemisphereOf(turn, RightHandedQuaternion(sample.angles));
        for (const double value : {turn.x, turn.y, turn.z, turn.w}) columns.rotations.push_back(AsFloat(value));
        columns.angles.push_back(AsFloat(VerticalAngle(move, sample, options)));
    }
    return columns;
}

// A whole number, or numerator and denominator.
Json RateJson(const FrameRate &rate) {
    if (rate.IsWhole()) return rate.numerator;
    return {rate.numerator, rate.denominator};
}

// What glTF has no words for.
Json Extras(const CameraMove &move) {
    Json focal_lengths = Json::array(), focus_distances = Json::array();
    for (const CameraSample &sample : move.samples) {
        focal_lengths.push_back(sample.focal_length);
        focus_distances.push_back(sample.focus_distance * kMetresPerSceneUnit);
    }
    return {{"first_frame", move.first_frame},
            {"frames_per_second", RateJson(move.rate)},
            {"film_back_width_mm", move.aperture_width},
            {"focal_length_mm", focal_lengths},
            {"focus_distance_m", focus_distances}};
}

}  // namespace

std::string WriteGltf(const CameraMove &move, const FormatOptions &options) {
    const Columns columns = ColumnsOf(move, options);
    const bool zooms = std::any_of(columns.angles.begin(), columns.angles.end(),
                                   [&](float angle) { return angle != columns.angles.front(); });
    Buffer buffer;
    const std::size_t times = buffer.Add(columns.times, 1, "SCALAR");
    Json samplers = Json::array(), channels = Json::array();
    const auto animate = [&](std::size_t output, const Json &target) {
        channels.push_back({{"sampler", samplers.size()}, {"target", target}});
        samplers.push_back({{"input", times}, {"interpolation", "LINEAR"}, {"output", output}});
    };
    animate(buffer.Add(columns.translations, 3, "VEC3"), {{"node", 0}, {"path", "translation"}});
    animate(buffer.Add(columns.rotations, 4, "VEC4"), {{"node", 0}, {"path", "rotation"}});
    if (zooms) {
        animate(buffer.Add(columns.angles, 1, "SCALAR"),
                {{"path", "pointer"}, {"extensions", {{kPointer, {{"pointer", "/cameras/0/perspective/yfov"}}}}}});
    }
    Json document = {{"asset", {{"version", "2.0"}, {"generator", "tremolux"}}}};
    if (zooms) document["extensionsUsed"] = {kPointer};
    document["scene"] = 0;
    document["scenes"] = {{{"nodes", {0}}}};
    const std::vector<float> &t = columns.translations, &r = columns.rotations;
    document["nodes"] = {{{"name", "Camera"},
                          {"camera", 0},
                          {"translation", {t[0], t[1], t[2]}},
                          {"rotation", {r[0], r[1], r[2], r[3]}}}};
    document["cameras"] = {{{"name", "Camera"},
                            {"type", "perspective"},
                            {"perspective",
                             {{"aspectRatio", static_cast<double>(options.width) / options.height},
                              {"yfov", VerticalAngle(move, move.samples.front(), options)},
                              {"znear", kNear},
                              {"zfar", kFar}}},
                            {"extras", Extras(move)}}};
    document["animations"] = {{{"name", "Camera"}, {"channels", channels}, {"samplers", samplers}}};
    buffer.WriteInto(&document);
    return document.dump(1) + "\n";
}

}  // namespace tremolux
