#include "tremolux/words/inspect_text.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "tremolux/words/json_text.h"
#include "tremolux/words/recorded_text.h"

namespace tremolux {
namespace {

using Json = nlohmann::ordered_json;

struct Range {
    double lowest, highest;
};

Range RangeOf(const std::vector<double> &numbers) {
    const auto [lowest, highest] = std::minmax_element(numbers.begin(), numbers.end());
    return {*lowest, *highest};
}

// A number of every sample, with its name and unit: one row for text and JSON alike.
struct Measure {
    const char *title, *name, *key, *unit;
    double (*of)(const CameraSample &sample, const CameraMove &move);
};
constexpr Measure kMeasures[] = {
    {"position", "x", "x_cm", "cm", [](const CameraSample &s, const CameraMove &) { return s.position.x; }},
    {"", "y", "y_cm", "cm", [](const CameraSample &s, const CameraMove &) { return s.position.y; }},
    {"", "z", "z_cm", "cm", [](const CameraSample &s, const CameraMove &) { return s.position.z; }},
    {"rotation", "heading", "heading_deg", "degrees",
     [](const CameraSample &s, const CameraMove &) { return s.angles.x / kRadiansPerDegree; }},
    {"", "pitch", "pitch_deg", "degrees",
     [](const CameraSample &s, const CameraMove &) { return s.angles.y / kRadiansPerDegree; }},
    {"", "bank", "bank_deg", "degrees",
     [](const CameraSample &s, const CameraMove &) { return s.angles.z / kRadiansPerDegree; }},
    {"lens", "focal length", "focal_length_mm", "mm",
     [](const CameraSample &s, const CameraMove &) { return s.focal_length; }},
    {"", "horizontal angle of view", "horizontal_angle_of_view_deg", "degrees",
     [](const CameraSample &s, const CameraMove &move) {
         return AngleOfView(move.aperture_width, s.focal_length) / kRadiansPerDegree;
     }},
    {"", "focus distance", "focus_distance_cm", "cm",
     [](const CameraSample &s, const CameraMove &) { return s.focus_distance; }},
};

Range RangeOf(const Measure &measure, const CameraMove &move) {
    std::vector<double> numbers;
    numbers.reserve(move.samples.size());
    for (const CameraSample &sample : move.samples) numbers.push_back(measure.of(sample, move));
    return RangeOf(numbers);
}

double Seconds(const CameraMove &move) { return static_cast<double>(move.samples.size()) / move.rate.PerSecond(); }

std::string Short(const Range &range) {
    const std::string lowest = ShortNumber(range.lowest), highest = ShortNumber(range.highest);
    return lowest == highest ? lowest : lowest + " to " + highest;
}

std::string FactLine(const std::string &title, const std::string &text) {
    constexpr std::size_t kTitle = 14;
    std::string line = title;
    line.resize(std::max(kTitle, line.size() + 1), ' ');
    return line + text + "\n";
}

std::string FilmBack(const CameraMove &move) {
    const std::string width = FormatNumber(move.aperture_width);
    if (!move.aperture_height) return width + " mm wide";
    return width + " x " + FormatNumber(*move.aperture_height) + " mm";
}

std::vector<TraitChannel> TraitsOf(const CameraMove &move) {
    std::vector<TraitChannel> traits;
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const auto channel = static_cast<TraitChannel>(i);
        if (move.traits.Has(channel)) traits.push_back(channel);
    }
    return traits;
}

}  // namespace

std::string InspectText(const InspectedFile &file) {
    const CameraMove &move = file.move;
    std::string text = FactLine("file", file.name) + FactLine("format", file.kind);
    text += FactLine("camera", (move.traits.path.empty() ? "without a name" : move.traits.path) +
                                   (move.traits.is_orthographic ? ", orthographic" : ""));
    text += FactLine("frames", std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame()) + ", " +
                                   std::to_string(move.samples.size()) + " in " + ShortNumber(Seconds(move)) + " s");
    text += FactLine("rate", FrameRateWords(move.rate));
    text += FactLine("read as", "left-handed, x right, y up, looking along +z");
    for (const Measure &measure : kMeasures)
        text += FactLine(measure.title,
                         std::string(measure.name) + " " + Short(RangeOf(measure, move)) + " " + measure.unit);
    text += FactLine("film back", FilmBack(move));
    std::string title = "carried";
    for (const TraitChannel channel : TraitsOf(move)) {
        text += FactLine(title, InfoOf(channel).words + (" " + Short(RangeOf(move.traits.channels[channel]))));
        title.clear();
    }
    if (move.recorded) {
        for (const auto &fact : RecordedFacts(*move.recorded)) text += FactLine(fact.first, fact.second);
    }
    for (const std::string &note : move.notes) text += FactLine("note", note);
    for (const MoveFormat &format : MoveFormats()) {
        if (format.write == nullptr) continue;
        const std::string lost = LostIn(format, move);
        text += FactLine("lost in " + std::string(format.extension), lost.empty() ? "nothing" : lost);
    }
    return text;
}

std::string InspectJson(const InspectedFile &file) {
    const CameraMove &move = file.move;
    const auto range = [](const Range &r) { return Json::array({r.lowest, r.highest}); };
    Json ranges = Json::object(), carried = Json::object(), lost = Json::object();
    for (const Measure &measure : kMeasures) ranges[measure.key] = range(RangeOf(measure, move));
    for (const TraitChannel channel : TraitsOf(move))
        carried[InfoOf(channel).key] = range(RangeOf(move.traits.channels[channel]));
    for (const MoveFormat &format : MoveFormats())
        if (format.write != nullptr) lost[format.extension] = LostIn(format, move);
    const Json facts = {
        {"file", file.name},
        {"format", file.kind},
        {"camera", move.traits.path.empty() ? Json() : Json(move.traits.path)},
        {"projection", move.traits.is_orthographic ? "orthographic" : "perspective"},
        {"first_frame", move.first_frame},
        {"last_frame", move.LastFrame()},
        {"frames", move.samples.size()},
        {"frames_per_second", Json::array({move.rate.numerator, move.rate.denominator})},
        {"seconds", Seconds(move)},
        {"axes", "left-handed, x right, y up, looking along +z"},
        {"ranges", ranges},
        {"film_back_width_mm", move.aperture_width},
        {"film_back_height_mm", move.aperture_height ? Json(*move.aperture_height) : Json()},
        {"carried", carried},
        {"recorded", move.recorded ? RecordedJson(*move.recorded) : Json()},
        {"notes", move.notes},
        {"lost", lost},
    };
    return JsonText(facts);
}

}  // namespace tremolux
