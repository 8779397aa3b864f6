// The signed gradient noise that all shake is made of.
#pragma once

#include <vector>

namespace host {

// In [-1, 1], second derivative continuous, lattice spacing 1, the same on every platform. A point or time that is not
// finite, or so large that neighbouring points cannot be told apart, gives a defined value too.
// The lattice is shifted by fixed fractions, different for each axis: modules sample at whole numbers, where a lattice
// on whole numbers would be half as strong and stand still in one cell of twenty.
double SignedNoise(double x, double y, double z, double t);
double SignedNoise(double x, double y, double z);

namespace noise {

// One way of computing SignedNoise. All of them give the same bits.
struct Method {
    const char *name;
    double (*sample)(double x, double y, double z, double t);
};

// Corner by corner, on every machine.
double Plain(double x, double y, double z, double t);
// The ways that this machine can go, the plain one first and the fastest last.
std::vector<Method> Methods();

}  // namespace noise

}  // namespace host
