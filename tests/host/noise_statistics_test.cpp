// The strength and speed of the noise where modules sample it: at whole numbers in space, time running. Presets are
// calibrated on these figures, so docs/noise.md and the noise must not drift apart.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/services/noise.h"
#include "host/value/radians.h"

namespace host {
namespace {

constexpr int kPoints = 1000, kCells = 60, kSamplesPerCell = 20;

struct Point {
    double x, y, z;
};

// The first sample point of the shake along X, for seeds spread over the slider's range 0 to 99999.
Point ShakePoint(int i) {
    const double seed = i * 7919 % 100000;
    return {seed + 1235 + 5846, seed + 1235 + 87755, seed + 1235 + 98745};
}

std::vector<double> Sampled(const Point &p, int cells, int per_cell) {
    std::vector<double> values;
    for (int i = 0; i <= cells * per_cell; ++i)
        values.push_back(SignedNoise(p.x, p.y, p.z, static_cast<double>(i) / per_cell));
    return values;
}

// The least distance between the lowest and the highest value in any stretch of two cells.
double LeastMovement(const std::vector<double> &values) {
    const std::ptrdiff_t window = 2 * kSamplesPerCell + 1;
    double least = HUGE_VAL;
    for (auto from = values.begin(); values.end() - from >= window; ++from) {
        const auto [low, high] = std::minmax_element(from, from + window);
        least = std::min(least, *high - *low);
    }
    return least;
}

struct Statistics {
    double mean, rms, peak, least_movement;
};

template <typename PointOf>
Statistics Measure(PointOf point_of) {
    Statistics result{0, 0, 0, HUGE_VAL};
    double sum = 0, squares = 0;
    for (int i = 0; i < kPoints; ++i) {
        const std::vector<double> values = Sampled(point_of(i), kCells, kSamplesPerCell);
        for (double v : values) {
            sum += v / static_cast<double>(values.size());
            squares += v * v / static_cast<double>(values.size());
            result.peak = std::max(result.peak, std::fabs(v));
        }
        result.least_movement = std::min(result.least_movement, LeastMovement(values));
    }
    result.mean = sum / kPoints;
    result.rms = std::sqrt(squares / kPoints);
    return result;
}

void ExpectLively(const Statistics &s) {
    EXPECT_LT(std::fabs(s.mean), 0.02);
    EXPECT_GT(s.rms, 0.22);
    EXPECT_LT(s.rms, 0.35);
    EXPECT_GT(s.peak, 0.8);
    EXPECT_LE(s.peak, 1);
    EXPECT_GT(s.least_movement, 0.02);
}

// In place, length a power of two.
void Fourier(std::vector<std::complex<double>> *values) {
    auto &a = *values;
    const std::size_t n = a.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        std::size_t bit = n / 2;
        for (; (j & bit) != 0; bit /= 2) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(a[i], a[j]);
    }
    for (std::size_t length = 2; length <= n; length *= 2)
        for (std::size_t start = 0; start < n; start += length)
            for (std::size_t k = 0; k < length / 2; ++k) {
                const auto turned = a[start + k + length / 2] *
                                    std::polar(1.0, -2 * kPi * static_cast<double>(k) / static_cast<double>(length));
                a[start + k + length / 2] = a[start + k] - turned;
                a[start + k] += turned;
            }
}

// The frequency that halves the energy, in cycles per lattice cell of time: averaged Hann-windowed spectra.
double MedianFrequency() {
    constexpr int kRuns = 100, kPerCell = 8;
    constexpr std::size_t kLength = 2048;  // 256 cells: steps of 1/256 cycle
    std::vector<double> energy(kLength / 2, 0);
    for (int run = 0; run < kRuns; ++run) {
        const Point p = ShakePoint(run);
        std::vector<std::complex<double>> values(kLength);
        for (std::size_t i = 0; i < kLength; ++i) {
            const double window = 0.5 - 0.5 * std::cos(2 * kPi * static_cast<double>(i) / kLength);
            values[i] = window * SignedNoise(p.x, p.y, p.z, static_cast<double>(i) / kPerCell);
        }
        Fourier(&values);
        for (std::size_t i = 0; i < energy.size(); ++i) energy[i] += std::norm(values[i]);
    }
    double total = 0, below = 0;
    for (double e : energy) total += e;
    for (std::size_t i = 0; i < energy.size(); ++i) {
        below += energy[i];
        if (below >= total / 2) return static_cast<double>(i) * kPerCell / kLength;
    }
    return 0;
}

// The figure that the page gives in a line of its table such as "| RMS | 0.30 |".
double Documented(const std::string &label) {
    std::ifstream file(std::string(TREMOLUX_SOURCE_DIR) + "/docs/noise.md");
    const std::string page((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const std::string row = "| " + label + " | ";
    const std::size_t at = page.find(row);
    return at == std::string::npos ? std::nan("") : std::strtod(page.c_str() + at + row.size(), nullptr);
}

TEST(NoiseStatistics, AreStrongAndLivelyAtWholeNumberPoints) {
    ExpectLively(Measure([](int i) { return Point{i % 10 * 1.0, i / 10 % 10 * 1.0, i / 100 * 1.0}; }));
}

TEST(NoiseStatistics, AreStrongAndLivelyWhereTheShakeSamples) { ExpectLively(Measure(ShakePoint)); }

TEST(NoiseStatistics, AreStrongAndLivelyFarFromTheOriginAndOnTheNegativeSide) {
    ExpectLively(Measure([](int i) { return Point{-1600000.0 + i, 1558963.0 - i, -99999.0 + 3 * i}; }));
}

// Heading and pitch share x; their curves must still have nothing to do with each other.
TEST(NoiseStatistics, PointsThatShareXMoveIndependently) {
    double product = 0, squares = 0;
    for (int i = 0; i < kPoints; ++i) {
        const double seed = i * 7919 % 100000, x = seed + 2973;
        for (int k = 0; k < 40; ++k) {
            const double heading = SignedNoise(x, x + 876, x + 54789, k * 0.7),
                         pitch = SignedNoise(x, x + 35896, x + 254123, k * 0.7);
            product += heading * pitch;
            squares += (heading * heading + pitch * pitch) / 2;
        }
    }
    // 40,000 nearly independent samples scatter the correlation by about 1 / sqrt(40000 / 2) = 0.007.
    EXPECT_LT(std::fabs(product / squares), 0.03);
}

TEST(NoiseStatistics, AreThoseOfTheDocumentation) {
    const Statistics measured = Measure(ShakePoint);
    EXPECT_NEAR(Documented("RMS"), measured.rms, 0.005);
    EXPECT_NEAR(Documented("Peak"), measured.peak, 0.01);
    EXPECT_NEAR(Documented("Median frequency"), MedianFrequency(), 0.01);
    EXPECT_NEAR(Documented("Least movement"), measured.least_movement, 0.005);
}

}  // namespace
}  // namespace host
