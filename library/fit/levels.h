// How strongly a camera moves in each axis and band of frequencies, and how far two such motions are from each other.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "library/moves/camera_move.h"

namespace tremolux {

// x, y, z in centimetres, then heading, pitch and bank in degrees.
constexpr std::size_t kAxes = 6;
constexpr std::array<const char *, kAxes> kAxisNames = {"x", "y", "z", "heading", "pitch", "bank"};
constexpr bool IsPosition(std::size_t axis) { return axis < 3; }

// One sample a frame for each axis.
using AxisMotion = std::array<std::vector<double>, kAxes>;
// Along the world's axes; the angles run on from frame to frame without a leap.
AxisMotion MotionOfAxes(const CameraMove &move);
// From sample `first` on; all of them lie in the motion.
AxisMotion PartOf(const AxisMotion &motion, std::size_t first, std::size_t count);

// Sway, steps and corrections, tremor.
struct FitBand {
    const char *name;
    double low, high;  // hertz
};
constexpr std::array<FitBand, 3> kFitBands = {{{"below 1 Hz", 0, 1}, {"1 to 4 Hz", 1, 4}, {"4 to 12 Hz", 4, 12}}};
// What is slower is the operator's way, not the shake.
constexpr double kSlowestShake = 0.1;  // hertz

// Without the straight line and the cosines of half periods below kSlowestShake that fit the samples best (least squares).
// Returns the mean square of what went, but for its mean.
double RemoveDrift(double rate, std::vector<double> *samples);

// Of one axis: RMS in each band, of all above kSlowestShake, and of the drift below it.
struct AxisLevels {
    std::array<double, kFitBands.size()> bands{};
    double total = 0, drift = 0;
    bool IsStill() const { return total < 1e-7; }
};
using ShakeLevels = std::array<AxisLevels, kAxes>;

// Of takes that are equally long: their powers, averaged. Each take loses its drift, gets a Hann window and is transformed.
ShakeLevels MeasureLevels(const std::vector<AxisMotion> &takes, double rate);

// RMS of several that are equally long.
ShakeLevels MeanLevels(const std::vector<ShakeLevels> &levels);

// Mean of |ln(RMS of a / RMS of b)| over every band of every axis that moves in `wanted`; bands above half the rate and
// those in which `wanted` is still are passed over. What does not move at all is a factor of a thousand off. 0 where
// nothing is wanted.
double DistanceOf(const ShakeLevels &found, const ShakeLevels &wanted);

// A shake whose distance is small may still carry the camera away, slower than anything that is judged: mean of
// ln(drift / kMostDrift x RMS below 1 Hz that is wanted) over the axes that move, where that is more than 0.
double DriftBeyond(const ShakeLevels &found, const ShakeLevels &wanted);
constexpr double kMostDrift = 1.5;

// Whether the band of that axis counts.
bool IsJudged(const AxisLevels &wanted, std::size_t band);
// ln(found / wanted), held within a factor of a thousand.
double LogRatio(double found, double wanted);

}  // namespace tremolux
