#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "host/value/memory.h"
#include "tag/state.h"
#include "tests/source/plain_tag.h"
#include "tests/support/shake_model.h"

namespace {

using model::Weights;

class Sampling : public WithPlainTag {
  protected:
    Real Position(int axis, Real seed, Real offset, const Weights &w, Real ratio, Real intensity, Real scale,
                  Real speed, Real clock) {
        switch (axis) {
            case 0:
                return tag_->ShakePositionX(seed, offset, w.slow, w.medium, w.fast, ratio, 1, intensity, scale, speed,
                                            clock);
            case 1:
                return tag_->ShakePositionY(seed, offset, w.slow, w.medium, w.fast, ratio, 1, intensity, scale, speed,
                                            clock);
            default:
                return tag_->ShakePositionZ(seed, offset, w.slow, w.medium, w.fast, ratio, 1, intensity, scale, speed,
                                            clock);
        }
    }
    Real Rotation(int angle, Real seed, LONG offset, const Weights &w, Real ratio, Real intensity, Real speed,
                  Real clock) {
        switch (angle) {
            case 0:
                return tag_->ShakeRotationH(seed, offset, w.slow, w.medium, w.fast, ratio, intensity, speed, clock);
            case 1:
                return tag_->ShakeRotationP(seed, offset, w.slow, w.medium, w.fast, ratio, intensity, speed, clock);
            default:
                return tag_->ShakeRotationB(seed, offset, w.slow, w.medium, w.fast, ratio, intensity, speed, clock);
        }
    }
    Real Focus(Real clock, LONG offset, const Weights &w, LONG seed, Real rate, Real speed, Real distance) {
        BaseContainer data;
        data.SetReal(kFocusClock, clock);
        return tag_->FocusDrift(&data, offset, w.slow, w.medium, w.fast, seed, rate, speed, distance);
    }
    Real Zoom(LONG time, Real seed, Real rate, const Weights &w, Real multiplier, Real clock) {
        return tag_->ZoomDrift(time, seed, rate, w.slow, w.medium, w.fast, multiplier, clock);
    }
    TremoluxCamClass &Tag() { return *tag_; }

  private:
};

// A number with four binary digits, so that no argument of the noise hangs on the order of a product.
double Between(int low, int high) { return *rc::gen::inRange(low * 16, high * 16 + 1) / 16.0; }
Weights SomeWeights() { return {Between(-2, 2), Between(-2, 2), Between(-2, 2)}; }
double SomeSeed() { return *rc::gen::inRange(0, 100000); }

// The noise is smooth (its slope stays below 10), times stay below 1e5: rounding in the last digit of a time moves it
// by less than 1e-9 of the amplitude.
bool Near(double got, double wanted, double amplitude) {
    return std::fabs(got - wanted) <= 1e-9 * (1 + std::fabs(amplitude));
}

RC_GTEST_FIXTURE_PROP(Sampling, PositionShakeFollowsItsFormulaOnEveryAxis, ()) {
    const double seed = SomeSeed(), offset = Between(-100, 100), ratio = Between(0, 3), intensity = Between(0, 3);
    const double scale = Between(0, 2), speed = Between(0, 4), clock = Between(0, 20000);
    const Weights weights = SomeWeights();
    const double amplitude = 1000 * ratio * intensity * scale;
    for (int axis = 0; axis < 3; ++axis)
        RC_ASSERT(Near(Position(axis, seed, offset, weights, ratio, intensity, scale, speed, clock),
                       model::PositionShake(axis, seed, offset, weights, ratio, intensity, scale, speed, clock),
                       amplitude));
}

RC_GTEST_FIXTURE_PROP(Sampling, RotationShakeFollowsItsFormulaForEveryAngle, ()) {
    const double seed = SomeSeed(), ratio = Between(0, 3), intensity = Between(0, 3);
    const double speed = Between(0, 4), clock = Between(0, 20000);
    const LONG offset = *rc::gen::inRange(-1000, 1000);
    const Weights weights = SomeWeights();
    for (int angle = 0; angle < 3; ++angle)
        RC_ASSERT(Near(Rotation(angle, seed, offset, weights, ratio, intensity, speed, clock),
                       model::RotationShake(angle, seed, offset, weights, ratio, intensity, speed, clock),
                       ratio * intensity));
}

RC_GTEST_FIXTURE_PROP(Sampling, FocusDriftFollowsItsFormula, ()) {
    const double rate = Between(0, 4), speed = Between(0, 4), distance = Between(0, 5000), clock = Between(0, 5000);
    const LONG offset = *rc::gen::inRange(-1000, 1000), seed = *rc::gen::inRange(0, 100000);
    const Weights weights = SomeWeights();
    RC_ASSERT(Near(Focus(clock, offset, weights, seed, rate, speed, distance),
                   model::FocusDrift(clock, offset, weights, seed, rate, speed, distance), distance));
}

RC_GTEST_FIXTURE_PROP(Sampling, ZoomDriftFollowsItsFormula, ()) {
    const double seed = SomeSeed(), rate = Between(0, 4), multiplier = Between(0, 4), clock = Between(0, 5000);
    const LONG time = *rc::gen::inRange(-1000, 1000);
    const Weights weights = SomeWeights();
    RC_ASSERT(Near(Zoom(time, seed, rate, weights, multiplier, clock),
                   model::ZoomDrift(time, seed, rate, weights, multiplier, clock), 1));
}

TEST_F(Sampling, PositionLayersWeighSixtySixFifteenAndOneAndAQuarterHundredths) {
    // One layer at a time, amplitude 1000 * 1 * 1: what is left is the layer's weight times its noise.
    const double clock = 123.5;
    EXPECT_NEAR(Position(0, 12345, 0, {1, 0, 0}, 1, 1, 1, 1, clock),
                660 * host::SignedNoise(12345 + 1235 + 5846, 12345 + 1235 + 87755, 12345 + 1235 + 98745, clock * 0.005),
                1e-9);
    EXPECT_NEAR(Position(1, 12345, 0, {0, 1, 0}, 1, 1, 1, 1, clock),
                150 * host::SignedNoise(12345 + 201, 12345 + 201 + 125478, 12345 + 201 + 332145, clock * 0.035), 1e-9);
    EXPECT_NEAR(Position(2, 12345, 0, {0, 0, 1}, 1, 1, 1, 1, clock),
                12.5 * host::SignedNoise(12345 + 9876, 12345 + 9876 + 325687, 12345 + 9876 + 254145, clock * 0.5),
                1e-9);
}

TEST_F(Sampling, TheFlagOfThePositionShakeIsIgnored) {
    const Real with = Tag().ShakePositionX(7, 0, 1, 1, 1, 1, 1, 1, 1, 1, 50);
    const Real without = Tag().ShakePositionX(7, 0, 1, 1, 1, 1, 0, 1, 1, 1, 50);
    EXPECT_NE(with, 0);
    EXPECT_EQ(with, without);
}

TEST_F(Sampling, WeightsOfZeroGiveExactlyZero) {
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(Position(axis, 12345, 3, {0, 0, 0}, 1, 1, 0.15, 1, 77), 0);
        EXPECT_EQ(Rotation(axis, 12345, 3, {0, 0, 0}, 1, 1, 1, 77), 0);
    }
    EXPECT_EQ(Focus(77, 3, {0, 0, 0}, 12345, 1, 1, 500), 0);
    EXPECT_EQ(Zoom(3, 12345, 1, {0, 0, 0}, 1, 77), 0);
}

TEST_F(Sampling, AnAxisRatioOfZeroGivesExactlyZeroWhateverTheIntensity) {
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(Position(axis, 12345, 3, {1, 1, 1}, 0, 1e6, 0.15, 1, 77), 0);
        EXPECT_EQ(Rotation(axis, 12345, 3, {1, 1, 1}, 0, 1e6, 1, 77), 0);
    }
}

TEST_F(Sampling, SpeedZeroHoldsEveryLayerStill) {
    const Weights all{1, 1, 1};
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(Position(axis, 5, 0, all, 1, 1, 1, 0, 10), Position(axis, 5, 0, all, 1, 1, 1, 0, 9999));
        EXPECT_EQ(Rotation(axis, 5, 0, all, 1, 1, 0, 10), Rotation(axis, 5, 0, all, 1, 1, 0, 9999));
    }
    EXPECT_EQ(Focus(10, 0, all, 5, 1, 0, 100), Focus(9999, 0, all, 5, 1, 0, 100));
}

TEST_F(Sampling, ATimeOffsetActsLikeAClockThatIsFurtherOn) {
    const Weights all{1, 1, 1};
    EXPECT_EQ(Position(0, 5, 2.5, all, 1, 1, 1, 1, 10), Position(0, 5, 0, all, 1, 1, 1, 1, 12.5));
    EXPECT_EQ(Rotation(0, 5, 2, all, 1, 1, 1, 10), Rotation(0, 5, 0, all, 1, 1, 1, 12));
    EXPECT_EQ(Focus(10, 2, all, 5, 1, 1, 100), Focus(12, 0, all, 5, 1, 1, 100));
    EXPECT_EQ(Zoom(2, 5, 1, all, 1, 10), Zoom(0, 5, 1, all, 1, 12));
}

TEST_F(Sampling, ASeedChangesEveryLayerButTheFastOneOfTheZoom) {
    const Weights layers[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (const Weights &layer : layers) {
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_NE(Position(axis, 12345, 0, layer, 1, 1, 1, 1, 200),
                      Position(axis, 54321, 0, layer, 1, 1, 1, 1, 200));
            EXPECT_NE(Rotation(axis, 12345, 0, layer, 1, 1, 1, 200), Rotation(axis, 54321, 0, layer, 1, 1, 1, 200));
        }
        EXPECT_NE(Focus(200, 0, layer, 12345, 1, 1, 100), Focus(200, 0, layer, 54321, 1, 1, 100));
    }
    EXPECT_NE(Zoom(0, 12345, 1, layers[0], 1, 200), Zoom(0, 54321, 1, layers[0], 1, 200));
    EXPECT_NE(Zoom(0, 12345, 1, layers[1], 1, 200), Zoom(0, 54321, 1, layers[1], 1, 200));
    EXPECT_NE(Zoom(0, 12345, 1, layers[2], 1, 200), 0);
    EXPECT_EQ(Zoom(0, 12345, 1, layers[2], 1, 200), Zoom(0, 54321, 1, layers[2], 1, 200));
}

TEST_F(Sampling, HeadingAndPitchShareTheFirstNumberOfTheirPointsOnly) {
    for (int layer = 0; layer < 3; ++layer) {
        const model::Place &heading = model::kRotationPlaces[0][layer], &pitch = model::kRotationPlaces[1][layer];
        EXPECT_EQ(heading.At(0).x, pitch.At(0).x);
        EXPECT_NE(heading.At(0).y, pitch.At(0).y);
        EXPECT_NE(heading.At(0).z, pitch.At(0).z);
        Weights only{0, 0, 0};
        (layer == 0 ? only.slow : layer == 1 ? only.medium : only.fast) = 1;
        EXPECT_NE(Rotation(0, 12345, 0, only, 1, 1, 1, 60), Rotation(1, 12345, 0, only, 1, 1, 1, 60));
    }
}

TEST_F(Sampling, FocusDriftGrowsWithTheDistance) {
    const Real once = Focus(300, 0, {1, 1, 1}, 12345, 1, 1, 100);
    EXPECT_NE(once, 0);
    EXPECT_NEAR(Focus(300, 0, {1, 1, 1}, 12345, 1, 1, 200), 2 * once, 1e-9);
    EXPECT_EQ(Focus(300, 0, {1, 1, 1}, 12345, 1, 1, 0), 0);
}

TEST_F(Sampling, AFocusClockThatIsNoNumberCountsAsZero) {
    const Weights all{1, 1, 1};
    const Real nan = std::nan("");
    EXPECT_EQ(Focus(nan, 5, all, 12345, 1, 1, 100), Focus(0, 5, all, 12345, 1, 1, 100));
    EXPECT_EQ(Focus(HUGE_VAL, 5, all, 12345, 1, 1, 100), Focus(0, 5, all, 12345, 1, 1, 100));
}

TEST_F(Sampling, TheLargestSeedsAndOffsetsOfAWholeNumberAreSafe) {
    const LONG most = 2147483647, least = -2147483647 - 1;
    for (const LONG seed : {most, least}) {
        for (const LONG offset : {most, least}) {
            EXPECT_TRUE(std::isfinite(Focus(1, offset, {1, 1, 1}, seed, 1, 1, 100)));
            EXPECT_TRUE(std::isfinite(Zoom(offset, seed, 1, {1, 1, 1}, 1, 1)));
            EXPECT_TRUE(std::isfinite(Rotation(0, seed, offset, {1, 1, 1}, 1, 1, 1, 1)));
        }
    }
}

TEST_F(Sampling, ZoomDriftIsZeroWhenTheHostHasNoMemoryForTheCurve) {
    host::RefuseCustomData(0, 1);
    EXPECT_EQ(Zoom(0, 12345, 1, {1, 1, 1}, 1, 200), 0);
    host::RefuseCustomData(0, 0);
    EXPECT_NE(Zoom(0, 12345, 1, {1, 1, 1}, 1, 200), 0);
}

TEST_F(Sampling, ACallOfTheModulesFunctionsNeedsNoDocument) {
    EXPECT_EQ(application().ActiveDocument(), nullptr);
    EXPECT_NE(Position(0, 12345, 0, {1, 0, 0}, 1, 1, 1, 1, 5), 0);
}

}  // namespace
