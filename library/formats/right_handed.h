// The scene's cameras (left-handed, Y up, looking along +Z) as other programs have them: right-handed, looking along
// -Z. World and camera are mirrored in Z; as R = Ry(heading) Rx(pitch) Rz(-bank) on column vectors that is a proper
// rotation.
#pragma once

#include "library/moves/camera_move.h"

namespace tremolux {

// A right-handed camera: right, up and back are v1, v2 and v3, of length 1; the position is off, in scene units.
host::Matrix RightHanded(const CameraSample &sample);
// Position and angles; heading and bank in (-pi, pi], pitch in [-pi / 2, pi / 2]. The axes may have any length above 0.
void SetFromRightHanded(const host::Matrix &camera, CameraSample *sample);

// The Z-up world that is the Y-up one turned by +90 degrees about X: (x, y, z) becomes (x, -z, y).
host::Vector ZUpOf(const host::Vector &vector);
host::Vector YUpOf(const host::Vector &vector);  // and back
host::Matrix ZUpOf(const host::Matrix &camera);
host::Matrix YUpOf(const host::Matrix &camera);

struct Quaternion {
    double w, x, y, z;
};
// Of RightHanded, from the half angles.
Quaternion RightHandedQuaternion(const host::Vector &angles);
// a after b.
Quaternion operator*(const Quaternion &a, const Quaternion &b);
// The sign of `next`, which stands for the same turn either way, that is nearer to `last`.
Quaternion InHemisphereOf(const Quaternion &last, const Quaternion &next);

}  // namespace tremolux
