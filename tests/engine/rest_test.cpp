// Where the motion starts: what a restart and a jump clear, and what they put at rest.
#include <gtest/gtest.h>

#include "engine/frame.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

const Vector3 kSevens = {7, 7, 7};

Spring Used() {
    Spring spring = AtRest(kSevens, kSevens);
    spring.velocity = kSevens;
    spring.distance = spring.previous_distance = spring.ramp = spring.ramp_increment = spring.stiffness_fade =
        spring.damping_fade = 7;
    spring.moving = 7;
    return spring;
}

// Every number is 7.
FrameMemory UsedMemory() {
    FrameMemory m;
    m.start_frame = m.last_frame = 7;
    m.is_catching_up = true;
    m.clocks = {7, 7, 7, 7, 7, 7, 7};
    for (VectorFilter *filter : {&m.position.input, &m.position.shake, &m.rotation.input, &m.rotation.shake})
        *filter = {kSevens, kSevens};
    for (RealFilter *filter : {&m.zoom.input, &m.zoom.drift, &m.focus.input, &m.focus.drift}) *filter = {7, 7};
    for (Spring *spring : {&m.position.spring, &m.rotation.spring, &m.rotation.target_spring, &m.zoom.spring,
                           &m.focus.spring, &m.spare_spring})
        *spring = Used();
    for (Jolt *jolt : {&m.jolts.position, &m.jolts.rotation}) *jolt = {7, 7, 7, 7, {kSevens, kSevens}, kSevens};
    m.previous_angles = kSevens;
    return m;
}

void ExpectNone(const RealFilter &filter) {
    EXPECT_EQ(filter.carry, 0);
    EXPECT_EQ(filter.value, 0);
}
void ExpectNone(const VectorFilter &filter) {
    EXPECT_EQ(Apart(filter.carry, {}), 0);
    EXPECT_EQ(Apart(filter.value, {}), 0);
}
void ExpectUsed(const Spring &spring) {
    EXPECT_EQ(Apart(spring.velocity, kSevens), 0);
    EXPECT_EQ(spring.moving, 7);
}
void ExpectRestOn(const Vector3 &value, const Spring &spring) {
    EXPECT_TRUE(spring.has_output);
    EXPECT_EQ(Apart(spring.output, value), 0);
    EXPECT_EQ(Apart(spring.input, value), 0);
    EXPECT_EQ(Apart(spring.velocity, {}), 0);
    for (const double number : {spring.distance, spring.previous_distance, spring.ramp, spring.ramp_increment,
                                spring.stiffness_fade, spring.damping_fade})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(spring.moving, 0);
}

void ExpectCleared(const FrameMemory &m) {
    EXPECT_EQ(m.start_frame, 7);
    EXPECT_EQ(m.last_frame, 0);
    EXPECT_FALSE(m.is_catching_up);
    const Clocks &c = m.clocks;
    for (const double clock : {c.step, c.shake, c.focus, c.zoom_drift, c.jolt, c.auxiliary, c.zoom})
        EXPECT_EQ(clock, 0);
    EXPECT_EQ(Apart(m.previous_angles, {}), 0);
    ExpectNone(m.position.shake);
    ExpectNone(m.rotation.shake);
    ExpectNone(m.zoom.drift);
    EXPECT_EQ(m.focus.drift.value, 0);
    for (const Jolt &jolt : {m.jolts.position, m.jolts.rotation}) {
        for (const double number : {jolt.target, jolt.envelope, jolt.carry, jolt.previous}) EXPECT_EQ(number, 0);
        ExpectNone(jolt.filter);
        EXPECT_EQ(Apart(jolt.offset, {}), 0);
    }
}

FrameInput Start() {
    FrameInput in;
    in.position = {10, 20, 30};
    in.angles = {0.1, 0.2, 0.3};
    in.focal_length = 36;
    in.focus_distance = 500;
    return in;
}

TEST(MotionToClear, KeepsItsSpringsAndWhatTheFocusDriftCarries) {
    FrameMemory m = UsedMemory();
    ClearMotion(&m);
    ExpectCleared(m);
    ExpectNone(m.position.input);
    ExpectNone(m.rotation.input);
    ExpectNone(m.zoom.input);
    ExpectNone(m.focus.input);
    EXPECT_EQ(m.focus.drift.carry, 7);
    for (const Spring &spring : {m.position.spring, m.rotation.spring, m.rotation.target_spring, m.zoom.spring,
                                 m.focus.spring, m.spare_spring})
        ExpectUsed(spring);
}

TEST(MotionWithoutInput, IsClearedButForTheSpringsOfItsLayers) {
    FrameMemory m = UsedMemory();
    ClearAllMotion(&m);
    ExpectCleared(m);
    EXPECT_EQ(m.focus.drift.carry, 0);
    ExpectRestOn({}, m.spare_spring);
    for (const Spring &spring :
         {m.position.spring, m.rotation.spring, m.rotation.target_spring, m.zoom.spring, m.focus.spring})
        ExpectUsed(spring);
}

TEST(MotionAtItsStart, RestsOnTheInput) {
    FrameMemory m = UsedMemory();
    RestMotion(Settings(), Start(), PlainHost(), &m);
    ExpectCleared(m);
    EXPECT_EQ(Apart(m.position.input.value, {10, 20, 30}), 0);
    EXPECT_EQ(Apart(m.position.input.carry, {}), 0);
    EXPECT_EQ(Apart(m.rotation.input.value, {0.1, 0.2, 0.3}), 0);
    EXPECT_EQ(Apart(m.rotation.input.carry, {}), 0);
    EXPECT_EQ(m.zoom.input.value, 36);
    EXPECT_EQ(m.zoom.input.carry, 0);
    EXPECT_EQ(m.focus.input.value, 500);
    EXPECT_EQ(m.focus.input.carry, 0);
    EXPECT_EQ(m.focus.drift.carry, 0);
    ExpectRestOn({10, 20, 30}, m.position.spring);
    ExpectRestOn({0.1, 0.2, 0.3}, m.rotation.spring);
    ExpectRestOn({0.1, 0.2, 0.3}, m.rotation.target_spring);
    ExpectRestOn({36, 0, 0}, m.zoom.spring);
    ExpectRestOn({500, 0, 0}, m.focus.spring);
    ExpectRestOn({}, m.spare_spring);
}

TEST(MotionAtItsStart, LooksAtATargetThatIsSwitchedOn) {
    FrameInput in = Start();
    in.target = {10, 20, 90};
    for (const bool has_target : {false, true}) {
        for (const bool use_target : {false, true}) {
            in.has_target = has_target;
            Settings settings;
            settings.use_target = use_target;
            const Vector3 expected = has_target && use_target ? Vector3() : in.angles;
            FrameMemory m = UsedMemory();
            RestMotion(settings, in, PlainHost(), &m);
            EXPECT_LT(Apart(m.rotation.input.value, expected), 1e-12);
            ExpectRestOn(m.rotation.input.value, m.rotation.target_spring);
        }
    }
    // On top of the target it looks as the input does.
    in.target = in.position;
    Settings settings;
    settings.use_target = true;
    FrameMemory m;
    RestMotion(settings, in, PlainHost(), &m);
    EXPECT_EQ(Apart(m.rotation.input.value, in.angles), 0);
}

TEST(MotionAtItsStart, FocusesOnItsObject) {
    FrameInput in = Start();
    in.focus_object = {10, 23, 34};
    in.has_focus_object = true;
    FrameMemory m = UsedMemory();
    RestMotion(Settings(), in, PlainHost(), &m);
    EXPECT_EQ(m.focus.input.value, 5);
    ExpectRestOn({5, 0, 0}, m.focus.spring);
}

TEST(SpringsThatMove, AreThoseOfPlaceAnglesAndLens) {
    FrameMemory m = UsedMemory();
    RestMovingSprings(Settings(), Start(), PlainHost(), &m);
    ExpectRestOn({10, 20, 30}, m.position.spring);
    ExpectRestOn({0.1, 0.2, 0.3}, m.rotation.spring);
    ExpectRestOn({0.1, 0.2, 0.3}, m.rotation.target_spring);
    ExpectRestOn({36, 0, 0}, m.zoom.spring);
    ExpectUsed(m.focus.spring);
    ExpectUsed(m.spare_spring);
    EXPECT_EQ(Apart(m.position.input.value, kSevens), 0);
}

TEST(JoltsInFlight, AreDroppedButForWhatTheyPushedLast) {
    FrameMemory m = UsedMemory();
    DropJolts(&m.jolts);
    for (const Jolt &jolt : {m.jolts.position, m.jolts.rotation}) {
        for (const double number : {jolt.target, jolt.envelope, jolt.carry, jolt.previous}) EXPECT_EQ(number, 0);
        EXPECT_EQ(Apart(jolt.filter.value, {}), 0);
        EXPECT_EQ(Apart(jolt.filter.carry, kSevens), 0);
        EXPECT_EQ(Apart(jolt.offset, kSevens), 0);
    }
}

}  // namespace
