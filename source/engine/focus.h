// The focus distance: to an object, or the input's; smoothed, with its swing and a slow drift.
#pragma once

#include <cstdint>

#include "engine/lens.h"
#include "engine/noise.h"

namespace engine {

struct Settings;

struct FocusSettings {
    double smooth = 0.0;  // of the distance, [0, 1]
    Swing swing;          // of the distance
    bool drifts = false;
    double rate = 0.0;          // of the drift's clock and noise
    Layers weights;             // fractions of the distance
    double drift_smooth = 0.0;  // [0, 1]
    std::int32_t seed = 0;
    double speed = 0.0, time_offset = 0.0;  // of time_offset, frames, the whole ones count
};
FocusSettings FocusSettingsOf(const Settings &settings);

struct FocusInput {
    double distance = 0.0;  // the input's; scene units
    bool has_object = false;
    Vector3 object, camera;  // their places, the camera's new one; scene units, world
    double frame = 0.0, drift_clock = 0.0;
    bool starts = false;  // the frame is the document's first
};

struct FocusMemory {
    RealFilter input;
    RealFilter drift;  // its value is the raw drift, not the smoothed one
    Spring spring;
};

// The drift, in the unit of `distance`, to which it is proportional.
double DriftFocus(const FocusSettings &settings, double drift_clock, double distance, const Host &host);

// The camera's focus distance, scene units. A drift that is not finite adds nothing and starts again from rest.
double StepFocus(const FocusSettings &settings, const FocusInput &input, Operations *operations, FocusMemory *memory);

}  // namespace engine
