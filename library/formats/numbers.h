// Numbers in files: the same on every platform and in every locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tremolux {

// The whole text as a finite number, "1.5", "+2", "-3e-4"; nothing else, neither blanks nor "nan" nor "inf".
std::optional<double> ParseNumber(std::string_view text);
// The same, and with a comma as its decimal mark where it has no point: "1,5".
std::optional<double> ParseTableNumber(std::string_view text);
// A whole number, also where it is written with a fraction of nothing: "7", "7.000000".
std::optional<std::int64_t> ParseTableWhole(std::string_view text);
// The whole text as a whole number without a fraction or an exponent.
std::optional<std::int64_t> ParseWhole(std::string_view text);
// 15 significant digits, the most that any decimal number keeps through a double. What is closer to 0 than any camera
// can show is 0, so that rounding noise does not look like motion.
std::string FormatNumber(double value);
// To three decimals, as much as a reader wants.
std::string ShortNumber(double value);
// As few digits as bring the same number back, at most 17.
std::string FormatAllDigits(double value);
// `text` without blanks and tabs on both sides.
std::string_view Trimmed(std::string_view text);

}  // namespace tremolux
