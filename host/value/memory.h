// The host's heap: every object that crosses the border to a module lives here.
#pragma once

#include <cstdint>

namespace host {

// Cleared memory; nullptr when bytes < 0 or when the system has none.
void *Allocate(std::int64_t bytes);
void *AllocateUncleared(std::int64_t bytes);
void Release(void *memory);

// Lets the next `successes` allocations of custom data (splines, priorities) pass and refuses the `refusals` after
// them, so that a test can see what a module does when the host has no memory. (0, 0) lifts it.
void RefuseCustomData(int successes, int refusals);
// Counts one request; true: it is to be refused.
bool CustomDataRefused();

}  // namespace host
