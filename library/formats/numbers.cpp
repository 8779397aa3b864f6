#include "library/formats/numbers.h"

#include <charconv>
#include <cmath>

namespace tremolux {
namespace {

constexpr double kNothing = 1e-12;
constexpr int kSignificantDigits = 15;

// from_chars knows no plus sign.
std::string_view WithoutPlus(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

template <typename Number>
std::optional<Number> ParseAll(std::string_view text) {
    text = WithoutPlus(text);
    Number value{};
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const std::optional<double> value = ParseAll<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::int64_t> ParseWhole(std::string_view text) { return ParseAll<std::int64_t>(text); }

std::string FormatNumber(double value) {
    if (std::abs(value) < kNothing) return "0";
    char digits[64];
    const auto result =
        std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::general, kSignificantDigits);
    return std::string(digits, result.ptr);
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace tremolux
