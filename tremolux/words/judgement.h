// What is said of a shaken move beside how far it strayed, where it is asked for.
#pragma once

#include <optional>
#include <string>

#include "library/measures/rolling_shutter.h"

namespace tremolux {

struct Judgement {
    double readout = 0;  // milliseconds
    int width = 0;       // of the picture, pixels
    std::optional<RollingShutter> shutter;
    std::string recording;           // its file
    std::optional<double> distance;  // from it
};

}  // namespace tremolux
