#include "engine/vector.h"

#include <gtest/gtest.h>

namespace {

using namespace engine;

void ExpectVector(const Vector3 &v, double x, double y, double z) {
    EXPECT_EQ(v.x, x);
    EXPECT_EQ(v.y, y);
    EXPECT_EQ(v.z, z);
}

TEST(Vector, IsNothingUntilItIsSet) { ExpectVector(Vector3(), 0, 0, 0); }

TEST(Vector, IsAddedTakenAwayAndMultipliedNumberByNumber) {
    ExpectVector(Vector3{1, 2, 3} + Vector3{10, 200, 3000}, 11, 202, 3003);
    ExpectVector(Vector3{1, 2, 3} - Vector3{10, 200, 3000}, -9, -198, -2997);
    ExpectVector(Vector3{1, 2, 3} * 5, 5, 10, 15);
}

TEST(Vector, HasALength) {
    EXPECT_EQ(Length({2, 3, 6}), 7);
    EXPECT_EQ(Length({-2, -3, -6}), 7);
    EXPECT_EQ(Length({}), 0);
}

TEST(Vector, IsSquareToBothOfACross) {
    ExpectVector(Cross({1, 0, 0}, {0, 1, 0}), 0, 0, 1);
    ExpectVector(Cross({2, 3, 5}, {7, 11, 13}), 3 * 13 - 5 * 11, 5 * 7 - 2 * 13, 2 * 11 - 3 * 7);
}

TEST(Vector, IsOfLengthOneWhenNormalizedUnlessItIsNone) {
    ExpectVector(Normalized({0, 3, -4}), 0, 0.6, -0.8);
    ExpectVector(Normalized({2, 0, 0}), 1, 0, 0);
    ExpectVector(Normalized({}), 0, 0, 0);
}

TEST(Vector, IsFiniteInAllItsNumbers) {
    EXPECT_TRUE(IsFinite(Vector3{1, 2, 3}));
    EXPECT_FALSE(IsFinite(Vector3{HUGE_VAL, 2, 3}));
    EXPECT_FALSE(IsFinite(Vector3{1, -HUGE_VAL, 3}));
    EXPECT_FALSE(IsFinite(Vector3{1, 2, std::nan("")}));
    EXPECT_TRUE(IsFinite(1.0));
    EXPECT_FALSE(IsFinite(HUGE_VAL));
}

}  // namespace
