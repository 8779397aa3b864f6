// Rotations as three turns about the axes of a right-handed world, one after the other.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "host/value/vector.h"

namespace tremolux {

// Which axis the first, the second and the third turn is about: 0 for x to 2 for z, each once.
using RotationOrder = std::array<int, 3>;
constexpr RotationOrder kOrderZxy = {2, 0, 1}, kOrderXyz = {0, 1, 2};
// By three letters such as "zxy", the first turn first, in whatever case.
std::optional<RotationOrder> RotationOrderNamed(std::string_view name);
// Column vectors: the first turn stands rightmost in the product. `angles` are about x, y and z, radians.
host::Matrix RotationOf(const host::Vector &angles, const RotationOrder &order);
// The angles of a rotation; the second turn in [-pi / 2, pi / 2]. All digits hold for a second turn near its ends too.
host::Vector RotationAngles(const host::Matrix &rotation, const RotationOrder &order);
// The angles of the same rotation that lie closest to `last`.
host::Vector NearestAngles(const host::Vector &last, const host::Vector &next, const RotationOrder &order);

}  // namespace tremolux
