#include "host/watch/call_faults.h"

namespace host {

namespace {

std::int64_t calls = 0, faulty_call = 0;

}  // namespace

void ArmCallFault(std::int64_t nth) {
    calls = 0;
    faulty_call = nth;
}

std::int64_t CallsThatMayFail() { return calls; }

bool CallFails() { return ++calls == faulty_call; }

}  // namespace host
