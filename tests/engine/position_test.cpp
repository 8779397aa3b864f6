#include "engine/position.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "engine/settings.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

constexpr PlainPoint kPositionPoints[3][3] = {
    {{1235, 5846, 87755, 98745}, {275, 0, 54236, 9875}, {368, 0, 32158, 97845}},
    {{1350, 65478, 87755, 98745}, {201, 0, 125478, 332145}, {985, 0, 325647, 698745}},
    {{7865, 65478, 87755, 325412}, {2456, 0, 21458, 325698}, {9876, 0, 325687, 254145}}};

// 0.66 = 0.33 * 2, 0.15 = 0.75 * 0.2 and 0.0125 = 0.025 * 0.5 of a thousand scene units at scale 1.
double Shake(int axis, const PositionSettings &s, double ratio, double clock) {
    const double time = (s.time_offset + clock) * s.speed;
    return 1000 * s.scale * s.intensity * ratio *
           (0.66 * s.weights.slow * kPositionPoints[axis][0].At(s.seed, 0.005 * time) +
            0.15 * s.weights.medium * kPositionPoints[axis][1].At(s.seed, 0.035 * time) +
            0.0125 * s.weights.fast * kPositionPoints[axis][2].At(s.seed, 0.5 * time));
}

PositionSettings AnyPosition() {
    PositionSettings s;
    s.smooth = *Between(0, 1);
    s.weights = {*Between(-2, 2), *Between(-2, 2), *Between(-9, 9)};
    s.ratio = *Within(0, 2);
    s.intensity = *Between(0, 2);
    s.scale = *Between(0.1, 2);
    s.shake_smooth = *Between(0, 1);
    s.seed = *rc::gen::inRange(0, 100000);
    s.speed = *Between(0, 3);
    s.time_offset = *Between(-50, 50);
    s.shakes_x = *rc::gen::arbitrary<bool>();
    s.shakes_y = *rc::gen::arbitrary<bool>();
    s.shakes_z = *rc::gen::arbitrary<bool>();
    return s;
}

RC_GTEST_PROP(PositionShake, FollowsItsFormulaOnEveryAxis, ()) {
    const PositionSettings s = AnyPosition();
    const double clock = *Between(0, 500);
    const double ratios[] = {s.ratio.x, s.ratio.y, s.ratio.z};
    for (const PositionAxis axis : {PositionAxis::kX, PositionAxis::kY, PositionAxis::kZ}) {
        const int number = static_cast<int>(axis);
        RC_ASSERT(std::abs(ShakePosition(axis, s, clock, PlainHost()) - Shake(number, s, ratios[number], clock)) <
                  1e-6);
    }
}

// The input's filter first, and on top of it that of the shake.
RC_GTEST_PROP(Position, IsTheSmoothedInputAndTheSmoothedShake, ()) {
    Operations operations(PlainHost());
    const PositionSettings s = AnyPosition();
    PositionMemory memory;
    PlainFilter input[3], shake[3];
    for (int frame = 0; frame < 6; ++frame) {
        const Vector3 place = *Within(-100, 100);
        const bool restart = frame == 0 || *rc::gen::weightedElement<bool>({{4, false}, {1, true}});
        const double clock = frame * 1.3;
        const double goals[] = {place.x, place.y, place.z}, ratios[] = {s.ratio.x, s.ratio.y, s.ratio.z};
        const bool shakes[] = {s.shakes_x, s.shakes_y, s.shakes_z}, any = s.shakes_x || s.shakes_y || s.shakes_z;
        double expected[3];
        for (int i = 0; i < 3; ++i) {
            const double raw = shakes[i] ? Shake(i, s, ratios[i], clock) : 0.0;
            if (restart) input[i] = {0.0, goals[i]};
            expected[i] = restart ? goals[i] : input[i].Step(InputPair(s.smooth), goals[i]);
            if (!any) continue;
            if (restart) shake[i] = {0.0, raw};
            expected[i] += restart ? raw : shake[i].Step(ShakePair(s.shake_smooth), raw);
        }
        const Vector3 result = StepPosition(s, {place, double(frame), clock, restart}, &operations, &memory);
        RC_ASSERT(Apart(result, {expected[0], expected[1], expected[2]}) < 1e-5);
    }
}

TEST(Position, SwingsAfterItIsSmoothed) {
    Operations operations(PlainHost());
    PositionSettings s;
    s.smooth = 0.5;
    s.swing = {0.6, 0.4};
    PositionMemory memory;
    VectorFilter filter;
    Spring spring = AtRest({}, {});
    StepPosition(s, {{}, 0, 0, true}, &operations, &memory);
    for (int frame = 1; frame < 20; ++frame) {
        const Vector3 place = {frame < 8 ? 10.0 * frame : 80.0, 3.0 * frame, 0};
        const Vector3 smoothed = Filter(InputSmoothing(0.5, &operations), place, false, &operations, &filter);
        const Vector3 expected = Overshoot(Channel::kPosition, smoothed, {0.6, 0.4}, &operations, &spring);
        EXPECT_EQ(Apart(StepPosition(s, {place, double(frame), 0, false}, &operations, &memory), expected), 0);
    }
}

TEST(Position, WithoutAShakeLeavesTheFilterOfTheShakeAlone) {
    Operations operations(PlainHost());
    PositionMemory memory;
    memory.shake = {{1, 2, 3}, {4, 5, 6}};
    StepPosition(PositionSettings(), {{7, 8, 9}, 5, 5, true}, &operations, &memory);
    EXPECT_EQ(Apart(memory.shake.carry, {1, 2, 3}), 0);
    EXPECT_EQ(Apart(memory.shake.value, {4, 5, 6}), 0);
}

TEST(PositionSettings, AreNothingUntilTheyAreSet) {
    const auto &[smooth, swing, x, y, z, weights, ratio, intensity, scale, shake_smooth, seed, speed, offset] =
        PositionSettings();
    EXPECT_TRUE(IsNothing(smooth, swing, x, y, z, weights, ratio, intensity, scale, shake_smooth, seed, speed, offset));
    const auto &[position, frame, clock, restart] = PositionInput();
    EXPECT_TRUE(IsNothing(position, frame, clock, restart));
}

TEST(PositionSettings, AreThoseOfThePanel) {
    Settings panel;
    panel.position_smooth = 1, panel.position_overshoot = 2, panel.position_overshoot_fade = 3;
    panel.use_y = true;
    panel.position_slow = 4, panel.position_medium = 5, panel.position_fast = 6;
    panel.ratio_x = 7, panel.ratio_y = 8, panel.ratio_z = 9;
    panel.position_intensity = 10, panel.overall_scale = 20, panel.shake_smooth = 12;
    panel.seed = 13.9, panel.speed = 14, panel.time_offset = 15.5;
    const PositionSettings s = PositionSettingsOf(panel);
    EXPECT_EQ(s.smooth, 1);
    EXPECT_EQ(s.swing.amount, 2);
    EXPECT_EQ(s.swing.fade, 3);
    EXPECT_FALSE(s.shakes_x);
    EXPECT_TRUE(s.shakes_y);
    EXPECT_FALSE(s.shakes_z);
    EXPECT_EQ(s.weights.slow, 8);  // the slider counts twice
    EXPECT_EQ(s.weights.medium, 5);
    EXPECT_EQ(s.weights.fast, 6);
    EXPECT_EQ(Apart(s.ratio, {7, 8, 9}), 0);
    EXPECT_EQ(s.intensity, 10);
    EXPECT_EQ(s.scale, 3);  // 15 % of it
    EXPECT_EQ(s.shake_smooth, 12);
    EXPECT_EQ(s.seed, 13);
    EXPECT_EQ(s.speed, 14);
    EXPECT_EQ(s.time_offset, 15.5);
    panel.use_x = panel.use_z = true;
    EXPECT_TRUE(PositionSettingsOf(panel).shakes_x);
    EXPECT_TRUE(PositionSettingsOf(panel).shakes_z);
}

}  // namespace
