// What only the application can compute: everything else that the engine needs is arithmetic.
#pragma once

#include "engine/curves.h"
#include "engine/vector.h"

namespace engine {

// The directions of a camera's own axes, in the world.
struct Axes {
    Vector3 x, y, z;
};

// None of these throws.
struct Host {
    // Noise of a point and a time, smooth in all four: [-1, 1].
    double (*noise)(const Vector3 &point, double time);
    // A curve of that shape, to be freed; NULL without memory for it.
    void *(*new_curve)(const CurveShape &shape);
    // Its y at x in [0, 1].
    double (*curve_height)(void *curve, double x);
    void (*free_curve)(void *curve);
    // The same rotation as `angles`, in the numbers nearest to `reference`.
    Vector3 (*nearest_angles)(const Vector3 &reference, const Vector3 &angles);
    // The axes need be neither orthogonal nor of length 1.
    Vector3 (*angles_of)(const Axes &axes);
};

// A curve of the host; exists as long as this object.
class OwnedCurve {
  public:
    OwnedCurve(const Host &host, const CurveShape &shape) : host_(host), curve_(host.new_curve(shape)) {}
    ~OwnedCurve() {
        if (curve_ != nullptr) host_.free_curve(curve_);
    }
    OwnedCurve(const OwnedCurve &) = delete;
    OwnedCurve &operator=(const OwnedCurve &) = delete;
    // NULL when the host had no memory.
    void *Get() const { return curve_; }

  private:
    const Host &host_;
    void *curve_;
};

}  // namespace engine
