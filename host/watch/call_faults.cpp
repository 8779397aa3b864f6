#include "host/watch/call_faults.h"

#include <atomic>
#include <mutex>

namespace host {

namespace {

std::atomic<std::int64_t> calls{0}, faulty_call{0};
std::mutex fault_lock;
std::string failed;  // behind the fault_lock

}  // namespace

void ArmCallFault(std::int64_t nth) {
    calls = 0;
    faulty_call = nth;
    const std::lock_guard<std::mutex> hold(fault_lock);
    failed.clear();
}

std::int64_t CallsThatMayFail() { return calls; }

std::string FailedCall() {
    const std::lock_guard<std::mutex> hold(fault_lock);
    return failed;
}

bool CallFails(const char *part, const char *name) {
    if (calls.fetch_add(1, std::memory_order_relaxed) + 1 != faulty_call) return false;
    const std::lock_guard<std::mutex> hold(fault_lock);
    failed = std::string(part) + "." + name;
    return true;
}

}  // namespace host
