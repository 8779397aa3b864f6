// The spring that lets a channel swing past its goal when that slows down.
#pragma once

#include "engine/vector.h"

namespace engine {

class Operations;

enum class Channel { kRotation, kPosition, kTarget, kZoom, kSpare, kFocus };

// What a channel remembers from one frame to the next.
struct Spring {
    bool has_output = false;  // without one it starts at rest on its next input
    Vector3 output, input, velocity;
    double distance = 0.0;           // of the input's last step, 0 for a small one
    double previous_distance = 0.0;  // of the same step, as it was
    double ramp = 0.0, ramp_increment = 0.0;
    double stiffness_fade = 0.0, damping_fade = 0.0;
    int moving = 0;  // 1: the input is on its way
};

// Looseness, 0 = no spring, and how fast the swing dies out: [0, 1], held to it.
struct Swing {
    double amount = 0.0, fade = 0.0;
};

// Its last output and its last input were these.
Spring AtRest(const Vector3 &output, const Vector3 &input);

// One step of a place or a length: what the spring makes of `input`.
Vector3 Overshoot(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations, Spring *spring);
// The same of angles, continued without jumps over whole turns. `twin` is the other spring of angles: that of a target
// and that of the rotation go in step, so that switching between them does not jump. The target's has no bank.
Vector3 OvershootAngles(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations,
                        Spring *spring, Spring *twin);

// One step that is put at rest when what comes out of it is not finite. `twin` is NULL for what is no angle.
Vector3 OvershootOrRest(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations,
                        Spring *spring, Spring *twin);

}  // namespace engine
