#include <functional>

#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/usd/lens.h"
#include "library/formats/usd/tokens.h"
#include "library/formats/usda.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {


// Letters, digits and underscores: what every reader takes for a prim's name.
std::string Identifier(const std::string &name) {
    std::string identifier;
    for (const char c : name) {
        const bool known = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        identifier += known ? c : '_';
    }
    return identifier[0] >= '0' && identifier[0] <= '9' ? "_" + identifier : identifier;
}

// From the root down; what is deeper than a reader goes is left out from above.
std::vector<std::string> PrimNames(const std::string &path) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        if (end > begin) names.push_back(Identifier(path.substr(begin, end - begin)));
        begin = end + 1;
    }
    if (names.empty()) names.emplace_back("Camera");
    if (names.size() > kMaxUsdDepth) names.erase(names.begin(), names.end() - static_cast<std::ptrdiff_t>(kMaxUsdDepth));
    return names;
}

std::string Row(const host::Vector &vector, const char *last) {
    return "(" + FormatNumber(vector.x) + ", " + FormatNumber(vector.y) + ", " + FormatNumber(vector.z) + ", " + last +
           ")";
}

class Writer {
  public:
    Writer(const CameraMove &move, const FormatOptions &options, bool is_layer)
        : move_(move), options_(options), is_layer_(is_layer), names_(PrimNames(move.traits.path)) {
        if (is_layer_ && move.traits.stage) stage_ = *move.traits.stage;
        indent_ = std::string(4 * names_.size(), ' ');
    }

    std::string Text() const { return InPrims(Attributes()); }

    std::string AddedOp(const std::vector<host::Matrix> &matrices) const {
        const auto sample = [this](std::size_t i) -> const CameraSample & { return move_.samples[i]; };
        const auto matrix = [&](std::size_t i) {
            host::Matrix added = matrices[i];
            added.off = added.off * Units(1);
            return MatrixText(added);
        };
        std::vector<std::string> ops = stage_.camera_ops;
        if (ops.empty()) ops.emplace_back("xformOp:transform");
        std::string order;
        for (const std::string &op : ops) order += "\"" + op + "\", ";
        return InPrims(Samples("float focalLength", [&](std::size_t i) { return Lens(sample(i).focal_length); }) +
                       Samples("float focusDistance",
                               [&](std::size_t i) { return FormatNumber(Units(sample(i).focus_distance)); }) +
                       Samples("matrix4d xformOp:transform:tremolux", matrix) +
                       Plain("uniform token[] xformOpOrder", "[" + order + "\"xformOp:transform:tremolux\"]"));
    }

  private:
    std::string InPrims(const std::string &attributes) const {
        std::string text = Header();
        const std::string keyword = is_layer_ ? "over" : "def";
        for (std::size_t i = 0; i < names_.size(); ++i) {
            const std::string margin(4 * i, ' ');
            const char *type = i + 1 == names_.size() ? " Camera" : is_layer_ ? "" : " Xform";
            text.append(margin).append(keyword).append(type).append(" \"").append(names_[i]).append("\"\n");
            text.append(margin).append("{\n");
        }
        text += attributes;
        for (std::size_t i = names_.size(); i-- > 0;) text += std::string(4 * i, ' ') + "}\n";
        return text;
    }

    std::string Code(std::int64_t frame) const { return FormatNumber(static_cast<double>(frame) * stage_.codes_per_frame); }

    std::string Header() const {
        const std::string rate = FrameRateDecimal(move_.rate);
        return "#usda 1.0\n(\n    defaultPrim = \"" + names_[0] +
               "\"\n    metersPerUnit = " + FormatNumber(stage_.metres_per_unit) + "\n    upAxis = \"" +
               (stage_.is_z_up ? "Z" : "Y") + "\"\n    startTimeCode = " + Code(move_.first_frame) +
               "\n    endTimeCode = " + Code(move_.LastFrame()) +
               "\n    timeCodesPerSecond = " +
               (stage_.codes_per_frame == 1 ? rate : FormatNumber(move_.rate.PerSecond() * stage_.codes_per_frame)) +
               "\n    framesPerSecond = " + rate + "\n)\n\n";
    }

    std::string Plain(const char *attribute, const std::string &value) const {
        return indent_ + attribute + " = " + value + "\n";
    }

    // `text` of the frame, counted from 0.
    std::string Samples(const char *attribute, const std::function<std::string(std::size_t)> &text) const {
        std::string lines = indent_ + attribute + ".timeSamples = {\n";
        for (std::size_t i = 0; i < move_.samples.size(); ++i)
            lines += indent_ + "    " + Code(move_.first_frame + static_cast<std::int64_t>(i)) + ": " + text(i) + ",\n";
        return lines + indent_ + "}\n";
    }

    std::string Lens(double millimetres) const { return FormatNumber(millimetres / stage_.lens_unit_mm); }
    double Units(double scene_units) const { return scene_units * kMetresPerSceneUnit / stage_.metres_per_unit; }

    std::string Channel(TraitChannel channel, const char *attribute, double factor) const {
        const CameraTraits &traits = move_.traits;
        if (!traits.Has(channel)) return "";
        const auto text = [&](std::size_t i) { return FormatNumber(traits.At(channel, i, 0) * factor); };
        return traits.IsAnimated(channel) ? Samples(attribute, text) : Plain(attribute, text(0));
    }

    std::string Clipping() const {
        const CameraTraits &traits = move_.traits;
        const auto text = [&](std::size_t i) {
            return "(" + FormatNumber(Units(traits.At(kNearClip, i, kFallbackNearClip))) + ", " +
                   FormatNumber(Units(traits.At(kFarClip, i, kFallbackFarClip))) + ")";
        };
        if (traits.IsAnimated(kNearClip) || traits.IsAnimated(kFarClip)) return Samples("float2 clippingRange", text);
        if (!traits.Has(kNearClip) && !traits.Has(kFarClip)) return "";
        return Plain("float2 clippingRange", text(0));
    }

    std::string Matrix(std::size_t i) const {
        host::Matrix camera = RightHanded(move_.samples[i]);
        camera.off = camera.off * Units(1);
        if (stage_.is_z_up) camera = ZUpOf(camera);
        return MatrixText(camera);
    }

    static std::string MatrixText(const host::Matrix &matrix) {
        return "( " + Row(matrix.v1, "0") + ", " + Row(matrix.v2, "0") + ", " + Row(matrix.v3, "0") + ", " +
               Row(matrix.off, "1") + " )";
    }

    // What stands below a layer may turn its camera in any way, and may stand in anything: neither counts.
    std::string Order() const {
        return is_layer_ ? "[\"!resetXformStack!\", \"xformOp:transform\"]" : "[\"xformOp:transform\"]";
    }

    std::string Attributes() const {
        std::string width = Lens(move_.aperture_width);
        std::string height = Lens(move_.aperture_height.value_or(move_.aperture_width * options_.height / options_.width));
        const auto sample = [this](std::size_t i) -> const CameraSample & { return move_.samples[i]; };
        std::string text =
            Plain("token projection", move_.traits.is_orthographic ? "\"orthographic\"" : "\"perspective\"") +
            Clipping() + Samples("float horizontalAperture", [&width](std::size_t) { return width; });
        if (!is_layer_ || move_.aperture_height)
            text += Samples("float verticalAperture", [&height](std::size_t) { return height; });
        return text + Channel(kHorizontalOffset, "float horizontalApertureOffset", 1 / stage_.lens_unit_mm) +
               Channel(kVerticalOffset, "float verticalApertureOffset", 1 / stage_.lens_unit_mm) +
               Channel(kFStop, "float fStop", 1) +
               Channel(kShutterOpen, "double shutter:open", stage_.codes_per_frame) +
               Channel(kShutterClose, "double shutter:close", stage_.codes_per_frame) +
               Samples("float focalLength", [&](std::size_t i) { return Lens(sample(i).focal_length); }) +
               Samples("float focusDistance",
                       [&](std::size_t i) { return FormatNumber(Units(sample(i).focus_distance)); }) +
               Samples("matrix4d xformOp:transform", [this](std::size_t i) { return Matrix(i); }) +
               Plain("uniform token[] xformOpOrder", Order());
    }

    const CameraMove &move_;
    const FormatOptions &options_;
    const bool is_layer_;
    const std::vector<std::string> names_;
    StageTraits stage_;  // centimetres, Y up, unless a layer is to lie over another
    std::string indent_;
};

}  // namespace

std::string WriteUsda(const CameraMove &move, const FormatOptions &options) {
    return Writer(move, options, options.usd_layer).Text();
}

std::string WriteUsdaAddedOp(const CameraMove &move, const std::vector<host::Matrix> &matrices, const FormatOptions &options) {
    return Writer(move, options, true).AddedOp(matrices);
}

}  // namespace tremolux
