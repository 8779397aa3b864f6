#include "library/events/onsets.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <unsupported/Eigen/FFT>

#include "host/value/radians.h"
#include "library/events/events.h"

namespace tremolux {
namespace {

constexpr double kShortWindow = 0.006, kLongWindow = 0.046, kStep = 0.003;  // seconds
constexpr double kLowEnd = 200, kHighStart = 2000;                           // hertz
constexpr double kAround = 0.75, kLeastGap = 0.06, kReach = 0.03;            // seconds: of the median, between onsets, of a peak
constexpr double kLogScale = 1000;                                        // log(1 + so many times the magnitude)
constexpr double kMasked = 0.5, kMasking = 0.15;                             // share and seconds: of what hides behind an onset
constexpr std::size_t kMedianStep = 16;

using Curve = std::vector<float>;

std::size_t PowerOfTwo(double samples) {
    std::size_t length = 64;
    while (static_cast<double>(length) * 1.42 < samples) length *= 2;
    return length;
}

bool IsIn(SoundBand band, double hertz) {
    switch (band) {
        case SoundBand::kLow:
            return hertz <= kLowEnd;
        case SoundBand::kMid:
            return hertz > kLowEnd && hertz <= kHighStart;
        case SoundBand::kHigh:
            return hertz > kHighStart;
        case SoundBand::kAll:
            break;
    }
    return true;
}

// A sixth of an octave or one bin each, from the lowest that the window tells apart: a note is as much as a hiss.
struct BinRange {
    std::size_t from, to;  // without `to`
};
std::vector<BinRange> RangesOf(SoundBand band, std::size_t length, double rate) {
    std::vector<BinRange> ranges;
    const double ratio = std::pow(2.0, 1.0 / 6);
    for (std::size_t from = 1; from < length / 2;) {
        const std::size_t to = std::min(length / 2 + 1, std::max(from + 1, static_cast<std::size_t>(std::ceil(static_cast<double>(from) * ratio))));
        const double middle = static_cast<double>(from + to - 1) / 2 * rate / static_cast<double>(length);
        if (IsIn(band, middle)) ranges.push_back({from, to});
        from = to;
    }
    return ranges;
}

// One number for each step: what rises against the spectrum `lag` steps before.
Curve Flux(const Sound &sound, SoundBand band, std::size_t length, std::size_t step, std::size_t lag) {
    std::vector<double> window(length), part(length);
    for (std::size_t i = 0; i < length; ++i)
        window[i] = (0.5 - 0.5 * std::cos(2 * host::kPi * (static_cast<double>(i) + 0.5) / static_cast<double>(length))) * 2 /
                    static_cast<double>(length);
    const std::vector<BinRange> ranges = RangesOf(band, length, sound.rate);
    Eigen::FFT<double> fft;
    std::vector<std::complex<double>> transform;
    const std::size_t count = sound.samples.size() / step + 1;
    std::vector<Curve> before(lag, Curve(ranges.size(), 0));
    // The first window that is full, and where a sound that began with it has died away.
    const std::size_t full = (length / 2 + step - 1) / step, later = full + static_cast<std::size_t>(kMasking * sound.rate) / step;
    Curve first;
    double fallen = 0;
    Curve flux;
    for (std::size_t k = 0; k < count; ++k) {
        const auto start = static_cast<std::ptrdiff_t>(k * step) - static_cast<std::ptrdiff_t>(length / 2);
        for (std::size_t i = 0; i < length; ++i) {
            const std::ptrdiff_t at = start + static_cast<std::ptrdiff_t>(i);
            const bool is_there = at >= 0 && at < static_cast<std::ptrdiff_t>(sound.samples.size());
            part[i] = is_there ? static_cast<double>(sound.samples[static_cast<std::size_t>(at)]) * window[i] : 0;
        }
        fft.fwd(transform, part);
        Curve &last = before[k % lag];
        double sum = 0;
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            double power = 0;
            for (std::size_t bin = ranges[i].from; bin < ranges[i].to; ++bin) power += std::norm(transform[bin]);
            const auto now = static_cast<float>(std::log1p(kLogScale * std::sqrt(power)));
            if (k >= full + lag) sum += std::max(0.0F, now - last[i]);
            last[i] = now;
        }
        if (k == full) first = last;
        for (std::size_t i = 0; k == later && i < ranges.size(); ++i) fallen += std::max(0.0F, first[i] - last[i]);
        flux.push_back(static_cast<float>(ranges.empty() ? 0 : sum / static_cast<double>(ranges.size())));
    }
    // Nobody knows what was before the first sample. A sound that begins there is told by its end.
    if (!ranges.empty()) flux.front() = static_cast<float>(fallen / static_cast<double>(ranges.size()));
    return flux;
}

float Median(Curve numbers) {
    if (numbers.empty()) return 0;
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

// What stands above the median around it.
Curve AboveMedian(const Curve &flux, double step) {
    const auto reach = static_cast<std::size_t>(kAround / step);
    Curve above(flux.size());
    float median = 0;
    for (std::size_t i = 0; i < flux.size(); ++i) {
        if (i % kMedianStep == 0) {
            const std::size_t from = i > reach ? i - reach : 0, to = std::min(flux.size(), i + reach + 1);
            median = Median(Curve(flux.begin() + static_cast<std::ptrdiff_t>(from), flux.begin() + static_cast<std::ptrdiff_t>(to)));
        }
        above[i] = std::max(0.0F, flux[i] - median);
    }
    return above;
}

// In multiples of how far noise reaches: its usual spread, and at least a little of the strongest.
void Normalise(Curve *curve) {
    Curve positive;
    float most = 0;
    for (const float value : *curve) {
        if (value > 0) positive.push_back(value);
        most = std::max(most, value);
    }
    const float spread = std::max(Median(positive), most * 0.02F);
    for (float &value : *curve) value = spread > 0 ? value / spread : 0;
}

std::vector<std::size_t> Peaks(const Curve &curve, std::size_t reach) {
    std::vector<std::size_t> peaks;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        if (curve[i] <= 0) continue;
        const std::size_t from = i > reach ? i - reach : 0, to = std::min(curve.size(), i + reach + 1);
        const auto begin = curve.begin() + static_cast<std::ptrdiff_t>(from), end = curve.begin() + static_cast<std::ptrdiff_t>(to);
        if (std::max_element(begin, end) - curve.begin() == static_cast<std::ptrdiff_t>(i)) peaks.push_back(i);
    }
    return peaks;
}

}  // namespace

std::vector<Onset> FindOnsets(const Sound &sound, const OnsetSettings &settings, OnsetCurve *curve) {
    const auto step = std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(kStep * sound.rate)));
    const double seconds = static_cast<double>(step) / sound.rate;
    curve->step = seconds;
    curve->novelty.clear();
    if (sound.samples.empty()) return {};
    const std::size_t short_length = PowerOfTwo(kShortWindow * sound.rate), long_length = PowerOfTwo(kLongWindow * sound.rate);
    // As far back as half a window: nearer, the spectra are too much alike.
    const auto lag = [step](std::size_t length) { return std::max<std::size_t>(1, length / 2 / step); };
    Curve brief = AboveMedian(Flux(sound, settings.band, short_length, step, lag(short_length)), seconds);
    Curve broad = AboveMedian(Flux(sound, settings.band, long_length, step, lag(long_length)), seconds);
    Normalise(&brief);
    Normalise(&broad);
    Curve both(brief.size());
    for (std::size_t i = 0; i < both.size(); ++i) both[i] = std::max(brief[i], broad[i]);

    const auto reach = std::max<std::size_t>(1, static_cast<std::size_t>(kReach / seconds));
    const std::vector<std::size_t> peaks = Peaks(both, reach);
    Curve heights;
    for (const std::size_t peak : peaks) heights.push_back(both[peak]);
    std::sort(heights.begin(), heights.end());
    const float strong = heights.empty() ? 0 : heights[heights.size() - 1 - heights.size() / 50];
    const double keenness = settings.sensitivity / 100;
    // From 24 times the usual spread and half of the strong peaks down to 5 times and a twentieth.
    const double threshold = std::max(24 * std::pow(5.0 / 24, keenness), strong * 0.5 * std::pow(0.1, keenness));
    for (const float value : both) curve->novelty.push_back(static_cast<float>(value / threshold));

    std::vector<Onset> onsets;
    const float strongest = heights.empty() ? 1 : heights.back();
    std::size_t loudest = 0;  // the last onset's peak
    for (const std::size_t peak : peaks) {
        if (both[peak] <= threshold) continue;
        // A sound that dies away in bursts is still one.
        const double gone = static_cast<double>(peak - loudest) * seconds;
        if (!onsets.empty() && both[peak] < kMasked * both[loudest] * std::exp(-gone / kMasking)) continue;
        loudest = peak;
        // Where a sound begins, the short window tells better.
        const std::size_t from = peak > reach ? peak - reach : 0, to = std::min(brief.size(), peak + reach + 1);
        const auto begin = brief.begin() + static_cast<std::ptrdiff_t>(from), end = brief.begin() + static_cast<std::ptrdiff_t>(to);
        const auto place = static_cast<double>(std::max_element(begin, end) - brief.begin());
        const double time = std::max(0.0, (place - 0.5 * static_cast<double>(lag(short_length)) + 0.5) * seconds);
        const Onset onset{time, std::sqrt(static_cast<double>(both[peak] / strongest))};
        if (!onsets.empty() && onset.seconds - onsets.back().seconds < kLeastGap) {
            if (onset.strength > onsets.back().strength) onsets.back() = onset;
        } else {
            onsets.push_back(onset);
        }
    }
    return onsets;
}

EventList ReadSound(const std::string &file, std::string_view bytes, const OnsetSettings &settings) {
    EventList list;
    list.curve.emplace();
    for (const Onset &onset : FindOnsets(ReadWave(file, bytes), settings, &*list.curve)) {
        if (list.events.size() == kMaxEvents) break;
        list.events.push_back({onset.seconds, onset.strength});
    }
    return list;
}

}  // namespace tremolux
