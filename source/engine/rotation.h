// Turning towards a target.
#pragma once

#include "c4d.h"

// Angles (HPB, radians, bank 0) with which a camera at `position` looks at `target`.
Vector AimAngles(const Vector &position, const Vector &target);

// Angles of a matrix (HPB, radians), whatever its scale.
Vector AnglesOf(const Matrix &matrix);
