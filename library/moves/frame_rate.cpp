#include "library/moves/frame_rate.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

#include "library/formats/numbers.h"

namespace tremolux {
namespace {

// Over 1.001 in television; written with two or three decimals, or as a float.
constexpr std::int64_t kTelevisionRates[] = {24, 30, 48, 60, 120};
constexpr double kRounding = 1e-3;
constexpr std::int64_t kDecimals = 1000000;
constexpr double kDecimalRounding = 1e-6;  // of a rate times kDecimals
// Of fractions that are written with all their digits, 15 at least.
constexpr std::int64_t kMaxDenominator = 100000;
constexpr double kLastDigits = 1e-14;  // relative

// The first convergent of the number's continued fraction that is the number.
std::optional<FrameRate> FractionOf(double number) {
    std::int64_t numerator = 1, denominator = 0, last_numerator = 0, last_denominator = 1;
    double rest = number;
    while (denominator <= kMaxDenominator) {
        const auto whole = static_cast<std::int64_t>(rest);
        std::tie(numerator, last_numerator) = std::make_pair(whole * numerator + last_numerator, numerator);
        std::tie(denominator, last_denominator) = std::make_pair(whole * denominator + last_denominator, denominator);
        if (denominator > kMaxDenominator) break;
        const double ratio = static_cast<double>(numerator) / static_cast<double>(denominator);
        if (std::fabs(ratio - number) <= kLastDigits * number) return MakeFrameRate(numerator, denominator);
        rest = 1 / (rest - static_cast<double>(whole));
        if (!(rest <= kMaxDenominator)) break;
    }
    return std::nullopt;
}

}  // namespace

const char *const kExpectedFrameRate = "a rate from 1 to 2500 frames per second, such as 24, 23.976 or 24000/1001";

std::optional<FrameRate> MakeFrameRate(std::int64_t numerator, std::int64_t denominator) {
    if (numerator < 1 || denominator < 1) return std::nullopt;
    const std::int64_t shared = std::gcd(numerator, denominator);
    numerator /= shared;
    denominator /= shared;
    constexpr std::int64_t kMaxTerm = std::numeric_limits<std::int32_t>::max() / 2;
    if (numerator > kMaxTerm || denominator > kMaxTerm) return std::nullopt;
    if (numerator < denominator || numerator > kMaxFramesPerSecond * denominator) return std::nullopt;
    return FrameRate{static_cast<std::int32_t>(numerator), static_cast<std::int32_t>(denominator)};
}

std::optional<FrameRate> ParseFrameRate(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash != std::string_view::npos) {
        const auto numerator = ParseWhole(text.substr(0, slash)), denominator = ParseWhole(text.substr(slash + 1));
        if (!numerator || !denominator) return std::nullopt;
        return MakeFrameRate(*numerator, *denominator);
    }
    const std::optional<double> rate = ParseNumber(text);
    return rate ? FrameRateOf(*rate) : std::nullopt;
}

std::optional<FrameRate> FrameRateOf(double frames_per_second) {
    if (!(frames_per_second > 0 && frames_per_second <= kMaxFramesPerSecond)) return std::nullopt;
    for (const std::int64_t whole : kTelevisionRates) {
        if (std::fabs(static_cast<double>(whole) / 1.001 - frames_per_second) <= kRounding)
            return MakeFrameRate(whole * 1000, 1001);
    }
    const double decimals = frames_per_second * kDecimals, rounded = std::round(decimals);
    if (std::fabs(decimals - rounded) > kDecimalRounding) {
        if (const std::optional<FrameRate> fraction = FractionOf(frames_per_second)) return fraction;
    }
    return MakeFrameRate(static_cast<std::int64_t>(rounded), kDecimals);
}

std::string FrameRateText(const FrameRate &rate) {
    std::string text = std::to_string(rate.numerator);
    return rate.IsWhole() ? text : text + "/" + std::to_string(rate.denominator);
}

std::string FrameRateDecimal(const FrameRate &rate) { return FormatAllDigits(rate.PerSecond()); }

std::string FrameRateWords(const FrameRate &rate) {
    constexpr double kShown = 1000;  // three decimals
    std::string text = FrameRateText(rate);
    if (!rate.IsWhole()) text += " (" + FormatNumber(std::round(rate.PerSecond() * kShown) / kShown) + ")";
    return text + (rate == FrameRate{1, 1} ? " frame a second" : " frames a second");
}

}  // namespace tremolux
