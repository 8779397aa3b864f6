// Heading, pitch, bank and matrices of the left-handed scene; radians.
#pragma once

#include <cstdint>

#include "host/value/vector.h"

namespace host {

constexpr std::int32_t kOrderHpb = 6;

// Scale is removed first. h and b in [0, 2 pi), p in [-pi/2, pi/2]. Only kOrderHpb and the six named orders 0 to 5
// are known; any other order counts as kOrderHpb.
Vector MatrixToHpb(const Matrix &matrix, std::int32_t order = kOrderHpb);
Matrix HpbToMatrix(const Vector &hpb, std::int32_t order = kOrderHpb);  // offset 0
// The angles of the same rotation as `new_hpb` that lie closest in numbers to `old_hpb`.
Vector OptimalAngle(const Vector &old_hpb, const Vector &new_hpb, std::int32_t order = kOrderHpb);

}  // namespace host
