#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "customgui_splinecontrol.h"
#include "tests/source/plain_tag.h"
#include "tests/support/shake_model.h"

namespace {

class RemapValue : public WithPlainTag {
  protected:
    void TearDown() override {
        SplineData::Free(curve_);
        WithPlainTag::TearDown();
    }

    Real Remap(Real x, Real in_low, Real in_high, Real out_low, Real out_high, LONG mode = 0, LONG clamp_low = 0,
               LONG clamp_high = 0) {
        return tag_->RemapValue(x, in_low, in_high, out_low, out_high, NULL, mode, clamp_low, clamp_high);
    }
    Real RemapAlong(Real x, Real in_low, Real in_high, Real out_low, Real out_high, LONG mode = 0, LONG clamp_low = 0,
                    LONG clamp_high = 0) {
        return tag_->RemapValue(x, in_low, in_high, out_low, out_high, EaseInAndOut(), mode, clamp_low, clamp_high);
    }
    TremoluxCamClass &Tag() { return *tag_; }

    // Level tangents half a unit long: x = 1.5 s (1 - s) + s^3, y = 3 s^2 - 2 s^3.
    SplineData *EaseInAndOut() {
        if (curve_) return curve_;
        curve_ = SplineData::Alloc();
        if (!curve_) return NULL;
        curve_->InsertKnot(0, 0);
        curve_->InsertKnot(1, 1);
        curve_->GetKnot(0)->vTangentRight = Vector(0.5, 0, 0);
        curve_->GetKnot(1)->vTangentLeft = Vector(-0.5, 0, 0);
        return curve_;
    }

  private:
    SplineData *curve_ = NULL;
};

TEST_F(RemapValue, MapsTheEndsAndTheMiddleOfTheRange) {
    EXPECT_EQ(Remap(2, 2, 6, 10, 30), 10);
    EXPECT_EQ(Remap(6, 2, 6, 10, 30), 30);
    EXPECT_EQ(Remap(4, 2, 6, 10, 30), 20);
}

TEST_F(RemapValue, GivesTheOutputMinimumForAnInputRangeWithoutLength) {
    EXPECT_EQ(Remap(7, 3, 3, 10, 30), 10);
    EXPECT_EQ(RemapAlong(7, 3, 3, 10, 30, 1, 1, 1), 10);
}

TEST_F(RemapValue, GivesTheOutputMaximumForAnOutputRangeWithoutLength) {
    EXPECT_EQ(Remap(7, 0, 1, 4, 4), 4);
    EXPECT_EQ(RemapAlong(-7, 0, 1, 4, 4), 4);
}

TEST_F(RemapValue, LooksAtTheInputRangeFirstWhenBothHaveNoLength) { EXPECT_EQ(Remap(7, 3, 3, 4, 4), 4); }

TEST_F(RemapValue, GoesOnInAStraightLineBelowTheRange) {
    // t = -0.5: 10 - 0.5 * 20
    EXPECT_EQ(Remap(0, 2, 6, 10, 30), 0);
}

TEST_F(RemapValue, HoldsTheLowEndWhenClampedThere) {
    EXPECT_EQ(Remap(0, 2, 6, 10, 30, 0, 1, 0), 10);
    EXPECT_EQ(Remap(0, 2, 6, 10, 30, 1, 1, 0), 10);
}

TEST_F(RemapValue, AddsWholeRangesAboveTheRangeInModeZero) {
    // t = 2.25 wraps to 0.25 and leaves 2 whole ranges of 20.
    EXPECT_DOUBLE_EQ(Remap(11, 2, 6, 10, 30), 10 + 0.25 * 20 + 2 * 20);
}

TEST_F(RemapValue, WrapsAboveTheRangeInOtherModes) {
    EXPECT_DOUBLE_EQ(Remap(11, 2, 6, 10, 30, 1), 10 + 0.25 * 20);
    EXPECT_DOUBLE_EQ(Remap(11, 2, 6, 10, 30, 2), 10 + 0.25 * 20);
    EXPECT_DOUBLE_EQ(RemapAlong(11, 2, 6, 10, 30, 2), 10 + 0.25 * 20) << "the curve is skipped past the range";
}

TEST_F(RemapValue, HoldsTheHighEndWhenClampedThere) {
    EXPECT_EQ(Remap(11, 2, 6, 10, 30, 0, 0, 1), 30);
    EXPECT_EQ(Remap(11, 2, 6, 10, 30, 1, 0, 1), 30);
}

TEST_F(RemapValue, DoesNotWrapTheVeryEndOfTheRange) {
    EXPECT_EQ(Remap(6, 2, 6, 10, 30, 1), 30);
    EXPECT_EQ(RemapAlong(6, 2, 6, 10, 30, 1), 30);
}

TEST_F(RemapValue, ActsOnAClampFlagOfExactlyOne) {
    EXPECT_EQ(Remap(0, 2, 6, 10, 30, 0, 2, 0), 0);
    EXPECT_DOUBLE_EQ(Remap(11, 2, 6, 10, 30, 0, 0, 2), 55);
}

TEST_F(RemapValue, BendsAlongACurveInsideTheRange) {
    // s = 0.25: x = 1.5 * 0.1875 + 0.015625 = 0.296875, y = 0.1875 - 0.03125 = 0.15625
    EXPECT_NEAR(RemapAlong(0.296875, 0, 1, 0, 1), 0.15625, 1e-9);
    EXPECT_NEAR(RemapAlong(0.5, 0, 1, -1, 1), 0, 1e-9);
    EXPECT_NEAR(RemapAlong(-1 + 2 * 0.296875, -1, 1, -1, 1), -1 + 2 * 0.15625, 1e-9);
}

TEST_F(RemapValue, HoldsTheCurvesEndBelowTheRange) {
    EXPECT_EQ(RemapAlong(-3, 0, 1, 10, 30), 10);
    EXPECT_EQ(RemapAlong(-3, 0, 1, 10, 30, 1), 10);
}

TEST_F(RemapValue, SkipsTheCurveAboveTheRangeInModeZero) {
    // t = 1.296875: a whole range, and the straight rest of it.
    EXPECT_NEAR(RemapAlong(1.296875, 0, 1, 0, 1), 1.296875, 1e-12);
}

TEST_F(RemapValue, BendsTheWrappedRestAlongTheCurveInModeOne) {
    EXPECT_NEAR(RemapAlong(1.296875, 0, 1, 0, 1, 1), 0.15625, 1e-9);
}

TEST_F(RemapValue, TurnsTheValueRoundForARangeThatFalls) {
    EXPECT_EQ(Remap(6, 6, 2, 10, 30), 10);
    EXPECT_EQ(Remap(3, 6, 2, 10, 30), 25);
    EXPECT_EQ(Remap(3, 2, 6, 30, 10), 25);
}

// The rules again, one line each.
double Expected(double x, double in_low, double in_high, double out_low, double out_high, bool curve, int mode,
                int clamp_low, int clamp_high) {
    if (in_high - in_low == 0) return out_low;
    if (out_high - out_low == 0) return out_high;
    const double t = (x - in_low) / (in_high - in_low);
    double base = t, whole = 0;
    if (t < 0 && clamp_low == 1) base = 0;
    if (t > 1 && clamp_high == 1) base = 1;
    if (t > 1 && clamp_high != 1) {
        base = std::fmod(t, 1.0);
        whole = t - base;
    }
    if (curve && (whole == 0 || mode == 1)) {
        base = model::EaseCurve(0.5, 0.5, base);
        if (mode == 1) whole = 0;
    } else {
        whole = mode == 0 ? whole * (out_high - out_low) : 0;
    }
    double result = (out_high - out_low) * base + out_low + whole;
    if (!curve && clamp_low == 1) result = std::fmax(result, out_low);
    if (!curve && clamp_high == 1) result = std::fmin(result, out_high);
    return result;
}

RC_GTEST_FIXTURE_PROP(RemapValue, AgreesWithItsRulesWrittenDownAgain, ()) {
    // Multiples of an eighth keep every quotient's whole part exact on both sides.
    const auto eighths = [](int low, int high) { return *rc::gen::inRange(low, high) / 8.0; };
    const double in_low = eighths(-40, 40), in_high = in_low + eighths(-24, 24);
    const double out_low = eighths(-40, 40), out_high = out_low + eighths(0, 24);
    const double x = eighths(-200, 200);
    const int mode = *rc::gen::inRange(-1, 4), clamp_low = *rc::gen::inRange(0, 3),
              clamp_high = *rc::gen::inRange(0, 3);
    const bool curve = *rc::gen::arbitrary<bool>();
    const Real got = curve ? RemapAlong(x, in_low, in_high, out_low, out_high, mode, clamp_low, clamp_high)
                           : Remap(x, in_low, in_high, out_low, out_high, mode, clamp_low, clamp_high);
    const double wanted = Expected(x, in_low, in_high, out_low, out_high, curve, mode, clamp_low, clamp_high);
    RC_ASSERT(std::fabs(got - wanted) < 1e-9);
}

}  // namespace
