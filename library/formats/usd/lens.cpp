#include "library/formats/usd/lens.h"

#include <algorithm>
#include <cmath>

#include "library/formats/numbers.h"
#include "library/formats/usd/samples.h"

namespace tremolux {
namespace {

// What a camera means where it says nothing; the first four in tenths of a unit.
constexpr double kFallbackFocalLength = 50, kFallbackWidth = 20.955, kFallbackHeight = 15.2908, kFallbackOffset = 0;
constexpr double kFallbackFocusDistance = 0;
// Millimetres that there are: from telephones to view cameras.
constexpr double kPlausibleWidths[] = {4, 300}, kPlausibleFocalLengths[] = {2, 3000};
constexpr double kPlausibleShapes[] = {0.1, 10};  // height by width
constexpr double kSameShape = 1e-6;

struct PassedOver {
    const char *attribute;
    double number;     // that says nothing
    const char *text;  // likewise
};
constexpr PassedOver kPassedOver[] = {
    {"exposure", 0, nullptr},          {"exposure:time", 1, nullptr},         {"exposure:iso", 100, nullptr},
    {"exposure:fStop", 1, nullptr},    {"exposure:responsivity", 1, nullptr}, {"stereoRole", 0, "mono"},
    {"clippingPlanes", 0, nullptr},
};

bool IsWithin(double value, const double (&range)[2]) { return value >= range[0] && value <= range[1]; }

class LensReader {
  public:
    LensReader(const SourceText &source, const UsdPrim &camera, const UsdStage &stage, CameraMove *move)
        : source_(source), camera_(camera), stage_(stage), move_(*move) {}

    void Read() {
        ReadProjection();
        widths_ = EachFrame("horizontalAperture", kFallbackWidth);
        focal_lengths_ = EachFrame("focalLength", kFallbackFocalLength);
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            if (!(widths_[i] > 0)) Refuse("horizontalAperture", FormatNumber(widths_[i]), "a number above 0");
        }
        DecideLensUnit();
        if (move_.traits.stage) move_.traits.stage->lens_unit_mm = lens_unit_;
        SetFilmBack();
        SetFrames();
        SetTraits();
        NotePassedOver();
    }

  private:
    [[noreturn]] void Refuse(const char *name, const std::string &found, const std::string &expected) const {
        const auto attribute = camera_.attributes.find(name);
        source_.RefuseAt(attribute == camera_.attributes.end() ? camera_.place : attribute->second.place, found,
                         expected + " for " + name);
    }

    bool Says(const char *name) const {
        const auto attribute = camera_.attributes.find(name);
        return attribute != camera_.attributes.end() && attribute->second.SaysSomething();
    }

    // Entry `place` of `count` numbers on each frame of the move; NaN is refused.
    std::vector<double> EachFrame(const char *name, double fallback, std::size_t count = 1,
                                  std::size_t place = 0) const {
        std::vector<double> values(move_.samples.size(), fallback);
        if (!Says(name)) return values;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double frame = static_cast<double>(move_.first_frame + static_cast<std::int64_t>(i));
            const auto numbers = NumbersAt(source_, camera_, name, stage_.CodeOf(frame), count);
            if (numbers) values[i] = (*numbers)[place];
            if (std::isnan(values[i])) Refuse(name, "nan", "a number");
            values[i] = std::clamp(values[i], -kMaxNumber, kMaxNumber);
        }
        return values;
    }

    void ReadProjection() {
        const double first = stage_.CodeOf(static_cast<double>(move_.first_frame));
        move_.traits.is_orthographic = TextAt(camera_, "projection", first) == "orthographic";
        if (Says("projection") && camera_.attributes.at("projection").samples.size() > 1)
            move_.notes.emplace_back("the projection has samples: that of the first frame is kept");
    }

    bool IsPlausible(double millimetres_per_unit) const {
        const auto all = [millimetres_per_unit](const std::vector<double> &values, const double(&range)[2]) {
            return std::all_of(values.begin(), values.end(),
                               [&](double value) { return IsWithin(value * millimetres_per_unit, range); });
        };
        return all(widths_, kPlausibleWidths) && all(focal_lengths_, kPlausibleFocalLengths);
    }

    // Tenths of a unit, unless only millimetres, as many exporters write them, make a lens that there is. An
    // orthographic view may have any width.
    void DecideLensUnit() {
        const double tenths = stage_.metres_per_unit * 100;
        lens_unit_ = tenths;
        if (move_.traits.is_orthographic || tenths == 1 || IsPlausible(tenths) || !IsPlausible(1)) return;
        lens_unit_ = 1;
        move_.notes.push_back("the lens is taken to be in millimetres: in tenths of a unit of " +
                              FormatNumber(stage_.metres_per_unit) + " m the focal length would be " +
                              FormatNumber(focal_lengths_[0] * tenths) + " mm, the film back " +
                              FormatNumber(widths_[0] * tenths) + " mm wide");
    }

    double Millimetres(const char *name, double units, double minimum, double maximum) const {
        const double millimetres = units * lens_unit_;
        if (millimetres >= minimum && millimetres <= maximum) return millimetres;
        Refuse(name, FormatNumber(millimetres) + " millimetres",
               "from " + FormatNumber(minimum) + " to " + FormatNumber(maximum));
    }

    void SetFilmBack() {
        const ApertureLimits limits = LimitsOfAperture(move_.traits.is_orthographic);
        move_.aperture_width = Millimetres("horizontalAperture", widths_[0], limits.least, limits.most);
        const std::vector<double> heights = EachFrame("verticalAperture", kFallbackHeight);
        const double shape = heights[0] / widths_[0], height = heights[0] * lens_unit_;
        if (!IsWithin(shape, kPlausibleShapes) || height < limits.least || height > limits.most) {
            if (Says("verticalAperture")) {
                move_.notes.push_back("a verticalAperture of " + FormatNumber(heights[0]) + " for a width of " +
                                      FormatNumber(widths_[0]) + " is passed over");
            }
            return;
        }
        move_.aperture_height = height;
        for (std::size_t i = 0; i < heights.size(); ++i) {
            if (std::abs(heights[i] / widths_[i] - shape) <= kSameShape * shape) continue;
            move_.notes.emplace_back("the shape of the film back changes: that of the first frame is kept");
            return;
        }
    }

    // The film back of a move does not change: where the file's does, the focal length keeps the angle of view.
    void SetFrames() {
        const std::vector<double> focus = EachFrame("focusDistance", kFallbackFocusDistance);
        bool changes = false;
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            const double millimetres = focal_lengths_[i] * widths_[0] / widths_[i];
            move_.samples[i].focal_length =
                move_.traits.is_orthographic ? std::clamp(millimetres * lens_unit_, kMinFocalLength, kMaxFocalLength)
                                             : Millimetres("focalLength", millimetres, kMinFocalLength, kMaxFocalLength);
            move_.samples[i].focus_distance = std::clamp(stage_.UnitsToScene(focus[i]), 0.0, kMaxNumber);
            changes = changes || widths_[i] != widths_[0];
        }
        if (!changes) return;
        move_.notes.emplace_back(move_.traits.is_orthographic
                                     ? "the width of the view changes: that of the first frame is kept"
                                     : "the width of the film back changes: that of the first frame is kept, and the "
                                       "focal length makes the same angles of view");
    }

    // What is the same on all frames is one number; what is `neutral` on all of them is not said.
    void SetChannel(TraitChannel channel, std::vector<double> values, std::optional<double> neutral) {
        const double first = values.front();
        if (std::all_of(values.begin(), values.end(), [first](double value) { return value == first; })) {
            values.resize(1);
            if (neutral && first == *neutral) return;
        }
        for (double &value : values) value = std::clamp(value, -kMaxNumber, kMaxNumber);
        move_.traits.channels[channel] = std::move(values);
    }

    void SetOffset(TraitChannel channel, const char *name) {
        if (!Says(name)) return;
        std::vector<double> offsets = EachFrame(name, kFallbackOffset);
        for (std::size_t i = 0; i < offsets.size(); ++i) offsets[i] *= lens_unit_ * widths_[0] / widths_[i];
        SetChannel(channel, std::move(offsets), 0);
    }

    void SetClipping(TraitChannel channel, double fallback, std::size_t place) {
        if (!Says("clippingRange")) return;
        std::vector<double> distances = EachFrame("clippingRange", fallback, 2, place);
        for (double &distance : distances) distance = stage_.UnitsToScene(distance);
        SetChannel(channel, std::move(distances), std::nullopt);
    }

    void SetShutter(TraitChannel channel, const char *name) {
        if (!Says(name)) return;
        std::vector<double> times = EachFrame(name, 0);
        for (double &time : times) time /= stage_.codes_per_frame;
        SetChannel(channel, std::move(times), std::nullopt);
    }

    void SetTraits() {
        SetOffset(kHorizontalOffset, "horizontalApertureOffset");
        SetOffset(kVerticalOffset, "verticalApertureOffset");
        if (Says("fStop")) SetChannel(kFStop, EachFrame("fStop", 0), 0);
        SetClipping(kNearClip, kFallbackNearClip, 0);
        SetClipping(kFarClip, kFallbackFarClip, 1);
        SetShutter(kShutterOpen, "shutter:open");
        SetShutter(kShutterClose, "shutter:close");
        auto &open = move_.traits.channels[kShutterOpen], &close = move_.traits.channels[kShutterClose];
        const std::vector<double> none = {0};
        if ((open.empty() || open == none) && (close.empty() || close == none)) {
            open.clear();
            close.clear();
        }
    }

    void NotePassedOver() {
        std::string names;
        for (const PassedOver &known : kPassedOver) {
            if (!Says(known.attribute)) continue;
            const UsdAttribute &attribute = camera_.attributes.at(known.attribute);
            const UsdValue &value = attribute.samples.empty() ? attribute.value[0] : attribute.samples[0].value;
            const bool neutral_text = value.texts.empty() || (known.text != nullptr && value.texts[0] == known.text);
            const bool neutral_numbers =
                value.numbers.empty() || (value.numbers.size() == 1 && value.numbers[0] == known.number);
            if (attribute.samples.size() > 1 || !neutral_text || !neutral_numbers)
                names += (names.empty() ? "" : ", ") + std::string(known.attribute);
        }
        if (!names.empty()) move_.notes.push_back(names + ": a camera move has no place for it, it is passed over");
    }

    const SourceText &source_;
    const UsdPrim &camera_;
    const UsdStage &stage_;
    CameraMove &move_;
    std::vector<double> widths_, focal_lengths_;  // as they are written
    double lens_unit_ = 1;                        // millimetres
};

}  // namespace

void ReadLens(const SourceText &source, const UsdPrim &camera, const UsdStage &stage, CameraMove *move) {
    LensReader(source, camera, stage, move).Read();
}

}  // namespace tremolux
