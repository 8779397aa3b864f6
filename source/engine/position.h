// Where the camera is: the input's place, smoothed, with its swing and the shake.
#pragma once

#include "engine/noise.h"
#include "engine/overshoot.h"
#include "engine/smoothing.h"

namespace engine {

struct Settings;

enum class PositionAxis { kX, kY, kZ };

struct PositionSettings {
    double smooth = 0.0;  // of the input, [0, 1]
    Swing swing;          // of the input
    bool shakes_x = false, shakes_y = false, shakes_z = false;
    Layers weights;                                     // fractions
    Vector3 ratio;                                      // factors of the axes
    double intensity = 0.0;                             // factor of all axes
    double scale = 0.0;                                 // of the scene, 1000 scene units at 1
    double shake_smooth = 0.0;                          // [0, 1]
    double seed = 0.0, speed = 0.0, time_offset = 0.0;  // time_offset: frames at speed 1
};
PositionSettings PositionSettingsOf(const Settings &settings);

struct PositionInput {
    Vector3 position;  // scene units, world
    double frame = 0.0, clock = 0.0;
    bool restart = false;  // the frame has no past
};

struct PositionMemory {
    VectorFilter input, shake;
    Spring spring;
};

// The shake of one axis, scene units. The layers' rates go with the speed and with the clock, so speed acts as its
// square. Pure; finite in, finite out.
double ShakePosition(PositionAxis axis, const PositionSettings &settings, double clock, const Host &host);

// The camera's place, scene units, world. A shake that is not finite adds nothing and starts again from rest.
Vector3 StepPosition(const PositionSettings &settings, const PositionInput &input, Operations *operations,
                     PositionMemory *memory);

}  // namespace engine
