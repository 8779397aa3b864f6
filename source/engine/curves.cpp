#include "engine/curves.h"

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
