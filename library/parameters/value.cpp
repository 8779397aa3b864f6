#include "library/parameters/value.h"

#include <cmath>

#include "host/ui/field_text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"
#include "library/parameters/nearest.h"
#include "library/parameters/trigger_text.h"

namespace tremolux {
namespace {

constexpr double kMaxTimeFrames = 2147483647;  // frames are counted in 32 bits

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

std::vector<std::string> ChoiceLabels(const Parameter &choice) {
    std::vector<std::string> labels;
    for (const auto &[value, label] : choice.choices) labels.push_back(label);
    return labels;
}

std::string Expected(const Parameter &parameter, std::string_view found) {
    switch (parameter.kind) {
        case ParameterKind::kBool:
            return "on or off";
        case ParameterKind::kTime:
            return "a time (12f, 0.5s, 1:04)" + LimitText(parameter);
        case ParameterKind::kChoice:
            return "one of its choices" + DidYouMean(found, ChoiceLabels(parameter));
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

std::int32_t FieldUnit(ParameterUnit unit) {
    switch (unit) {
        case ParameterUnit::kPercent:
            return host::kUnitPercent;
        case ParameterUnit::kDegrees:
            return host::kUnitDegree;
        case ParameterUnit::kFrames:
            return host::kUnitFrames;
        case ParameterUnit::kNone:
            break;
    }
    return 0;
}

std::optional<double> Bounded(std::optional<double> number) {
    return number && std::abs(*number) <= kMaxNumber ? number : std::nullopt;
}

// In the stored unit. On a command line a plain number is that: 1.5 is 150 %; angles are always degrees.
std::optional<double> RealOf(const Parameter &parameter, std::string_view text, int frames_per_second) {
    if (parameter.unit == ParameterUnit::kPercent)
        if (const auto fraction = ParseNumber(text)) return Bounded(fraction);
    return Bounded(host::ParseField(text, FieldUnit(parameter.unit), frames_per_second));
}

// In frames.
std::optional<double> TimeOf(std::string_view text, int frames_per_second) {
    return Bounded(host::ParseField(text, host::kUnitFrames, frames_per_second));
}

std::optional<bool> SwitchOf(std::string_view text) {
    const std::string word = Folded(text);
    if (word == "on" || word == "true" || word == "1") return true;
    if (word == "off" || word == "false" || word == "0") return false;
    return std::nullopt;
}

std::optional<std::int32_t> ChoiceOf(const Parameter &parameter, std::string_view text) {
    const std::optional<std::int64_t> number = ParseWhole(text);
    for (const auto &[value, label] : parameter.choices) {
        if (number ? value == *number : Folded(label) == Folded(text)) return value;
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
            if (!ListsFrames(parameter) || IsFrameList(text)) return host::Data(text);
            Refuse(parameter, Quoted(text), kExpectedFrameList);
        case ParameterKind::kLink:
            Refuse(parameter, "a link", "a parameter that holds a value");
        case ParameterKind::kButton:
            Refuse(parameter, "a button", "a parameter that holds a value");
        case ParameterKind::kOther:
            Refuse(parameter, "no value", "a parameter that holds a value");
    }
    Refuse(parameter, Quoted(text), Expected(parameter, text));
}

std::string SliderNote(const Parameter &parameter, const host::Data &value) {
    if (!parameter.slider_minimum || !parameter.slider_maximum) return "";
    const bool is_time = parameter.kind == ParameterKind::kTime;
    if (!is_time && parameter.kind != ParameterKind::kReal) return "";
    const double stored = is_time ? host::Seconds(value.GetTime()) : value.Real();
    if (stored >= *parameter.slider_minimum && stored <= *parameter.slider_maximum) return "";
    return "'" + parameter.label + "' is " + WithUnit(parameter, stored) + ", beyond its slider, which goes from " +
           WithUnit(parameter, *parameter.slider_minimum) + " to " + WithUnit(parameter, *parameter.slider_maximum);
}

}  // namespace tremolux
