#include "tremolux/parameters/value.h"

#include <cmath>

#include "tremolux/failure.h"
#include "tremolux/formats/camera_move.h"
#include "tremolux/formats/numbers.h"
#include "tremolux/formats/source_text.h"

namespace tremolux {
namespace {

constexpr double kMaxTimeFrames = 2147483647;  // frames are counted in 32 bits

struct Measure {
    double number;
    std::string_view unit;  // without blanks; empty for a plain number
};

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char &c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::string WithUnit(const Parameter &parameter, double stored) {
    switch (parameter.unit) {
        case ParameterUnit::kPercent:
            return FormatNumber(stored * 100) + "%";
        case ParameterUnit::kDegrees:
            return FormatNumber(stored / kRadiansPerDegree) + "deg";
        case ParameterUnit::kFrames:
            return FormatNumber(stored) + "f";
        case ParameterUnit::kNone:
            break;
    }
    return FormatNumber(stored) + (parameter.kind == ParameterKind::kTime ? "s" : "");
}

std::string LimitText(const Parameter &parameter) {
    if (parameter.minimum && parameter.maximum) {
        return " from " + WithUnit(parameter, *parameter.minimum) + " to " + WithUnit(parameter, *parameter.maximum);
    }
    if (parameter.minimum) return " of at least " + WithUnit(parameter, *parameter.minimum);
    if (parameter.maximum) return " of at most " + WithUnit(parameter, *parameter.maximum);
    return "";
}

std::string Expected(const Parameter &parameter) {
    switch (parameter.kind) {
        case ParameterKind::kBool:
            return "on or off";
        case ParameterKind::kTime:
            return "a time (12f, 0.5s, 1:04)" + LimitText(parameter);
        case ParameterKind::kChoice:
            return "one of its choices";
        case ParameterKind::kReal:
            break;
        default:
            return "a value";
    }
    switch (parameter.unit) {
        case ParameterUnit::kPercent:
            return "a percentage (150% or 1.5)" + LimitText(parameter);
        case ParameterUnit::kDegrees:
            return "an angle (12deg or 12)" + LimitText(parameter);
        case ParameterUnit::kFrames:
            return "frames (12f or 12) or seconds (0.5s)" + LimitText(parameter);
        case ParameterUnit::kNone:
            break;
    }
    return "a number" + LimitText(parameter);
}

[[noreturn]] void Refuse(const Parameter &parameter, const std::string &found, const std::string &expected) {
    throw Failure(kExitInput, "--set '" + parameter.label + "' (" + std::to_string(parameter.id) + "): found " + found +
                                  ", expected " + expected);
}

std::optional<Measure> Split(std::string_view text) {
    // No unit contains what a number can end with.
    const std::size_t end = text.find_last_of("0123456789.");
    if (end == std::string_view::npos) return std::nullopt;
    const std::optional<double> number = ParseNumber(text.substr(0, end + 1));
    if (!number || std::abs(*number) > kMaxNumber) return std::nullopt;
    return Measure{*number, Trimmed(text.substr(end + 1))};
}

bool IsFrames(const std::string &unit) { return unit.empty() || unit == "f" || unit == "frame" || unit == "frames"; }
bool IsSeconds(const std::string &unit) { return unit == "s" || unit == "sec" || unit == "seconds"; }

std::optional<double> Frames(const Measure &measure, int frames_per_second) {
    const std::string unit = LowerCase(measure.unit);
    if (IsFrames(unit)) return measure.number;
    if (IsSeconds(unit)) return measure.number * frames_per_second;
    return std::nullopt;
}

// In the stored unit.
std::optional<double> RealOf(const Parameter &parameter, std::string_view text, int frames_per_second) {
    const std::optional<Measure> measure = Split(text);
    if (!measure) return std::nullopt;
    const std::string unit = LowerCase(measure->unit);
    switch (parameter.unit) {
        case ParameterUnit::kPercent:
            if (unit == "%") return measure->number / 100;
            break;
        case ParameterUnit::kDegrees:
            if (unit.empty() || unit == "deg" || unit == "\xC2\xB0") return measure->number * kRadiansPerDegree;
            return std::nullopt;
        case ParameterUnit::kFrames:
            return Frames(*measure, frames_per_second);
        case ParameterUnit::kNone:
            break;
    }
    return unit.empty() ? std::optional<double>(measure->number) : std::nullopt;
}

// In frames.
std::optional<double> TimeOf(std::string_view text, int frames_per_second) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        const std::optional<Measure> measure = Split(text);
        return measure ? Frames(*measure, frames_per_second) : std::nullopt;
    }
    const std::optional<std::int64_t> seconds = ParseWhole(text.substr(0, colon));
    const std::optional<std::int64_t> frames = ParseWhole(text.substr(colon + 1));
    if (!seconds || !frames || *seconds < 0 || *frames < 0 || *frames >= frames_per_second) return std::nullopt;
    return static_cast<double>(*seconds) * frames_per_second + static_cast<double>(*frames);
}

std::optional<bool> SwitchOf(std::string_view text) {
    const std::string word = LowerCase(text);
    if (word == "on" || word == "true" || word == "1") return true;
    if (word == "off" || word == "false" || word == "0") return false;
    return std::nullopt;
}

std::optional<std::int32_t> ChoiceOf(const Parameter &parameter, std::string_view text) {
    const std::optional<std::int64_t> number = ParseWhole(text);
    for (const auto &[value, label] : parameter.choices) {
        if (number ? value == *number : LowerCase(label) == LowerCase(text)) return value;
    }
    return std::nullopt;
}

bool InLimits(const Parameter &parameter, double stored) {
    return !(parameter.minimum && stored < *parameter.minimum) && !(parameter.maximum && stored > *parameter.maximum);
}

}  // namespace

host::Data ParseValue(const Parameter &parameter, std::string_view text, int frames_per_second) {
    const std::string_view value = Trimmed(text);
    switch (parameter.kind) {
        case ParameterKind::kReal:
            if (const auto real = RealOf(parameter, value, frames_per_second); real && InLimits(parameter, *real)) {
                return host::Data(*real);
            }
            break;
        case ParameterKind::kTime:
            // Times are whole frames, as on the time line.
            if (const auto frames = TimeOf(value, frames_per_second);
                frames && std::abs(*frames) <= kMaxTimeFrames && InLimits(parameter, *frames / frames_per_second)) {
                return host::Data(host::MakeTime(std::round(*frames), frames_per_second));
            }
            break;
        case ParameterKind::kBool:
            if (const auto on = SwitchOf(value)) return host::Data(std::int32_t{*on ? 1 : 0});
            break;
        case ParameterKind::kChoice:
            if (const auto choice = ChoiceOf(parameter, value)) return host::Data(*choice);
            break;
        case ParameterKind::kText:
            return host::Data(text);
        case ParameterKind::kLink:
            Refuse(parameter, "a link", "a parameter that holds a value");
        case ParameterKind::kButton:
            Refuse(parameter, "a button", "a parameter that holds a value");
        case ParameterKind::kOther:
            Refuse(parameter, "no value", "a parameter that holds a value");
    }
    Refuse(parameter, Quoted(text), Expected(parameter));
}

}  // namespace tremolux
