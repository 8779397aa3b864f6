// The memory of a channel's filter, and the checks that keep it sound.
#pragma once

#include <cmath>

#include "c4d.h"

inline Bool IsFinite(Real x) { return std::isfinite(x); }
inline Bool IsFinite(const Vector &v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

// Where a filter keeps what it carries over, and its value, in the tag's container.
struct FilterKeys {
    LONG carry, value;
};

// The filter's share of the error kept for later, [0, 0.95], and the damping of what it carries over, [0, 1].
struct Coefficients {
    Real a, b;
};

// True on the frames that have no past: the document's first, and one that was jumped to.
Bool HasNoPast(const BaseContainer &data, Real frame);

void WriteFilter(const FilterKeys &keys, const Vector &carry, const Vector &value, BaseContainer *data);
