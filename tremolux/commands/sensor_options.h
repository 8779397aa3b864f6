// The options that say how the table of a rate sensor is to be read.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "tremolux/command_line.h"

namespace tremolux {

// As they were typed; empty: not at all.
struct SensorChoices {
    std::string rates, axes;

    void SetIn(FormatOptions *options) const;  // throws a Failure
};

void AddSensorOptions(Command command, SensorChoices *choices);

}  // namespace tremolux
