#include "library/presets/left_out.h"

#include <string_view>

#include "generated/module_ids.h"

namespace tremolux {

std::vector<std::string> LeftOutPresets(const std::vector<std::string> &console_lines) {
    constexpr std::string_view kStart = ids::kLeftOutWords;
    std::vector<std::string> left_out;
    for (const std::string &line : console_lines)
        if (line.compare(0, kStart.size(), kStart) == 0) left_out.push_back(line.substr(kStart.size()));
    return left_out;
}

}  // namespace tremolux
