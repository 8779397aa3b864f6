// An object's place in its parent: relative and frozen position, rotation and scale.
#pragma once

#include "host/scene/angles.h"
#include "host/value/vector.h"

namespace host {

struct Transform {
    Vector position{0, 0, 0}, rotation{0, 0, 0}, scale{1, 1, 1};  // relative: what parameters and tracks hold
    Vector frozen_position{0, 0, 0}, frozen_rotation{0, 0, 0}, frozen_scale{1, 1, 1};
    std::int32_t order = kOrderHpb;

    // Move(frozen) Rot(frozen) Move(relative) Rot(relative) Scale(both)
    Matrix Local() const;
    void SetLocal(const Matrix &matrix);  // solves for the relative values; the frozen ones stay
    Vector AbsPosition() const;
    Vector AbsRotation() const;
    Vector AbsScale() const;
    void SetAbsPosition(const Vector &v);
    void SetAbsRotation(const Vector &v);
    void SetAbsScale(const Vector &v);
};

}  // namespace host
