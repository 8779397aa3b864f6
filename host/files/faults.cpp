#include "host/files/faults.h"

#include <atomic>

namespace host {

namespace {

std::atomic<std::int64_t> uses{0}, faulty_use{0};
std::atomic<FileFault> armed{FileFault::kNone};

}  // namespace

void ArmFileFault(std::int64_t nth, FileFault fault) {
    uses = 0;
    faulty_use = nth;
    armed = fault;
}

std::int64_t FileUses() { return uses; }

FileFault NextFileUse() {
    const std::int64_t use = uses.fetch_add(1, std::memory_order_relaxed) + 1;
    const FileFault fault = armed;
    if (fault == FileFault::kKilled && use > faulty_use) return FileFault::kGone;
    return use == faulty_use ? fault : FileFault::kNone;
}

}  // namespace host
