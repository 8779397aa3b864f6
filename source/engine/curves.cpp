#include "engine/curves.h"

#include <cstring>

namespace {

Bool AddKnot(SplineData *spline, Real position, const CurveTangent &left, const CurveTangent &right) {
    CustomSplineKnot *knot = spline->GetKnot(spline->InsertKnot(position, position));
    if (!knot) return FALSE;
    knot->interpol = CustomSplineKnotInterpolationBezier;
    knot->vTangentLeft = Vector(left.x, left.y, 0.0);
    knot->vTangentRight = Vector(right.x, right.y, 0.0);
    return TRUE;
}

}  // namespace

Curve::Curve(const CurveShape &shape) : spline_(SplineData::Alloc()) {
    if (!spline_) return;
    if (!AddKnot(spline_, 0.0, shape.start_left, shape.start_right) ||
        !AddKnot(spline_, 1.0, shape.end_left, shape.end_right))
        SplineData::Free(spline_);
}

ULONG BentAmounts::PlaceOf(const CurveShape &shape, Real amount) {
    LULONG bits;
    std::memcpy(&bits, &amount, sizeof bits);
    // The shapes' last tangents differ, and tell them apart on every machine alike.
    LULONG shape_bits;
    std::memcpy(&shape_bits, &shape.end_left.x, sizeof shape_bits);
    // Round amounts differ in their first bits alone, which a product carries to its own first bits.
    constexpr LULONG kScattered = 0x9E3779B97F4A7C15u;
    return (ULONG)(((bits ^ (shape_bits >> 7)) * kScattered) >> (64 - kPlaceBits));
}

Bool BentAmounts::Find(const CurveShape &shape, Real amount, Real *bent) const {
    const Known &known = known_[PlaceOf(shape, amount)];
    if (known.shape != &shape || known.amount != amount) return FALSE;
    *bent = known.bent;
    return TRUE;
}

void BentAmounts::Remember(const CurveShape &shape, Real amount, Real bent) {
    known_[PlaceOf(shape, amount)] = {&shape, amount, bent};
}
