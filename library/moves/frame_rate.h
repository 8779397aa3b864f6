// Frames per second as they are: a fraction.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tremolux {

constexpr int kMaxFramesPerSecond = 2500;

// In lowest terms, 1 to 2500 frames per second.
struct FrameRate {
    std::int32_t numerator = 30, denominator = 1;

    double PerSecond() const { return static_cast<double>(numerator) / denominator; }
    // What the host's document counts at: 24 for 23.976.
    int Whole() const { return (numerator + denominator / 2) / denominator; }
    bool IsWhole() const { return denominator == 1; }
};
inline bool operator==(const FrameRate &a, const FrameRate &b) {
    return a.numerator == b.numerator && a.denominator == b.denominator;
}
inline bool operator!=(const FrameRate &a, const FrameRate &b) { return !(a == b); }

// Nothing where it is below 1 or above 2500, or a term is beyond what a rate can have.
std::optional<FrameRate> MakeFrameRate(std::int64_t numerator, std::int64_t denominator);
// Of a decimal: 23.976, 29.97, 47.952, 59.94 and 119.88, within 1e-3, are those over 1001; any other is what it says, to six
// decimals, or the fraction of small terms that it is with all its digits.
std::optional<FrameRate> FrameRateOf(double frames_per_second);
// "24", "24000/1001", or a decimal as above.
std::optional<FrameRate> ParseFrameRate(std::string_view text);
// "24", "24000/1001".
std::string FrameRateText(const FrameRate &rate);
// The decimal with the fewest digits that is this ratio as a number of 64 bits: "24", "23.976023976023978". FrameRateOf takes
// it back to the same ratio, unless that is next to a known one or has larger terms than those it looks for.
std::string FrameRateDecimal(const FrameRate &rate);
// "24 frames a second", "24000/1001 (23.976) frames a second".
std::string FrameRateWords(const FrameRate &rate);
// What a refusal says that it expected.
extern const char *const kExpectedFrameRate;

}  // namespace tremolux
