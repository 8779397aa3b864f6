#include "host/value/vector.h"

#include <cmath>

namespace host {

Vector Cross(const Vector &a, const Vector &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Length(const Vector &a) {
    const double square = Dot(a, a);
    // Outside this range the squares have lost their digits, or are gone.
    if (square > 1e-280 && square < 1e280) return std::sqrt(square);
    return std::hypot(a.x, a.y, a.z);
}

Vector OverLength(const Vector &a, double length) {
    if (length == 0) return {0, 0, 0};
    return {a.x / length, a.y / length, a.z / length};
}

Vector Normalized(const Vector &a) { return OverLength(a, Length(a)); }

Vector ComponentProduct(const Vector &a, const Vector &b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }

bool IsFinite(const Vector &a) { return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z); }

Matrix operator*(const Matrix &a, const Matrix &b) {
    return {TransformPoint(a, b.off), TransformDirection(a, b.v1), TransformDirection(a, b.v2),
            TransformDirection(a, b.v3)};
}

bool operator==(const Matrix &a, const Matrix &b) {
    return a.off == b.off && a.v1 == b.v1 && a.v2 == b.v2 && a.v3 == b.v3;
}

Vector TransformPoint(const Matrix &m, const Vector &v) { return m.off + TransformDirection(m, v); }

Vector TransformDirection(const Matrix &m, const Vector &v) { return m.v1 * v.x + m.v2 * v.y + m.v3 * v.z; }

// Cramer's rule: the rows of the inverse are the cross products of the axes over the determinant.
Matrix Inverse(const Matrix &m) {
    const Vector r1 = Cross(m.v2, m.v3), r2 = Cross(m.v3, m.v1), r3 = Cross(m.v1, m.v2);
    const double determinant = Dot(m.v1, r1);
    if (determinant == 0 || !std::isfinite(determinant)) return kIdentity;
    const double scale = 1 / determinant;
    if (!std::isfinite(scale)) return kIdentity;
    Matrix inverse = {{0, 0, 0},
                      Vector{r1.x, r2.x, r3.x} * scale,
                      Vector{r1.y, r2.y, r3.y} * scale,
                      Vector{r1.z, r2.z, r3.z} * scale};
    inverse.off = TransformDirection(inverse, m.off) * -1.0;
    return inverse;
}

Matrix WithNormalizedAxes(const Matrix &m) { return {m.off, Normalized(m.v1), Normalized(m.v2), Normalized(m.v3)}; }

bool IsFinite(const Matrix &m) { return IsFinite(m.off) && IsFinite(m.v1) && IsFinite(m.v2) && IsFinite(m.v3); }

}  // namespace host
