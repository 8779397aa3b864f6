// When a camera is shaken and when it is not, and how much.
#pragma once

#include <cstdint>
#include <optional>

namespace tremolux {

struct Fade {
    std::optional<std::int64_t> from, until;  // frames; the first and the last that are shaken. Nothing: from ever, for ever
    std::int64_t fade_in = 0, fade_out = 0;   // frames, after `from` and before `until`
    double mix = 1;                           // the most, 0 to 1
};

// What of the shake a frame has: 0 outside of `from` to `until`, `mix` inside. Within a fade it
// goes by SmootherStep, so that neither speed nor acceleration has a step at its ends.
double ShareAt(const Fade &fade, std::int64_t frame);

}  // namespace tremolux
