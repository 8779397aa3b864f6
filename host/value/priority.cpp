#include <algorithm>

#include "host/value/custom.h"

namespace host {

namespace {

constexpr std::int32_t kLastMode = 4;        // 0 initial, 1 animation, 2 expression, 3 dynamics, 4 generators
constexpr std::int32_t kMostPriority = 499;  // stages lie 1000 apart and must not overlap

}  // namespace

bool Priority::Equals(const HostCustomData &other) const {
    if (other.Type() != Type()) return false;
    const auto &priority = static_cast<const Priority &>(other);
    return std::equal(values_, values_ + 3, priority.values_);
}

bool Priority::Set(std::int32_t value_id, const TableData &value) {
    if (value.type != kDataWhole && value.type != kDataReal && value.type != kDataWhole64) return false;
    const std::int32_t number = WholeOf(value);
    switch (value_id) {
        case kMode:
            if (number < 0 || number > kLastMode) return false;
            values_[kMode] = number;
            return true;
        case kPriority:
            values_[kPriority] = std::clamp(number, -kMostPriority, kMostPriority);
            return true;
        case kCameraDependent:
            values_[kCameraDependent] = number != 0 ? 1 : 0;
            return true;
        default:
            return false;
    }
}

std::int32_t Priority::Get(std::int32_t value_id) const {
    return value_id >= kMode && value_id <= kCameraDependent ? values_[value_id] : 0;
}

}  // namespace host
