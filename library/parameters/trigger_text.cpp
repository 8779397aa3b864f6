#include "library/parameters/trigger_text.h"

#include <algorithm>
#include <optional>

#include "generated/module_ids.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::int64_t kLastTriggerFrame = 9999999;
constexpr std::string_view kShownForNone = "Numbers seperated by commas";

bool IsTriggerFrame(std::string_view text) {
    const std::optional<std::int64_t> frame = ParseWhole(Trimmed(text));
    // The module takes a 0 only where nothing stands around it.
    if (frame && *frame == 0) return text == "0";
    return frame && *frame > 0 && *frame <= kLastTriggerFrame;
}

}  // namespace

bool ListsFrames(const Parameter &parameter) {
    return parameter.id == ids::kCustomTrigger || parameter.id == ids::kCustomTriggerTwin;
}

bool IsFrameList(std::string_view text) {
    if (Trimmed(text).empty() || text == kShownForNone) return true;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        if (!IsTriggerFrame(text.substr(start, end - start))) return false;
        start = end + 1;
    }
    return true;
}

}  // namespace tremolux
