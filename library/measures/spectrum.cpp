#include "library/measures/spectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <unsupported/Eigen/FFT>

#include "host/value/radians.h"


namespace tremolux {
namespace {

constexpr double kFaintest = 0.25;  // of the strongest line's RMS
// The window spreads a line over this many steps of an unpadded transform to each side.
constexpr double kLobe = 2;

// The samples are followed by nothing up to a length whose only factor is 2, at least twice theirs: lines are then
// resolved finely enough to find their middle.
std::size_t PaddedLength(std::size_t count) {
    std::size_t length = 2;
    while (length < 2 * count) length *= 2;
    return length;
}

}  // namespace

Spectrum MeasureSpectrum(const std::vector<double> &samples, double rate) {
    Spectrum spectrum;
    const std::size_t count = samples.size();
    if (count < 2) return spectrum;
    std::vector<double> windowed(PaddedLength(count));
    double weighted = 0, weights = 0, window_power = 0;
    const auto weight = [count](std::size_t i) {
        return 0.5 - 0.5 * std::cos(2 * host::kPi * (static_cast<double>(i) + 0.5) / static_cast<double>(count));
    };
    for (std::size_t i = 0; i < count; ++i) {
        weighted += samples[i] * weight(i);
        weights += weight(i);
        window_power += weight(i) * weight(i);
    }
    // The mean that the window sees: nothing of it is left at 0 Hz.
    for (std::size_t i = 0; i < count; ++i) windowed[i] = (samples[i] - weighted / weights) * weight(i);
    std::vector<std::complex<double>> transform;
    Eigen::FFT<double> fft;
    fft.fwd(transform, windowed);
    const std::size_t length = windowed.size();
    spectrum.step = rate / static_cast<double>(length);
    spectrum.line_width = kLobe * rate / static_cast<double>(count);
    const double scale = 1 / (window_power * static_cast<double>(length));
    for (std::size_t i = 0; i <= length / 2; ++i) {
        const bool alone = i == 0 || i == length / 2;  // all others have a twin of negative frequency
        spectrum.power.push_back(std::norm(transform[i]) * scale * (alone ? 1 : 2));
    }
    return spectrum;
}

double BandRms(const Spectrum &spectrum, double low, double high) {
    double power = 0;
    for (std::size_t i = 1; i < spectrum.power.size(); ++i) {
        const double frequency = spectrum.step * static_cast<double>(i);
        if (frequency > low && frequency <= high) power += spectrum.power[i];
    }
    return std::sqrt(power);
}

std::vector<SpectrumPeak> StrongestPeaks(const Spectrum &spectrum, std::size_t count) {
    const std::vector<double> &power = spectrum.power;
    std::vector<std::size_t> tops;
    for (std::size_t i = 1; i + 1 < power.size(); ++i) {
        if (power[i] > 0 && power[i] >= power[i - 1] && power[i] > power[i + 1]) tops.push_back(i);
    }
    std::stable_sort(tops.begin(), tops.end(), [&](std::size_t a, std::size_t b) { return power[a] > power[b]; });
    const double reach = spectrum.line_width;
    std::vector<SpectrumPeak> peaks;
    for (const std::size_t top : tops) {
        if (peaks.size() == count) break;
        // The middle of the parabola through the logarithms of three entries.
        const double before = std::log(std::max(power[top - 1], 1e-300)), at = std::log(power[top]),
                     after = std::log(std::max(power[top + 1], 1e-300));
        const double bend = before - 2 * at + after;
        const double shift = bend < 0 ? std::clamp(0.5 * (before - after) / bend, -0.5, 0.5) : 0;
        const double frequency = spectrum.step * (static_cast<double>(top) + shift);
        const bool beside_another = std::any_of(peaks.begin(), peaks.end(), [&](const SpectrumPeak &peak) {
            return std::abs(peak.frequency - frequency) < 2 * reach;
        });
        if (beside_another) continue;
        const double rms = BandRms(spectrum, frequency - reach, frequency + reach);
        if (rms < kRoundingRms || (!peaks.empty() && rms < kFaintest * peaks.front().rms)) break;
        peaks.push_back({frequency, rms});
    }
    return peaks;
}

}  // namespace tremolux
