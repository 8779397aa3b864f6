// Keys of objects in a scene.
#pragma once

#include <string>
#include <vector>

#include "host/scene/object.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// A linear key on every frame of every channel, in place of what was there; a channel that never changes gets one key,
// which holds for all time. Throws a Failure for an object that cannot be animated.
void KeyCamera(host::Object *camera, const CameraMove &move, int frames_per_second);
// The position alone.
void KeyPosition(host::Object *object, const CameraMove &points, int frames_per_second);

// A key of one number of a node, in place of one at that time; on a new track where there is none.
void KeyNumber(host::Node *node, const TableDescID &id, const host::Time &time, double value,
               std::int32_t interpolation);

struct ListedKey {
    std::string id, parameter;  // "903/1000", "Position . X"
    double frame, value;        // the value as it is stored
};
// Track after track.
std::vector<ListedKey> ListKeys(const host::Object &object, int frames_per_second);

// A smooth key is at rest on both sides. After any change of a track with such keys.
void FlattenSmoothKeys(const host::Track &track, int frames_per_second);

}  // namespace tremolux
