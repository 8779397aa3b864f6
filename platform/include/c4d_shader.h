// Noise: smooth, the same on every run, with a lattice of spacing 1.
#pragma once

#include "ge_vector.h"

// [-1, 1]; `t` is a fourth dimension.
Real SNoise(const Vector &p, Real t);
