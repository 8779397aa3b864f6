// Turning towards a target.
#pragma once

#include "c4d.h"

// Angles (HPB, radians, bank 0) with which a camera at `position` looks at `target`; FALSE, and nothing written, for a
// target exactly at the camera or not at finite distance. Straight up and down have heading 0.
Bool AimAngles(const Vector &position, const Vector &target, Vector *angles);

// Angles of a matrix (HPB, radians), whatever its scale.
Vector AnglesOf(const Matrix &matrix);
