#include "engine/remap.h"

#include <cmath>

namespace engine {

double Remap(double x, const Range &input, const Range &output, void *curve, PastEnd past_end, bool clamp_low,
             bool clamp_high, const Host &host) {
    const double input_width = input.maximum - input.minimum;
    const double output_width = output.maximum - output.minimum;
    if (input_width == 0.0) return output.minimum;
    if (output_width == 0.0) return output.maximum;

    const double t = (x - input.minimum) / input_width;
    double base = t;
    double rest = 0.0;  // whole input ranges past the end
    if (t < 0.0) {
        if (clamp_low) base = 0.0;
    } else if (t > 1.0) {
        if (clamp_high) {
            base = 1.0;
        } else {
            base = std::fmod(t, 1.0);
            rest = t - base;
        }
    }

    if (curve != nullptr && (rest == 0.0 || past_end == PastEnd::kWraps)) {
        base = host.curve_height(curve, base);
        if (past_end == PastEnd::kWraps) rest = 0.0;
    } else {
        rest = past_end == PastEnd::kAddsRanges ? rest * output_width : 0.0;
    }

    double result = output_width * base + output.minimum + rest;
    if (curve == nullptr) {
        if (clamp_low && result < output.minimum) result = output.minimum;
        if (clamp_high && result > output.maximum) result = output.maximum;
    }
    return result;
}

}  // namespace engine
