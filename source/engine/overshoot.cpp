#include "engine/overshoot.h"

#include <cmath>

#include "engine/curves.h"
#include "engine/filter.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr Real kMostLoose = 0.99;
constexpr Real kMostRamp = 0.05, kLeastRamp = 0.005;
constexpr Real kFadeStep = 0.02;
constexpr Real kStillPlain = 1.0, kStillAngle = 0.01;
constexpr Real kTolerancePlain = 0.025, kToleranceFine = 0.001;

struct Measures {
    Real still;      // a step of the input below this counts as none
    Real tolerance;  // by which a step must be shorter than the one before for the input to be slowing down
};

// What a channel remembers from one frame to the next.
struct Spring {
    Vector output, input, velocity;
    Real distance;           // of the input's last step, 0 for a small one
    Real previous_distance;  // of the same step, as it was
    Real ramp, ramp_increment;
    Real stiffness_fade, damping_fade;
    LONG moving;
};

Spring ReadSpring(const BaseContainer &data, LONG base) {
    Spring spring;
    spring.output = data.GetVector(base + kOvershootOutput);
    spring.input = data.GetVector(base + kOvershootInput);
    spring.velocity = data.GetVector(base + kOvershootVelocity);
    spring.distance = data.GetReal(base + kOvershootDistance);
    spring.previous_distance = data.GetReal(base + kOvershootPreviousDistance);
    spring.ramp = data.GetReal(base + kOvershootRamp);
    spring.ramp_increment = data.GetReal(base + kOvershootRampIncrement);
    spring.stiffness_fade = data.GetReal(base + kOvershootStiffnessFade);
    spring.damping_fade = data.GetReal(base + kOvershootDampingFade);
    spring.moving = data.GetLong(base + kOvershootMoving);
    return spring;
}

void WriteWithoutOutput(const Spring &spring, LONG base, BaseContainer *data) {
    data->SetVector(base + kOvershootInput, spring.input);
    data->SetVector(base + kOvershootVelocity, spring.velocity);
    data->SetReal(base + kOvershootDistance, spring.distance);
    data->SetReal(base + kOvershootPreviousDistance, spring.previous_distance);
    data->SetReal(base + kOvershootRamp, spring.ramp);
    data->SetReal(base + kOvershootRampIncrement, spring.ramp_increment);
    data->SetReal(base + kOvershootStiffnessFade, spring.stiffness_fade);
    data->SetReal(base + kOvershootDampingFade, spring.damping_fade);
    data->SetLong(base + kOvershootMoving, spring.moving);
}

void WriteSpring(const Spring &spring, LONG base, BaseContainer *data) {
    data->SetVector(base + kOvershootOutput, spring.output);
    WriteWithoutOutput(spring, base, data);
}

// To take an entry out, the host looks through all of them.
void ForgetOutput(LONG base, BaseContainer *data) {
    if (data->GetDataPointer(base + kOvershootOutput)) data->RemoveData(base + kOvershootOutput);
}

Spring AtRest(const Vector &output, const Vector &input) {
    Spring spring = Spring();
    spring.output = output;
    spring.input = input;
    return spring;
}

// Without an output the channel starts at rest on its next input: an amount that is raised in mid-shot must not throw
// the camera to the world's origin.
void SwitchOff(const Vector &value, BaseContainer *data, LONG base, Bool angles) {
    WriteWithoutOutput(AtRest(Vector(), value), base, data);
    ForgetOutput(base, data);
    if (!angles) return;
    const LONG other = base == kOvershootTarget ? kOvershootRotation : kOvershootTarget;
    ForgetOutput(other, data);
    data->SetVector(other + kOvershootInput, value);
    for (LONG entry : {kOvershootDistance, kOvershootRampIncrement, kOvershootStiffnessFade, kOvershootDampingFade})
        data->SetReal(other + entry, 0.0);
}

Bool IsSound(const Spring &spring) {
    return IsFinite(spring.output) && IsFinite(spring.input) && IsFinite(spring.velocity) &&
           IsFinite(spring.previous_distance) && IsFinite(spring.ramp_increment) && IsFinite(spring.stiffness_fade) &&
           IsFinite(spring.damping_fade);
}

// Takes note of the input's step, and gives the damping on it: on a move that of the stiffness; where the move slows
// down none, and from there on the fades grow.
Real TakeStep(Real step, const Measures &measures, Real stiffness, Real fade_step, Spring *spring) {
    const Real before = spring->previous_distance;
    const Real distance = step < measures.still ? 0.0 : step;
    spring->previous_distance = step;
    spring->distance = distance;

    const Bool slowing = measures.tolerance + distance < before || distance == 0.0;
    const Bool just_slowing = slowing && spring->moving == 1 && before > distance;
    if (just_slowing || (slowing && spring->moving == 0)) {
        if (just_slowing) spring->ramp = 0.0;
        spring->moving = 0;
        spring->stiffness_fade += fade_step * 0.5;
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

}  // namespace

void RestOvershoot(LONG base, const Vector &value, BaseContainer *data) {
    WriteSpring(AtRest(value, value), base, data);
}

Vector TremoluxCamClass::Overshoot(const Vector &input, Real amount, Real fade, BaseContainer *data, LONG base,
                                   LONG mode) {
    const Bool angles = mode == 1;
    if (amount == 0.0) {
        SwitchOff(input, data, base, angles);
        return input;
    }
    Real loose, bent;
    if (!BendAmount(FCut01(amount), kOvershootCurve, &loose)) return input;
    loose *= kMostLoose;
    if (!BendAmount(FCut01(loose), kOvershootCurve, &bent)) return input;
    const Real stiffness = 1.0 - bent;

    Spring spring = ReadSpring(*data, base);
    if (!data->GetDataPointer(base + kOvershootOutput) || !IsSound(spring)) spring = AtRest(input, input);
    spring.ramp = (1.0 - FCut01(loose)) * kMostRamp + kLeastRamp;

    const Vector value = angles ? GetOptimalAngle(spring.input, input, ROTATIONORDER_HPB) : input;
    const Measures measures = {angles ? kStillAngle : kStillPlain,
                               angles || base == kOvershootSpare ? kToleranceFine : kTolerancePlain};
    const Real damping = TakeStep(Len(value - spring.input), measures, stiffness, FCut01(fade) * kFadeStep, &spring);
    const Real damping_weight = FMin(spring.ramp + damping + spring.damping_fade, 1.0);
    const Real stiffness_weight = FMin(spring.ramp + stiffness + spring.stiffness_fade, 1.0);
    spring.velocity = (value - spring.output) * stiffness_weight + spring.velocity * (1.0 - damping_weight);
    Vector output = spring.output + spring.velocity;
    Vector kept_input = value;
    if (angles) {
        output = GetOptimalAngle(spring.output, output, ROTATIONORDER_HPB);
        // The two channels of angles go in step, so that switching between them does not jump.
        const Bool aiming = base == kOvershootTarget;
        WriteSpring(AtRest(output, value), aiming ? kOvershootRotation : kOvershootTarget, data);
        if (aiming) spring.velocity.z = output.z = kept_input.z = 0.0;
    }
    spring.output = output;
    spring.input = kept_input;
    WriteSpring(spring, base, data);
    return output;
}
