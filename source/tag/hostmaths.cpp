#include "tag/hostmaths.h"

#include "customgui_splinecontrol.h"

namespace {

double Noise(const engine::Vector3 &point, double time) { return SNoise(ToHost(point), time); }

Bool AddKnot(SplineData *spline, Real position, const engine::CurveTangent &left, const engine::CurveTangent &right) {
    CustomSplineKnot *knot = spline->GetKnot(spline->InsertKnot(position, position));
    if (!knot) return FALSE;
    knot->interpol = CustomSplineKnotInterpolationBezier;
    knot->vTangentLeft = Vector(left.x, left.y, 0.0);
    knot->vTangentRight = Vector(right.x, right.y, 0.0);
    return TRUE;
}

void *NewCurve(const engine::CurveShape &shape) {
    SplineData *spline = SplineData::Alloc();
    if (!spline) return NULL;
    if (!AddKnot(spline, 0.0, shape.start_left, shape.start_right) ||
        !AddKnot(spline, 1.0, shape.end_left, shape.end_right))
        SplineData::Free(spline);
    return spline;
}

double CurveHeight(void *curve, double x) { return ((SplineData *)curve)->GetPoint(x).y; }

void FreeCurve(void *curve) {
    SplineData *spline = (SplineData *)curve;
    SplineData::Free(spline);
}

engine::Vector3 NearestAngles(const engine::Vector3 &reference, const engine::Vector3 &angles) {
    return FromHost(GetOptimalAngle(ToHost(reference), ToHost(angles), ROTATIONORDER_HPB));
}

engine::Vector3 AnglesOfAxes(const engine::Axes &axes) {
    return FromHost(MatrixToHPB(Matrix(Vector(), ToHost(axes.x), ToHost(axes.y), ToHost(axes.z)), ROTATIONORDER_HPB));
}

constexpr engine::Host kHost = {Noise, NewCurve, CurveHeight, FreeCurve, NearestAngles, AnglesOfAxes};

}  // namespace

const engine::Host &HostMaths() { return kHost; }

Vector AnglesOf(const Matrix &matrix) {
    Matrix axes = matrix;
    axes.Normalize();
    return MatrixToHPB(axes, ROTATIONORDER_HPB);
}
