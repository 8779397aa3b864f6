// Vectors and matrices of the host: an offset and three axis vectors, left-handed, X right, Y up, Z into the scene.
#pragma once

#include "platform/table.h"

namespace host {

using Vector = TableVector;
using Matrix = TableMatrix;

inline Vector operator+(const Vector &a, const Vector &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector operator-(const Vector &a, const Vector &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector operator*(const Vector &a, double s) { return {a.x * s, a.y * s, a.z * s}; }
inline bool operator==(const Vector &a, const Vector &b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
inline bool operator!=(const Vector &a, const Vector &b) { return !(a == b); }
inline double Dot(const Vector &a, const Vector &b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector Cross(const Vector &a, const Vector &b);
double Length(const Vector &a);
Vector OverLength(const Vector &a, double length);  // divided by it; (0, 0, 0) over 0
Vector Normalized(const Vector &a);                 // (0, 0, 0) for a vector without length
Vector ComponentProduct(const Vector &a, const Vector &b);
bool IsFinite(const Vector &a);

constexpr Matrix kIdentity = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

Matrix operator*(const Matrix &a, const Matrix &b);  // b first, then a: global = parent * local
bool operator==(const Matrix &a, const Matrix &b);
Vector TransformPoint(const Matrix &m, const Vector &v);
Vector TransformDirection(const Matrix &m, const Vector &v);
Matrix Inverse(const Matrix &m);  // identity for a singular matrix
Matrix WithNormalizedAxes(const Matrix &m);
bool IsFinite(const Matrix &m);

}  // namespace host
