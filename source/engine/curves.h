// The curves along which amounts and noise are bent, as data, and the host's spline made of one of them.
#pragma once

#include "c4d.h"
#include "customgui_splinecontrol.h"

struct CurveTangent {
    Real x, y;
};

// From (0, 0) to (1, 1) with these tangents, relative to their knots.
struct CurveShape {
    CurveTangent start_left, start_right, end_left, end_right;
};

// Ease in and out, for the variation of the speed.
constexpr CurveShape kSpeedWarpCurve = {{0, 0}, {0.5, 0}, {-0.5, 0}, {0.5, 0}};
// Leaves slowly, arrives softly: the layers' ease.
constexpr CurveShape kLayerEaseCurve = {{0, 0}, {0.25, 0}, {-0.125, 0}, {0.125, 0}};
// Ease of the zoom drift.
constexpr CurveShape kZoomDriftCurve = {{0, 0}, {0.25, 0}, {-0.25, 0}, {0.25, 0}};

// The host's spline of a shape; exists as long as this object. NULL inside when the host had no memory.
class Curve {
  public:
    explicit Curve(const CurveShape &shape);
    ~Curve() { SplineData::Free(spline_); }
    Curve(const Curve &) = delete;
    Curve &operator=(const Curve &) = delete;
    operator SplineData *() const { return spline_; }

  private:
    SplineData *spline_;
};
