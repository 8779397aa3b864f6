// From one range of numbers to another.
#pragma once

#include "engine/host.h"

namespace engine {

struct Range {
    double minimum, maximum;
};

// What becomes of a number past the end of its range.
enum class PastEnd {
    kAddsRanges = 0,  // whole input ranges add whole output ranges; there the curve is not asked
    kWraps = 1,       // the curve shapes it again, as if it had begun anew
    kIsCut = 2        // it begins anew, and there the curve is not asked
};

// Linear, or along `curve` (of the host; NULL for none).
//   clamp_low, clamp_high  hold the number to the range at that end
// Pure: any thread, no errors. An input range of no width gives the output's minimum, an output range of no width its
// maximum.
double Remap(double x, const Range &input, const Range &output, void *curve, PastEnd past_end, bool clamp_low,
             bool clamp_high, const Host &host);

}  // namespace engine
