#include "tremolux/words/fit_text.h"

#include <fmt/format.h>

#include "library/formats/numbers.h"
#include "tremolux/words/json_text.h"

namespace tremolux {
namespace {

const char *UnitOf(std::size_t axis) { return IsPosition(axis) ? "cm" : "deg"; }

constexpr std::size_t kBesideWidth = 17;

// The level, and what it is of the recorded one.
std::string Beside(double found, double wanted) { return fmt::format("{:>9.4g} {:>6.2f}x", found, found / wanted); }

nlohmann::ordered_json LevelsJson(const ShakeLevels &levels, const ShakeLevels &wanted) {
    nlohmann::ordered_json json;
    for (std::size_t axis = 0; axis < kAxes; ++axis)
        if (!wanted[axis].IsStill()) json[kAxisNames[axis]] = levels[axis].bands;
    return json;
}

}  // namespace

std::string FitText(const FitReport &report) {
    std::string text = fmt::format("{}: {} frames at {} a second\n\n{:<8} {:<11} {:>9} {:>4}  {:<17}  {:<17}  {}\n",
                                   report.recording, report.recorded.Frames() * report.recorded.parts.size(),
                                   ShortNumber(report.recorded.rate.PerSecond()), "RMS", "", "recorded", "", "before",
                                   "after", "own seed");
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (std::size_t band = 0; band < kFitBands.size(); ++band) {
            const AxisLevels &wanted = report.wanted[axis];
            if (!IsJudged(wanted, band)) continue;
            text += fmt::format("{:<8} {:<11} {:>9.4g} {:<4}  {}  {}  {}\n", band == 0 ? kAxisNames[axis] : "",
                                kFitBands[band].name, wanted.bands[band], UnitOf(axis),
                                report.before ? Beside(report.before->levels[axis].bands[band], wanted.bands[band])
                                              : std::string(kBesideWidth, ' '),
                                Beside(report.after[axis].bands[band], wanted.bands[band]),
                                Beside(report.after_seed[axis].bands[band], wanted.bands[band]));
        }
    }
    text += "\nD ";
    if (report.before)
        text += fmt::format("{:.3f} before ({}/{}), ", report.before->distance, report.before->preset.category,
                            report.before->preset.name);
    text += fmt::format("{:.3f} after, {:.3f} with the preset's own seed. D is the mean of |ln(found / recorded)|.\n",
                        DistanceOf(report.after, report.wanted), DistanceOf(report.after_seed, report.wanted));
    if (report.halves.size() == 2)
        text += fmt::format(
            "Fitted to one half and judged by the other: D {:.3f} and {:.3f}. So well it holds for what it has not "
            "seen.\n",
            report.halves[0], report.halves[1]);
    return text;
}

std::string FitJson(const FitReport &report) {
    nlohmann::ordered_json json;
    json["recording"] = report.recording;
    json["preset"] = report.preset;
    json["frames"] = report.recorded.Frames() * report.recorded.parts.size();
    json["frames_per_second"] = report.recorded.rate.PerSecond();
    for (const FitBand &band : kFitBands) json["bands"].push_back(band.name);
    json["recorded"] = LevelsJson(report.wanted, report.wanted);
    if (report.before)
        json["before"] = {{"preset", report.before->preset.category + "/" + report.before->preset.name},
                          {"distance", report.before->distance},
                          {"rms", LevelsJson(report.before->levels, report.wanted)}};
    json["after"] = {{"distance", DistanceOf(report.after, report.wanted)},
                     {"distance_of_own_seed", DistanceOf(report.after_seed, report.wanted)},
                     {"rms", LevelsJson(report.after, report.wanted)}};
    json["half_by_half"] = report.halves;
    json["settings"] = report.settings;
    if (!report.second_settings.empty()) json["second_settings"] = report.second_settings;
    return JsonText(json);
}

std::string NearestText(const std::vector<NearPreset> &near) {
    std::string text;
    for (const NearPreset &one : near)
        text += fmt::format("{:.3f}  {}/{}\n", one.distance, one.preset.category, one.preset.name);
    return text;
}

std::string NearestJson(const std::string &recording, const std::vector<NearPreset> &near) {
    nlohmann::ordered_json json;
    json["recording"] = recording;
    json["nearest"] = nlohmann::ordered_json::array();
    for (const NearPreset &one : near)
        json["nearest"].push_back(
            {{"category", one.preset.category}, {"name", one.preset.name}, {"distance", one.distance}});
    return JsonText(json);
}

}  // namespace tremolux
