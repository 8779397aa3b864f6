// The options for jolts on events.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/events/events.h"
#include "tremolux/command_line.h"

namespace tremolux {

// As they were typed; empty: not at all.
struct JoltsChoices {
    std::string file, sensitivity, band;
};

// What came of them.
struct JoltsFound {
    std::string file;                 // empty: there was none
    std::vector<EventFrame> frames;   // of the move, in order
    std::optional<OnsetCurve> curve;  // of sound
};

void AddJoltsOptions(Command command, JoltsChoices *choices);

// Reads the file; what is no table, MIDI file, edit list or .wav is turned into sound by ffmpeg. What is left out is
// said on the standard error output, one line. Throws a Failure; `settings` are the user's own.
JoltsFound ReadJolts(const JoltsChoices &choices, const CameraMove &move, const std::vector<std::string> &settings);

}  // namespace tremolux
