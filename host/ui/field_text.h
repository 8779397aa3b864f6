// Numbers as a panel's fields show them and as users type them into one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

// Codes of a description's units; values are stored as fractions, radians and frames.
constexpr std::int32_t kUnitPercent = 0x66706374, kUnitDegree = 0x66646772, kUnitFrames = 0x6666726D;

// "150 %", "12.5°", "40 F"; other units: the number alone. At most four decimals.
std::string FieldText(double stored, std::int32_t unit);

// The stored value of "150 %", "12.5°" or "12.5 deg", "40 F", "0.5 s" or "1:04" (seconds and frames); a plain number is
// in the field's unit. Empty for anything else, and for what is not finite.
std::optional<double> ParseField(std::string_view text, std::int32_t unit, int frames_per_second);

}  // namespace host
