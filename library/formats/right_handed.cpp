#include "library/formats/right_handed.h"

#include <cmath>

#include "library/formats/rotation_order.h"

namespace tremolux {
namespace {

host::Matrix EachVector(const host::Matrix &camera, host::Vector (*map)(const host::Vector &)) {
    return {map(camera.off), map(camera.v1), map(camera.v2), map(camera.v3)};
}

}  // namespace

host::Matrix RightHanded(const CameraSample &sample) {
    host::Matrix camera = RotationOf({sample.angles.y, sample.angles.x, -sample.angles.z}, kOrderZxy);
    camera.off = {sample.position.x, sample.position.y, -sample.position.z};
    return camera;
}

void SetFromRightHanded(const host::Matrix &camera, CameraSample *sample) {
    const host::Vector turns = RotationAngles(camera, kOrderZxy);
    sample->angles = {turns.y, turns.x, -turns.z};
    sample->position = {camera.off.x, camera.off.y, -camera.off.z};
}

host::Vector ZUpOf(const host::Vector &vector) { return {vector.x, -vector.z, vector.y}; }
host::Vector YUpOf(const host::Vector &vector) { return {vector.x, vector.z, -vector.y}; }
host::Matrix ZUpOf(const host::Matrix &camera) { return EachVector(camera, ZUpOf); }
host::Matrix YUpOf(const host::Matrix &camera) { return EachVector(camera, YUpOf); }

Quaternion RightHandedQuaternion(const host::Vector &angles) {
    const double a = angles.x / 2, b = angles.y / 2, c = -angles.z / 2;
    const double ca = std::cos(a), sa = std::sin(a), cb = std::cos(b), sb = std::sin(b), cc = std::cos(c),
                 sc = std::sin(c);
    return {ca * cb * cc + sa * sb * sc, ca * sb * cc + sa * cb * sc, sa * cb * cc - ca * sb * sc,
            ca * cb * sc - sa * sb * cc};
}

Quaternion operator*(const Quaternion &a, const Quaternion &b) {
    return {a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x, a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

Quaternion InHemisphereOf(const Quaternion &last, const Quaternion &next) {
    const double cosine = last.w * next.w + last.x * next.x + last.y * next.y + last.z * next.z;
    return cosine < 0 ? Quaternion{-next.w, -next.x, -next.y, -next.z} : next;
}

}  // namespace tremolux
