// What a frame's evaluation asks of the scene.
#pragma once

#include "c4d.h"

// What one frame is computed from: read from the scene as it stands, or from curves. Global; scene units, radians
// (HPB), millimetres, frames.
struct FrameInput {
    Real frame = 0.0, frames_per_second = 0.0;
    Vector position, angles;
    Real focal_length = 0.0, focus_distance = 0.0;
    BaseObject *target = NULL, *focus = NULL;  // NULL: none
    Vector target_position, focus_position;
};

// What comes of it, global too; the angles may be whole turns from those of the frame before.
struct FrameMotion {
    Vector position, angles;
    Real focal_length, focus_distance;
};

// Frame number of a time: floor(rate * numerator) / floor(denominator), cut to a whole number; 0 for a denominator of
// 0, saturated at the range of a LONG.
LONG FrameOfTime(const BaseTime &time, Real frames_per_second);
// Seconds times rate; a result within 1e-6 of a whole number is that number, as 29 / 25 * 25 is 28.999999999999996.
Real ExactFrame(const BaseTime &time, Real frames_per_second);

// The object behind a link of the tag, in the given document; NULL for none.
BaseObject *ResolveObject(const BaseContainer &data, LONG link, BaseDocument *doc);
// True for the camera itself and everything below it: such an object would follow what it drives.
Bool FollowsCamera(BaseObject *object, BaseObject *camera);
// The target or focus object of the tag on `camera`: what the link resolves to, unless that follows the camera. NULL
// without a camera.
BaseObject *ResolveGuide(const BaseContainer &data, LONG link, BaseObject *camera);

// Whether the tag's camera has a target to turn to, switched on or not.
Bool HasTarget(BaseTag *tag, const BaseContainer &data);

// The scene as it stands, for a tag on `camera`: all of a frame but its number and rate.
FrameInput ReadScene(const BaseContainer &data, BaseObject *input, BaseObject *camera);

Real ReadLens(BaseObject *camera, LONG parameter);
void WriteLens(BaseObject *camera, LONG parameter, Real value);
