// The motion that was added to a camera, in numbers that people think in.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "library/measures/spectrum.h"
#include "library/moves/camera_move.h"

namespace tremolux {

struct Band {
    const char *name;
    double low, high;  // hertz
};
// Sway, the band of steps and corrections, and tremor.
constexpr std::array<Band, 3> kBands = {{{"below 0.5 Hz", 0, 0.5}, {"0.5 to 3 Hz", 0.5, 3}, {"3 to 12 Hz", 3, 12}}};

struct Channel {
    const char *name, *unit;
    std::vector<double> samples;  // one a frame: how far the output is from the input
    double rms = 0, peak = 0;
    std::int64_t peak_frame = 0;
    double speed_rms = 0, speed_peak = 0;  // of the channel, its unit a second
    Spectrum spectrum;
    std::array<double, kBands.size()> band_rms{};
    std::vector<SpectrumPeak> lines;  // the strongest
};

// Pictures that sway at these frequencies make people sick soonest (motion sickness from pictures alone is worst from
// 0.2 to 0.4 Hz: Diels and Howarth, Human Factors 2013; a roll of 5 degrees at 0.25 Hz is used to provoke it).
constexpr Band kSickness = {"0.1 to 0.5 Hz", 0.1, 0.5};
constexpr double kMostSway = 0.02;  // RMS, of the picture's width
constexpr double kMostRoll = 1.5;   // RMS, degrees

struct AddedMotion {
    std::array<Channel, 6> camera;       // x, y, z in centimetres; heading, pitch, bank in degrees
    std::array<Channel, 2> picture;      // how far the point in focus leaves the picture's middle, in pixels
    double turn_rms = 0, turn_peak = 0;  // speed of the output's turning about any axis, degrees a second
    double sway = 0;                     // RMS in the sickness band, of the picture's width
    double roll = 0;                     // RMS of the bank in that band, degrees
    bool MakesSick() const { return sway > kMostSway || roll > kMostRoll; }
};

// Both moves have the same frames, at least one. The picture is `width` pixels wide.
AddedMotion MeasureAddedMotion(const CameraMove &input, const CameraMove &output, int width);

}  // namespace tremolux
