// The spline field: a curve of y over x.
#pragma once

#include "c4d_gedata.h"

#define CUSTOMGUI_SPLINE 1009059
#define CUSTOMDATATYPE_SPLINE 1009060

enum CustomSplineKnotInterpolation : LONG {
    CustomSplineKnotInterpolationBezier = 0,
    CustomSplineKnotInterpolationLinear = 1,
    CustomSplineKnotInterpolationCubic = 2
};

#define FLAG_KNOT_T_BREAK 16
#define FLAG_KNOT_LOCK_X 32
#define FLAG_KNOT_LOCK_Y 64
#define FLAG_KNOT_T_LOCK_A 128
#define FLAG_KNOT_T_LOCK_L 256
#define FLAG_KNOT_T_KEEPVISUALANGLE 512
#define ADD_KNOT_ADAPT_TANGENTS (1 << 16)

// Tangents are relative to vPos. The interpolation holds up to the next knot.
struct CustomSplineKnot {
    Vector vPos;
    LONG lFlagsSettings;
    Bool bSelect;
    Vector vTangentLeft, vTangentRight;
    CustomSplineKnotInterpolation interpol;

    CustomSplineKnot() : lFlagsSettings(0), bSelect(FALSE), interpol(CustomSplineKnotInterpolationBezier) {}
};

class SplineData : public CustomDataType {
  public:
    // Without knots.
    static SplineData *Alloc();
    static void Free(SplineData *&spline);

    // Live until a knot comes or goes; NULL out of range.
    CustomSplineKnot *GetKnot(LONG index) const;
    // Index of the new knot: they are kept in the order of x.
    LONG InsertKnot(Real x, Real y, LONG flags = 0);
    // The point of the curve at x = r; outside the knots the y of the end knot.
    Vector GetPoint(Real r) const;

  private:
    SplineData();
    ~SplineData();
};
