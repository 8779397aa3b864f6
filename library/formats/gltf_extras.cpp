#include "library/formats/gltf_extras.h"

#include <cmath>

#include "library/formats/right_handed.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

using Json = nlohmann::ordered_json;
using nlohmann::json;

// Frames below this one are further apart than 32-bit floats at their times.
constexpr std::int64_t kMaxDistinctFrame = std::int64_t{1} << 22;
constexpr const char *kFirstFrame = "first_frame", *kRate = "frames_per_second", *kWidth = "film_back_width_mm",
                     *kHeight = "film_back_height_mm", *kFocalLengthName = "focal_length_mm",
                     *kFocusName = "focus_distance_m", *kPositionName = "position_m",
                     *kAngles = "heading_pitch_bank_rad", *kPath = "camera", *kOrthographic = "orthographic";

// A whole number, or numerator and denominator.
Json RateJson(const FrameRate &rate) {
    if (rate.IsWhole()) return rate.numerator;
    return {rate.numerator, rate.denominator};
}

bool IsNumberIn(const json &value, double minimum, double maximum) {
    return value.is_number() && value.get<double>() >= minimum && value.get<double>() <= maximum;
}

// What stands under a name, so far as it is what it must be; after the first that is not, nothing is.
class Reading {
  public:
    explicit Reading(const json &extras) : extras_(extras), good_(extras.is_object()) {}
    bool IsGood() const { return good_; }
    bool Has(const char *name) const { return good_ && extras_.contains(name); }

    double Number(const char *name, double minimum, double maximum) {
        good_ = Has(name) && IsNumberIn(extras_[name], minimum, maximum);
        return good_ ? extras_[name].get<double>() : 0;
    }
    std::vector<double> Numbers(const char *name, double minimum, double maximum) {
        std::vector<double> numbers;
        good_ = Has(name) && extras_[name].is_array();
        for (std::size_t i = 0; good_ && i < extras_[name].size(); ++i) {
            good_ = IsNumberIn(extras_[name][i], minimum, maximum);
            if (good_) numbers.push_back(extras_[name][i].get<double>());
        }
        return numbers;
    }
    std::vector<double> OneOrMore(const char *name) {
        if (Has(name) && extras_[name].is_array()) return Numbers(name, -kMaxNumber, kMaxNumber);
        return {Number(name, -kMaxNumber, kMaxNumber)};
    }
    FrameRate Rate() {
        std::optional<FrameRate> rate;
        if (Has(kRate) && extras_[kRate].is_number()) {
            rate = FrameRateOf(extras_[kRate].get<double>());
        } else {
            const std::vector<double> terms = Numbers(kRate, 1, 1e9);
            if (terms.size() == 2) rate = MakeFrameRate(std::llround(terms[0]), std::llround(terms[1]));
        }
        good_ = good_ && rate.has_value();
        return rate.value_or(FrameRate());
    }
    std::string Text(const char *name) {
        good_ = Has(name) && extras_[name].is_string();
        return good_ ? extras_[name].get<std::string>() : "";
    }
    bool Truth(const char *name) {
        good_ = Has(name) && extras_[name].is_boolean();
        return good_ && extras_[name].get<bool>();
    }

  private:
    const json &extras_;
    bool good_;
};

}  // namespace

std::int64_t GltfFrameAtTimeZero(const CameraMove &move) {
    return move.first_frame < 0 || move.LastFrame() > kMaxDistinctFrame ? move.first_frame : 0;
}

Json GltfExtrasOf(const CameraMove &move) {
    Json extras = {
        {kFirstFrame, move.first_frame}, {kRate, RateJson(move.rate)}, {kWidth, move.aperture_width}};
    if (move.aperture_height) extras[kHeight] = *move.aperture_height;
    if (!move.traits.path.empty()) extras[kPath] = move.traits.path;
    if (move.traits.is_orthographic) extras[kOrthographic] = true;
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const std::vector<double> &values = move.traits.channels[static_cast<std::size_t>(i)];
        const char *key = InfoOf(static_cast<TraitChannel>(i)).key;
        if (values.size() == 1) extras[key] = values.front();
        if (values.size() > 1) extras[key] = values;
    }
    Json focal_lengths = Json::array(), focus_distances = Json::array(), positions = Json::array(),
         angles = Json::array();
    for (const CameraSample &sample : move.samples) {
        focal_lengths.push_back(sample.focal_length);
        focus_distances.push_back(sample.focus_distance * kMetresPerSceneUnit);
        const host::Vector metres = RightHanded(sample).off * kMetresPerSceneUnit;
        for (const double number : {metres.x, metres.y, metres.z}) positions.push_back(number);
        for (const double number : {sample.angles.x, sample.angles.y, sample.angles.z}) angles.push_back(number);
    }
    extras[kFocalLengthName] = std::move(focal_lengths);
    extras[kFocusName] = std::move(focus_distances);
    extras[kPositionName] = std::move(positions);
    extras[kAngles] = std::move(angles);
    return extras;
}

std::optional<CameraMove> MoveOfGltfExtras(const json &extras) {
    Reading reading(extras);
    CameraMove move;
    constexpr double kMaxFrame = static_cast<double>(kMaxFrameNumber);
    const double first = reading.Number(kFirstFrame, -kMaxFrame, kMaxFrame);
    move.first_frame = std::llround(first);
    move.rate = reading.Rate();
    if (reading.Has(kPath)) move.traits.path = reading.Text(kPath);
    if (reading.Has(kOrthographic)) move.traits.is_orthographic = reading.Truth(kOrthographic);
    const ApertureLimits limits = LimitsOfAperture(move.traits.is_orthographic);
    move.aperture_width = reading.Number(kWidth, limits.least, limits.most);
    if (reading.Has(kHeight)) move.aperture_height = reading.Number(kHeight, limits.least, limits.most);
    const std::vector<double> focal_lengths = reading.Numbers(kFocalLengthName, kMinFocalLength, kMaxFocalLength),
                              focus = reading.Numbers(kFocusName, 0, kMaxNumber * kMetresPerSceneUnit),
                              positions = reading.Numbers(kPositionName, -kMaxNumber, kMaxNumber),
                              angles = reading.Numbers(kAngles, -kMaxNumber, kMaxNumber);
    const std::size_t count = focal_lengths.size();
    if (!reading.IsGood() || count == 0 || count > kMaxFrames || focus.size() != count ||
        positions.size() != 3 * count || angles.size() != 3 * count)
        return std::nullopt;
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const char *key = InfoOf(static_cast<TraitChannel>(i)).key;
        if (!reading.Has(key)) continue;
        std::vector<double> &values = move.traits.channels[static_cast<std::size_t>(i)];
        values = reading.OneOrMore(key);
        if (!reading.IsGood() || (values.size() != 1 && values.size() != count)) return std::nullopt;
    }
    for (std::size_t i = 0; i < count; ++i) {
        CameraSample sample;
        sample.position = host::Vector{positions[3 * i], positions[3 * i + 1], -positions[3 * i + 2]} *
                          (1 / kMetresPerSceneUnit);
        sample.angles = {angles[3 * i], angles[3 * i + 1], angles[3 * i + 2]};
        sample.focal_length = focal_lengths[i];
        sample.focus_distance = focus[i] / kMetresPerSceneUnit;
        move.samples.push_back(sample);
    }
    return move;
}

}  // namespace tremolux
