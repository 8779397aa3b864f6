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

LULONG BitsOf(Real value) {
    LULONG bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

}  // namespace

Curve::Curve(const CurveShape &shape) : spline_(SplineData::Alloc()) {
    if (!spline_) return;
    if (!AddKnot(spline_, 0.0, shape.start_left, shape.start_right) ||
        !AddKnot(spline_, 1.0, shape.end_left, shape.end_right))
        SplineData::Free(spline_);
}

LONG BentAmounts::PlaceOf(const CurveShape &shape, Real amount) {
    // Odd numbers with scattered bits.
    constexpr LULONG kOfShape = 0xD6E8FEB86659FD93u, kOfAmount = 0x9E3779B97F4A7C15u;
    LULONG key = BitsOf(amount) ^ BitsOf(shape.end_left.x) * kOfShape;  // the shapes differ there
    key ^= key >> 32;  // round amounts differ in their first bits alone
    return (LONG)(key * kOfAmount >> (64 - kPlaceBits));
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
