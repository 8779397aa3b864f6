#include "engine/lens.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

RC_GTEST_PROP(LensValue, WithoutASwingIsTheSmoothedOne, ()) {
    Operations operations(PlainHost());
    const double smooth = *Between(0, 1);
    RealFilter filter;
    Spring spring;
    PlainFilter model;
    for (int frame = 0; frame < 5; ++frame) {
        const double goal = *Between(10, 100), expected = model.Step(InputPair(smooth), goal);
        RC_ASSERT(std::abs(FollowLens(Channel::kZoom, goal, smooth, {}, &operations, &filter, &spring) - expected) <
                  1e-6);
        RC_ASSERT(std::abs(filter.carry - model.carry) < 1e-6);
    }
}

// What comes out of the spring is what the filter goes on from.
TEST(LensValue, RemembersWhereItSwung) {
    Operations operations(PlainHost());
    RealFilter filter = {0, 30}, plain = filter;
    Spring spring = AtRest({30, 0, 0}, {30, 0, 0}), other = spring;
    for (const double goal : {50.0, 70.0, 70.0, 70.0}) {
        const Coefficients c = InputSmoothing(0.6, &operations);
        const RealFilter smoothed = {SmoothCarry(c, plain.carry, plain.value, goal),
                                     SmoothValue(c, plain.carry, plain.value, goal)};
        plain.carry = smoothed.carry;
        plain.value = Overshoot(Channel::kFocus, {smoothed.value, 0, 0}, {0.7, 0.2}, &operations, &other).x;
        EXPECT_EQ(FollowLens(Channel::kFocus, goal, 0.6, {0.7, 0.2}, &operations, &filter, &spring), plain.value);
        EXPECT_EQ(filter.value, plain.value);
        EXPECT_EQ(filter.carry, plain.carry);
    }
}

TEST(LensValue, IsOneNumberToItsSpring) {
    Operations operations(PlainHost());
    RealFilter filter = {0, 30};
    Spring spring = AtRest({30, 0, 0}, {30, 0, 0});
    FollowLens(Channel::kZoom, 30, 0.5, {0.5, 0.5}, &operations, &filter, &spring);
    EXPECT_EQ(spring.previous_distance, 0);
    EXPECT_EQ(Apart(spring.input, {30, 0, 0}), 0);
}

TEST(LensValue, IsItsGoalWhereItsPastIsNoNumber) {
    Operations operations(PlainHost());
    for (const RealFilter &broken : {RealFilter{std::nan(""), 0}, RealFilter{0, HUGE_VAL}}) {
        RealFilter filter = broken;
        Spring spring;
        EXPECT_EQ(FollowLens(Channel::kZoom, 50, 0.5, {}, &operations, &filter, &spring), 50);
        EXPECT_EQ(filter.carry, 0);
        EXPECT_EQ(filter.value, 50);
    }
}

}  // namespace
