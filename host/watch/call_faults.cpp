#include "host/watch/call_faults.h"

namespace host {

namespace {

std::int64_t calls = 0, faulty_call = 0;
std::string failed;

}  // namespace

void ArmCallFault(std::int64_t nth) {
    calls = 0;
    faulty_call = nth;
    failed.clear();
}

std::int64_t CallsThatMayFail() { return calls; }

const std::string &FailedCall() { return failed; }

bool CallFails(const char *entry) {
    if (++calls != faulty_call) return false;
    failed = entry;
    return true;
}

}  // namespace host
