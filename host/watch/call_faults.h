// For tests: the nth call of the module's that may fail does fail.
#pragma once

#include <cstdint>

namespace host {

// Counting starts anew; the first call is number 1, and 0 only counts. A failed call has not happened: it answers 0,
// FALSE or NULL, as it does when there is no memory.
void ArmCallFault(std::int64_t nth);
// Since it was armed.
std::int64_t CallsThatMayFail();
// Asked by every such call.
bool CallFails();

}  // namespace host
