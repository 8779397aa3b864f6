// Texts of options as values. Each throws a Failure that names the option, what was found, and what was expected.
#pragma once

#include <cstdint>
#include <string>

namespace tremolux {

[[noreturn]] void RefuseOption(const char *option, const std::string &found, const std::string &expected);
std::int64_t WholeOption(const char *option, const std::string &text, std::int64_t minimum, std::int64_t maximum);
double NumberOption(const char *option, const std::string &text, double minimum, double maximum);
// From 0 to 1, as a fraction or in per cent: 0.6, 60%.
double ShareOption(const char *option, const std::string &text);

}  // namespace tremolux
