#include "engine/smoothing.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

const double kNone = std::nan("");

RC_GTEST_PROP(InputSmoothing, BendsTheAmountTwice, ()) {
    Operations operations(PlainHost());
    const double amount = *Between(0, 1);
    const Coefficients c = InputSmoothing(amount, &operations);
    RC_ASSERT(std::abs(c.a - InputPair(amount).a) < 1e-9);
    RC_ASSERT(std::abs(c.b - InputPair(amount).b) < 1e-9);
}

RC_GTEST_PROP(ShakeSmoothing, BendsTheAmountOnce, ()) {
    Operations operations(PlainHost());
    const double amount = *Between(0, 1);
    const Coefficients c = ShakeSmoothing(amount, &operations);
    RC_ASSERT(std::abs(c.a - ShakePair(amount).a) < 1e-9);
    RC_ASSERT(std::abs(c.b - ShakePair(amount).b) < 1e-9);
}

TEST(InputSmoothing, RunsFromNoneToAlmostAll) {
    Operations operations(PlainHost());
    for (const double amount : {-3.0, 0.0}) {
        EXPECT_EQ(InputSmoothing(amount, &operations).a, 0);
        EXPECT_EQ(InputSmoothing(amount, &operations).b, 0.15);
    }
    for (const double amount : {1.0, 3.0}) {
        EXPECT_EQ(InputSmoothing(amount, &operations).a, 0.95);
        EXPECT_EQ(InputSmoothing(amount, &operations).b, 1);
    }
}

TEST(ShakeSmoothing, RunsFromNoneToAlmostAll) {
    Operations operations(PlainHost());
    EXPECT_EQ(ShakeSmoothing(-3, &operations).a, 0);
    EXPECT_EQ(ShakeSmoothing(0, &operations).b, 0);
    EXPECT_EQ(ShakeSmoothing(1, &operations).a, 0.95);
    EXPECT_EQ(ShakeSmoothing(3, &operations).b, 0.25);
}

TEST(Smoothing, WithoutMemoryLetsTheGoalThrough) {
    for (const int granted : {0, 1}) {
        Operations operations(PlainHost());
        const NoMemory none(granted);
        const Coefficients c = InputSmoothing(0.5, &operations);
        EXPECT_EQ(c.a, 0);
        EXPECT_EQ(c.b, 1);
    }
    Operations operations(PlainHost());
    const NoMemory none;
    EXPECT_EQ(ShakeSmoothing(0.5, &operations).a, 0);
    EXPECT_EQ(ShakeSmoothing(0.5, &operations).b, 1);
}

RC_GTEST_PROP(Smoothing, GoesAFractionOfTheWayAndCarriesTheRest, ()) {
    const Pair pair = {*Between(0, 0.95), *Between(0, 1)};
    PlainFilter filter = {*Between(-50, 50), *Between(-50, 50)};
    const double goal = *Between(-50, 50);
    const double carry = SmoothCarry({pair.a, pair.b}, filter.carry, filter.value, goal);
    const double value = SmoothValue({pair.a, pair.b}, filter.carry, filter.value, goal);
    filter.Step(pair, goal);
    RC_ASSERT(std::abs(carry - filter.carry) < 1e-10);
    RC_ASSERT(std::abs(value - filter.value) < 1e-10);
}

RC_GTEST_PROP(Smoothing, FiltersEachNumberByItself, ()) {
    const Coefficients c = {*Between(0, 0.95), *Between(0, 1)};
    const Vector3 carry = *Within(-50, 50), value = *Within(-50, 50), goal = *Within(-50, 50);
    const Vector3 next_carry = SmoothCarry(c, carry, value, goal), next = SmoothValue(c, carry, value, goal);
    RC_ASSERT(next_carry.x == SmoothCarry(c, carry.x, value.x, goal.x));
    RC_ASSERT(next_carry.y == SmoothCarry(c, carry.y, value.y, goal.y));
    RC_ASSERT(next_carry.z == SmoothCarry(c, carry.z, value.z, goal.z));
    RC_ASSERT(next.x == SmoothValue(c, carry.x, value.x, goal.x));
    RC_ASSERT(next.y == SmoothValue(c, carry.y, value.y, goal.y));
    RC_ASSERT(next.z == SmoothValue(c, carry.z, value.z, goal.z));
}

TEST(Filter, IsNothingUntilItIsSet) {
    EXPECT_TRUE(IsNothing(RealFilter().carry, RealFilter().value, VectorFilter().carry, VectorFilter().value));
}

TEST(Filter, RemembersItsCarryAndItsValue) {
    Operations operations(PlainHost());
    VectorFilter filter = {{4, 0, 8}, {10, 0, 1}};
    // e = 0.75 * carry + goal - value = (23, 8, 6), of which a quarter is kept.
    const Vector3 value = Filter({0.25, 0.25}, {30, 8, 1}, false, &operations, &filter);
    EXPECT_EQ(Apart(value, {27.25, 6, 5.5}), 0);
    EXPECT_EQ(Apart(filter.value, value), 0);
    EXPECT_EQ(Apart(filter.carry, {5.75, 2, 1.5}), 0);
}

TEST(Filter, IsAtRestOnItsGoalAfterARestart) {
    Operations operations(PlainHost());
    VectorFilter filter = {{4, 0, 8}, {10, 0, 1}};
    EXPECT_EQ(Apart(Filter({0.25, 0.25}, {30, 8, 1}, true, &operations, &filter), {30, 8, 1}), 0);
    EXPECT_EQ(Apart(filter.value, {30, 8, 1}), 0);
    EXPECT_EQ(Apart(filter.carry, {}), 0);
}

TEST(Filter, IsAtRestOnItsGoalWhereItsPastIsNoNumber) {
    Operations operations(PlainHost());
    // With a at 0 a broken past is in the value alone; with a at 1 in the carry alone.
    for (const Coefficients &c : {Coefficients{0, 1}, Coefficients{1, 1}}) {
        VectorFilter filter = {{}, {10, 1e308, 1}};
        Filter(c, {30, c.a == 0 ? kNone : -1e308, 1}, false, &operations, &filter);
        EXPECT_EQ(filter.value.x, 30);
        EXPECT_EQ(Apart(filter.carry, {}), 0);
    }
}

TEST(ShakeFilter, PassesAFreshShakeThroughAtAnAmountOfZero) {
    Operations operations(PlainHost());
    VectorFilter filter;
    EXPECT_EQ(Apart(FilterShake(0, {1, 2, 3}, false, &operations, &filter), {1, 2, 3}), 0);
    EXPECT_EQ(Apart(filter.value, {1, 2, 3}), 0);
}

RC_GTEST_PROP(ShakeFilter, FollowsItsAmount, ()) {
    Operations operations(PlainHost());
    const double amount = *Between(0, 1);
    VectorFilter filter;
    PlainFilter model;
    for (int frame = 0; frame < 5; ++frame) {
        const Vector3 raw = *Within(-10, 10);
        const double expected = model.Step(ShakePair(amount), raw.y);
        RC_ASSERT(std::abs(FilterShake(amount, raw, false, &operations, &filter).y - expected) < 1e-7);
    }
}

TEST(ShakeFilter, StartsFromItsShakeOnARestart) {
    Operations operations(PlainHost());
    VectorFilter filter = {{9, 9, 9}, {9, 9, 9}};
    EXPECT_EQ(Apart(FilterShake(0.9, {1, 2, 3}, true, &operations, &filter), {1, 2, 3}), 0);
    EXPECT_EQ(Apart(filter.carry, {}), 0);
}

TEST(ShakeFilter, OfWhatIsNoNumberIsNoneAndStartsFromRest) {
    Operations operations(PlainHost());
    VectorFilter filter = {{9, 9, 9}, {9, 9, 9}};
    EXPECT_EQ(Apart(FilterShake(0.5, {1, kNone, 3}, false, &operations, &filter), {}), 0);
    EXPECT_EQ(Apart(filter.carry, {}), 0);
    EXPECT_EQ(Apart(filter.value, {}), 0);
}

}  // namespace
