// The focal length: the input's, smoothed, with its swing and a slow drift.
#pragma once

#include "engine/lens.h"
#include "engine/noise.h"

namespace engine {

struct Settings;

struct ZoomSettings {
    double smooth = 0.0;  // of the input, [0, 1]
    Swing swing;          // of the input
    bool drifts = false;
    double rate = 0.0;                                  // of the drift's clock and noise
    Layers weights;                                     // fractions of the focal length
    double drift_smooth = 0.0;                          // [0, 1]
    double seed = 0.0, speed = 0.0, time_offset = 0.0;  // of time_offset, frames, the whole ones count
};
ZoomSettings ZoomSettingsOf(const Settings &settings);

struct ZoomInput {
    double focal_length = 0.0;  // millimetres
    double frame = 0.0, drift_clock = 0.0;
    bool starts = false;  // the frame is the document's first
};

struct ZoomMemory {
    RealFilter input, drift;
    Spring spring;
};

// The drift as a factor of the focal length. 0 when the host has no memory for the ease curve.
double DriftZoom(const ZoomSettings &settings, double drift_clock, Operations *operations);

// The camera's focal length, millimetres. A drift that is not finite adds nothing and starts again from rest.
double StepZoom(const ZoomSettings &settings, const ZoomInput &input, Operations *operations, ZoomMemory *memory);

}  // namespace engine
