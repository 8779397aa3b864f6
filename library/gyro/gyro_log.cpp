#include "library/gyro/gyro_log.h"

namespace tremolux {
namespace {

template <typename Sample>
std::size_t DropWhatDoesNotRise(std::vector<Sample> *samples) {
    std::size_t kept = 0;
    for (const Sample &sample : *samples) {
        if (kept == 0 || sample.time > (*samples)[kept - 1].time) (*samples)[kept++] = sample;
    }
    const std::size_t dropped = samples->size() - kept;
    samples->erase(samples->begin() + static_cast<std::ptrdiff_t>(kept), samples->end());
    return dropped;
}

}  // namespace

void KeepRising(GyroLog *log) {
    const std::size_t dropped = DropWhatDoesNotRise(&log->rates) + DropWhatDoesNotRise(&log->accelerations) +
                                DropWhatDoesNotRise(&log->gravity) + DropWhatDoesNotRise(&log->orientations);
    if (dropped > 0)
        log->notes.push_back(std::to_string(dropped) + (dropped == 1 ? " sample is" : " samples are") +
                             " left out, for times that repeat or jump back");
}

}  // namespace tremolux
