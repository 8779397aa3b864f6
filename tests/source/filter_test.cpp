// Coefficients of the filters, and the overshoot's spring, one step at a time.
#include <gtest/gtest.h>

#include <cmath>

#include "host/value/memory.h"
#include "tag/state.h"
#include "tests/source/plain_tag.h"

namespace {

// y at x of the Bezier curve from (0, 0) to (1, 1) with the inner points (x1, y1) and (x2, y2), by bisection.
double Bezier(double x1, double y1, double x2, double y2, double x) {
    double low = 0, high = 1;
    for (int i = 0; i < 200; ++i) {
        const double s = (low + high) / 2, r = 1 - s;
        (3 * x1 * s * r * r + 3 * x2 * s * s * r + s * s * s < x ? low : high) = s;
    }
    const double s = (low + high) / 2, r = 1 - s;
    return 3 * y1 * s * r * r + 3 * y2 * s * s * r + s * s * s;
}

double AmountCurve(double x) { return Bezier(0.019, 0.063, 1 - 0.531, 1 - 0.109, x); }
double SmoothingCurve(double x) { return Bezier(0, 0.711, 1 - 0.238, 1 - 0.078, x); }
double ShakeCurve(double x) { return Bezier(0, 0.352, 1 - 0.125, 1, x); }
double OvershootCurve(double x) { return Bezier(0, 0.45, 1 - 0.25, 1 - 0.01, x); }

class Filter : public WithPlainTag {};

TEST_F(Filter, InputCoefficientsRunFromNoneToAlmostAll) {
    Real a, b;
    tag_->InputSmoothing(0, &a, &b);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0.15);
    tag_->InputSmoothing(1, &a, &b);
    EXPECT_EQ(a, 0.95);
    EXPECT_EQ(b, 1);
}

TEST_F(Filter, InputCoefficientsBendTwice) {
    for (const double amount : {0.01, 0.1, 0.25, 0.5, 0.75, 0.99}) {
        Real a, b, twin_a, twin_b;
        tag_->InputSmoothing(amount, &a, &b);
        const double bent = SmoothingCurve(AmountCurve(amount));
        EXPECT_NEAR(a, 0.95 * bent, 1e-12) << amount;
        EXPECT_NEAR(b, 0.15 + 0.85 * bent, 1e-12) << amount;
        tag_->InputSmoothingTwin(amount, &twin_a, &twin_b);
        EXPECT_EQ(twin_a, a);
        EXPECT_EQ(twin_b, b);
    }
}

TEST_F(Filter, ShakeCoefficientsBendOnce) {
    for (const double amount : {0.0, 0.01, 0.25, 0.5, 0.9, 1.0}) {
        Real a, b;
        tag_->ShakeSmoothing(amount, &a, &b);
        EXPECT_NEAR(a, 0.95 * ShakeCurve(amount), 1e-12) << amount;
        EXPECT_NEAR(b, 0.25 * ShakeCurve(amount), 1e-12) << amount;
    }
}

TEST_F(Filter, AmountsAreHeldBetweenNoneAndAll) {
    Real a, b;
    for (const double amount : {-1e308, -0.5, 1.5, 100.0, 1e308}) {
        tag_->InputSmoothing(amount, &a, &b);
        EXPECT_EQ(a, amount < 0 ? 0 : 0.95) << amount;
        tag_->ShakeSmoothing(amount, &a, &b);
        EXPECT_EQ(b, amount < 0 ? 0 : 0.25) << amount;
    }
}

TEST_F(Filter, WithoutMemoryForItsCurveLetsTheGoalThrough) {
    for (const int before : {0, 1}) {  // the first or the second curve
        Real a = 7, b = 7;
        host::RefuseCustomData(before, 1);
        tag_->InputSmoothing(0.5, &a, &b);
        host::RefuseCustomData(0, 0);
        EXPECT_EQ(tag_->SmoothRealValue(a, b, 3, 10, 42), 42);
        EXPECT_EQ(tag_->SmoothRealCarry(a, b, 3, 10, 42), 0);
    }
    Real a = 7, b = 7;
    host::RefuseCustomData(0, 1);
    tag_->ShakeSmoothing(0.5, &a, &b);
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(tag_->SmoothRealValue(a, b, 3, 10, 42), 42);
}

TEST_F(Filter, AStepAddsWhatTheFrameBeforeLeft) {
    // e = (1 - 0.25) * 4 + 30 - 10 = 23; a quarter of it is kept.
    EXPECT_EQ(tag_->SmoothRealCarry(0.25, 0.25, 4, 10, 30), 5.75);
    EXPECT_EQ(tag_->SmoothRealValue(0.25, 0.25, 4, 10, 30), 27.25);
    const Vector carry = tag_->SmoothVectorCarry(0.25, 0.25, Vector(4, 0, 8), Vector(10, 0, 1), Vector(30, 8, 1));
    EXPECT_TRUE(carry == Vector(5.75, 2, 1.5));
    const Vector value = tag_->SmoothVectorValue(0.25, 0.25, Vector(4, 0, 8), Vector(10, 0, 1), Vector(30, 8, 1));
    EXPECT_TRUE(value == Vector(27.25, 6, 5.5));
}

class Spring : public Filter {
  protected:
    // k, and what it makes of ramp and stiffness, at an amount.
    static double Loose(double amount) { return 0.99 * OvershootCurve(amount); }
    static double Ramp(double amount) { return (1 - Loose(amount)) * 0.05 + 0.005; }
    static double Stiffness(double amount) { return 1 - OvershootCurve(Loose(amount)); }

    double Follow(double input, double amount, double fade, LONG base = kOvershootPosition) {
        return tag_->Overshoot(Vector(input, 0, 0), amount, fade, &data_, base, 0).x;
    }
    Vector FollowAngles(const Vector &input, double amount, LONG base) {
        return tag_->Overshoot(input, amount, 0.5, &data_, base, 1);
    }
    // At rest on a value: that was its last output and its last input.
    void Rest(LONG base, const Vector &value) {
        data_.SetVector(base + kOvershootOutput, value);
        data_.SetVector(base + kOvershootInput, value);
        data_.SetVector(base + kOvershootVelocity, Vector());
        for (const LONG entry : {kOvershootDistance, kOvershootRamp, kOvershootStiffnessFade, kOvershootDampingFade,
                                 kOvershootPreviousDistance, kOvershootRampIncrement})
            data_.SetReal(base + entry, 0);
        data_.SetLong(base + kOvershootMoving, 0);
    }
    BaseContainer data_;
};

TEST_F(Spring, GivesWayOnAMoveAndSwingsOnWhereItStops) {
    const double amount = 0.6, q = Stiffness(amount), r = Ramp(amount), damping_fade = 0.5 * 0.02,
                 stiffness_fade = 0.005;
    Rest(kOvershootPosition, Vector());
    // The move: no ramp yet, damped by the stiffness.
    double speed = 100 * q, place = speed;
    EXPECT_NEAR(Follow(100, amount, 0.5), place, 1e-9);
    EXPECT_EQ(data_.GetLong(kOvershootPosition + kOvershootMoving), 1);
    // The stop: damping and ramp are gone, the fades begin.
    speed = (100 - place) * (q + stiffness_fade) + speed * (1 - damping_fade);
    place += speed;
    EXPECT_NEAR(Follow(100, amount, 0.5), place, 1e-9);
    EXPECT_EQ(data_.GetLong(kOvershootPosition + kOvershootMoving), 0);
    // From then on with the ramp; the fades add up.
    for (int frame = 2; frame <= 12; ++frame) {
        speed = (100 - place) * (r + q + frame * stiffness_fade) + speed * (1 - r - frame * damping_fade);
        place += speed;
        EXPECT_NEAR(Follow(100, amount, 0.5), place, 1e-9) << frame;
    }
    EXPECT_NEAR(data_.GetReal(kOvershootPosition + kOvershootDampingFade), 12 * damping_fade, 1e-12);
    EXPECT_NEAR(data_.GetReal(kOvershootPosition + kOvershootRamp), r, 1e-12);
}

TEST_F(Spring, IsDampedByRampAndStiffnessOnAMoveThatGoesOn) {
    const double amount = 0.6, q = Stiffness(amount), r = Ramp(amount);
    Rest(kOvershootPosition, Vector());
    double speed = 10 * q, place = speed;
    EXPECT_NEAR(Follow(10, amount, 1), place, 1e-9);
    for (int frame = 2; frame <= 10; ++frame) {
        speed = (10 * frame - place) * (r + q) + speed * (1 - r - q);
        place += speed;
        EXPECT_NEAR(Follow(10 * frame, amount, 1), place, 1e-9) << frame;
        EXPECT_EQ(data_.GetReal(kOvershootPosition + kOvershootDampingFade), 0);
    }
}

TEST_F(Spring, TakesStepsBelowItsMeasureForStandingStill) {
    Rest(kOvershootPosition, Vector());
    Follow(0.99, 0.5, 0);
    EXPECT_EQ(data_.GetReal(kOvershootPosition + kOvershootDistance), 0);
    EXPECT_NEAR(data_.GetReal(kOvershootPosition + kOvershootPreviousDistance), 0.99, 1e-15);
    EXPECT_EQ(data_.GetLong(kOvershootPosition + kOvershootMoving), 0);
    Follow(2, 0.5, 0);
    EXPECT_NEAR(data_.GetReal(kOvershootPosition + kOvershootDistance), 1.01, 1e-12);
    EXPECT_EQ(data_.GetLong(kOvershootPosition + kOvershootMoving), 1);
    Rest(kOvershootRotation, Vector());
    FollowAngles(Vector(0.0099, 0, 0), 0.5, kOvershootRotation);
    EXPECT_EQ(data_.GetLong(kOvershootRotation + kOvershootMoving), 0);
    FollowAngles(Vector(0.021, 0, 0), 0.5, kOvershootRotation);
    EXPECT_EQ(data_.GetLong(kOvershootRotation + kOvershootMoving), 1);
}

// 0.02 below the step before: slowing down for the fine tolerance of 0.001 alone.
TEST_F(Spring, SeesTheSlowdownOfTheSpareChannelFinely) {
    for (const LONG base : {kOvershootPosition, kOvershootSpare}) {
        Rest(base, Vector());
        Follow(5, 0.5, 0, base);
        Follow(9.98, 0.5, 0, base);
        EXPECT_EQ(data_.GetLong(base + kOvershootMoving), base == kOvershootSpare ? 0 : 1);
    }
}

TEST_F(Spring, AtAnAmountOfZeroLetsItsInputThroughAndForgets) {
    Rest(kOvershootPosition, Vector());
    for (int frame = 1; frame <= 5; ++frame) Follow(20 * frame, 0.5, 0.5);
    EXPECT_EQ(Follow(77, 0, 0.5), 77);
    EXPECT_EQ(data_.GetDataPointer(kOvershootPosition + kOvershootOutput), nullptr);
    EXPECT_TRUE(data_.GetVector(kOvershootPosition + kOvershootInput) == Vector(77, 0, 0));
    EXPECT_TRUE(data_.GetVector(kOvershootPosition + kOvershootVelocity) == Vector());
    for (const LONG entry : {kOvershootDistance, kOvershootRamp, kOvershootStiffnessFade, kOvershootDampingFade,
                             kOvershootPreviousDistance, kOvershootRampIncrement})
        EXPECT_EQ(data_.GetReal(kOvershootPosition + entry), 0) << entry;
    EXPECT_EQ(data_.GetLong(kOvershootPosition + kOvershootMoving), 0);
}

TEST_F(Spring, WithoutAnOutputStartsAtRestOnItsInput) {
    EXPECT_EQ(Follow(5000, 0.5, 0.5), 5000);
    EXPECT_EQ(Follow(5000, 0.5, 0.5), 5000);
    const Vector angles(2, 0.5, 0.25);
    EXPECT_TRUE(FollowAngles(angles, 0.5, kOvershootRotation) == angles);
}

TEST_F(Spring, WithoutMemoryForItsCurveLetsItsInputThrough) {
    Rest(kOvershootPosition, Vector());
    host::RefuseCustomData(0, 1);
    EXPECT_EQ(Follow(100, 0.5, 0.5), 100);
    host::RefuseCustomData(0, 0);
}

TEST_F(Spring, OfAnglesGoesTheShortWay) {
    // From 179 to -179 degrees are 2 degrees, and the output goes on past half a turn.
    const double degree = PI / 180;
    Rest(kOvershootRotation, Vector(179 * degree, 0, 0));
    const Vector output = FollowAngles(Vector(-179 * degree, 0, 0), 0.5, kOvershootRotation);
    EXPECT_NEAR(output.x, (179 + 2 * Stiffness(0.5)) * degree, 1e-12);
    EXPECT_NEAR(data_.GetVector(kOvershootRotation + kOvershootInput).x, 181 * degree, 1e-12);
}

TEST_F(Spring, OfAnglesKeepsTheOtherAnglesInStep) {
    for (const LONG base : {kOvershootRotation, kOvershootTarget}) {
        const LONG other = base == kOvershootRotation ? kOvershootTarget : kOvershootRotation;
        Rest(base, Vector(0.1, 0.1, 0.1));
        data_.SetVector(other + kOvershootVelocity, Vector(9, 9, 9));
        data_.SetReal(other + kOvershootPreviousDistance, 9);
        const Vector output = FollowAngles(Vector(1.1, 0.3, 0.2), 0.5, base);
        EXPECT_NEAR(data_.GetVector(other + kOvershootOutput).x, output.x, 1e-15);
        EXPECT_NEAR(data_.GetVector(other + kOvershootInput).y, 0.3, 1e-12);
        EXPECT_TRUE(data_.GetVector(other + kOvershootVelocity) == Vector());
        for (const LONG entry : {kOvershootDistance, kOvershootRamp, kOvershootStiffnessFade, kOvershootDampingFade,
                                 kOvershootPreviousDistance})
            EXPECT_EQ(data_.GetReal(other + entry), 0) << entry;
        EXPECT_EQ(data_.GetLong(other + kOvershootMoving), 0);
    }
}

TEST_F(Spring, OfATargetHasNoBank) {
    Rest(kOvershootTarget, Vector());
    const Vector output = FollowAngles(Vector(0.5, 0.2, 0.3), 0.5, kOvershootTarget);
    EXPECT_EQ(output.z, 0);
    EXPECT_EQ(data_.GetVector(kOvershootTarget + kOvershootOutput).z, 0);
    EXPECT_EQ(data_.GetVector(kOvershootTarget + kOvershootInput).z, 0);
    EXPECT_EQ(data_.GetVector(kOvershootTarget + kOvershootVelocity).z, 0);
    // The rotation's channel keeps what came before the bank was dropped.
    EXPECT_GT(data_.GetVector(kOvershootRotation + kOvershootOutput).z, 0);
}

TEST_F(Spring, OfAnglesAtAnAmountOfZeroForgetsBothChannels) {
    for (const LONG base : {kOvershootRotation, kOvershootTarget}) {
        const LONG other = base == kOvershootRotation ? kOvershootTarget : kOvershootRotation;
        Rest(kOvershootRotation, Vector(0.1, 0.1, 0.1));
        Rest(kOvershootTarget, Vector(0.1, 0.1, 0.1));
        FollowAngles(Vector(1, 0, 0), 0.5, base);
        const Vector input(0.7, 0.2, 0.3);
        EXPECT_TRUE(FollowAngles(input, 0, base) == input);
        for (const LONG channel : {base, other}) {
            EXPECT_EQ(data_.GetDataPointer(channel + kOvershootOutput), nullptr);
            EXPECT_TRUE(data_.GetVector(channel + kOvershootInput) == input);
            for (const LONG entry :
                 {kOvershootDistance, kOvershootStiffnessFade, kOvershootDampingFade, kOvershootRampIncrement})
                EXPECT_EQ(data_.GetReal(channel + entry), 0) << entry;
        }
    }
}

}  // namespace
