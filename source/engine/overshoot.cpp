#include "engine/overshoot.h"

#include "engine/numbers.h"
#include "engine/operations.h"

namespace engine {

namespace {

constexpr double kMostLoose = 0.99;
constexpr double kMostRamp = 0.05, kLeastRamp = 0.005;
constexpr double kFadeStep = 0.02;
constexpr double kStiffnessFadeShare = 0.5;
constexpr double kStillPlain = 1.0, kStillAngle = 0.01;
constexpr double kTolerancePlain = 0.025, kToleranceFine = 0.001;

struct Measures {
    double still;      // a step of the input below this counts as none
    double tolerance;  // by which a step must be shorter than the one before for the input to be slowing down
};

struct Looseness {
    double ramp, stiffness;
};

// Of an overshoot amount; false without memory for its curve.
bool LoosenessOf(double amount, Operations *operations, Looseness *looseness) {
    double loose, bent;
    if (!operations->Bend(Held01(amount), kOvershootCurve, &loose)) return false;
    loose *= kMostLoose;
    if (!operations->Bend(Held01(loose), kOvershootCurve, &bent)) return false;
    *looseness = {(1.0 - Held01(loose)) * kMostRamp + kLeastRamp, 1.0 - bent};
    return true;
}

double AtMostOne(double x) { return x < 1.0 ? x : 1.0; }

// Without an output the channel starts at rest on its next input: an amount that is raised in mid-shot must not throw
// the camera to the world's origin.
Spring Off(const Vector3 &input) {
    Spring spring;
    spring.input = input;
    return spring;
}

bool IsSound(const Spring &spring) {
    return IsFinite(spring.output) && IsFinite(spring.input) && IsFinite(spring.velocity) &&
           IsFinite(spring.previous_distance) && IsFinite(spring.ramp_increment) && IsFinite(spring.stiffness_fade) &&
           IsFinite(spring.damping_fade);
}

// Takes note of the input's step, and gives the damping on it: on a move that of the stiffness; where the move slows
// down none, and from there on the fades grow.
double TakeStep(double step, const Measures &measures, double stiffness, double fade_step, Spring *spring) {
    const double before = spring->previous_distance;
    const double distance = step < measures.still ? 0.0 : step;
    spring->previous_distance = step;
    spring->distance = distance;

    const bool slowing = measures.tolerance + distance < before || distance == 0.0;
    const bool just_slowing = slowing && spring->moving == 1 && before > distance;
    if (just_slowing || (slowing && spring->moving == 0)) {
        if (just_slowing) spring->ramp = 0.0;
        spring->moving = 0;
        spring->stiffness_fade += fade_step * kStiffnessFadeShare;
        spring->damping_fade += fade_step;
        return 0.0;
    }
    if (!slowing) {
        if (spring->moving == 0) spring->ramp = 0.0;
        spring->ramp += spring->ramp_increment;
        spring->moving = 1;
    }
    spring->stiffness_fade = spring->damping_fade = 0.0;
    return stiffness;
}

// The input's step, and what the spring's velocity and output become by it. `value` is the input in the numbers that
// continue the last one.
void Pull(const Vector3 &value, const Measures &measures, const Looseness &looseness, double fade, Spring *spring) {
    spring->ramp = looseness.ramp;
    const double damping =
        TakeStep(Length(value - spring->input), measures, looseness.stiffness, Held01(fade) * kFadeStep, spring);
    const double damping_weight = AtMostOne(spring->ramp + damping + spring->damping_fade);
    const double stiffness_weight = AtMostOne(spring->ramp + looseness.stiffness + spring->stiffness_fade);
    spring->velocity = (value - spring->output) * stiffness_weight + spring->velocity * (1.0 - damping_weight);
    spring->output = spring->output + spring->velocity;
    spring->input = value;
}

void StartWhereItMust(const Vector3 &input, Spring *spring) {
    if (!spring->has_output || !IsSound(*spring)) *spring = AtRest(input, input);
}

}  // namespace

Spring AtRest(const Vector3 &output, const Vector3 &input) {
    Spring spring;
    spring.has_output = true;
    spring.output = output;
    spring.input = input;
    return spring;
}

Vector3 Overshoot(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations, Spring *spring) {
    if (swing.amount == 0.0) {
        *spring = Off(input);
        return input;
    }
    Looseness looseness;
    if (!LoosenessOf(swing.amount, operations, &looseness)) return input;
    StartWhereItMust(input, spring);
    const Measures measures = {kStillPlain, channel == Channel::kSpare ? kToleranceFine : kTolerancePlain};
    Pull(input, measures, looseness, swing.fade, spring);
    return spring->output;
}

Vector3 OvershootAngles(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations,
                        Spring *spring, Spring *twin) {
    if (swing.amount == 0.0) {
        *spring = Off(input);
        twin->has_output = false;
        twin->input = input;
        twin->distance = twin->ramp_increment = twin->stiffness_fade = twin->damping_fade = 0.0;
        return input;
    }
    Looseness looseness;
    if (!LoosenessOf(swing.amount, operations, &looseness)) return input;
    StartWhereItMust(input, spring);
    const Vector3 value = operations->host.nearest_angles(spring->input, input);
    const Vector3 before = spring->output;
    Pull(value, {kStillAngle, kToleranceFine}, looseness, swing.fade, spring);
    spring->output = operations->host.nearest_angles(before, spring->output);
    *twin = AtRest(spring->output, value);
    if (channel == Channel::kTarget) spring->velocity.z = spring->output.z = spring->input.z = 0.0;
    return spring->output;
}

Vector3 OvershootOrRest(Channel channel, const Vector3 &input, const Swing &swing, Operations *operations,
                        Spring *spring, Spring *twin) {
    const Vector3 output = operations->Overshoot(channel, input, swing, spring, twin);
    if (IsFinite(output)) return output;
    *spring = AtRest(input, input);
    return input;
}

}  // namespace engine
