#include "engine/zoom.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "engine/settings.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

double Drift(const ZoomSettings &s, double clock) {
    const double time = (std::trunc(s.time_offset) + clock) * s.speed * s.rate, place = 0.25 * s.rate;
    const PlainPoint slow = {2960, 19758, 25100, 0}, medium = {2000, 130569, 10356, 0};
    return s.weights.slow * Eased(0.25, slow.At(s.seed, 0.005 * time)) +
           0.6 * s.weights.medium * Eased(0.25, medium.At(s.seed, 0.035 * time)) +
           0.15 * s.weights.fast * Eased(0.25, Noise({place + 87456, place + 48962, place}, 0.25 * time));
}

ZoomSettings AnyZoom() {
    ZoomSettings s;
    s.smooth = *Between(0, 1);
    s.drifts = true;
    s.rate = *Between(0, 5);
    s.weights = {*Between(0, 2), *Between(0, 2), *Between(0, 2)};
    s.drift_smooth = *Between(0, 1);
    s.seed = *rc::gen::inRange(0, 100000);
    s.speed = *Between(0, 3);
    s.time_offset = *Between(-50, 50);
    return s;
}

RC_GTEST_PROP(ZoomDrift, FollowsItsFormula, ()) {
    Operations operations(PlainHost());
    const ZoomSettings s = AnyZoom();
    const double clock = *Between(0, 500);
    RC_ASSERT(std::abs(DriftZoom(s, clock, &operations) - Drift(s, clock)) < 1e-6);
    RC_ASSERT(LivingCurves() == 0);
}

// The carry is reckoned against the value just reached.
RC_GTEST_PROP(Zoom, IsTheFollowedOneAndItsDrift, ()) {
    Operations operations(PlainHost());
    ZoomSettings s = AnyZoom();
    s.drifts = *rc::gen::weightedElement<bool>({{3, true}, {1, false}});
    ZoomMemory memory;
    PlainFilter input;
    double carry = 0, value = 0;
    for (int frame = 0; frame < 6; ++frame) {
        const double focal = *Between(10, 100), clock = 1.3 * frame;
        const bool starts = *rc::gen::weightedElement<bool>({{4, false}, {1, true}});
        double expected = input.Step(InputPair(s.smooth), focal);
        if (s.drifts) {
            const double goal = focal * Drift(s, clock);
            const Pair pair = ShakePair(s.drift_smooth);
            const double back = (1 - pair.b) * carry, reached = value + (1 - pair.a) * (back + goal - value);
            carry = starts ? 0 : pair.a * (back + reached - value);
            value = starts ? goal : reached;
            expected += value;
        }
        RC_ASSERT(std::abs(StepZoom(s, {focal, double(frame), clock, starts}, &operations, &memory) - expected) < 1e-4);
        RC_ASSERT(std::abs(memory.drift.carry - carry) < 1e-4);
        RC_ASSERT(std::abs(memory.drift.value - value) < 1e-4);
    }
}

TEST(Zoom, SwingsByItsOwnSpring) {
    Operations operations(PlainHost());
    ZoomSettings s;
    s.smooth = 0.4;
    s.swing = {0.6, 0.4};
    ZoomMemory memory;
    RealFilter filter;
    Spring spring;
    for (const double focal : {30.0, 40.0, 50.0, 50.0, 50.0}) {
        const double expected = FollowLens(Channel::kZoom, focal, 0.4, {0.6, 0.4}, &operations, &filter, &spring);
        EXPECT_EQ(StepZoom(s, {focal, 1, 0, false}, &operations, &memory), expected);
    }
}

TEST(Zoom, DoesNotDriftWithoutMemoryForItsCurve) {
    Operations operations(PlainHost());
    ZoomSettings s;
    s.weights = {1, 1, 1};
    s.rate = s.speed = 1;
    ASSERT_NE(DriftZoom(s, 5, &operations), 0);
    const NoMemory none;
    EXPECT_EQ(DriftZoom(s, 5, &operations), 0);
}

TEST(Zoom, DriftThatIsNoNumberAddsNothingAndStartsFromRest) {
    Operations operations(PlainHost());
    ZoomSettings s;
    s.drifts = true;
    // A past that is no number, and a carry that leaves the numbers where the value does not.
    for (const RealFilter &past : {RealFilter{0, std::nan("")}, RealFilter{1.7e308, 0}}) {
        ZoomMemory memory;
        memory.drift = past;
        EXPECT_EQ(StepZoom(s, {50, 1, 0, false}, &operations, &memory), 50);
        EXPECT_EQ(memory.drift.carry, 0);
        EXPECT_EQ(memory.drift.value, 0);
    }
}

TEST(ZoomSettings, AreNothingUntilTheyAreSet) {
    const auto &[smooth, swing, drifts, rate, weights, drift_smooth, seed, speed, offset] = ZoomSettings();
    EXPECT_TRUE(IsNothing(smooth, swing, drifts, rate, weights, drift_smooth, seed, speed, offset));
    const auto &[focal_length, frame, clock, starts] = ZoomInput();
    EXPECT_TRUE(IsNothing(focal_length, frame, clock, starts));
}

TEST(ZoomSettings, AreThoseOfThePanel) {
    Settings panel;
    panel.zoom_smooth = 1, panel.zoom_overshoot = 2, panel.zoom_overshoot_fade = 3;
    panel.zoom_rate = 4, panel.zoom_drift_slow = 5, panel.zoom_drift_medium = 6, panel.zoom_drift_fast = 7;
    panel.zoom_drift_smooth = 8, panel.seed = 9.9, panel.speed = 10, panel.time_offset = 11.5;
    EXPECT_FALSE(ZoomSettingsOf(panel).drifts);
    panel.use_zoom = true;
    const ZoomSettings s = ZoomSettingsOf(panel);
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
