#include "host/ui/field_text.h"

#include <fast_float/fast_float.h>
#include <fmt/format.h>

#include <cmath>

#include "host/value/radians.h"

namespace host {
namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char &c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

// What a text begins with; `rest` gets what follows.
std::optional<double> LeadingNumber(std::string_view text, std::string_view *rest) {
    const bool plus = !text.empty() && text.front() == '+';
    if (plus) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = fast_float::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number) || (plus && number < 0)) return std::nullopt;
    *rest = text.substr(static_cast<std::size_t>(end - text.data()));
    return number;
}

std::optional<double> SecondsAndFrames(std::string_view text, int frames_per_second) {
    std::string_view rest, nothing;
    const auto seconds = LeadingNumber(text, &rest);
    if (!seconds || rest.empty() || rest.front() != ':') return std::nullopt;
    const auto frames = LeadingNumber(rest.substr(1), &nothing);
    if (!frames || !nothing.empty() || *seconds < 0 || *frames < 0 || *frames >= frames_per_second) return std::nullopt;
    if (*seconds != std::floor(*seconds) || *frames != std::floor(*frames)) return std::nullopt;
    return *seconds * frames_per_second + *frames;
}

}  // namespace

std::string FieldText(double stored, std::int32_t unit) {
    const double shown = unit == kUnitPercent  ? stored * 100
                         : unit == kUnitDegree ? stored / kRadiansPerDegree
                                               : stored;
    std::string text = fmt::format("{:.4f}", shown);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    if (text == "-0") text = "0";
    return text + (unit == kUnitPercent ? " %" : unit == kUnitDegree ? "\xC2\xB0" : unit == kUnitFrames ? " F" : "");
}

std::optional<double> ParseField(std::string_view text, std::int32_t unit, int frames_per_second) {
    text = Trimmed(text);
    if (unit == kUnitFrames && text.find(':') != std::string_view::npos)
        return SecondsAndFrames(text, frames_per_second);
    std::string_view rest;
    const std::optional<double> number = LeadingNumber(text, &rest);
    if (!number) return std::nullopt;
    const std::string suffix = LowerCase(Trimmed(rest));
    switch (unit) {
        case kUnitPercent:
            if (suffix.empty() || suffix == "%") return *number / 100;
            return std::nullopt;
        case kUnitDegree:
            if (suffix.empty() || suffix == "\xC2\xB0" || suffix == "deg") return *number * kRadiansPerDegree;
            return std::nullopt;
        case kUnitFrames:
            if (suffix.empty() || suffix == "f" || suffix == "frame" || suffix == "frames") return *number;
            if (suffix == "s" || suffix == "sec" || suffix == "seconds") return *number * frames_per_second;
            return std::nullopt;
        default:
            return suffix.empty() ? number : std::nullopt;
    }
}

}  // namespace host
