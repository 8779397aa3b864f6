#include "engine/overshoot.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

constexpr double kTolerance = 1e-7;

double Loose(double amount) { return 0.99 * LooseCurve(std::clamp(amount, 0.0, 1.0)); }
double RampOf(double amount) { return 0.05 * (1.0 - Loose(amount)) + 0.005; }
double StiffnessOf(double amount) { return 1.0 - LooseCurve(Loose(amount)); }

// The spring of a single number, told as a story of one move after the other.
class Story {
  public:
    Story(double amount, double fade, double still, double tolerance)
        : ramp_(RampOf(amount)),
          stiffness_(StiffnessOf(amount)),
          fade_(0.02 * std::clamp(fade, 0.0, 1.0)),
          still_(still),
          tolerance_(tolerance) {}

    double Follow(double input) {
        const double step = std::abs(input - input_), counted = step < still_ ? 0.0 : step;
        double ramp = ramp_, damping = stiffness_;
        if (counted > 0.0 && counted + tolerance_ >= step_before_) {  // on its way
            if (!is_moving_) ramp = 0.0;
            is_moving_ = true;
            fades_ = 0;
        } else if (is_moving_ && step_before_ <= counted) {  // no step after a step of no length
            fades_ = 0;
        } else {
            if (is_moving_) ramp = 0.0;
            is_moving_ = false;
            fades_++;
            damping = 0.0;
        }
        const double damped = std::min(1.0, ramp + damping + fades_ * fade_);
        const double pulled = std::min(1.0, ramp + stiffness_ + fades_ * 0.5 * fade_);
        speed_ = pulled * (input - place_) + (1.0 - damped) * speed_;
        place_ += speed_;
        input_ = input;
        step_before_ = step;
        return place_;
    }
    bool IsMoving() const { return is_moving_; }

  private:
    double ramp_, stiffness_, fade_, still_, tolerance_;
    double place_ = 0.0, input_ = 0.0, speed_ = 0.0, step_before_ = 0.0;
    bool is_moving_ = false;
    int fades_ = 0;
};

// A camera move: runs, stops and little steps.
std::vector<double> Move() {
    std::vector<double> places;
    double place = 0.0;
    while (places.size() < 24) {
        const double step = *rc::gen::element(0.0, 0.4, 1.02, 3.0, 3.01, 7.0, -5.0);
        for (int frames = *rc::gen::inRange(1, 6); frames > 0; --frames) places.push_back(place += step);
    }
    return places;
}

RC_GTEST_PROP(Spring, OfAPlaceFollowsItsStory, ()) {
    const double amount = *rc::gen::element(-0.5, 0.1, 0.6, 0.95, 1.0, 2.0);
    const double fade = *rc::gen::element(-1.0, 0.0, 0.5, 1.0, 3.0);
    const auto channel = *rc::gen::element(Channel::kPosition, Channel::kSpare, Channel::kZoom, Channel::kFocus);
    Operations operations(PlainHost());
    Story story(amount, fade, 1.0, channel == Channel::kSpare ? 0.001 : 0.025);
    Spring spring = AtRest({}, {});
    for (const double place : Move()) {
        const double expected = story.Follow(place);
        const Vector3 output = Overshoot(channel, {0, place, 0}, {amount, fade}, &operations, &spring);
        RC_ASSERT(Apart(output, {0, expected, 0}) < kTolerance);
        RC_ASSERT(spring.moving == (story.IsMoving() ? 1 : 0));
    }
}

RC_GTEST_PROP(Spring, OfAnglesFollowsItsStory, ()) {
    const double amount = *rc::gen::element(0.1, 0.6, 1.0), fade = *rc::gen::element(0.0, 0.5, 1.0);
    const auto channel = *rc::gen::element(Channel::kRotation, Channel::kTarget);
    Operations operations(PlainHost());
    Story story(amount, fade, 0.01, 0.001);
    Spring spring = AtRest({}, {}), twin;
    for (const double place : Move()) {  // a hundredth of it, in radians, and told without its whole turns
        const double expected = story.Follow(0.01 * place), told = std::remainder(0.01 * place, 2 * kPi);
        const Vector3 output = OvershootAngles(channel, {told, 0, 0}, {amount, fade}, &operations, &spring, &twin);
        RC_ASSERT(Apart(output, {expected, 0, 0}) < kTolerance);
    }
}

TEST(Spring, IsNothingUntilItIsSet) {
    const auto &[has_output, output, input, velocity, distance, previous, ramp, increment, stiffness, damping, moving] =
        Spring();
    EXPECT_TRUE(IsNothing(has_output, output, input, velocity, distance, previous));
    EXPECT_TRUE(IsNothing(ramp, increment, stiffness, damping, moving, Swing()));
}

TEST(Spring, CountsAStepOfItsMeasureAndNoneBelow) {
    Operations operations(PlainHost());
    for (const auto &[step, is_counted] : {std::pair(1.0, true), {0.9999, false}, {1.005, true}}) {
        Spring spring = AtRest({}, {});
        Overshoot(Channel::kPosition, {step, 0, 0}, {0.5, 0}, &operations, &spring);
        EXPECT_EQ(spring.moving, is_counted ? 1 : 0) << step;
        EXPECT_EQ(spring.distance, is_counted ? step : 0);
        EXPECT_EQ(spring.previous_distance, step);
    }
    for (const auto &[step, is_counted] : {std::pair(0.01, true), {0.009999, false}, {0.01005, true}}) {
        Spring spring = AtRest({}, {}), twin;
        OvershootAngles(Channel::kRotation, {step, 0, 0}, {0.5, 0}, &operations, &spring, &twin);
        EXPECT_EQ(spring.moving, is_counted ? 1 : 0) << step;
    }
}

// The first step is 4: the second one shorter by a little more or less than the tolerance.
TEST(Spring, SlowsDownWhereAStepIsShorterByMoreThanTheTolerance) {
    Operations operations(PlainHost());
    const auto moves_on = [&](Channel channel, double shorter) {
        Spring spring = AtRest({}, {});
        Overshoot(channel, {4, 0, 0}, {0.5, 0}, &operations, &spring);
        Overshoot(channel, {8 - shorter, 0, 0}, {0.5, 0}, &operations, &spring);
        return spring.moving == 1;
    };
    for (const Channel channel : {Channel::kPosition, Channel::kZoom, Channel::kFocus}) {
        EXPECT_TRUE(moves_on(channel, 0.0249));
        EXPECT_FALSE(moves_on(channel, 0.0251));
    }
    EXPECT_TRUE(moves_on(Channel::kSpare, 0.000999));
    EXPECT_FALSE(moves_on(Channel::kSpare, 0.001001));
}

TEST(Spring, OfAnglesSlowsDownWhereAStepIsShorterByAThousandth) {
    Operations operations(PlainHost());
    for (const double shorter : {0.000999, 0.001001}) {
        Spring spring = AtRest({}, {}), twin;
        OvershootAngles(Channel::kRotation, {0.1, 0, 0}, {0.5, 0}, &operations, &spring, &twin);
        OvershootAngles(Channel::kRotation, {0.2 - shorter, 0, 0}, {0.5, 0}, &operations, &spring, &twin);
        EXPECT_EQ(spring.moving, shorter < 0.001 ? 1 : 0);
    }
}

// A ramp's increment is stored with a document, though nothing sets it.
TEST(Spring, AddsAStoredIncrementToTheRampOfAMove) {
    Operations operations(PlainHost());
    Spring spring = AtRest({}, {});
    spring.ramp_increment = 0.2;
    Overshoot(Channel::kPosition, {10, 0, 0}, {0.6, 0}, &operations, &spring);
    EXPECT_NEAR(spring.ramp, 0.2, 1e-12);
    Overshoot(Channel::kPosition, {20, 0, 0}, {0.6, 0}, &operations, &spring);
    EXPECT_NEAR(spring.ramp, RampOf(0.6) + 0.2, 1e-9);
    EXPECT_EQ(spring.ramp_increment, 0.2);
}

TEST(Spring, NeverPullsOrDampsByMoreThanAll) {
    Operations operations(PlainHost());
    Spring spring = AtRest({}, {});
    spring.velocity = {50, 0, 0};
    spring.stiffness_fade = 3;
    spring.damping_fade = 3;
    EXPECT_NEAR(Overshoot(Channel::kPosition, {0.5, 0, 0}, {0.5, 0}, &operations, &spring).x, 0.5, 1e-12);
}

TEST(Spring, AtAnAmountOfZeroLetsItsInputThroughAndForgets) {
    Operations operations(PlainHost());
    Spring spring = AtRest({1, 2, 3}, {4, 5, 6});
    spring.velocity = {7, 8, 9};
    spring.moving = 1;
    EXPECT_EQ(Apart(Overshoot(Channel::kPosition, {70, 80, 90}, {0, 0.5}, &operations, &spring), {70, 80, 90}), 0);
    EXPECT_FALSE(spring.has_output);
    EXPECT_EQ(Apart(spring.input, {70, 80, 90}), 0);
    EXPECT_EQ(Apart(spring.velocity, {}), 0);
    EXPECT_EQ(spring.moving, 0);
}

Spring InFlight() {
    Spring spring = AtRest({1, 1, 1}, {1, 1, 1});
    spring.distance = spring.previous_distance = spring.ramp = spring.ramp_increment = spring.stiffness_fade =
        spring.damping_fade = 0.25;
    spring.velocity = {7, 8, 9};
    spring.moving = 1;
    return spring;
}

// What the twin keeps stays stored with the document.
TEST(Spring, OfAnglesAtAnAmountOfZeroForgetsAndLetsItsTwinStartAnew) {
    Operations operations(PlainHost());
    Spring spring = InFlight(), twin = InFlight();
    const Vector3 input = {0.7, 0.2, 0.3};
    EXPECT_EQ(Apart(OvershootAngles(Channel::kRotation, input, {0, 1}, &operations, &spring, &twin), input), 0);
    EXPECT_FALSE(spring.has_output);
    EXPECT_EQ(Apart(spring.input, input), 0);
    EXPECT_EQ(spring.previous_distance, 0);
    EXPECT_FALSE(twin.has_output);
    EXPECT_EQ(Apart(twin.input, input), 0);
    for (const double number : {twin.distance, twin.ramp_increment, twin.stiffness_fade, twin.damping_fade})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(twin.previous_distance, 0.25);
    EXPECT_EQ(twin.ramp, 0.25);
    EXPECT_EQ(twin.moving, 1);
    EXPECT_EQ(Apart(twin.velocity, {7, 8, 9}), 0);
}

TEST(Spring, OfAnglesKeepsItsTwinInStepAndATargetHasNoBank) {
    Operations operations(PlainHost());
    for (const Channel channel : {Channel::kRotation, Channel::kTarget}) {
        Spring spring = AtRest({0.1, 0.1, 0.1}, {0.1, 0.1, 0.1}), twin = InFlight();
        const Vector3 output = OvershootAngles(channel, {1.1, 0.3, 0.2}, {0.5, 0.5}, &operations, &spring, &twin);
        const double q = StiffnessOf(0.5);  // the first step of a move has no ramp
        EXPECT_NEAR(output.x, 0.1 + 1.0 * q, kTolerance);
        EXPECT_NEAR(output.y, 0.1 + 0.2 * q, kTolerance);
        EXPECT_NEAR(twin.output.z, 0.1 + 0.1 * q, kTolerance);
        EXPECT_EQ(output.z, channel == Channel::kTarget ? 0 : twin.output.z);
        EXPECT_EQ(twin.output.x, output.x);
        EXPECT_TRUE(twin.has_output);
        EXPECT_NEAR(twin.input.z, 0.2, 1e-12);
        EXPECT_EQ(Apart(twin.velocity, {}), 0);
        for (const double number : {twin.distance, twin.previous_distance, twin.ramp, twin.ramp_increment,
                                    twin.stiffness_fade, twin.damping_fade})
            EXPECT_EQ(number, 0);
        EXPECT_EQ(twin.moving, 0);
        if (channel == Channel::kTarget) {
            EXPECT_EQ(spring.output.z, 0);
            EXPECT_EQ(spring.input.z, 0);
            EXPECT_EQ(spring.velocity.z, 0);
        } else {
            EXPECT_NEAR(spring.velocity.z, 0.1 * q, kTolerance);
        }
    }
}

TEST(Spring, OfAnglesGoesTheShortWayAndOnPastHalfATurn) {
    Operations operations(PlainHost());
    const double degree = kPi / 180;
    Spring spring = AtRest({179 * degree, 0, 0}, {179 * degree, 0, 0}), twin;
    const Vector3 output =
        OvershootAngles(Channel::kRotation, {-179 * degree, 0, 0}, {0.5, 0}, &operations, &spring, &twin);
    EXPECT_NEAR(output.x, (179 + 2 * StiffnessOf(0.5)) * degree, kTolerance);
    EXPECT_NEAR(spring.input.x, 181 * degree, 1e-12);
}

TEST(Spring, OfAnglesThatFliesOverHalfATurnIsCountedTheShortWay) {
    Operations operations(PlainHost());
    Spring spring = AtRest({}, {}), twin;
    spring.velocity = {4, 0, 0};
    const double way = 4 * (1 - RampOf(0.5));
    ASSERT_GT(way, kPi);
    EXPECT_NEAR(OvershootAngles(Channel::kRotation, {}, {0.5, 0}, &operations, &spring, &twin).x, way - 2 * kPi,
                kTolerance);
    EXPECT_NEAR(twin.output.x, way - 2 * kPi, kTolerance);
}

TEST(Spring, WithoutMemoryForACurveLetsItsInputThroughAndStaysAsItIs) {
    for (const int granted : {0, 1}) {
        Operations operations(PlainHost());
        Spring spring = AtRest({1, 2, 3}, {4, 5, 6}), twin;
        const NoMemory none(granted);
        EXPECT_EQ(Overshoot(Channel::kPosition, {70, 0, 0}, {0.5, 0}, &operations, &spring).x, 70);
        EXPECT_EQ(OvershootAngles(Channel::kRotation, {2, 0, 0}, {0.5, 0}, &operations, &spring, &twin).x, 2);
        EXPECT_EQ(Apart(spring.output, {1, 2, 3}), 0);
    }
}

TEST(Spring, WithoutAnOutputStartsAtRestOnItsInput) {
    Operations operations(PlainHost());
    Spring spring, twin;
    spring.velocity = {9, 9, 9};
    EXPECT_EQ(Apart(Overshoot(Channel::kPosition, {5000, 1, 2}, {0.5, 0}, &operations, &spring), {5000, 1, 2}), 0);
    Spring angles;
    EXPECT_EQ(
        Apart(OvershootAngles(Channel::kRotation, {2, 0.5, 1}, {0.5, 0}, &operations, &angles, &twin), {2, 0.5, 1}), 0);
}

TEST(Spring, StartsAtRestWhereANumberOfItIsNone) {
    const double none = std::nan("");
    const std::vector<void (*)(Spring *, double)> ways = {
        [](Spring *s, double x) { s->output.x = x; },       [](Spring *s, double x) { s->input.y = x; },
        [](Spring *s, double x) { s->velocity.z = x; },     [](Spring *s, double x) { s->previous_distance = x; },
        [](Spring *s, double x) { s->ramp_increment = x; }, [](Spring *s, double x) { s->stiffness_fade = x; },
        [](Spring *s, double x) { s->damping_fade = x; }};
    for (const auto &breaks : ways) {
        Operations operations(PlainHost());
        Spring spring = AtRest({}, {});
        breaks(&spring, none);
        EXPECT_EQ(Overshoot(Channel::kPosition, {100, 0, 0}, {0.5, 0}, &operations, &spring).x, 100);
        EXPECT_EQ(spring.previous_distance, 0);
    }
}

TEST(Spring, ThatLeavesTheNumbersIsPutAtRest) {
    Operations operations(PlainHost());
    Spring spring = AtRest({}, {});
    spring.velocity = {1.7e308, 0, 0};
    spring.output = {1.7e308, 0, 0};
    EXPECT_EQ(OvershootOrRest(Channel::kPosition, {3, 4, 5}, {0.9, 0}, &operations, &spring, nullptr).y, 4);
    EXPECT_EQ(Apart(spring.output, {3, 4, 5}), 0);
    EXPECT_EQ(Apart(spring.input, {3, 4, 5}), 0);
    EXPECT_TRUE(spring.has_output);
    EXPECT_EQ(Apart(spring.velocity, {}), 0);
}

}  // namespace
