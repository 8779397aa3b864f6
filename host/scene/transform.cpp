#include "host/scene/transform.h"

#include <cmath>

namespace host {
namespace {

bool IsZero(const Vector &v) { return v == Vector{0, 0, 0}; }

Matrix Placed(const Vector &position, const Vector &rotation, std::int32_t order) {
    Matrix m = HpbToMatrix(rotation, order);
    m.off = position;
    return m;
}

// Axes of length 1 that stand upright on each other as far as the given ones do; the lengths go to `scale`, a mirrored
// system puts its sign on the last one. false when a direction cannot be found.
bool SplitScale(Matrix *m, Vector *scale) {
    *scale = {Length(m->v1), Length(m->v2), Length(m->v3)};
    m->v1 = OverLength(m->v1, scale->x);
    m->v2 = OverLength(m->v2, scale->y);
    m->v3 = OverLength(m->v3, scale->z);
    if (IsZero(m->v3)) m->v3 = Normalized(Cross(m->v1, m->v2));
    if (IsZero(m->v2)) m->v2 = Normalized(Cross(m->v3, m->v1));
    if (IsZero(m->v1)) m->v1 = Normalized(Cross(m->v2, m->v3));
    if (IsZero(m->v1) || IsZero(m->v2) || IsZero(m->v3)) return false;
    if (Dot(Cross(m->v1, m->v2), m->v3) < 0) {
        scale->z = -scale->z;
        m->v3 = m->v3 * -1;
    }
    return true;
}

double Quotient(double whole, double part, double otherwise) { return part == 0 ? otherwise : whole / part; }

}  // namespace

Matrix Transform::Local() const {
    Matrix m = Placed(position, rotation, order);
    if (!IsZero(frozen_position) || !IsZero(frozen_rotation)) m = Placed(frozen_position, frozen_rotation, order) * m;
    const Vector s = AbsScale();
    m.v1 = m.v1 * s.x;
    m.v2 = m.v2 * s.y;
    m.v3 = m.v3 * s.z;
    return m;
}

void Transform::SetLocal(const Matrix &matrix) {
    Matrix axes = matrix;
    Vector lengths;
    const bool has_rotation = SplitScale(&axes, &lengths);
    SetAbsPosition(matrix.off);
    SetAbsScale(lengths);
    if (has_rotation) SetAbsRotation(MatrixToHpb(axes, order));
}

Vector Transform::AbsPosition() const {
    if (IsZero(frozen_rotation)) return frozen_position + position;
    return frozen_position + TransformDirection(HpbToMatrix(frozen_rotation, order), position);
}

Vector Transform::AbsRotation() const {
    if (IsZero(frozen_rotation)) return rotation;
    return MatrixToHpb(HpbToMatrix(frozen_rotation, order) * HpbToMatrix(rotation, order), order);
}

Vector Transform::AbsScale() const { return ComponentProduct(frozen_scale, scale); }

void Transform::SetAbsPosition(const Vector &v) {
    position = v - frozen_position;
    if (!IsZero(frozen_rotation)) {
        position = TransformDirection(Inverse(HpbToMatrix(frozen_rotation, order)), position);
    }
}

void Transform::SetAbsRotation(const Vector &v) {
    if (IsZero(frozen_rotation)) {
        rotation = v;
        return;
    }
    rotation = MatrixToHpb(Inverse(HpbToMatrix(frozen_rotation, order)) * HpbToMatrix(v, order), order);
}

// A frozen scale of 0 leaves no relative value that could bring another one about: the old one stays.
void Transform::SetAbsScale(const Vector &v) {
    scale = {Quotient(v.x, frozen_scale.x, scale.x), Quotient(v.y, frozen_scale.y, scale.y),
             Quotient(v.z, frozen_scale.z, scale.z)};
}

}  // namespace host
