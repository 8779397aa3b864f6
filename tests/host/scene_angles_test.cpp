#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "host/value/radians.h"
#include "scene_compare.h"

namespace host {
namespace {

double Angle(int least, int most) { return *rc::gen::inRange(least, most + 1) / 1000.0; }

Matrix Turn(int axis, double angle) {
    // Heading turns the view (+Z) toward -X, pitch raises it, bank turns the up axis toward +X.
    const double c = std::cos(angle), s = std::sin(angle);
    switch (axis) {
        case 0:
            return {{0, 0, 0}, {1, 0, 0}, {0, c, -s}, {0, s, c}};
        case 1:
            return {{0, 0, 0}, {c, 0, s}, {0, 1, 0}, {-s, 0, c}};
        default:
            return {{0, 0, 0}, {c, -s, 0}, {s, c, 0}, {0, 0, 1}};
    }
}

double TurnDistance(const Matrix &a, const Matrix &b) {
    return Length(a.v1 - b.v1) + Length(a.v2 - b.v2) + Length(a.v3 - b.v3);
}

double Sum(const Vector &v) { return std::fabs(v.x) + std::fabs(v.y) + std::fabs(v.z); }

TEST(Angles, NoAnglesAreTheIdentity) { EXPECT_EQ(HpbToMatrix({0, 0, 0}), kIdentity); }

TEST(Angles, PositiveHeadingTurnsTheViewToTheLeft) {
    const Matrix m = HpbToMatrix({kPi / 2, 0, 0});
    EXPECT_NEAR(m.v3.x, -1, 1e-15);
    EXPECT_NEAR(m.v3.z, 0, 1e-15);
}

TEST(Angles, PositivePitchRaisesTheView) { EXPECT_NEAR(HpbToMatrix({0, kPi / 6, 0}).v3.y, 0.5, 1e-15); }

RC_GTEST_PROP(Angles, MatrixIsBankThenPitchThenHeading, ()) {
    const Vector hpb{Angle(-7000, 7000), Angle(-7000, 7000), Angle(-7000, 7000)};
    RC_ASSERT(TurnDistance(HpbToMatrix(hpb), Turn(1, hpb.x) * (Turn(0, hpb.y) * Turn(2, hpb.z))) < 1e-14);
}

RC_GTEST_PROP(Angles, AxesFollowEachOtherByTheCrossProduct, ()) {
    const Matrix m = HpbToMatrix({Angle(-7000, 7000), Angle(-7000, 7000), Angle(-7000, 7000)});
    RC_ASSERT(Length(Cross(m.v1, m.v2) - m.v3) < 1e-14);
}

RC_GTEST_PROP(Angles, ComeBackFromTheirMatrixInsideTheirRanges, ()) {
    const Vector hpb{Angle(0, 6283), Angle(-1570, 1570), Angle(0, 6283)};
    const Vector back = MatrixToHpb(HpbToMatrix(hpb));
    RC_ASSERT(back.x >= 0 && back.x < 2 * kPi && std::fabs(back.y) <= kPi / 2 && back.z >= 0 && back.z < 2 * kPi);
    // Near the poles (pitch 1.57 leaves a level part of 0.0008) the digits of heading and bank shrink accordingly.
    const double tolerance = 1e-12 / std::cos(hpb.y);
    RC_ASSERT(std::fabs(std::remainder(back.x - hpb.x, 2 * kPi)) < tolerance);
    RC_ASSERT(std::fabs(back.y - hpb.y) < 1e-12);
    RC_ASSERT(std::fabs(std::remainder(back.z - hpb.z, 2 * kPi)) < tolerance);
}

RC_GTEST_PROP(Angles, AnyScaleIsRemovedFirst, ()) {
    const Vector hpb{Angle(0, 6283), Angle(-1500, 1500), Angle(0, 6283)};
    Matrix m = HpbToMatrix(hpb);
    m.v1 = m.v1 * Angle(100, 9000);
    m.v2 = m.v2 * Angle(100, 9000);
    m.v3 = m.v3 * Angle(100, 9000);
    RC_ASSERT(TurnDistance(HpbToMatrix(MatrixToHpb(m)), HpbToMatrix(hpb)) < 1e-11);
}

RC_GTEST_PROP(Angles, StraightUpAndDownAllTurningIsBank, ()) {
    const double pitch = *rc::gen::element(-kPi / 2, kPi / 2);
    const Matrix m = HpbToMatrix({Angle(0, 6283), pitch, Angle(0, 6283)});
    const Vector back = MatrixToHpb(m);
    RC_ASSERT(back.x == 0.0);
    RC_ASSERT(std::fabs(back.y - pitch) < 1e-15);
    RC_ASSERT(TurnDistance(HpbToMatrix(back), m) < 1e-12);
}

RC_GTEST_PROP(Angles, EveryNamedOrderComesBackAsTheSameRotation, ()) {
    const std::int32_t order = *rc::gen::inRange(0, 6);
    const Vector angles{Angle(-4000, 4000), Angle(-4000, 4000), Angle(-4000, 4000)};
    const Matrix m = HpbToMatrix(angles, order);
    RC_ASSERT(TurnDistance(HpbToMatrix(MatrixToHpb(m, order), order), m) < 1e-10);
}

TEST(Angles, OrderThreeIsHeadingPitchBankByAxes) {
    // About the parent's z, then x, then y: bank, pitch, heading, stored by axis.
    const Matrix m = HpbToMatrix({0.2, 0.1, 0.3}, 3);
    EXPECT_LT(TurnDistance(m, HpbToMatrix({0.1, 0.2, 0.3})), 1e-15);
}

RC_GTEST_PROP(Angles, AnUnknownOrderCountsAsHeadingPitchBank, ()) {
    const std::int32_t order = *rc::gen::element(-1, 7, 100, -2147483647);
    const Vector hpb{Angle(0, 6283), Angle(-1500, 1500), Angle(0, 6283)};
    RC_ASSERT(HpbToMatrix(hpb, order) == HpbToMatrix(hpb));
}

// Every way to write the rotation, whole turns included, tried one by one.
double ClosestByTrying(const Vector &old_hpb, const Vector &new_hpb) {
    double closest = 1e300;
    for (int form = 0; form < 2; ++form) {
        const Vector base = form == 0 ? new_hpb : Vector{kPi + new_hpb.x, kPi - new_hpb.y, kPi + new_hpb.z};
        double sum = 0;
        for (double Vector::*part : {&Vector::x, &Vector::y, &Vector::z}) {
            double best = 1e300;
            for (int turns = -6; turns <= 6; ++turns) {
                best = std::min(best, std::fabs(base.*part + turns * 2 * kPi - old_hpb.*part));
            }
            sum += best;
        }
        closest = std::min(closest, sum);
    }
    return closest;
}

RC_GTEST_PROP(OptimalAngle, IsTheSameRotationAndTheClosestOfAll, ()) {
    const Vector before{Angle(-9000, 9000), Angle(-9000, 9000), Angle(-9000, 9000)};
    const Vector goal{Angle(-9000, 9000), Angle(-9000, 9000), Angle(-9000, 9000)};
    const Vector best = OptimalAngle(before, goal);
    RC_ASSERT(TurnDistance(HpbToMatrix(best), HpbToMatrix(goal)) < 1e-13);
    RC_ASSERT(std::fabs(Sum(best - before) - ClosestByTrying(before, goal)) < 1e-12);
}

TEST(OptimalAngle, ContinuesPastAWholeTurn) {
    // 6.2 to 0.1: the next step forward is 0.1 + 2 pi.
    const Vector best = OptimalAngle({6.2, 0, 0}, {0.1, 0, 0});
    EXPECT_NEAR(best.x, 0.1 + 2 * kPi, 1e-12);
    EXPECT_NEAR(best.y, 0, 1e-12);
    EXPECT_NEAR(best.z, 0, 1e-12);
}

TEST(OptimalAngle, GoesOverThePoleInsteadOfTurningRound) {
    // Pitch 1.6 comes from a matrix as (pi, pi - 1.6, pi).
    const Vector best = OptimalAngle({0, 1.5, 0}, {kPi, kPi - 1.6, kPi});
    EXPECT_NEAR(best.x, 0, 1e-12);
    EXPECT_NEAR(best.y, 1.6, 1e-12);
    EXPECT_NEAR(best.z, 0, 1e-12);
}

}  // namespace
}  // namespace host
