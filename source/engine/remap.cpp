#include <cmath>

#include "c4d.h"
#include "customgui_splinecontrol.h"
#include "tag/tremoluxcam.h"

Real TremoluxCamClass::RemapValue(Real x, Real input_min, Real input_max, Real output_min, Real output_max,
                                  SplineData *curve, LONG curve_mode, LONG clamp_low, LONG clamp_high) {
    const Real input_range = input_max - input_min;
    const Real output_range = output_max - output_min;
    if (input_range == 0.0) return output_min;
    if (output_range == 0.0) return output_max;

    const Real t = (x - input_min) / input_range;
    Real base = t;
    Real rest = 0.0;  // whole input ranges past the end
    if (t < 0.0) {
        if (clamp_low == 1) base = 0.0;
    } else if (t > 1.0) {
        if (clamp_high == 1) {
            base = 1.0;
        } else {
            base = std::fmod(t, 1.0);
            rest = t - base;
        }
    }

    if (curve && (rest == 0.0 || curve_mode == 1)) {
        base = curve->GetPoint(base).y;
        if (curve_mode == 1) rest = 0.0;
    } else {
        rest = curve_mode == 0 ? rest * output_range : 0.0;
    }

    Real result = output_range * base + output_min + rest;
    if (!curve) {
        if (clamp_low == 1 && result < output_min) result = output_min;
        if (clamp_high == 1 && result > output_max) result = output_max;
    }
    return result;
}
