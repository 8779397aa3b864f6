#include "tremolux/commands/option_values.h"

#include <optional>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {

void RefuseOption(const char *option, const std::string &found, const std::string &expected) {
    throw Failure(kExitInput, std::string(option) + ": found " + Quoted(found) + ", expected " + expected);
}

std::int64_t WholeOption(const char *option, const std::string &text, std::int64_t minimum, std::int64_t maximum) {
    const std::optional<std::int64_t> value = ParseWhole(text);
    if (value && *value >= minimum && *value <= maximum) return *value;
    RefuseOption(option, text, "a whole number from " + std::to_string(minimum) + " to " + std::to_string(maximum));
}

double NumberOption(const char *option, const std::string &text, double minimum, double maximum) {
    const std::optional<double> value = ParseNumber(text);
    if (value && *value >= minimum && *value <= maximum) return *value;
    RefuseOption(option, text, "a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum));
}

double ShareOption(const char *option, const std::string &text) {
    const bool is_percent = !text.empty() && text.back() == '%';
    const std::optional<double> value =
        ParseNumber(is_percent ? std::string_view(text).substr(0, text.size() - 1) : text);
    const double share = value ? *value / (is_percent ? 100 : 1) : -1;
    if (share >= 0 && share <= 1) return share;
    RefuseOption(option, text, "a share from 0 to 1, or from 0% to 100%");
}

}  // namespace tremolux
