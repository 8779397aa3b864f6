// The options that say when, where and how much a move is shaken.
#pragma once

#include <string>
#include <vector>

#include "library/direction/direct.h"
#include "tremolux/command_line.h"

namespace tremolux {

// As they were typed; empty: not at all.
struct DirectionChoices {
    std::string from, until, fade_in, fade_out, mix, only;
    std::vector<std::string> lens_aware;  // at most one, which may be empty
    bool loop = false;

    bool IsNone() const;                              // the whole shake, as it is played
    Direction Options(const CameraMove &move) const;  // throws a Failure
};

void AddDirectionOptions(Command command, DirectionChoices *choices);

}  // namespace tremolux
