// Placements worked out apart from the readers: row vectors, degrees, right-handed.
#pragma once

#include <cmath>
#include <cstddef>

namespace rows {

struct Matrix {
    double numbers[4][4];
    double (&operator[](std::size_t row))[4] { return numbers[row]; }
    const double (&operator[](std::size_t row) const)[4] { return numbers[row]; }
};

// `a` first, then `b`.
inline Matrix operator*(const Matrix &a, const Matrix &b) {
    Matrix product{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            for (std::size_t k = 0; k < 4; ++k) product[i][j] += a[i][k] * b[k][j];
    return product;
}

inline Matrix One() { return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}; }
inline Matrix Move(double x, double y, double z) { return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1}}}; }
inline Matrix Scale(double x, double y, double z) { return {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}}; }
inline double Cos(double degrees) { return std::cos(degrees * 3.14159265358979323846 / 180); }
inline double Sin(double degrees) { return std::sin(degrees * 3.14159265358979323846 / 180); }
// Y to Z, Z to X and X to Y at +90 degrees.
inline Matrix X(double d) { return {{{1, 0, 0, 0}, {0, Cos(d), Sin(d), 0}, {0, -Sin(d), Cos(d), 0}, {0, 0, 0, 1}}}; }
inline Matrix Y(double d) { return {{{Cos(d), 0, -Sin(d), 0}, {0, 1, 0, 0}, {Sin(d), 0, Cos(d), 0}, {0, 0, 0, 1}}}; }
inline Matrix Z(double d) { return {{{Cos(d), Sin(d), 0, 0}, {-Sin(d), Cos(d), 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}; }

}  // namespace rows
