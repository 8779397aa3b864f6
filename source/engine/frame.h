// One frame of the whole motion.
#pragma once

#include "engine/clocks.h"
#include "engine/focus.h"
#include "engine/jolts.h"
#include "engine/position.h"
#include "engine/rotation.h"
#include "engine/settings.h"
#include "engine/zoom.h"

namespace engine {

// What one frame is computed from: read from the scene as it stands, or from curves. World; scene units, radians
// (heading, pitch, bank), millimetres, frames.
struct FrameInput {
    double frame = 0.0, frames_per_second = 0.0;
    Vector3 position, angles;
    double focal_length = 0.0, focus_distance = 0.0;
    bool has_target = false, has_focus_object = false;
    Vector3 target, focus_object;
    bool is_jolt_listed = false;  // the user asks for a knock on this frame
};

// What comes of it, world too; the angles may be whole turns from those of the frame before.
struct FrameMotion {
    Vector3 position, angles;
    double focal_length = 0.0, focus_distance = 0.0;
};

// What the motion remembers from one frame to the next.
struct FrameMemory {
    double start_frame = 0.0;     // the document's first
    double last_frame = 0.0;      // the last one evaluated
    bool is_catching_up = false;  // the frame was jumped to
    Clocks clocks;
    PositionMemory position;
    RotationMemory rotation;
    ZoomMemory zoom;
    FocusMemory focus;
    JoltMemory jolts;
    Spring spare_spring;
    Vector3 previous_angles;  // of the last output
};

ClockSettings ClockSettingsOf(const Settings &settings);

// Whether a frame has no past: the document's first, and one that was jumped to.
bool HasNoPast(const FrameMemory &memory, double frame);

// Clocks and filters go one frame on. False, and no motion, when the host has no memory or a result is not finite.
bool StepFrame(const Settings &settings, const FrameInput &input, Operations *operations, FrameMemory *memory,
               FrameMotion *motion);

// The motion's angles in the numbers that continue those of the frame before; they are remembered. Frame 0 continues
// nothing.
Vector3 ContinueAngles(double frame, const Vector3 &angles, const Host &host, FrameMemory *memory);

// Everything but the springs and what the focus drift carries over: as before the first frame, with clocks at 0.
void ClearMotion(FrameMemory *memory);
// The springs of what moves with the input camera and its lens: at rest where the motion starts.
void RestMovingSprings(const Settings &settings, const FrameInput &start, const Host &host, FrameMemory *memory);
// At rest on the frame that the motion starts with.
void RestMotion(const Settings &settings, const FrameInput &start, const Host &host, FrameMemory *memory);
// Without an input to rest on.
void ClearAllMotion(FrameMemory *memory);
// A jolt in flight is over; what it pushed last stays.
void DropJolts(JoltMemory *memory);

}  // namespace engine
