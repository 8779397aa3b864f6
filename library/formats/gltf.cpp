#include "library/formats/gltf.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <nlohmann/json.hpp>

#include "library/formats/base64.h"
#include "library/formats/gltf_container.h"
#include "library/formats/gltf_extras.h"
#include "library/formats/gltf_names.h"
#include "library/formats/lens.h"
#include "library/formats/right_handed.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kMetresPerMillimetre = 0.001;
constexpr double kNear = 0.01, kFar = 10000;  // metres
static_assert(std::numeric_limits<float>::is_iec559);

// One column of numbers a frame, each a 32-bit float with the lowest byte first.
class Buffer {
  public:
    // The accessor's index. `numbers` has `width` of them a frame.
    std::size_t Add(const std::vector<float> &numbers, std::size_t width, const char *type) {
        Json accessor = {{"bufferView", views_.size()},
                         {"componentType", kGltfFloat},
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

    // All but where the bytes are.
    void WriteInto(Json *document) const {
        (*document)["accessors"] = accessors_;
        (*document)["bufferViews"] = views_;
        (*document)["buffers"] = {{{"byteLength", bytes_.size()}}};
    }
    const std::string &Bytes() const { return bytes_; }

  private:
    std::string bytes_;
    Json views_ = Json::array(), accessors_ = Json::array();
};

float AsFloat(double value) {
    constexpr double kMax = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kMax, kMax));
}

double FilmBackHeight(const CameraMove &move, const FormatOptions &options) {
    return move.aperture_height.value_or(move.aperture_width * options.height / options.width);
}

double VerticalAngle(const CameraMove &move, const CameraSample &sample, const FormatOptions &options) {
    return AngleOfView(FilmBackHeight(move, options), sample.focal_length);
}

struct Columns {
    std::vector<float> times, translations, rotations, angles;  // seconds, metres, x y z w, radians
};

Columns ColumnsOf(const CameraMove &move, const FormatOptions &options) {
    Columns columns;
    Quaternion turn{1, 0, 0, 0};
    double frame = static_cast<double>(move.first_frame - GltfFrameAtTimeZero(move));
    for (const CameraSample &sample : move.samples) {
        columns.times.push_back(AsFloat(frame++ * move.rate.denominator / move.rate.numerator));
        const host::Vector metres = RightHanded(sample).off * kMetresPerSceneUnit;
        for (const double value : {metres.x, metres.y, metres.z}) columns.translations.push_back(AsFloat(value));
        turn = InHemisphereOf(turn, RightHandedQuaternion(sample.angles));
        for (const double value : {turn.x, turn.y, turn.z, turn.w}) columns.rotations.push_back(AsFloat(value));
        columns.angles.push_back(AsFloat(VerticalAngle(move, sample, options)));
    }
    return columns;
}

// The lens of the first frame. An orthographic camera sees as much as its film back is large.
Json CameraJson(const CameraMove &move, const FormatOptions &options) {
    const double near = move.traits.At(kNearClip, 0, 0) * kMetresPerSceneUnit,
                 far = move.traits.At(kFarClip, 0, 0) * kMetresPerSceneUnit;
    const double znear = near > 0 ? near : kNear;
    const double zfar = far > znear ? far : std::max(kFar, 2 * znear);
    const double height = FilmBackHeight(move, options);
    Json camera = {{"name", move.traits.Name()}};
    if (move.traits.is_orthographic) {
        camera["type"] = "orthographic";
        camera["orthographic"] = {{"xmag", move.aperture_width * kMetresPerMillimetre / 2},
                                  {"ymag", height * kMetresPerMillimetre / 2}};
    } else {
        camera["type"] = "perspective";
        camera["perspective"] = {{"aspectRatio", move.aperture_width / height},
                                 {"yfov", VerticalAngle(move, move.samples.front(), options)}};
    }
    Json &projection = camera[move.traits.is_orthographic ? "orthographic" : "perspective"];
    projection["znear"] = znear;
    projection["zfar"] = zfar;
    camera["extras"] = GltfExtrasOf(move);
    return camera;
}

struct GltfFile {
    Json document;
    std::string bytes;  // of its only buffer
};

GltfFile FileOf(const CameraMove &move, const FormatOptions &options) {
    const Columns columns = ColumnsOf(move, options);
    const bool zooms = !move.traits.is_orthographic && std::any_of(columns.angles.begin(), columns.angles.end(),
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
                {{"path", "pointer"}, {"extensions", {{kAnimationPointer, {{"pointer", "/cameras/0/perspective/yfov"}}}}}});
    }
    Json document = {{"asset", {{"version", "2.0"}, {"generator", "tremolux"}}}};
    if (zooms) document["extensionsUsed"] = {kAnimationPointer};
    document["scene"] = 0;
    document["scenes"] = {{{"nodes", {0}}}};
    const std::vector<float> &t = columns.translations, &r = columns.rotations;
    document["nodes"] = {{{"name", move.traits.Name()},
                          {"camera", 0},
                          {"translation", {t[0], t[1], t[2]}},
                          {"rotation", {r[0], r[1], r[2], r[3]}}}};
    document["cameras"] = Json::array({CameraJson(move, options)});
    document["animations"] = {{{"name", "Camera"}, {"channels", channels}, {"samplers", samplers}}};
    buffer.WriteInto(&document);
    return {std::move(document), buffer.Bytes()};
}

// Names may hold any bytes; those that are no text are replaced.
std::string Text(const Json &document, int indent) {
    return document.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::string WriteGltf(const CameraMove &move, const FormatOptions &options) {
    GltfFile file = FileOf(move, options);
    file.document["buffers"][0]["uri"] = "data:application/octet-stream;base64," + Base64(file.bytes);
    return Text(file.document, 1) + "\n";
}

std::string WriteGlb(const CameraMove &move, const FormatOptions &options) {
    const GltfFile file = FileOf(move, options);
    return GltfContainer(Text(file.document, -1), file.bytes);
}

}  // namespace tremolux
