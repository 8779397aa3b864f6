// The host's mathematics for the engine, and numbers on their way between the two.
#pragma once

#include "c4d.h"
#include "engine/frames.h"
#include "engine/host.h"

const engine::Host &HostMaths();

inline engine::Vector3 FromHost(const Vector &v) { return {v.x, v.y, v.z}; }
inline Vector ToHost(const engine::Vector3 &v) { return Vector(v.x, v.y, v.z); }
inline engine::Time TimeOf(const BaseTime &time) { return {time.GetNumerator(), time.GetDenominator()}; }

// Angles of a matrix (HPB, radians), whatever its scale.
Vector AnglesOf(const Matrix &matrix);
