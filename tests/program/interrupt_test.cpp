#include "tremolux/process/interrupt.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "library/failure.h"

namespace tremolux {
namespace {

// In a process of its own: an interrupt is for good.
void EndWhenInterrupted() {
    WatchForInterrupt();
    CheckForInterrupt();
    std::raise(SIGINT);
    try {
        CheckForInterrupt();
    } catch (const Failure &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        std::exit(failure.Status());
    }
    std::exit(0);
}

TEST(InterruptDeathTest, EndsTheWorkAtTheNextFrame) {
    EXPECT_EXIT(EndWhenInterrupted(), testing::ExitedWithCode(130), "^interrupted: nothing was written");
}

}  // namespace
}  // namespace tremolux
