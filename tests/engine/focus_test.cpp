#include "engine/focus.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "engine/settings.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// 1.5 = 0.75 * 20 / 10, 0.4 = 0.2 * 20 / 10 and 0.1 = 0.05 * 20 / 10 of the distance.
double Drift(const FocusSettings &s, double clock, double distance) {
    const double time = (std::trunc(s.time_offset) + clock) * s.speed * s.rate;
    const PlainPoint slow = {2960, 0, 154789, 478932}, medium = {2000, 0, 24789, 35754},
                     fast = {2093, 0, 356654, 58907};
    return distance * (1.5 * s.weights.slow * slow.At(s.seed, 0.005 * time) +
                       0.4 * s.weights.medium * medium.At(s.seed, 0.035 * time) +
                       0.1 * s.weights.fast * fast.At(s.seed, 0.25 * time));
}

FocusSettings AnyFocus() {
    FocusSettings s;
    s.smooth = *Between(0, 1);
    s.drifts = true;
    s.rate = *Between(0, 5);
    s.weights = {*Between(0, 1), *Between(0, 1), *Between(0, 1)};
    s.drift_smooth = *Between(0, 1);
    s.seed = *rc::gen::inRange(0, 100000);
    s.speed = *Between(0, 3);
    s.time_offset = *Between(-50, 50);
    return s;
}

RC_GTEST_PROP(FocusDrift, FollowsItsFormula, ()) {
    const FocusSettings s = AnyFocus();
    const double clock = *Between(0, 500), distance = *Between(0, 100);
    RC_ASSERT(std::abs(DriftFocus(s, clock, distance, PlainHost()) - Drift(s, clock, distance)) < 1e-6);
}

// The raw drift is what is remembered, and at the start or where it is nothing none is.
RC_GTEST_PROP(Focus, IsTheFollowedOneAndItsDrift, ()) {
    Operations operations(PlainHost());
    FocusSettings s = AnyFocus();
    s.drifts = *rc::gen::weightedElement<bool>({{3, true}, {1, false}});
    FocusMemory memory;
    PlainFilter input, drift;
    for (int frame = 0; frame < 6; ++frame) {
        FocusInput in;
        in.distance = *Between(10, 100);
        in.drift_clock = 1.3 * frame;
        in.starts = *rc::gen::weightedElement<bool>({{4, false}, {1, true}});
        in.has_object = *rc::gen::arbitrary<bool>();
        in.camera = *Within(-50, 50);
        in.object = *Within(-50, 50);
        const Vector3 way = in.object - in.camera;
        const double goal = in.has_object ? std::hypot(std::hypot(way.x, way.y), way.z) : in.distance;
        const double drifting = in.has_object ? goal : input.value;
        double expected = input.Step(InputPair(s.smooth), goal);
        if (s.drifts) {
            const double raw = Drift(s, in.drift_clock, drifting);
            if (in.starts || raw == 0.0) {
                expected += raw;
            } else {
                expected += drift.Step(ShakePair(s.drift_smooth), raw);
                drift.value = raw;
            }
        }
        RC_ASSERT(std::abs(StepFocus(s, in, &operations, &memory) - expected) < 1e-4);
        RC_ASSERT(std::abs(memory.drift.value - drift.value) < 1e-4);
        RC_ASSERT(std::abs(memory.drift.carry - drift.carry) < 1e-4);
    }
}

TEST(Focus, SwingsByItsOwnSpring) {
    Operations operations(PlainHost());
    FocusSettings s;
    s.smooth = 0.4;
    s.swing = {0.6, 0.4};
    FocusMemory memory;
    RealFilter filter;
    Spring spring;
    for (const double distance : {30.0, 40.0, 50.0, 50.0, 50.0}) {
        FocusInput in;
        in.distance = distance;
        const double expected = FollowLens(Channel::kFocus, distance, 0.4, {0.6, 0.4}, &operations, &filter, &spring);
        EXPECT_EQ(StepFocus(s, in, &operations, &memory), expected);
    }
}

TEST(Focus, TakesAnObjectBeyondTheNumbersForNone) {
    Operations operations(PlainHost());
    FocusMemory memory;
    FocusInput in;
    in.distance = 42;
    in.has_object = true;
    for (const double far : {1e200, HUGE_VAL, std::nan("")}) {
        in.object = {far, 0, 0};
        EXPECT_EQ(StepFocus(FocusSettings(), in, &operations, &memory), 42);
    }
}

FocusSettings Drifting(double smooth) {
    FocusSettings s;
    s.drifts = true;
    s.rate = s.speed = 1;
    s.weights = {1, 1, 1};
    s.drift_smooth = smooth;
    return s;
}

TEST(Focus, DriftThatIsNoNumberAddsNothingAndStartsFromRest) {
    Operations operations(PlainHost());
    FocusInput in;
    in.distance = 50;
    in.drift_clock = 3;
    // A value that is none, and a carry that becomes none.
    for (const bool breaks_carry : {false, true}) {
        FocusMemory memory;
        memory.input.value = 50;
        memory.drift = breaks_carry ? RealFilter{1.7e308, -1.7e308} : RealFilter{0, std::nan("")};
        EXPECT_NEAR(StepFocus(Drifting(breaks_carry ? 1 : 0), in, &operations, &memory), 50, 1e-9);
        EXPECT_EQ(memory.drift.carry, 0);
        EXPECT_EQ(memory.drift.value, 0);
    }
    // On the first frame too.
    in.starts = true;
    FocusMemory memory;
    memory.input.value = 50;
    memory.drift = {5, 5};
    FocusSettings broken = Drifting(0);
    broken.weights.slow = HUGE_VAL;
    EXPECT_NEAR(StepFocus(broken, in, &operations, &memory), 50, 1e-9);
    EXPECT_EQ(memory.drift.value, 0);
}

TEST(FocusSettings, AreNothingUntilTheyAreSet) {
    const auto &[smooth, swing, drifts, rate, weights, drift_smooth, seed, speed, offset] = FocusSettings();
    EXPECT_TRUE(IsNothing(smooth, swing, drifts, rate, weights, drift_smooth, seed, speed, offset));
    const auto &[distance, has_object, object, camera, frame, clock, starts] = FocusInput();
    EXPECT_TRUE(IsNothing(distance, has_object, object, camera, frame, clock, starts));
}

TEST(FocusSettings, AreThoseOfThePanel) {
    Settings panel;
    panel.focus_smooth = 1, panel.focus_overshoot = 2, panel.focus_overshoot_fade = 3;
    panel.focus_rate = 4, panel.focus_drift_slow = 5, panel.focus_drift_medium = 6, panel.focus_drift_fast = 7;
    panel.focus_drift_smooth = 8, panel.seed = 9.9, panel.speed = 10, panel.time_offset = 11.5;
    EXPECT_FALSE(FocusSettingsOf(panel).drifts);
    panel.use_focus = true;
    const FocusSettings s = FocusSettingsOf(panel);
    EXPECT_TRUE(s.drifts);
    EXPECT_EQ(s.smooth, 1);
    EXPECT_EQ(s.swing.amount, 2);
    EXPECT_EQ(s.swing.fade, 3);
    EXPECT_EQ(s.rate, 4);
    EXPECT_EQ(s.weights.slow, 5);
    EXPECT_EQ(s.weights.medium, 6);
    EXPECT_EQ(s.weights.fast, 7);
    EXPECT_EQ(s.drift_smooth, 8);
    EXPECT_EQ(s.seed, 9);
    EXPECT_EQ(s.speed, 10);
    EXPECT_EQ(s.time_offset, 11.5);
}

}  // namespace
