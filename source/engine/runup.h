// What the clocks were on earlier run-ups, so that a jump to a late frame need not count from the start again.
#pragma once

#include <vector>

#include "engine/clocks.h"

class RunUpMemory {
  public:
    // Forgets everything unless it was counted with these rates from this first frame on.
    void Expect(const ClockRates &rates, LONG first);
    // The clocks before the last remembered frame that is not after `end`, and that frame; the start of the run-up when
    // there is none.
    Clocks Before(LONG end, LONG *frame) const;
    // The clocks before a frame of a run-up that goes on from Before without a gap.
    void Remember(LONG frame, const Clocks &clocks);

  private:
    ClockRates rates_ = ClockRates();
    LONG first_ = 0;
    std::vector<Clocks> kept_;  // at the first frame and at every so many frames after it
};
