#include "library/frame_rates/smoothing_filter.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>

#include "host/value/radians.h"


namespace tremolux {
namespace {

constexpr std::size_t kMeasured = 50, kTried = 1000;
constexpr double kLowest = 0.1, kHighest = 12;  // hertz
constexpr double kUsable = 0.8;                 // of half a frame rate
constexpr int kFrequencies = 40;

}  // namespace

SmoothingFilter FitFilter(const std::vector<double> &goal, const std::vector<double> &smoothed) {
    // Two unknowns: p times the last step and q times the way to the goal make the next step.
    double uu = 0, uv = 0, vv = 0, us = 0, vs = 0;
    for (std::size_t i = 2; i < smoothed.size(); ++i) {
        const double u = smoothed[i - 1] - smoothed[i - 2], v = goal[i] - smoothed[i - 1],
                     s = smoothed[i] - smoothed[i - 1];
        uu += u * u;
        uv += u * v;
        vv += v * v;
        us += u * s;
        vs += v * s;
    }
    const double determinant = uu * vv - uv * uv;
    if (determinant <= 0) return {};
    return {(us * vv - vs * uv) / determinant, (vs * uu - us * uv) / determinant};
}

double GainOf(const SmoothingFilter &filter, double cycles) {
    const std::complex<double> z = std::polar(1.0, -2 * host::kPi * cycles);
    return filter.q / std::abs((1.0 - z) * (1.0 - filter.p * z) + filter.q * z);
}

SmoothingAmounts::SmoothingAmounts(const std::function<std::vector<double>(double)> &play) {
    const std::vector<double> goal = play(0);
    filters_.emplace_back();
    for (std::size_t i = 1; i <= kMeasured; ++i)
        filters_.push_back(FitFilter(goal, play(static_cast<double>(i) / kMeasured)));
}

SmoothingFilter SmoothingAmounts::At(double amount) const {
    const double place = std::clamp(amount, 0.0, 1.0) * kMeasured;
    const std::size_t index = std::min(static_cast<std::size_t>(place), kMeasured - 1);
    const double share = place - static_cast<double>(index);
    const SmoothingFilter &a = filters_[index], &b = filters_[index + 1];
    return {a.p + (b.p - a.p) * share, a.q + (b.q - a.q) * share};
}

SmoothingAmounts::Match SmoothingAmounts::Carried(double amount, double made_for, double rate) const {
    const double highest = std::min(kHighest, kUsable * std::min(made_for, rate) / 2);
    const SmoothingFilter before = At(amount);
    Match best{amount, 0};
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i <= kTried; ++i) {
        const double tried = static_cast<double>(i) / kTried;
        const SmoothingFilter after = At(tried);
        double squares = 0, worst = 0;
        for (int k = 0; k < kFrequencies; ++k) {
            const double hertz = kLowest * std::pow(highest / kLowest, k / (kFrequencies - 1.0));
            const double off = std::log(GainOf(after, hertz / rate) / GainOf(before, hertz / made_for));
            squares += off * off;
            worst = std::max(worst, std::abs(std::expm1(off)));
        }
        if (squares >= least) continue;
        least = squares;
        best = {tried, worst};
    }
    return best;
}

}  // namespace tremolux
