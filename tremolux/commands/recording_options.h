// The options that put a recorded shake onto a move.
#pragma once

#include <optional>
#include <string>

#include "library/recorded/take.h"
#include "tremolux/command_line.h"

namespace tremolux {

struct FormatOptions;

// As they were typed; empty: not at all.
struct RecordingChoices {
    std::string file, amount, split, speed, arm;
    bool is_alone = false;

    // The move with the recording's shake on it; the same where there is no file. Throws a Failure.
    CameraMove PutOnto(const CameraMove &move, const FormatOptions &formats) const;
};

void AddRecordingOptions(Command command, RecordingChoices *choices);

}  // namespace tremolux
