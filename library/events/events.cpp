#include "library/events/events.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/value/text.h"
#include "library/parameters/nearest.h"

namespace tremolux {

EventFile EventFileOf(const std::filesystem::path &file) {
    const std::string extension = Folded(host::PathText(file.extension()));
    if (extension == ".csv") return EventFile::kTable;
    if (extension == ".txt") return EventFile::kLines;
    if (extension == ".mid" || extension == ".midi") return EventFile::kMidi;
    if (extension == ".edl") return EventFile::kEdits;
    if (extension == ".wav") return EventFile::kWave;
    return EventFile::kOther;
}

EventList ReadEvents(const std::string &file, std::string_view bytes, const FrameRate &rate,
                     const OnsetSettings &settings) {
    switch (EventFileOf(std::filesystem::u8path(file))) {
        case EventFile::kTable:
            return ReadEventTable(file, bytes);
        case EventFile::kLines:
            return ReadEventLines(file, bytes);
        case EventFile::kMidi:
            return ReadMidi(file, bytes);
        case EventFile::kEdits:
            return ReadEditList(file, bytes, rate);
        case EventFile::kWave:
        case EventFile::kOther:
            break;
    }
    return ReadSound(file, bytes, settings);
}

std::vector<EventFrame> FramesOf(const EventList &list, const CameraMove &move, std::size_t *outside) {
    std::map<std::int64_t, double> frames;
    *outside = 0;
    const auto first = static_cast<double>(std::max<std::int64_t>(move.first_frame, 0)),
               last = static_cast<double>(move.LastFrame());
    for (const Event &event : list.events) {
        const double frame = list.in_frames ? std::round(event.time)
                                            : static_cast<double>(move.first_frame) +
                                                  std::round(event.time * move.rate.PerSecond());
        if (!(frame >= first && frame <= last)) {
            ++*outside;
            continue;
        }
        double &strength = frames[static_cast<std::int64_t>(frame)];
        strength = std::max(strength, event.strength);
    }
    std::vector<EventFrame> found;
    found.reserve(frames.size());
    for (const auto &[frame, strength] : frames) found.push_back({frame, strength});
    return found;
}

}  // namespace tremolux
