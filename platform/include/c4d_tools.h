// Angles and matrices, and random numbers.
#pragma once

#include "ge_matrix.h"
#include "ge_prepass.h"

// Scale is removed first. x = heading, y = pitch, z = bank for ROTATIONORDER_HPB.
Vector MatrixToHPB(const Matrix &m, ROTATIONORDER rot_order);
// Without an offset.
Matrix HPBToMatrix(const Vector &hpb, ROTATIONORDER rot_order);
// The rotation of hpb_new, in the numbers that lie closest to hpb_old.
Vector GetOptimalAngle(const Vector &hpb_old, const Vector &hpb_new, ROTATIONORDER order);

class Random {
  public:
    Random() : seed(100) {}
    void Init(ULONG new_seed) { seed = new_seed; }
    // [0, 1)
    Real Get01() {
        seed = ((seed + 1) * 69069) & 0x7FFFFFFF;
        return static_cast<Real>(seed) / 2147483649.0;
    }
    // [-1, 1)
    Real Get11() { return 2.0 * Get01() - 1.0; }

  private:
    ULONG seed;
};
