// The clocks at a frame that was jumped to: counted from the start of playback, without any motion.
#pragma once

#include <vector>

#include "engine/clocks.h"

namespace engine {

// What the clocks were on earlier run-ups, so that a jump to a late frame need not count from the start again.
class RunUpMemory {
  public:
    // Forgets everything unless it was counted with these settings from this first frame on.
    void Expect(const ClockSettings &settings, std::int32_t first);
    // The clocks before the last remembered frame that is not after `end`, and that frame; the start of the run-up when
    // there is none.
    Clocks Before(std::int32_t end, std::int32_t *frame) const;
    // The clocks before a frame of a run-up that goes on from Before without a gap.
    void Remember(std::int32_t frame, const Clocks &clocks);

  private:
    ClockSettings settings_;
    std::int32_t first_ = 0;
    std::vector<Clocks> kept_;  // at the first frame and at every so many frames after it
};

// What drives the clocks, frame by frame.
class ClockSettingsOverTime {
  public:
    virtual ~ClockSettingsOverTime() = default;
    virtual bool AreAnimated() const = 0;
    virtual const ClockSettings &At(std::int32_t frame) = 0;
};

// The clocks as playback from `start` has them before it comes to `end`. Playback restarts on every frame below 0, so
// it counts from the last of them; frames so far back that nobody animates them are left out.
Clocks RunUp(std::int32_t start, std::int32_t end, void *warp_curve, ClockSettingsOverTime *settings,
             Operations *operations, RunUpMemory *memory);

}  // namespace engine
