#include "host/value/time.h"

#include <cmath>

#include "host/value/data.h"

namespace host {

namespace {

// Euclid's algorithm on whole numbers that are held in doubles; fmod is exact.
double GreatestCommonDivisor(double a, double b) {
    while (b >= 0.5) {
        const double rest = std::fmod(a, b);
        a = b;
        b = rest;
    }
    return a;
}

double Rounded(double magnitude) { return std::floor(magnitude + 0.5); }

}  // namespace

Time MakeTime(double numerator, double denominator) {
    if (!std::isfinite(numerator) || !std::isfinite(denominator)) return {0, 1};
    const double z = Rounded(std::fabs(numerator));
    double n = Rounded(std::fabs(denominator));
    if (n < 1) n = 1;
    if (z < 1) return {0, 1};
    const double divisor = GreatestCommonDivisor(z, n);
    const double sign = (numerator < 0) != (denominator < 0) ? -1 : 1;
    return {sign * z / divisor, n / divisor};
}

double Seconds(const Time &time) { return time.denominator == 0 ? 0 : time.numerator / time.denominator; }

std::int32_t FrameOf(const Time &time, double fps) {
    const double denominator = std::floor(time.denominator);
    if (denominator == 0) return 0;
    return TruncatedWhole(std::floor(time.numerator * fps) / denominator);
}

bool SameTime(const Time &a, const Time &b) {
    if (a.numerator == b.numerator && a.denominator == b.denominator) return true;
    return std::floor(a.numerator * b.denominator) == std::floor(b.numerator * a.denominator);
}

bool Before(const Time &a, const Time &b) {
    if (a.numerator == b.numerator && a.denominator == b.denominator) return false;
    const double left = a.numerator * b.denominator, right = b.numerator * a.denominator;
    // A whole unit apart, as all times of whole numbers are, they need no rounding.
    return right - left >= 1 || (left < right && std::floor(left) < std::floor(right));
}

}  // namespace host
