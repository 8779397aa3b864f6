#include <gtest/gtest.h>

#include "c4d.h"

namespace {

void ExpectVector(const Vector &actual, const Vector &expected) {
    EXPECT_DOUBLE_EQ(actual.x, expected.x);
    EXPECT_DOUBLE_EQ(actual.y, expected.y);
    EXPECT_DOUBLE_EQ(actual.z, expected.z);
}

TEST(Vector, TimesVectorIsTheDotProduct) {
    // 1 * 4 + 2 * 5 + 3 * 6
    EXPECT_EQ(Vector(1, 2, 3) * Vector(4, 5, 6), 32.0);
}

TEST(Vector, PercentIsTheCrossProduct) {
    ExpectVector(Vector(1, 0, 0) % Vector(0, 1, 0), Vector(0, 0, 1));
    Vector v(0, 1, 0);
    v %= Vector(0, 0, 1);
    ExpectVector(v, Vector(1, 0, 0));
}

TEST(Vector, CaretMultipliesComponents) { ExpectVector(Vector(1, 2, 3) ^ Vector(4, 5, 6), Vector(4, 10, 18)); }

TEST(Vector, DividedByZeroIsZero) {
    ExpectVector(Vector(1, 2, 3) / 0.0, Vector());
    Vector v(1, 2, 3);
    v /= 0.0;
    ExpectVector(v, Vector());
}

TEST(Vector, ExclamationMarkNormalises) {
    ExpectVector(!Vector(3, 0, 4), Vector(0.6, 0, 0.8));
    ExpectVector(!Vector(), Vector());
}

TEST(Vector, OfOneNumberHasItThreeTimes) { ExpectVector(Vector(2.5), Vector(2.5, 2.5, 2.5)); }

TEST(Vector, EqualityIsExact) {
    EXPECT_TRUE(Vector(1, 2, 3) == Vector(1, 2, 3));
    EXPECT_TRUE(Vector(1, 2, 3) != Vector(1, 2, 3.0000001));
    EXPECT_TRUE(VectorEqual(Vector(1, 2, 3), Vector(1, 2, 3.005)));
    EXPECT_FALSE(VectorEqual(Vector(1, 2, 3), Vector(1, 2, 3.02)));
}

TEST(Matrix, IsTheIdentityAtFirst) { ExpectVector(Vector(1, 2, 3) * Matrix(), Vector(1, 2, 3)); }

TEST(Matrix, MovesPointsButNotDirections) {
    const Matrix m = MatrixMove(Vector(10, 20, 30));
    ExpectVector(Vector(1, 2, 3) * m, Vector(11, 22, 33));
    ExpectVector(m * Vector(1, 2, 3), Vector(11, 22, 33));
    ExpectVector(Vector(1, 2, 3) ^ m, Vector(1, 2, 3));
}

TEST(Matrix, ProductAppliesTheRightSideFirst) {
    const Matrix move = MatrixMove(Vector(1, 0, 0)), scale = MatrixScale(Vector(2, 2, 2));
    // Scaled first: 2 * 3 + 1. Moved first: 2 * (3 + 1).
    ExpectVector(Vector(3, 0, 0) * (move * scale), Vector(7, 0, 0));
    ExpectVector(Vector(3, 0, 0) * (scale * move), Vector(8, 0, 0));
}

TEST(Matrix, ExclamationMarkInverts) {
    const Matrix m = MatrixMove(Vector(5, -6, 7)) * MatrixRotY(0.4) * MatrixRotX(-1.1) * MatrixScale(Vector(2, 3, 4));
    const Vector point(1, 2, 3), back = point * m * !m;
    EXPECT_NEAR(back.x, 1, 1e-12);
    EXPECT_NEAR(back.y, 2, 1e-12);
    EXPECT_NEAR(back.z, 3, 1e-12);
}

TEST(Matrix, OfNoVolumeInvertsToTheIdentity) { EXPECT_TRUE((!MatrixScale(Vector(1, 0, 1))) == Matrix()); }

TEST(Matrix, NormalizeKeepsTheOffset) {
    Matrix m = MatrixMove(Vector(1, 2, 3)) * MatrixScale(Vector(2, 3, 4));
    ExpectVector(m.GetScale(), Vector(2, 3, 4));
    m.Normalize();
    ExpectVector(m.off, Vector(1, 2, 3));
    ExpectVector(m.GetScale(), Vector(1, 1, 1));
}

TEST(Matrix, HeadingTurnsTheViewTowardMinusX) {
    ExpectVector(Vector(0, 0, 1) ^ MatrixRotY(PI05), Vector(-1, 0, Cos(PI05)));
}

TEST(Matrix, PitchRaisesTheView) { ExpectVector(Vector(0, 0, 1) ^ MatrixRotX(PI05), Vector(0, 1, Cos(PI05))); }

TEST(Random, StartsWithTheKnownSequence) {
    // (101 * 69069) mod 2^31 = 6975969; the next: (6975970 * 69069) mod 2^31.
    Random random;
    EXPECT_DOUBLE_EQ(random.Get01(), 6975969.0 / 2147483649.0);
    const std::uint64_t second = (6975970ull * 69069ull) % 2147483648ull;
    EXPECT_DOUBLE_EQ(random.Get01(), static_cast<double>(second) / 2147483649.0);
}

}  // namespace
