#include "library/formats/usda.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/usda_text.h"

namespace tremolux {
namespace {

constexpr double kMetresPerSceneUnit = 0.01;
// What a file means where it says nothing.
constexpr double kFallbackMetresPerUnit = 0.01, kFallbackRate = 24, kFallbackFocalLength = 50,
                 kFallbackApertureWidth = 20.955, kFallbackFocusDistance = 0;
constexpr double kMinUnit = 1e-6, kMaxUnit = 1e6;  // metres
constexpr double kShortestAxis = 1e-9;
constexpr const char *kTransform = "xformOp:transform";

class Reader {
  public:
    Reader(const SourceText &source, const UsdaLayer &layer, const FormatOptions &options)
        : source_(source), layer_(layer), options_(options) {}

    CameraMove Move() {
        const Chain chain = TheCamera();
        const UsdaPrim &camera = *chain.back();
        transforms_ = Transforms(chain);
        unit_ = Metadata("metersPerUnit", kFallbackMetresPerUnit, kMinUnit, kMaxUnit);
        z_up_ = IsZUp();
        CameraMove move;
        move.rate = Rate();
        move.aperture_width = Lens(OnlyValue(camera, "horizontalAperture", kFallbackApertureWidth), camera,
                                   "horizontalAperture", kMinAperture, kMaxAperture);
        ReadFrames(camera, &move);
        MakeContinuous(&move.samples);
        return move;
    }

  private:
    [[noreturn]] void Refuse(const char *place, const std::string &found, const std::string &expected) const {
        source_.RefuseAt(place, found, expected);
    }

    using Chain = std::vector<const UsdaPrim *>;  // from a prim of the layer down to the camera

    static void Collect(const std::vector<UsdaPrim> &prims, Chain *above, std::vector<Chain> *cameras) {
        for (const UsdaPrim &prim : prims) {
            above->push_back(&prim);
            if (prim.type == "Camera") cameras->push_back(*above);
            Collect(prim.children, above, cameras);
            above->pop_back();
        }
    }

    Chain TheCamera() const {
        std::vector<Chain> cameras;
        Chain above;
        Collect(layer_.prims, &above, &cameras);
        if (cameras.empty()) source_.Refuse(1, 1, "no camera", "one Camera");
        if (cameras.size() > 1) Refuse(cameras[1].back()->place, "another camera", "one Camera");
        return cameras[0];
    }

    // Those of a chain that are given, the camera's own first.
    std::vector<const UsdaAttribute *> Transforms(const Chain &chain) const {
        std::vector<const UsdaAttribute *> transforms;
        for (auto prim = chain.rbegin(); prim != chain.rend(); ++prim) {
            const auto order = (*prim)->attributes.find("xformOpOrder");
            if (order == (*prim)->attributes.end() || order->second.value.texts.empty()) continue;
            const auto transform = (*prim)->attributes.find(kTransform);
            if (order->second.value.texts != std::vector<std::string>{kTransform} ||
                transform == (*prim)->attributes.end()) {
                Refuse(order->second.place, "other transforms", "[\"xformOp:transform\"] and that one");
            }
            transforms.push_back(&transform->second);
        }
        if (transforms.empty()) Refuse(chain.back()->place, "no transform", "an xformOp:transform");
        return transforms;
    }

    double Metadata(const char *name, double fallback, double minimum, double maximum) const {
        const auto entry = layer_.metadata.find(name);
        if (entry == layer_.metadata.end()) return fallback;
        return Single(entry->second, name, minimum, maximum);
    }

    double Single(const UsdaValue &value, const char *name, double minimum, double maximum) const {
        if (value.numbers.size() == 1 && value.numbers[0] >= minimum && value.numbers[0] <= maximum)
            return value.numbers[0];
        Refuse(value.place, value.numbers.empty() ? "no number" : FormatNumber(value.numbers[0]),
               "a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum) + " for " + name);
    }

    bool IsZUp() const {
        const auto entry = layer_.metadata.find("upAxis");
        if (entry == layer_.metadata.end() || entry->second.texts == std::vector<std::string>{"Y"}) return false;
        if (entry->second.texts == std::vector<std::string>{"Z"}) return true;
        Refuse(entry->second.place, "another upAxis", "\"Y\" or \"Z\"");
    }

    FrameRate Rate() const {
        if (options_.rate) return *options_.rate;
        const char *name = layer_.metadata.count("timeCodesPerSecond") != 0 ? "timeCodesPerSecond" : "framesPerSecond";
        const double rate = Metadata(name, kFallbackRate, 0, kMaxNumber);
        if (const std::optional<FrameRate> known = FrameRateOf(rate)) return *known;
        Refuse(layer_.metadata.at(name).place, FormatNumber(rate),
               std::string(kExpectedFrameRate) + ", for " + name + "; --fps says another");
    }

    // A value in tenths of the layer's unit, as millimetres.
    double Lens(double tenths, const UsdaPrim &camera, const char *name, double minimum, double maximum) const {
        const double millimetres = tenths * unit_ * 100;
        if (millimetres >= minimum && millimetres <= maximum) return millimetres;
        const auto attribute = camera.attributes.find(name);
        Refuse(attribute == camera.attributes.end() ? camera.place : attribute->second.place,
               FormatNumber(millimetres) + " millimetres",
               "from " + FormatNumber(minimum) + " to " + FormatNumber(maximum) + " for " + name);
    }

    // Of an attribute that does not change.
    double OnlyValue(const UsdaPrim &camera, const char *name, double fallback) const {
        const auto found = camera.attributes.find(name);
        if (found == camera.attributes.end()) return fallback;
        const UsdaAttribute &attribute = found->second;
        if (attribute.samples.empty()) return Single(attribute.value, name, 0, kMaxNumber);
        const double first = Single(attribute.samples.begin()->second, name, 0, kMaxNumber);
        for (const auto &[time, value] : attribute.samples) {
            if (Single(value, name, 0, kMaxNumber) != first)
                Refuse(value.place, "a change", "one " + std::string(name));
        }
        return first;
    }

    // Between two samples every number runs straight on; before the first and after the last they hold.
    std::vector<double> At(const UsdaAttribute &attribute, double time, std::size_t count, const char *name) const {
        const auto numbers = [&](const UsdaValue &value) -> const std::vector<double> & {
            if (value.numbers.size() == count) return value.numbers;
            Refuse(value.place == nullptr ? attribute.place : value.place,
                   std::to_string(value.numbers.size()) + " numbers",
                   std::to_string(count) + (count == 1 ? " number for " : " numbers for ") + name);
        };
        if (attribute.samples.empty()) return numbers(attribute.value);
        const auto after = attribute.samples.lower_bound(time);
        if (after == attribute.samples.end()) return numbers(std::prev(after)->second);
        if (after->first == time || after == attribute.samples.begin()) return numbers(after->second);
        const auto before = std::prev(after);
        const double share = (time - before->first) / (after->first - before->first);
        std::vector<double> mixed = numbers(before->second);
        const std::vector<double> &goal = numbers(after->second);
        for (std::size_t i = 0; i < count; ++i) mixed[i] += (goal[i] - mixed[i]) * share;
        return mixed;
    }

    double NumberAt(const UsdaPrim &camera, double time, const char *name, double fallback) const {
        const auto attribute = camera.attributes.find(name);
        return attribute == camera.attributes.end() ? fallback : At(attribute->second, time, 1, name)[0];
    }

    void ReadFrames(const UsdaPrim &camera, CameraMove *move) const {
        double earliest = 0, latest = 0;
        bool sampled = false;
        for (const UsdaAttribute *transform : transforms_) {
            if (transform->samples.empty()) continue;
            const double begin = transform->samples.begin()->first, end = transform->samples.rbegin()->first;
            earliest = sampled ? std::min(earliest, begin) : begin;
            latest = sampled ? std::max(latest, end) : end;
            sampled = true;
        }
        const double first = std::ceil(Metadata("startTimeCode", earliest, -kMaxNumber, kMaxNumber));
        const double last = std::floor(Metadata("endTimeCode", sampled ? latest : first, -kMaxNumber, kMaxNumber));
        if (first < -kMaxFrameNumber || last > kMaxFrameNumber || last < first ||
            last - first >= static_cast<double>(kMaxFrames)) {
            Refuse(transforms_.front()->place, "frames " + FormatNumber(first) + " to " + FormatNumber(last),
                   "1 to " + std::to_string(kMaxFrames) + " whole time codes between -" +
                       std::to_string(kMaxFrameNumber) + " and " + std::to_string(kMaxFrameNumber));
        }
        move->first_frame = static_cast<std::int64_t>(first);
        for (std::int64_t frame = move->first_frame; frame <= static_cast<std::int64_t>(last); ++frame)
            move->samples.push_back(SampleAt(camera, static_cast<double>(frame)));
    }

    CameraSample SampleAt(const UsdaPrim &camera, double frame) const {
        CameraSample sample;
        SetFromRightHanded(CameraAt(frame), &sample);
        sample.focal_length = Lens(NumberAt(camera, frame, "focalLength", kFallbackFocalLength), camera, "focalLength",
                                   kMinFocalLength, kMaxFocalLength);
        const double focus = NumberAt(camera, frame, "focusDistance", kFallbackFocusDistance);
        sample.focus_distance = std::clamp(focus * unit_ / kMetresPerSceneUnit, 0.0, kMaxNumber);
        return sample;
    }

    // The camera's own transform, then that of what it stands in, and so on.
    host::Matrix CameraAt(double frame) const {
        host::Matrix camera = MatrixAt(*transforms_.front(), frame);
        for (std::size_t i = 1; i < transforms_.size(); ++i) camera = MatrixAt(*transforms_[i], frame) * camera;
        camera.off = camera.off * (unit_ / kMetresPerSceneUnit);
        const double turned = host::Dot(host::Cross(camera.v1, camera.v2), camera.v3);
        const bool placed = std::abs(camera.off.x) <= kMaxNumber && std::abs(camera.off.y) <= kMaxNumber &&
                            std::abs(camera.off.z) <= kMaxNumber;
        if (!placed || !host::IsFinite(camera) || !(turned > kShortestAxis * kShortestAxis * kShortestAxis))
            RefuseMatrix(*transforms_.front(), frame);
        return z_up_ ? YUpOf(camera) : camera;
    }

    // The rows of the text are right, up, back and the position.
    host::Matrix MatrixAt(const UsdaAttribute &transform, double frame) const {
        const std::vector<double> m = At(transform, frame, 16, kTransform);
        const auto row = [&m](std::size_t i) { return host::Vector{m[4 * i], m[4 * i + 1], m[4 * i + 2]}; };
        if (m[3] != 0 || m[7] != 0 || m[11] != 0 || m[15] != 1) RefuseMatrix(transform, frame);
        return {row(3), row(0), row(1), row(2)};
    }

    [[noreturn]] void RefuseMatrix(const UsdaAttribute &transform, double frame) const {
        Refuse(transform.place, "another matrix at frame " + FormatNumber(frame), "a rotation and a position, in rows");
    }

    const SourceText &source_;
    const UsdaLayer &layer_;
    const FormatOptions &options_;
    std::vector<const UsdaAttribute *> transforms_;  // the camera's own first
    double unit_ = kFallbackMetresPerUnit;
    bool z_up_ = false;
};

std::string Samples(const CameraMove &move, const char *attribute,
                    const std::function<std::string(const CameraSample &)> &text) {
    std::string lines = "    " + std::string(attribute) + ".timeSamples = {\n";
    std::int64_t frame = move.first_frame;
    for (const CameraSample &sample : move.samples)
        lines += "        " + std::to_string(frame++) + ": " + text(sample) + ",\n";
    return lines + "    }\n";
}

std::string Row(const host::Vector &vector, const char *last) {
    return "(" + FormatNumber(vector.x) + ", " + FormatNumber(vector.y) + ", " + FormatNumber(vector.z) + ", " + last +
           ")";
}

std::string MatrixText(const CameraSample &sample) {
    const host::Matrix camera = RightHanded(sample);
    return "( " + Row(camera.v1, "0") + ", " + Row(camera.v2, "0") + ", " + Row(camera.v3, "0") + ", " +
           Row(camera.off, "1") + " )";
}

}  // namespace

CameraMove ReadUsda(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    const SourceText source(file, bytes);
    const UsdaLayer layer = ParseUsda(source, bytes);
    return Reader(source, layer, options).Move();
}

std::string WriteUsda(const CameraMove &move, const FormatOptions &options) {
    const std::string rate = FormatNumber(move.rate.PerSecond());
    std::string width = FormatNumber(move.aperture_width);
    std::string height = FormatNumber(move.aperture_width * options.height / options.width);
    return "#usda 1.0\n(\n    defaultPrim = \"Camera\"\n    metersPerUnit = " + FormatNumber(kMetresPerSceneUnit) +
           "\n    upAxis = \"Y\"\n    startTimeCode = " + std::to_string(move.first_frame) +
           "\n    endTimeCode = " + std::to_string(move.LastFrame()) + "\n    timeCodesPerSecond = " + rate +
           "\n    framesPerSecond = " + rate +
           "\n)\n\ndef Camera \"Camera\"\n{\n    token projection = \"perspective\"\n"
           "    float2 clippingRange = (1, 1000000)\n" +
           Samples(move, "float horizontalAperture", [&width](const CameraSample &) { return width; }) +
           Samples(move, "float verticalAperture", [&height](const CameraSample &) { return height; }) +
           Samples(move, "float focalLength", [](const CameraSample &s) { return FormatNumber(s.focal_length); }) +
           Samples(move, "float focusDistance", [](const CameraSample &s) { return FormatNumber(s.focus_distance); }) +
           Samples(move, "matrix4d xformOp:transform", MatrixText) +
           "    uniform token[] xformOpOrder = [\"xformOp:transform\"]\n}\n";
}

}  // namespace tremolux
