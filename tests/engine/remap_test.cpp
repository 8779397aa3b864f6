#include "engine/remap.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <optional>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

constexpr double kRemapTolerance = 1e-9;

// The rule, case by case: what is within the range is bent; what is past its end loses whole ranges first.
double Expected(double x, const Range &in, const Range &out, std::optional<double> tangent, PastEnd past_end,
                bool clamp_low, bool clamp_high) {
    const auto bend = [&](double share) { return tangent ? Bezier(*tangent, 0, 1 - *tangent, 1, share) : share; };
    const double t = (x - in.minimum) / (in.maximum - in.minimum), height = out.maximum - out.minimum;
    const double low = clamp_low && t < 0 ? 0 : t;
    if (low <= 1) {
        const double result = out.minimum + height * bend(low);
        if (tangent) return result;
        // A range that falls has its least number at its end; the numbers are what is held.
        const double held = clamp_low ? std::fmax(result, out.minimum) : result;
        return clamp_high ? std::fmin(held, out.maximum) : held;
    }
    if (clamp_high) {
        const double result = out.minimum + height * bend(1);
        if (tangent) return result;
        return std::fmin(clamp_low ? std::fmax(result, out.minimum) : result, out.maximum);
    }
    const double whole = std::floor(low), part = low - whole;
    double result = out.minimum + height * (past_end == PastEnd::kWraps ? bend(part) : part);
    if (past_end == PastEnd::kAddsRanges) result += height * whole;
    return clamp_low && !tangent ? std::fmax(result, out.minimum) : result;
}

RC_GTEST_PROP(Remap, FollowsItsRule, ()) {
    const double in = *Between(-5, 5), out = *Between(-5, 5);
    const Range input = {in, in + *rc::gen::element(-2.0, 0.7, 3.0)};
    const Range output = {out, out + *rc::gen::element(-4.0, 0.3, 5.0)};
    const double share = *Between(-2, 3.5);
    RC_PRE(share <= 1 || std::abs(share - std::round(share)) > 1e-6);
    const double x = input.minimum + share * (input.maximum - input.minimum);
    const auto past_end = *rc::gen::element(PastEnd::kAddsRanges, PastEnd::kWraps, PastEnd::kIsCut);
    const bool clamp_low = *rc::gen::arbitrary<bool>(), clamp_high = *rc::gen::arbitrary<bool>();
    const CurveShape shape = {{0, 0}, {0.3, 0}, {-0.3, 0}, {0, 0}};
    const OwnedCurve curve(PlainHost(), shape);
    for (const bool is_bent : {false, true}) {
        const double expected = Expected(x, input, output, is_bent ? std::optional<double>(0.3) : std::nullopt,
                                         past_end, clamp_low, clamp_high);
        const double remapped =
            Remap(x, input, output, is_bent ? curve.Get() : nullptr, past_end, clamp_low, clamp_high, PlainHost());
        RC_ASSERT(std::abs(remapped - expected) < kRemapTolerance);
    }
}

double Straight(double x, const Range &input, const Range &output, bool clamp_low = false, bool clamp_high = false) {
    return Remap(x, input, output, nullptr, PastEnd::kAddsRanges, clamp_low, clamp_high, PlainHost());
}

TEST(Remap, OfARangeWithoutWidthIsTheOutputsEnd) {
    EXPECT_EQ(Straight(7, {3, 3}, {10, 20}), 10);
    EXPECT_EQ(Straight(7, {3, 4}, {20, 20}), 20);
    EXPECT_EQ(Straight(std::nan(""), {3, 4}, {20, 20}), 20);
    EXPECT_EQ(Straight(7, {3, 3}, {5, 5}), 5);
}

TEST(Remap, HoldsNothingThatLiesJustInsideTheRange) {
    EXPECT_NEAR(Remap(0.0005, {0, 1}, {0, 8}, nullptr, PastEnd::kWraps, true, true, PlainHost()), 0.004, 1e-15);
    EXPECT_NEAR(Remap(0.9995, {0, 1}, {0, 8}, nullptr, PastEnd::kWraps, true, true, PlainHost()), 7.996, 1e-14);
}

TEST(Remap, DoesNotWrapTheVeryEndOfTheRange) {
    EXPECT_EQ(Straight(4, {2, 4}, {10, 20}), 20);
    EXPECT_EQ(Remap(4, {2, 4}, {10, 20}, nullptr, PastEnd::kIsCut, false, false, PlainHost()), 20);
}

// A range that falls: its ends are the largest and the least number, and the one that is asked for last counts.
TEST(Remap, HoldsAFallingRangeToItsFirstNumberBelowAndToItsLastAbove) {
    EXPECT_EQ(Straight(0.5, {0, 1}, {20, 10}, true, false), 20);
    EXPECT_EQ(Straight(0.5, {0, 1}, {20, 10}, false, true), 10);
    EXPECT_EQ(Straight(0.5, {0, 1}, {20, 10}, true, true), 10);
    EXPECT_EQ(Straight(0.5, {0, 1}, {20, 10}), 15);
}

}  // namespace
