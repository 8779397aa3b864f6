// Three numbers: a point, a direction, an angle triple or a colour.
#pragma once

#include "ge_math.h"

// The single-precision form, for storing.
struct SVector {
    SReal x, y, z;

    SVector() : x(0), y(0), z(0) {}
    SVector(_DONTCONSTRUCT) {}
    explicit SVector(SReal value) : x(value), y(value), z(value) {}
    SVector(SReal x_, SReal y_, SReal z_) : x(x_), y(y_), z(z_) {}
};

struct LVector {
    LReal x, y, z;

    LVector() : x(0.0), y(0.0), z(0.0) {}
    LVector(_DONTCONSTRUCT) {}
    explicit LVector(LReal value) : x(value), y(value), z(value) {}
    LVector(LReal x_, LReal y_, LReal z_) : x(x_), y(y_), z(z_) {}
    LVector(const SVector &v) : x(v.x), y(v.y), z(v.z) {}

    LVector &operator+=(const LVector &v) {
        x += v.x, y += v.y, z += v.z;
        return *this;
    }
    LVector &operator-=(const LVector &v) {
        x -= v.x, y -= v.y, z -= v.z;
        return *this;
    }
    LVector &operator*=(LReal s) {
        x *= s, y *= s, z *= s;
        return *this;
    }
    // Division by 0 gives (0, 0, 0).
    LVector &operator/=(LReal s) {
        if (s == 0.0) return *this = LVector();
        x /= s, y /= s, z /= s;
        return *this;
    }
    // Cross product.
    LVector &operator%=(const LVector &v) {
        return *this = LVector(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x);
    }
    // Component by component.
    LVector &operator^=(const LVector &v) {
        x *= v.x, y *= v.y, z *= v.z;
        return *this;
    }

    Bool operator==(const LVector &v) const { return x == v.x && y == v.y && z == v.z; }
    Bool operator!=(const LVector &v) const { return !(*this == v); }

    // Component 0 to 2.
    LReal &operator[](LONG index) { return index == 0 ? x : index == 1 ? y : z; }
    const LReal &operator[](LONG index) const { return index == 0 ? x : index == 1 ? y : z; }
};

typedef LVector Vector;

inline Vector operator+(const Vector &a, const Vector &b) { return Vector(a.x + b.x, a.y + b.y, a.z + b.z); }
inline Vector operator-(const Vector &a, const Vector &b) { return Vector(a.x - b.x, a.y - b.y, a.z - b.z); }
inline Vector operator-(const Vector &v) { return Vector(-v.x, -v.y, -v.z); }
inline Vector operator*(const Vector &v, Real s) { return Vector(v.x * s, v.y * s, v.z * s); }
inline Vector operator*(Real s, const Vector &v) { return Vector(v.x * s, v.y * s, v.z * s); }
inline Vector operator/(const Vector &v, Real s) { return s == 0.0 ? Vector() : Vector(v.x / s, v.y / s, v.z / s); }

// Dot product.
inline Real operator*(const Vector &a, const Vector &b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
// Cross product.
inline Vector operator%(const Vector &a, const Vector &b) {
    return Vector(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}
// Component by component.
inline Vector operator^(const Vector &a, const Vector &b) { return Vector(a.x * b.x, a.y * b.y, a.z * b.z); }

inline Real Len(const Vector &v) { return Sqrt(v * v); }
// Normalised copy; (0, 0, 0) for length 0.
inline Vector operator!(const Vector &v) { return v / Len(v); }

inline Bool VectorEqual(const Vector &a, const Vector &b, Real epsilon = 0.01) {
    return Abs(a.x - b.x) <= epsilon && Abs(a.y - b.y) <= epsilon && Abs(a.z - b.z) <= epsilon;
}
