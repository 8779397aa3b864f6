// A coordinate system: where its origin lies and where its three axes point.
#pragma once

#include "ge_vector.h"

struct LMatrix {
    LVector off, v1, v2, v3;

    // Identity.
    LMatrix() : v1(1.0, 0.0, 0.0), v2(0.0, 1.0, 0.0), v3(0.0, 0.0, 1.0) {}
    LMatrix(_DONTCONSTRUCT) : off(DC), v1(DC), v2(DC), v3(DC) {}
    LMatrix(const LVector &off_, const LVector &v1_, const LVector &v2_, const LVector &v3_)
        : off(off_), v1(v1_), v2(v2_), v3(v3_) {}

    Bool operator==(const LMatrix &m) const { return off == m.off && v1 == m.v1 && v2 == m.v2 && v3 == m.v3; }
    Bool operator!=(const LMatrix &m) const { return !(*this == m); }

    // 0 the offset, 1 to 3 the axes.
    LVector &operator[](LONG index) { return index == 0 ? off : index == 1 ? v1 : index == 2 ? v2 : v3; }
    const LVector &operator[](LONG index) const { return index == 0 ? off : index == 1 ? v1 : index == 2 ? v2 : v3; }

    // Scales every axis to length 1 and keeps the offset.
    void Normalize() {
        v1 = !v1;
        v2 = !v2;
        v3 = !v3;
    }
    // The axes without the offset.
    LMatrix GetTensorMatrix() const { return LMatrix(LVector(), v1, v2, v3); }
    // Lengths of the axes.
    LVector GetScale() const { return LVector(Len(v1), Len(v2), Len(v3)); }
};

typedef LMatrix Matrix;

// Point: offset included.
inline Vector operator*(const Vector &v, const Matrix &m) { return m.off + m.v1 * v.x + m.v2 * v.y + m.v3 * v.z; }
inline Vector operator*(const Matrix &m, const Vector &v) { return v * m; }
inline Vector &operator*=(Vector &v, const Matrix &m) { return v = v * m; }
// Direction: without the offset.
inline Vector operator^(const Vector &v, const Matrix &m) { return m.v1 * v.x + m.v2 * v.y + m.v3 * v.z; }

// First b, then a.
inline Matrix operator*(const Matrix &a, const Matrix &b) { return Matrix(b.off * a, b.v1 ^ a, b.v2 ^ a, b.v3 ^ a); }

// Inverse; identity for a singular matrix.
inline Matrix operator!(const Matrix &m) {
    const Real determinant = m.v1 * (m.v2 % m.v3);
    if (determinant == 0.0 || !std::isfinite(determinant)) return Matrix();
    const Vector r1 = (m.v2 % m.v3) / determinant;
    const Vector r2 = (m.v3 % m.v1) / determinant;
    const Vector r3 = (m.v1 % m.v2) / determinant;
    return Matrix(Vector(-(r1 * m.off), -(r2 * m.off), -(r3 * m.off)), Vector(r1.x, r2.x, r3.x),
                  Vector(r1.y, r2.y, r3.y), Vector(r1.z, r2.z, r3.z));
}

inline Matrix MatrixMove(const Vector &offset) {
    Matrix m;
    m.off = offset;
    return m;
}
inline Matrix MatrixScale(const Vector &scale) {
    return Matrix(Vector(), Vector(scale.x, 0.0, 0.0), Vector(0.0, scale.y, 0.0), Vector(0.0, 0.0, scale.z));
}
// Pitch, heading and bank alone: the rotation by (h, p, b) is RotY(h) * RotX(p) * RotZ(b).
inline Matrix MatrixRotX(Real angle) {
    return Matrix(Vector(), Vector(1.0, 0.0, 0.0), Vector(0.0, Cos(angle), -Sin(angle)),
                  Vector(0.0, Sin(angle), Cos(angle)));
}
inline Matrix MatrixRotY(Real angle) {
    return Matrix(Vector(), Vector(Cos(angle), 0.0, Sin(angle)), Vector(0.0, 1.0, 0.0),
                  Vector(-Sin(angle), 0.0, Cos(angle)));
}
inline Matrix MatrixRotZ(Real angle) {
    return Matrix(Vector(), Vector(Cos(angle), -Sin(angle), 0.0), Vector(Sin(angle), Cos(angle), 0.0),
                  Vector(0.0, 0.0, 1.0));
}
