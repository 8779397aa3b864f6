#include "tremolux/process/progress.h"

#include <cstdio>

#include "host/services/platform.h"

namespace tremolux {

Progress::Progress(std::int64_t frames, bool quiet)
    : frames_(frames), shown_(!quiet && host::ErrorOutputIsTerminal()) {}

Progress::~Progress() {
    if (shown_) std::fputs("\r                              \r", stderr);
}

void Progress::Done(std::int64_t frames) {
    const int percent = frames_ > 0 ? static_cast<int>(frames * 100 / frames_) : 100;
    if (!shown_ || percent == percent_) return;
    percent_ = percent;
    std::fprintf(stderr, "\rtremolux: %d %% of %lld frames", percent, static_cast<long long>(frames_));
    std::fflush(stderr);
}

}  // namespace tremolux
