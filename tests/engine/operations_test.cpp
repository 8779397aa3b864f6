#include "engine/operations.h"

#include <gtest/gtest.h>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// Counts the numbers that are bent.
class Counting : public Operations {
  public:
    Counting() : Operations(PlainHost()) {}
    double Remap(double x, const Range &input, const Range &output, void *curve, PastEnd past_end) override {
        count++;
        EXPECT_EQ(past_end, PastEnd::kAddsRanges);
        return Operations::Remap(x, input, output, curve, past_end);
    }
    int count = 0;
};

TEST(Operations, BendAnAmountOnceForManyFrames) {
    Counting operations;
    double first, again;
    ASSERT_TRUE(operations.Bend(0.25, kOvershootCurve, &first));
    ASSERT_TRUE(operations.Bend(0.25, kOvershootCurve, &again));
    EXPECT_NEAR(first, LooseCurve(0.25), 1e-9);
    EXPECT_EQ(again, first);
    EXPECT_EQ(operations.count, 1);
    EXPECT_EQ(LivingCurves(), 0);
}

TEST(Operations, BendNothingWithoutMemoryAndTryAgain) {
    Counting operations;
    double bent = 7;
    {
        const NoMemory none;
        EXPECT_FALSE(operations.Bend(0.25, kOvershootCurve, &bent));
    }
    EXPECT_EQ(operations.count, 0);
    EXPECT_TRUE(operations.Bend(0.25, kOvershootCurve, &bent));
}

TEST(Operations, RemapHoldsNoEnd) {
    Operations operations(PlainHost());
    EXPECT_EQ(operations.Remap(-1, {0, 1}, {0, 10}, nullptr, PastEnd::kAddsRanges), -10);
    EXPECT_EQ(operations.Remap(2.5, {0, 1}, {0, 10}, nullptr, PastEnd::kAddsRanges), 25);
    EXPECT_EQ(operations.Remap(2.5, {0, 1}, {0, 10}, nullptr, PastEnd::kWraps), 5);
}

// A place keeps its third number; of the angles of a target there is no bank.
TEST(Operations, OvershootAnglesWhereThereIsATwin) {
    Operations operations(PlainHost());
    for (const bool has_twin : {false, true}) {
        Spring spring = AtRest({}, {}), twin;
        operations.Overshoot(Channel::kTarget, {3, 3, 3}, {0.5, 0}, &spring, has_twin ? &twin : nullptr);
        EXPECT_EQ(spring.output.z == 0, has_twin);
        EXPECT_EQ(twin.has_output, has_twin);
    }
}

TEST(Operations, KnockWhereTheUserAsksForIt) {
    Operations operations(PlainHost());
    JoltSettings settings;
    settings.position_intensity = 0.5;
    JoltMemory memory;
    operations.StepJolts(settings, {0, 0, 0, true}, &memory);
    EXPECT_EQ(memory.position.envelope, 0.5);
}

TEST(Operations, SmoothBothKindsOfAnglesAlike) {
    Operations operations(PlainHost());
    for (const double amount : {0.0, 0.3, 1.0}) {
        EXPECT_EQ(operations.InputSmoothing(amount).a, operations.InputSmoothingTwin(amount).a);
        EXPECT_EQ(operations.InputSmoothing(amount).b, operations.InputSmoothingTwin(amount).b);
    }
}

}  // namespace
