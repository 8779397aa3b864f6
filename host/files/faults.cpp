#include "host/files/faults.h"

namespace host {

namespace {

std::int64_t uses = 0, faulty_use = 0;
FileFault armed = FileFault::kNone;

}  // namespace

void ArmFileFault(std::int64_t nth, FileFault fault) {
    uses = 0;
    faulty_use = nth;
    armed = fault;
}

std::int64_t FileUses() { return uses; }

FileFault NextFileUse() {
    ++uses;
    if (armed == FileFault::kKilled && uses > faulty_use) return FileFault::kGone;
    return uses == faulty_use ? armed : FileFault::kNone;
}

}  // namespace host
