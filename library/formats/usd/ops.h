// The transform of a prim: its ops, one within the other.
#pragma once

#include <string>
#include <vector>

#include "host/value/vector.h"
#include "library/formats/rotation_order.h"
#include "library/formats/usd/layer.h"

namespace tremolux {

enum class UsdOpKind { kTranslate, kScale, kTurns, kOrient, kMatrix };

// One entry of xformOpOrder.
struct UsdOp {
    UsdOpKind kind = UsdOpKind::kTranslate;
    std::string attribute;
    RotationOrder order = {0, 1, 2};  // of kTurns about three axes
    int axis = -1;                    // of an op with one number; else it has three
    bool is_inverted = false;
    const char *place = nullptr;
};

struct UsdTransform {
    const UsdPrim *prim = nullptr;
    std::vector<UsdOp> ops;  // the outermost first
    bool resets = false;     // what the prim stands in does not move it
    bool IsAnimated() const;
};

// Throws a Failure for ops that there are not.
UsdTransform TransformOf(const SourceText &source, const UsdPrim &prim);
// Its entries as they stand there; empty without one.
std::vector<std::string> OpNames(const UsdPrim &prim);
// At a time, in what the prim stands in: axes as v1 to v3, of any length, and the offset. Throws a Failure for a matrix
// that cannot be undone.
host::Matrix MatrixAt(const SourceText &source, const UsdTransform &transform, double time_code);

}  // namespace tremolux
