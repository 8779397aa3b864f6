#include "host/files/faults.h"

#include <atomic>
#include <mutex>

namespace host {

namespace {

std::atomic<std::int64_t> uses{0}, faulty_use{0};
std::atomic<FileFault> armed{FileFault::kNone};
std::mutex protected_lock;
std::filesystem::path protected_file;

}  // namespace

void ArmFileFault(std::int64_t nth, FileFault fault) {
    uses = 0;
    faulty_use = nth;
    armed = fault;
}

std::int64_t FileUses() { return uses; }

void ProtectFromRemoval(const std::filesystem::path &file) {
    const std::lock_guard<std::mutex> hold(protected_lock);
    protected_file = file;
}

bool IsProtectedFromRemoval(const std::filesystem::path &file) {
    const std::lock_guard<std::mutex> hold(protected_lock);
    return !protected_file.empty() && file == protected_file;
}

FileFault NextFileUse() {
    const std::int64_t use = uses.fetch_add(1, std::memory_order_relaxed) + 1;
    const FileFault fault = armed;
    if (fault == FileFault::kKilled && use > faulty_use) return FileFault::kGone;
    return use == faulty_use ? fault : FileFault::kNone;
}

}  // namespace host
