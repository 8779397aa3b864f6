// What a camera's baked channels were before a bake, kept in the tag.
#pragma once

#include "c4d.h"
#include "lib_description.h"

// The channels that a bake writes: parameter, and component of a vector or 0.
struct BakedChannel {
    LONG parameter, component;
};
enum BakedIndex { kBakedX, kBakedY, kBakedZ, kBakedH, kBakedP, kBakedB, kBakedFocusDistance, kBakedFocalLength };
constexpr LONG kBakedChannelCount = 8;
extern const BakedChannel kBakedChannels[kBakedChannelCount];

DescID ChannelId(const BakedChannel &channel);
BaseTime TimeOfFrame(LONG frame, LONG frames_per_second);

// Takes the camera's tracks of the baked parameters away; the record holds their values at whole frames, and that is
// all that comes back: no tangents, no keys between frames or before frame 0.
BaseContainer TakePreBakeAnimation(BaseObject *camera, LONG frames_per_second);
// Keys from the record, on tracks of their own. Tracks that the host does not make are left out.
void RestorePreBakeAnimation(const BaseContainer &record, BaseObject *camera, LONG frames_per_second);

// A new track's curve, with the track among the camera's; NULL when the host does not make it.
CCurve *MakeBakedCurve(BaseObject *camera, const BakedChannel &channel);
