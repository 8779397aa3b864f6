// For tests: the nth call of the module's that may fail does fail. Calls of all threads count together.
#pragma once

#include <cstdint>
#include <string>

namespace host {

// Counting starts anew; the first call is number 1, and 0 only counts. A failed call has not happened: it answers 0,
// FALSE or NULL, as it does when there is no memory.
void ArmCallFault(std::int64_t nth);
// Since it was armed.
std::int64_t CallsThatMayFail();
// The entry that was made to fail since then, "group.member"; empty: none yet.
std::string FailedCall();
// Asked by every such call.
bool CallFails(const char *part, const char *name);

}  // namespace host
