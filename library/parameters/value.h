// Values of parameters as a user types them, with their units.
#pragma once

#include <string>
#include <string_view>

#include "host/value/data.h"
#include "library/parameters/parameter.h"

namespace tremolux {

// A percentage: "150%", or the fraction "1.5". An angle: "12deg", "12°" or "12", degrees. Frames: "12f", "12 frames",
// "12", or seconds: "0.5s". A time: the same, or seconds and frames: "1:04". A switch: on, off, true, false, 1, 0. A
// choice: its label or number. A text: as it is. Throws a Failure for anything else, for other units, and for values
// past the parameter's limits.
host::Data ParseValue(const Parameter &parameter, std::string_view text, int frames_per_second);

// "'Shake Speed' is 5000%, beyond its slider, which goes from 0% to 300%": of a value that the limits allow and the
// panel's slider does not reach. Empty for any other.
std::string SliderNote(const Parameter &parameter, const host::Data &value);

}  // namespace tremolux
