// Three numbers: a place or a direction (scene units), or angles as heading, pitch and bank (radians).
#pragma once

#include <cmath>

namespace engine {

struct Vector3 {
    double x = 0.0, y = 0.0, z = 0.0;
};

inline Vector3 operator+(const Vector3 &a, const Vector3 &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector3 operator-(const Vector3 &a, const Vector3 &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector3 operator*(const Vector3 &v, double s) { return {v.x * s, v.y * s, v.z * s}; }

inline double Length(const Vector3 &v) { return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z); }
inline Vector3 Cross(const Vector3 &a, const Vector3 &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
// Of length 1; (0, 0, 0) stays as it is.
inline Vector3 Normalized(const Vector3 &v) {
    const double length = Length(v);
    return length == 0.0 ? Vector3() : Vector3{v.x / length, v.y / length, v.z / length};
}

inline bool IsFinite(double x) { return std::isfinite(x); }
inline bool IsFinite(const Vector3 &v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

}  // namespace engine
