// Files of events with any bytes: each is either read or refused with one line; times are finite, strengths shares, and
// frames the move's. The first byte says what kind of file it is.
#include "library/events/events.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "library/failure.h"

namespace {

using namespace tremolux;
using fuzz::Require;

EventList Read(char kind, std::string_view bytes) {
    switch (kind) {
        case 'm':
            return ReadMidi("a.mid", bytes);
        case 'w':
            return ReadSound("a.wav", bytes, {});
        case 'e':
            return ReadEditList("a.edl", bytes, {30000, 1001});
        case 'l':
            return ReadEventLines("a.txt", bytes);
        default:
            return ReadEventTable("a.csv", bytes);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    try {
        const EventList list = Read(text.front(), text.substr(1));
        for (const Event &event : list.events) {
            Require(std::isfinite(event.time));
            Require(event.strength >= 0 && event.strength <= 1);
        }
        CameraMove move;
        move.samples.resize(100);
        std::size_t outside = 0;
        for (const EventFrame &event : FramesOf(list, move, &outside))
            Require(event.frame >= 0 && event.frame <= move.LastFrame());
    } catch (const Failure &failure) {
        const std::string line = failure.what();
        Require(!line.empty() && line.find('\n') == std::string::npos);
    }
    return 0;
}
