#include "tremolux/process/interrupt.h"

#include <csignal>

#include "library/failure.h"

namespace tremolux {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Note(int) { interrupted = 1; }

}  // namespace

void WatchForInterrupt() {
    std::signal(SIGINT, Note);
    std::signal(SIGTERM, Note);
}

void CheckForInterrupt() {
    if (interrupted) throw Failure(kExitInterrupted, "interrupted: nothing was written");
}

}  // namespace tremolux
