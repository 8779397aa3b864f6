#include "library/fit/levels.h"

#include <algorithm>
#include <cmath>

#include "host/value/radians.h"
#include "library/measures/spectrum.h"

namespace tremolux {
namespace {

constexpr double kFurthest = 6.907755278982137;  // ln 1000
constexpr double kStillBand = 1e-8;              // RMS

double SumOfProducts(const std::vector<double> &a, const std::vector<double> &b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
    return sum;
}

void Subtract(const std::vector<double> &what, double share, std::vector<double> *from) {
    for (std::size_t i = 0; i < what.size(); ++i) (*from)[i] -= share * what[i];
}

// Constant, and cosines with k half periods in `count` samples: orthogonal to each other.
std::vector<std::vector<double>> SlowCosines(std::size_t count, double rate) {
    std::vector<std::vector<double>> cosines;
    const double length = static_cast<double>(count);
    for (int k = 0; k == 0 || k * rate / (2 * length) < kSlowestShake; ++k) {
        std::vector<double> cosine(count);
        for (std::size_t i = 0; i < count; ++i)
            cosine[i] = std::cos(host::kPi * k * (static_cast<double>(i) + 0.5) / length);
        cosines.push_back(std::move(cosine));
    }
    return cosines;
}

}  // namespace

AxisMotion MotionOfAxes(const CameraMove &move) {
    std::vector<CameraSample> samples = move.samples;
    MakeContinuous(&samples);
    AxisMotion motion;
    for (std::vector<double> &axis : motion) axis.reserve(samples.size());
    for (const CameraSample &sample : samples) {
        const host::Vector degrees = sample.angles * (1 / kRadiansPerDegree);
        const double values[kAxes] = {sample.position.x, sample.position.y, sample.position.z,
                                      degrees.x,         degrees.y,         degrees.z};
        for (std::size_t axis = 0; axis < kAxes; ++axis) motion[axis].push_back(values[axis]);
    }
    return motion;
}

AxisMotion PartOf(const AxisMotion &motion, std::size_t first, std::size_t count) {
    AxisMotion part;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const auto start = motion[axis].begin() + static_cast<std::ptrdiff_t>(first);
        part[axis].assign(start, start + static_cast<std::ptrdiff_t>(count));
    }
    return part;
}

double RemoveDrift(double rate, std::vector<double> *samples) {
    const std::size_t count = samples->size();
    if (count < 2) return 0;
    std::vector<double> line(count);
    for (std::size_t i = 0; i < count; ++i) line[i] = static_cast<double>(i);
    double before = -1;
    for (const std::vector<double> &cosine : SlowCosines(count, rate)) {
        const double square = SumOfProducts(cosine, cosine);
        Subtract(cosine, SumOfProducts(*samples, cosine) / square, samples);
        Subtract(cosine, SumOfProducts(line, cosine) / square, &line);
        // The first is constant: the mean.
        if (before < 0) before = SumOfProducts(*samples, *samples);
    }
    // What is left of the line is orthogonal to them all.
    if (const double square = SumOfProducts(line, line); square > 0)
        Subtract(line, SumOfProducts(*samples, line) / square, samples);
    return std::max(0.0, before - SumOfProducts(*samples, *samples)) / static_cast<double>(count);
}

ShakeLevels MeasureLevels(const std::vector<AxisMotion> &takes, double rate) {
    std::vector<ShakeLevels> levels(takes.size());
    for (std::size_t take = 0; take < takes.size(); ++take) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            std::vector<double> samples = takes[take][axis];
            AxisLevels &found = levels[take][axis];
            found.drift = std::sqrt(RemoveDrift(rate, &samples));
            const Spectrum spectrum = MeasureSpectrum(samples, rate);
            for (std::size_t band = 0; band < kFitBands.size(); ++band)
                found.bands[band] = BandRms(spectrum, kFitBands[band].low, kFitBands[band].high);
            found.total = BandRms(spectrum, 0, rate);
        }
    }
    return MeanLevels(levels);
}

ShakeLevels MeanLevels(const std::vector<ShakeLevels> &levels) {
    ShakeLevels mean{};
    const auto root_mean_square = [&](const auto &of) {
        double sum = 0;
        for (const ShakeLevels &one : levels) sum += of(one) * of(one);
        return levels.empty() ? 0 : std::sqrt(sum / static_cast<double>(levels.size()));
    };
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (std::size_t band = 0; band < kFitBands.size(); ++band)
            mean[axis].bands[band] = root_mean_square([&](const ShakeLevels &one) { return one[axis].bands[band]; });
        mean[axis].total = root_mean_square([&](const ShakeLevels &one) { return one[axis].total; });
        mean[axis].drift = root_mean_square([&](const ShakeLevels &one) { return one[axis].drift; });
    }
    return mean;
}

bool IsJudged(const AxisLevels &wanted, std::size_t band) {
    return !wanted.IsStill() && wanted.bands[band] > kStillBand;
}

double LogRatio(double found, double wanted) {
    if (found <= 0 || wanted <= 0) return found < wanted ? -kFurthest : found > wanted ? kFurthest : 0;
    return std::clamp(std::log(found / wanted), -kFurthest, kFurthest);
}

double DistanceOf(const ShakeLevels &found, const ShakeLevels &wanted) {
    double sum = 0;
    int count = 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (std::size_t band = 0; band < kFitBands.size(); ++band) {
            if (!IsJudged(wanted[axis], band)) continue;
            sum += std::abs(LogRatio(found[axis].bands[band], wanted[axis].bands[band]));
            ++count;
        }
    }
    return count == 0 ? 0 : sum / count;
}

double DriftBeyond(const ShakeLevels &found, const ShakeLevels &wanted) {
    double sum = 0;
    int count = 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (wanted[axis].IsStill()) continue;
        sum += std::max(0.0, LogRatio(found[axis].drift, kMostDrift * wanted[axis].bands[0]));
        ++count;
    }
    return count == 0 ? 0 : sum / count;
}

}  // namespace tremolux
