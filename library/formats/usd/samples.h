// What an attribute is worth at a time.
#pragma once

#include <array>
#include <optional>

#include "library/formats/usd/layer.h"

namespace tremolux {

constexpr std::size_t kMaxUsdNumbers = 16;
using UsdNumbers = std::array<double, kMaxUsdNumbers>;  // the first `count` of them

// Samples before the value; between two of them numbers run straight on and quaternions on the sphere, other types hold;
// before the first and after the last they hold. Nothing where no value is, or a sample says None. Throws a Failure for
// a value of another count.
std::optional<UsdNumbers> NumbersAt(const SourceText &source, const UsdPrim &prim, const std::string &attribute,
                                    double time_code, std::size_t count);
// The same for a text, which holds.
std::optional<std::string> TextAt(const UsdPrim &prim, const std::string &attribute, double time_code);

}  // namespace tremolux
