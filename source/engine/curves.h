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
// What a smoothing slider means: fine steps where little is smoothed, and again where much is.
constexpr CurveShape kSmoothingAmountCurve = {{0, 0}, {0.019, 0.063}, {-0.531, -0.109}, {0.531, 0.109}};
// From that to the filter's two coefficients.
constexpr CurveShape kSmoothingCurve = {{0, 0}, {0, 0.711}, {-0.238, -0.078}, {0.238, 0.078}};
// From the slider of a shake's or a drift's smoothing to the coefficients.
constexpr CurveShape kShakeSmoothingCurve = {{0, 0}, {0, 0.352}, {-0.125, 0}, {0.125, 0}};
// From an overshoot slider to the looseness of the spring.
constexpr CurveShape kOvershootCurve = {{0, 0}, {0, 0.45}, {-0.25, -0.01}, {0.25, 0.01}};
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
