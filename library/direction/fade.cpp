#include "library/direction/fade.h"

#include "library/direction/smoother_step.h"

namespace tremolux {
namespace {

// `frames` after the seam, of a fade that takes `length`.
double Risen(std::int64_t frames, std::int64_t length) {
    if (frames < 0) return 0;
    return frames >= length ? 1 : SmootherStep(static_cast<double>(frames) / static_cast<double>(length));
}

}  // namespace

double ShareAt(const Fade &fade, std::int64_t frame) {
    double share = fade.mix;
    if (fade.from) share *= Risen(frame - *fade.from, fade.fade_in);
    if (fade.until) share *= Risen(*fade.until - frame, fade.fade_out);
    return share;
}

}  // namespace tremolux
