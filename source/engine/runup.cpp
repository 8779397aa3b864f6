#include "engine/runup.h"

#include <algorithm>

#include "engine/operations.h"

namespace engine {

namespace {

// A document that claims to be longer must not hold up its user.
constexpr std::int32_t kMostFrames = 10000000;
// What is remembered of that many stays below five megabytes.
constexpr std::int32_t kSpacing = 128;

}  // namespace

void RunUpMemory::Expect(const ClockSettings &settings, std::int32_t first) {
    if (first_ == first && settings_ == settings) return;
    settings_ = settings;
    first_ = first;
    kept_.clear();
}

Clocks RunUpMemory::Before(std::int32_t end, std::int32_t *frame) const {
    *frame = first_;
    if (kept_.empty() || end <= first_) return Clocks();
    const std::int32_t index = std::min((end - first_) / kSpacing, static_cast<std::int32_t>(kept_.size()) - 1);
    *frame = first_ + index * kSpacing;
    return kept_[static_cast<std::size_t>(index)];
}

void RunUpMemory::Remember(std::int32_t frame, const Clocks &clocks) {
    const std::int32_t past = frame - first_;
    if (past % kSpacing == 0 && past / kSpacing == static_cast<std::int32_t>(kept_.size())) kept_.push_back(clocks);
}

Clocks RunUp(std::int32_t start, std::int32_t end, void *warp_curve, ClockSettingsOverTime *settings,
             Operations *operations, RunUpMemory *memory) {
    start = std::max(start, -1);
    const std::int32_t first = static_cast<std::int64_t>(end) - start > kMostFrames ? end - kMostFrames : start;
    const bool is_steady = !settings->AreAnimated();
    Clocks clocks;
    std::int32_t frame = first;
    if (is_steady) {
        memory->Expect(settings->At(first), first);
        clocks = memory->Before(end, &frame);
    }
    for (; frame < end; frame++) {
        if (is_steady) memory->Remember(frame, clocks);
        AdvanceClocks(settings->At(frame), frame, warp_curve, operations, &clocks);
    }
    return clocks;
}

}  // namespace engine
