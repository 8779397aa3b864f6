// The signed gradient noise that all shake is made of.
#pragma once

namespace host {

// In [-1, 1], second derivative continuous, lattice spacing 1, the same on every platform. A point or time that is not
// finite, or so large that neighbouring points cannot be told apart, gives a defined value too.
// The lattice is shifted by fixed fractions, different for each axis: modules sample at whole numbers, where a lattice
// on whole numbers would be half as strong and stand still in one cell of twenty.
double SignedNoise(double x, double y, double z, double t);
double SignedNoise(double x, double y, double z);

}  // namespace host
