// What a tag has to do with in its document: its input, its target and focus object, the lens of a camera.
#pragma once

#include "c4d.h"
#include "engine/frame.h"

// Frame number of a time, as the host counts: cut to a whole number.
LONG FrameOfTime(const BaseTime &time, Real frames_per_second);

// The object behind a link of the tag, in the given document; NULL for none.
BaseObject *ResolveObject(const BaseContainer &data, LONG link, BaseDocument *doc);
// True for the camera itself and everything below it: such an object would follow what it drives.
Bool FollowsCamera(BaseObject *object, BaseObject *camera);
// The target or focus object of the tag on `camera`: what the link resolves to, unless that follows the camera. NULL
// without a camera.
BaseObject *ResolveAim(const BaseContainer &data, LONG link, BaseObject *camera);
// Whether the tag's camera has a target to turn to, switched on or not.
Bool HasTarget(BaseTag *tag, const BaseContainer &data);

// A frame's input, and the object that it focuses on; NULL for none.
struct SceneInput {
    engine::FrameInput frame;
    BaseObject *focus;
};
// The scene as it stands, for a tag on `camera`: all of a frame but its number and rate.
SceneInput ReadScene(const BaseContainer &data, BaseObject *input, BaseObject *camera);

Real ReadLens(BaseObject *camera, LONG parameter);
void WriteLens(BaseObject *camera, LONG parameter, Real value);
