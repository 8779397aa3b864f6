// Scalar maths on Real. Angles are radians.
#pragma once

#include <cmath>

#include "ge_types.h"

#define PI 3.14159265358979323846
#define PI2 6.28318530717958647693
#define PI05 1.57079632679489661923
#define EPSILON 0.0001

// "No limit" of an edit field.
#define MAXRANGE 1.0e20
#define MINREAL (-1.7976931348623157e308)
#define MAXREAL 1.7976931348623157e308
#define MINLONG (-2147483647)
#define MAXLONG 2147483647

inline Real Rad(Real degrees) { return degrees * PI / 180.0; }
inline Real Deg(Real radians) { return radians * 180.0 / PI; }

template <class T>
inline T Abs(T value) {
    return value < T(0) ? -value : value;
}

inline Real Floor(Real value) { return std::floor(value); }
inline Real Ceil(Real value) { return std::ceil(value); }
inline Real Sqrt(Real value) { return std::sqrt(value); }
inline Real Exp(Real value) { return std::exp(value); }
inline Real Ln(Real value) { return std::log(value); }
inline Real Pow(Real base, Real exponent) { return std::pow(base, exponent); }
inline Real FMod(Real a, Real b) { return std::fmod(a, b); }
inline Real Sin(Real angle) { return std::sin(angle); }
inline Real Cos(Real angle) { return std::cos(angle); }
inline Real Tan(Real angle) { return std::tan(angle); }
// The argument is cut to [-1, 1].
inline Real ASin(Real value) { return value >= 1.0 ? PI05 : value <= -1.0 ? -PI05 : std::asin(value); }
inline Real ACos(Real value) { return value >= 1.0 ? 0.0 : value <= -1.0 ? PI : std::acos(value); }
inline Real ATan(Real value) { return std::atan(value); }
inline Real ATan2(Real y, Real x) { return std::atan2(y, x); }
inline void SinCos(Real angle, Real &sine, Real &cosine) {
    sine = std::sin(angle);
    cosine = std::cos(angle);
}

inline Real FMin(Real a, Real b) { return a < b ? a : b; }
inline Real FMax(Real a, Real b) { return a < b ? b : a; }
inline LONG LMin(LONG a, LONG b) { return a < b ? a : b; }
inline LONG LMax(LONG a, LONG b) { return a < b ? b : a; }
inline Real FCut(Real value, Real minimum, Real maximum) {
    return value < minimum ? minimum : value > maximum ? maximum : value;
}
inline LONG LCut(LONG value, LONG minimum, LONG maximum) {
    return value < minimum ? minimum : value > maximum ? maximum : value;
}
inline Real FCut01(Real value) { return FCut(value, 0.0, 1.0); }

// The limits stand first.
template <class T>
inline T Clamp(T minimum, T maximum, T value) {
    return value < minimum ? minimum : value > maximum ? maximum : value;
}

// a at t = 0, b at t = 1.
template <class T>
inline T Mix(const T &a, const T &b, Real t) {
    return a + (b - a) * t;
}

template <class T>
inline void Swap(T &a, T &b) {
    T kept = a;
    a = b;
    b = kept;
}
