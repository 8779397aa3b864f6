#include "library/formats/numbers.h"

#include <fast_float/fast_float.h>
#include <fmt/format.h>

#include <charconv>
#include <cmath>

namespace tremolux {
namespace {

constexpr double kZero = 1e-12;
constexpr double kLargestWhole = 9007199254740992;  // 2^53: above it a double has no fraction to be looked at
constexpr std::size_t kLongestNumber = 1000;        // with a decimal comma: those are copied

// Those who read numbers know no plus sign.
std::string_view WithoutPlus(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

// The whole text as what `parse` makes of it.
template <typename Number, typename Parse>
std::optional<Number> ParseAll(std::string_view text, Parse parse) {
    text = WithoutPlus(text);
    Number value{};
    const char *end = text.data() + text.size();
    const auto [stop, error] = parse(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const std::optional<double> value = ParseAll<double>(text, [](const char *begin, const char *end, double &number) {
        return fast_float::from_chars(begin, end, number);
    });
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<double> ParseTableNumber(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos || text.size() > kLongestNumber || text.find('.') != std::string_view::npos)
        return ParseNumber(text);
    std::string number(text);
    number[comma] = '.';
    return ParseNumber(number);
}

std::optional<std::int64_t> ParseTableWhole(std::string_view text) {
    if (const std::optional<std::int64_t> whole = ParseWhole(text)) return whole;
    const std::optional<double> number = ParseTableNumber(text);
    if (text.find_first_of("eE") != std::string_view::npos) return std::nullopt;
    if (!number || std::abs(*number) > kLargestWhole || *number != std::floor(*number)) return std::nullopt;
    return static_cast<std::int64_t>(*number);
}

std::optional<std::int64_t> ParseWhole(std::string_view text) {
    return ParseAll<std::int64_t>(text, [](const char *begin, const char *end, std::int64_t &number) {
        return std::from_chars(begin, end, number);
    });
}

std::string FormatNumber(double value) {
    if (std::abs(value) < kZero) return "0";
    return fmt::format("{:.15g}", value);
}

std::string ShortNumber(double value) { return FormatNumber(std::round(value * 1000) / 1000); }

std::string FormatAllDigits(double value) { return fmt::format("{}", value); }

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace tremolux
