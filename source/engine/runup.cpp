#include "engine/runup.h"

namespace {

// A jump counts at most so many frames; what is remembered of ten million stays below five megabytes.
constexpr LONG kSpacing = 128;

Bool SameRates(const ClockRates &a, const ClockRates &b) {
    return a.speed == b.speed && a.variation == b.variation && a.focus_rate == b.focus_rate &&
           a.zoom_rate == b.zoom_rate && a.seed == b.seed;
}

}  // namespace

void RunUpMemory::Expect(const ClockRates &rates, LONG first) {
    if (first_ == first && SameRates(rates_, rates)) return;
    rates_ = rates;
    first_ = first;
    kept_.clear();
}

Clocks RunUpMemory::Before(LONG end, LONG *frame) const {
    *frame = first_;
    if (kept_.empty() || end <= first_) return Clocks();
    const LONG index = LMin((end - first_) / kSpacing, (LONG)kept_.size() - 1);
    *frame = first_ + index * kSpacing;
    return kept_[(size_t)index];
}

void RunUpMemory::Remember(LONG frame, const Clocks &clocks) {
    if ((frame - first_) % kSpacing == 0 && (frame - first_) / kSpacing == (LONG)kept_.size()) kept_.push_back(clocks);
}
