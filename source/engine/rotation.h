// Where the camera looks: as the input does, or at a target; smoothed, with its swing and the shake.
#pragma once

#include <cstdint>

#include "engine/noise.h"
#include "engine/overshoot.h"
#include "engine/smoothing.h"

namespace engine {

struct Settings;

enum class RotationAngle { kHeading, kPitch, kBank };

struct RotationSettings {
    double smooth = 0.0, target_smooth = 0.0;  // of the input and of the look at the target, [0, 1]
    Swing swing, target_swing;
    bool shakes_h = false, shakes_p = false, shakes_b = false;
    Layers weights;                                     // radians
    Vector3 ratio;                                      // factors of the angles
    double intensity = 0.0;                             // factor of all angles
    double shake_smooth = 0.0;                          // [0, 1]
    double seed = 0.0, speed = 0.0, time_offset = 0.0;  // of time_offset, frames at speed 1, the whole ones count
};
RotationSettings RotationSettingsOf(const Settings &settings);

struct RotationInput {
    Vector3 angles;            // heading, pitch, bank; radians, world
    bool is_aiming = false;    // there is a target, and it is switched on
    Vector3 target, position;  // the target's place and the camera's new one; scene units, world
    double frame = 0.0, clock = 0.0;
    bool restart = false;  // the frame has no past
};

struct RotationMemory {
    VectorFilter input, shake;
    Spring spring, target_spring;
};

// Angles (bank 0) with which a camera at `position` looks at `target`; false, and nothing written, for a target exactly
// at the camera or not at finite distance. Straight up and down have heading 0.
bool AimAngles(const Vector3 &position, const Vector3 &target, const Host &host, Vector3 *angles);

// The shake of one angle, radians. Speed acts as its square. Pure; finite in, finite out.
double ShakeRotation(RotationAngle angle, const RotationSettings &settings, double clock, const Host &host);

// The camera's angles, radians, which may be whole turns from those of the frame before. A shake that is not finite
// adds nothing and starts again from rest.
Vector3 StepRotation(const RotationSettings &settings, const RotationInput &input, Operations *operations,
                     RotationMemory *memory);

}  // namespace engine
