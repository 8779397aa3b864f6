#include "engine/rotation.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "engine/settings.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

constexpr PlainPoint kRotationPoints[3][3] = {
    {{2973, 0, 876, 54789}, {2013, 0, 1987, 6524}, {2106, 0, 9876, 32547}},
    {{2973, 0, 35896, 254123}, {2013, 0, 325789, 654123}, {2106, 0, 1458963, 254789}},
    {{65874, 0, 325412, 147896}, {12547, 0, 542258, 54223}, {6542, 0, 123568, 15789}}};

// 0.05 = 0.1 * 0.5 and 0.003125 = 0.0125 * 0.25; of the time offset whole frames count.
double Shake(int angle, const RotationSettings &s, double ratio, double clock) {
    const double time = (std::trunc(s.time_offset) + clock) * s.speed;
    return s.intensity * ratio *
           (0.25 * s.weights.slow * kRotationPoints[angle][0].At(s.seed, 0.01 * time) +
            0.05 * s.weights.medium * kRotationPoints[angle][1].At(s.seed, 0.1 * time) +
            0.003125 * s.weights.fast * kRotationPoints[angle][2].At(s.seed, 0.7 * time));
}

RotationSettings AnyRotation() {
    RotationSettings s;
    s.smooth = *Between(0, 1);
    s.target_smooth = *Between(0, 1);
    s.weights = {*Between(-1, 1), *Between(-2, 2), *Between(-40, 40)};
    s.ratio = *Within(0, 2);
    s.intensity = *Between(0, 2);
    s.shake_smooth = *Between(0, 1);
    s.seed = *rc::gen::inRange(0, 100000);
    s.speed = *Between(0, 3);
    s.time_offset = *Between(-50, 50);
    s.shakes_h = *rc::gen::arbitrary<bool>();
    s.shakes_p = *rc::gen::arbitrary<bool>();
    s.shakes_b = *rc::gen::arbitrary<bool>();
    return s;
}

RC_GTEST_PROP(RotationShake, FollowsItsFormulaForEveryAngle, ()) {
    const RotationSettings s = AnyRotation();
    const double clock = *Between(0, 500);
    const double ratios[] = {s.ratio.x, s.ratio.y, s.ratio.z};
    for (const RotationAngle angle : {RotationAngle::kHeading, RotationAngle::kPitch, RotationAngle::kBank}) {
        const int number = static_cast<int>(angle);
        const double expected = Shake(number, s, ratios[number], clock);
        RC_ASSERT(std::abs(ShakeRotation(angle, s, clock, PlainHost()) - expected) < 1e-9);
    }
}

// Small angles, so that none comes near half a turn.
RC_GTEST_PROP(Rotation, IsTheSmoothedInputAndTheSmoothedShake, ()) {
    Operations operations(PlainHost());
    const RotationSettings s = AnyRotation();
    RotationMemory memory;
    PlainFilter input[3], shake[3];
    for (int frame = 0; frame < 6; ++frame) {
        const Vector3 angles = *Within(-0.3, 0.3);
        const bool restart = frame == 0 || *rc::gen::weightedElement<bool>({{4, false}, {1, true}});
        const double clock = frame * 1.3;
        const double goals[] = {angles.x, angles.y, angles.z}, ratios[] = {s.ratio.x, s.ratio.y, s.ratio.z};
        const bool shakes[] = {s.shakes_h, s.shakes_p, s.shakes_b}, any = s.shakes_h || s.shakes_p || s.shakes_b;
        double expected[3];
        for (int i = 0; i < 3; ++i) {
            const double raw = shakes[i] ? Shake(i, s, ratios[i], clock) : 0.0;
            if (restart) input[i] = {0.0, goals[i]};
            expected[i] = restart ? goals[i] : input[i].Step(InputPair(s.smooth), goals[i]);
            if (!any) continue;
            if (restart) shake[i] = {0.0, raw};
            expected[i] += restart ? raw : shake[i].Step(ShakePair(s.shake_smooth), raw);
        }
        RotationInput in;
        in.angles = angles;
        in.clock = clock;
        in.restart = restart;
        RC_ASSERT(Apart(StepRotation(s, in, &operations, &memory), {expected[0], expected[1], expected[2]}) < 1e-7);
    }
}

// Of a look at a target and of the input's own angles, each with its own smoothing and swing.
TEST(Rotation, SwingsAfterItIsSmoothedWithATargetOrWithout) {
    for (const bool is_aiming : {false, true}) {
        Operations operations(PlainHost());
        RotationSettings s;
        s.smooth = is_aiming ? 0.9 : 0.5;
        s.target_smooth = is_aiming ? 0.5 : 0.9;
        s.swing = is_aiming ? Swing{0.2, 0.9} : Swing{0.6, 0.4};
        s.target_swing = is_aiming ? Swing{0.6, 0.4} : Swing{0.2, 0.9};
        RotationMemory memory;
        VectorFilter filter;
        Spring spring = AtRest({}, {}), twin = AtRest({}, {});
        const Channel channel = is_aiming ? Channel::kTarget : Channel::kRotation;
        for (int frame = 0; frame < 20; ++frame) {
            RotationInput in;
            in.angles = {0.1 * frame, 0.01 * frame, is_aiming ? 0.0 : 0.3};
            in.is_aiming = is_aiming;
            in.target = {-100 * std::sin(0.1 * frame), 100 * std::tan(0.01 * frame), 100 * std::cos(0.1 * frame)};
            in.restart = frame == 0;
            const Vector3 smoothed =
                Filter(InputSmoothing(0.5, &operations), in.angles, in.restart, &operations, &filter);
            if (frame == 0) spring = AtRest(in.angles, in.angles);
            const Vector3 expected = OvershootAngles(channel, smoothed, {0.6, 0.4}, &operations, &spring, &twin);
            EXPECT_LT(Apart(StepRotation(s, in, &operations, &memory), expected), 1e-9) << frame;
        }
        EXPECT_LT(Apart(memory.spring.output, (is_aiming ? twin : spring).output), 1e-9);
        EXPECT_LT(Apart(memory.target_spring.output, (is_aiming ? spring : twin).output), 1e-9);
    }
}

TEST(Rotation, TakesTheShortWayToItsGoal) {
    Operations operations(PlainHost());
    RotationMemory memory;
    memory.input.value = {3.1, 0, 0};
    RotationInput in;
    in.angles = {-3.1, 0, 0};
    EXPECT_NEAR(StepRotation(RotationSettings(), in, &operations, &memory).x, 2 * kPi - 3.1, 1e-9);
}

TEST(Rotation, KeepsItsAnglesOnTopOfTheTarget) {
    Operations operations(PlainHost());
    RotationMemory memory;
    memory.input.value = {0.4, 0.5, 0.6};
    RotationInput in;
    in.angles = {1, 1, 1};
    in.is_aiming = true;
    in.target = in.position = {5, 6, 7};
    EXPECT_LT(Apart(StepRotation(RotationSettings(), in, &operations, &memory), {0.4, 0.5, 0.6}), 1e-12);
}

TEST(Rotation, WithoutASoundPastIsThatOfTheInput) {
    Operations operations(PlainHost());
    RotationMemory memory;
    memory.input.value = {std::nan(""), 0, 0};
    RotationInput in;
    in.angles = {7, 0.5, 0.25};  // more than half a turn stays where no past says otherwise
    EXPECT_LT(Apart(StepRotation(RotationSettings(), in, &operations, &memory), {7, 0.5, 0.25}), 1e-12);
}

TEST(Rotation, WithoutAShakeLeavesTheFilterOfTheShakeAlone) {
    Operations operations(PlainHost());
    RotationMemory memory;
    memory.shake = {{1, 2, 3}, {4, 5, 6}};
    RotationInput in;
    in.restart = true;
    StepRotation(RotationSettings(), in, &operations, &memory);
    EXPECT_EQ(Apart(memory.shake.carry, {1, 2, 3}), 0);
    EXPECT_EQ(Apart(memory.shake.value, {4, 5, 6}), 0);
}

RC_GTEST_PROP(Aim, LooksFromThePositionToTheTarget, ()) {
    const Vector3 position = *Within(-100, 100), target = *Within(-100, 100);
    const double x = target.x - position.x, y = target.y - position.y, z = target.z - position.z;
    RC_PRE(std::hypot(x, z) > 0.01);
    Vector3 angles = {9, 9, 9};
    RC_ASSERT(AimAngles(position, target, PlainHost(), &angles));
    RC_ASSERT(Apart(angles, {std::atan2(-x, z), std::atan2(y, std::hypot(x, z)), 0}) < 1e-9);
}

TEST(Aim, LooksStraightUpAndDownWithoutHeading) {
    Vector3 angles;
    EXPECT_TRUE(AimAngles({1, 2, 3}, {1, 9, 3}, PlainHost(), &angles));
    EXPECT_LT(Apart(angles, {0, kPi / 2, 0}), 1e-12);
    EXPECT_TRUE(AimAngles({1, 2, 3}, {1, -9, 3}, PlainHost(), &angles));
    EXPECT_LT(Apart(angles, {0, -kPi / 2, 0}), 1e-12);
}

TEST(Aim, LooksAlongEveryAxis) {
    Vector3 angles;
    EXPECT_TRUE(AimAngles({1, 2, 3}, {9, 2, 3}, PlainHost(), &angles));
    EXPECT_LT(Apart(angles, {-kPi / 2, 0, 0}), 1e-12);
    EXPECT_TRUE(AimAngles({1, 2, 3}, {-9, 2, 3}, PlainHost(), &angles));
    EXPECT_LT(Apart(angles, {kPi / 2, 0, 0}), 1e-12);
    EXPECT_TRUE(AimAngles({1, 2, 3}, {1, 2, 9}, PlainHost(), &angles));
    EXPECT_LT(Apart(angles, {}), 1e-12);
}

TEST(Aim, NeedsATargetElsewhereAtFiniteDistance) {
    Vector3 angles = {1, 2, 3};
    EXPECT_FALSE(AimAngles({5, 6, 7}, {5, 6, 7}, PlainHost(), &angles));
    EXPECT_FALSE(AimAngles({5, 6, 7}, {HUGE_VAL, 6, 7}, PlainHost(), &angles));
    EXPECT_FALSE(AimAngles({5, 6, 7}, {5, std::nan(""), 7}, PlainHost(), &angles));
    EXPECT_EQ(Apart(angles, {1, 2, 3}), 0);
}

// Squares of these lengths are beyond the numbers, or nothing.
TEST(Aim, IsTheSameFromVeryFarAndVeryNear) {
    for (const double size : {1e-200, 1e200}) {
        for (const Vector3 &direction : {Vector3{-1, 1, 1}, Vector3{-3, 1, 1}, Vector3{-1, 4, 1}, Vector3{-1, 1, 5}}) {
            Vector3 angles;
            EXPECT_TRUE(AimAngles({}, direction * size, PlainHost(), &angles));
            EXPECT_LT(Apart(angles, {std::atan2(-direction.x, direction.z),
                                     std::atan2(direction.y, std::hypot(direction.x, direction.z)), 0}),
                      1e-12);
        }
    }
}

// The host's angles come from three axes of length 1, or none: the first lies square to the look and to the world's z,
// the second to the look and to the world's y.
engine::Axes handed_axes;

TEST(Aim, HandsTheHostItsThreeAxes) {
    engine::Host host = PlainHost();
    host.angles_of = [](const engine::Axes &axes) {
        handed_axes = axes;
        return Vector3{1, 2, 3};
    };
    Vector3 angles;
    EXPECT_TRUE(AimAngles({1, 1, 1}, {4, 5, 1}, host, &angles));
    EXPECT_EQ(Apart(angles, {1, 2, 0}), 0);
    EXPECT_LT(Apart(handed_axes.x, {0.8, -0.6, 0}), 1e-15);
    EXPECT_LT(Apart(handed_axes.y, {0, 0, 1}), 1e-15);
    EXPECT_LT(Apart(handed_axes.z, {0.6, 0.8, 0}), 1e-15);
    EXPECT_TRUE(AimAngles({1, 1, 1}, {1, 1, 5}, host, &angles));
    EXPECT_EQ(Apart(handed_axes.x, {}), 0);
    EXPECT_EQ(Apart(handed_axes.y, {-1, 0, 0}), 0);
}

TEST(RotationSettings, AreNothingUntilTheyAreSet) {
    const auto &[smooth, target_smooth, swing, target_swing, h, p, b, weights, ratio, intensity, shake_smooth, seed,
                 speed, offset] = RotationSettings();
    EXPECT_TRUE(IsNothing(smooth, target_smooth, swing, target_swing, h, p, b));
    EXPECT_TRUE(IsNothing(weights, ratio, intensity, shake_smooth, seed, speed, offset));
    const auto &[angles, is_aiming, target, position, frame, clock, restart] = RotationInput();
    EXPECT_TRUE(IsNothing(angles, is_aiming, target, position, frame, clock, restart));
}

TEST(RotationSettings, AreThoseOfThePanel) {
    Settings panel;
    panel.rotation_smooth = 1, panel.target_smooth = 2;
    panel.rotation_overshoot = 3, panel.rotation_overshoot_fade = 4;
    panel.target_overshoot = 5, panel.target_overshoot_fade = 6;
    panel.use_p = true;
    panel.rotation_slow = 7, panel.rotation_medium = 8, panel.rotation_fast = 9;
    panel.ratio_h = 10, panel.ratio_p = 11, panel.ratio_b = 12;
    panel.rotation_intensity = 13, panel.shake_smooth = 14;
    panel.seed = 15.9, panel.speed = 16, panel.time_offset = 17.5;
    const RotationSettings s = RotationSettingsOf(panel);
    EXPECT_EQ(s.smooth, 1);
    EXPECT_EQ(s.target_smooth, 2);
    EXPECT_EQ(s.swing.amount, 3);
    EXPECT_EQ(s.swing.fade, 4);
    EXPECT_EQ(s.target_swing.amount, 5);
    EXPECT_EQ(s.target_swing.fade, 6);
    EXPECT_FALSE(s.shakes_h);
    EXPECT_TRUE(s.shakes_p);
    EXPECT_FALSE(s.shakes_b);
    EXPECT_EQ(s.weights.slow, 7);
    EXPECT_EQ(s.weights.medium, 8);
    EXPECT_EQ(s.weights.fast, 9);
    EXPECT_EQ(Apart(s.ratio, {10, 11, 12}), 0);
    EXPECT_EQ(s.intensity, 13);
    EXPECT_EQ(s.shake_smooth, 14);
    EXPECT_EQ(s.seed, 15);
    EXPECT_EQ(s.speed, 16);
    EXPECT_EQ(s.time_offset, 17.5);
    panel.use_h = panel.use_b = true;
    EXPECT_TRUE(RotationSettingsOf(panel).shakes_h);
    EXPECT_TRUE(RotationSettingsOf(panel).shakes_b);
}

}  // namespace
