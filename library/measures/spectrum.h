// How much of a motion happens at which frequency.
#pragma once

#include <cstddef>
#include <vector>

namespace tremolux {

// RMS of rounding: what is less is nothing.
constexpr double kRoundingRms = 1e-9;

struct Spectrum {
    double step = 1;            // hertz from one entry to the next; the first is 0 Hz
    double line_width = 0;      // hertz to each side of its middle that a single line is spread over
    std::vector<double> power;  // mean square of the samples that belongs to each frequency
};

// Of samples at `rate` a second, about their mean: a Hann window, then a Fourier transform (Parseval's theorem makes
// the powers add up to the windowed mean square). Short of two samples there is nothing.
Spectrum MeasureSpectrum(const std::vector<double> &samples, double rate);

// Root mean square of what lies above `low` and up to `high` hertz.
double BandRms(const Spectrum &spectrum, double low, double high);

struct SpectrumPeak {
    double frequency;  // hertz
    double rms;        // of the line, in the unit of the samples
};

// The strongest lines, the strongest first, each at least a quarter of its RMS; at most `count`.
std::vector<SpectrumPeak> StrongestPeaks(const Spectrum &spectrum, std::size_t count);

}  // namespace tremolux
