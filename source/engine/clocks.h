// The clocks that the noise is sampled at: frames at speed 1.
#pragma once

#include "c4d.h"

struct Clocks {
    Real step;  // how far they go at the next frame: the last frame's speed
    Real shake, focus, zoom_drift, jolt, auxiliary, zoom;
};

// What drives them, as stored: speed and rates are fractions, the variation is one of 0 to 1.
struct ClockRates {
    Real speed, variation, focus_rate, zoom_rate;
    LONG seed;
};

// One clock by its key. A clock that is not finite restarts at 0.
Real ReadClock(const BaseContainer &data, LONG key);
Clocks ReadClocks(const BaseContainer &data);
void WriteClocks(const Clocks &clocks, BaseContainer *data);
ClockRates ReadClockRates(const BaseContainer &data);
