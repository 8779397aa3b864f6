// Sudden knocks: when they hit, how they fall off and where they push.
#pragma once

#include <cstdint>

#include "engine/noise.h"
#include "engine/smoothing.h"

namespace engine {

struct Settings;

struct JoltSettings {
    bool pushes = false;        // switched on
    std::int32_t interval = 0;  // whole frames between two knocks; below 1 = none
    double position_intensity = 0.0, rotation_intensity = 0.0;
    double smooth = 0.0;        // [0, 1]
    double falloff_step = 0.0;  // what a knock loses each frame
    double scale = 0.0;         // of the scene, 1000 scene units at 1
    double shake_position_intensity = 0.0, shake_rotation_intensity = 0.0;
    Vector3 position_ratio, rotation_ratio;             // factors of the axes and of the angles
    double time_scale = 0.0;                            // of the noise's time
    double seed = 0.0, speed = 0.0, time_offset = 0.0;  // time_offset: frames at speed 1
};
JoltSettings JoltSettingsOf(const Settings &settings, double frames_per_second);

struct JoltInput {
    double clock = 0.0;
    std::int32_t whole_clock = 0;  // the same, cut off
    std::int32_t frame = 0;
    bool is_listed = false;  // the user asks for a knock on this frame
};

// Of a position or of a rotation.
struct Jolt {
    double target = 0.0;  // where the envelope goes; falls off
    double envelope = 0.0, carry = 0.0;
    double previous = 0.0;  // the envelope of the frame before
    VectorFilter filter;
    Vector3 offset;  // what the camera is pushed by: scene units, or radians
};

struct JoltMemory {
    Jolt position, rotation;
};

// A jolt whose push is not finite adds nothing and is over.
void StepJolts(const JoltSettings &settings, const JoltInput &input, Operations *operations, JoltMemory *memory);

}  // namespace engine
