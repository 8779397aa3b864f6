#include "engine/jolts.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "engine/settings.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// A knock sets the target of the envelope to 1, which nothing takes away again before the next frame.
JoltSettings Knocking(std::int32_t interval, double seed) {
    JoltSettings s;
    s.interval = interval;
    s.seed = seed;
    s.position_intensity = s.rotation_intensity = 1;
    s.pushes = true;
    return s;
}

bool Hits(const JoltSettings &s, std::int32_t clock) {
    Operations operations(PlainHost());
    JoltMemory memory;
    StepJolts(s, {double(clock), clock, 0, false}, &operations, &memory);
    return memory.position.target != 0;
}

// One knock in each block of frames, at the place that the block's number and the seed pick.
RC_GTEST_PROP(Knocks, HitOnceInEachBlock, ()) {
    const int interval = *rc::gen::inRange(1, 60), seed = *rc::gen::inRange(0, 100000);
    const int block = *rc::gen::inRange(0, 200);
    const JoltSettings s = Knocking(interval, seed);
    const auto hash = static_cast<std::int64_t>(111.333 * block * block * block + seed * 131.92111);
    const double place = (block + 1.0) * interval - 0.8 * static_cast<double>(hash % interval + 1);
    // A place on a whole number may fall on either side of it, and so may the hash.
    RC_PRE(std::abs(place - std::round(place)) > 1e-6);
    RC_PRE(std::abs(std::remainder(111.333 * block * block * block + seed * 131.92111, 1.0)) > 1e-6);
    for (int frame = block * interval; frame < (block + 1) * interval; ++frame)
        RC_ASSERT(Hits(s, frame) == (frame == static_cast<int>(place)));
}

TEST(Knocks, WithoutAnIntervalHitOnListedFramesAlone) {
    Operations operations(PlainHost());
    for (const std::int32_t interval : {0, -3}) {
        for (std::int32_t frame = 0; frame < 50; ++frame) EXPECT_FALSE(Hits(Knocking(interval, 5), frame));
        JoltMemory memory;
        StepJolts(Knocking(interval, 5), {7, 7, 7, true}, &operations, &memory);
        EXPECT_EQ(memory.position.target, 1);
        EXPECT_EQ(memory.rotation.target, 1);
    }
    // Every frame is a block of its own.
    for (std::int32_t frame = 0; frame < 50; ++frame) EXPECT_TRUE(Hits(Knocking(1, 5), frame));
}

TEST(Knocks, ComeEarlierByTheWholeFramesOfTheTimeOffset) {
    JoltSettings s = Knocking(10, 3);
    std::int32_t hit = 20;
    while (!Hits(s, hit)) ++hit;
    s.time_offset = 4.9;
    EXPECT_TRUE(Hits(s, hit - 4));
    EXPECT_FALSE(Hits(s, hit - 5));
    // The sum of the largest of both is no longer a whole number of 32 bits.
    s.time_offset = 2147483647;
    s.interval = 1;
    EXPECT_TRUE(Hits(s, 2147483647));
}

// Beyond whole numbers the hash is the last of them, 7 or -8 after whole tens: the knock of ten frames is the third or,
// as 10 + 0.8 * 7 lies in another block, none.
TEST(Knocks, OfAHashBeyondWholeNumbersTakeTheLastOne) {
    constexpr double kEnd = 9223372036854775808.0;
    const double least = kEnd / 131.92111;
    ASSERT_EQ(least * 131.92111, kEnd);
    for (const double seed : {least, 1e300}) EXPECT_TRUE(Hits(Knocking(10, seed), 3)) << seed;
    for (const double seed : {-least, -1e300})
        for (std::int32_t frame = 0; frame < 10; ++frame) EXPECT_FALSE(Hits(Knocking(10, seed), frame)) << seed;
}

struct Model {
    double target = 0, previous = 0;
    PlainFilter envelope, filter[3];
    double offset[3] = {0, 0, 0};

    void Step(Pair pair, double smooth, bool hits, double intensity, bool pushes, double falloff,
              const double (&pushed)[3]) {
        if (hits) target = intensity * (1 + 0.5 * smooth);
        target = std::fmax(target, 0.0);
        if (intensity != 0) envelope.Step(pair, target);
        const bool acts = pushes && (envelope.value != 0 || previous != 0 || target != 0);
        for (int i = 0; i < 3; ++i) {
            const double push = acts ? envelope.value * pushed[i] : 0;
            const double filtered = filter[i].Step(pair, push);
            offset[i] = envelope.value >= 0.0001 ? filtered : push;
        }
        previous = envelope.value;
        target -= falloff;
    }
};

constexpr PlainPoint kPosition[] = {{275, 0, 6541, 1257}, {256, 0, 8745, 25894}, {1902, 0, 98745, 235874}},
                     kRotation[] = {{2013, 0, 8796, 20999}, {14876, 0, 74587, 32458}, {315112, 0, 325874, 98745}};

RC_GTEST_PROP(Jolts, RiseFallAndPushAsTheyAreToldTo, ()) {
    Operations operations(PlainHost());
    JoltSettings s;
    s.pushes = *rc::gen::weightedElement<bool>({{4, true}, {1, false}});
    s.position_intensity = *rc::gen::element(0.0, 0.3, 1.0, 3.0, -1.0);
    s.rotation_intensity = *rc::gen::element(0.0, 0.3, 1.0, 3.0, -1.0);
    s.smooth = *Between(0, 0.9);
    s.falloff_step = *rc::gen::element(0.0, 0.02, 0.2, 1.0);
    s.scale = *Between(0.1, 2);
    s.shake_position_intensity = *Between(0, 2);
    s.shake_rotation_intensity = *Between(0, 2);
    s.position_ratio = *Within(0, 2);
    s.rotation_ratio = *Within(0, 2);
    s.time_scale = *Between(0.5, 2);
    s.seed = *rc::gen::inRange(0, 100000);
    s.speed = *Between(0, 2);
    s.time_offset = *Between(-20, 20);
    const Pair pair = InputPair(s.smooth);
    const double size = 1000 * s.scale * s.shake_position_intensity;
    const double places[] = {s.position_ratio.x * size, s.position_ratio.y * size, s.position_ratio.z * size};
    const double turns[] = {s.rotation_ratio.x * s.shake_rotation_intensity,
                            s.rotation_ratio.y * s.shake_rotation_intensity,
                            s.rotation_ratio.z * s.shake_rotation_intensity};
    JoltMemory memory;
    Model position, rotation;
    for (int frame = 0; frame < 12; ++frame) {
        const bool hits = *rc::gen::weightedElement<bool>({{1, true}, {4, false}});
        const double clock = 1.1 * frame, time = (clock + s.time_offset) * s.time_scale * s.speed;
        double pushes[3], twists[3];
        for (int i = 0; i < 3; ++i) {
            pushes[i] = places[i] * kPosition[i].At(s.seed, 0.035 * time);
            twists[i] = turns[i] * kRotation[i].At(s.seed, 0.1 * time);
        }
        position.Step(pair, s.smooth, hits, s.position_intensity, s.pushes, s.falloff_step, pushes);
        rotation.Step(pair, s.smooth, hits, s.rotation_intensity, s.pushes, s.falloff_step, twists);
        StepJolts(s, {clock, static_cast<std::int32_t>(clock), frame, hits}, &operations, &memory);
        const auto agree = [](const Jolt &jolt, const Model &model, double tolerance) {
            RC_ASSERT(Apart(jolt.offset, {model.offset[0], model.offset[1], model.offset[2]}) < tolerance);
            RC_ASSERT(std::abs(jolt.target - model.target) < 1e-6);
            RC_ASSERT(std::abs(jolt.envelope - model.envelope.value) < 1e-6);
            RC_ASSERT(std::abs(jolt.previous - model.previous) < 1e-6);
        };
        agree(memory.position, position, 1e-3);
        agree(memory.rotation, rotation, 1e-6);
    }
}

// What the filter carries over shows which of the two is taken.
TEST(Jolts, AreFilteredAsLongAsTheirEnvelopeIsATenThousandth) {
    for (const double intensity : {0.0001, 0.0001005, 0.00009999}) {
        Operations operations(PlainHost());
        JoltSettings s = Knocking(0, 0);
        s.position_intensity = intensity;
        JoltMemory memory;
        memory.position.filter.carry = {1, 0, 0};
        StepJolts(s, {0, 0, 0, true}, &operations, &memory);
        ASSERT_EQ(memory.position.envelope, intensity);
        EXPECT_NEAR(memory.position.offset.x, intensity < 0.0001 ? 0 : 0.85, 1e-12);
    }
}

TEST(Jolts, ThatAreNotFiniteAreOver) {
    for (const int broken : {0, 1, 2, 3}) {
        Operations operations(PlainHost());
        JoltSettings s = Knocking(0, 0);
        s.scale = s.shake_position_intensity = 1;
        s.position_ratio = {1, 1, 1};
        JoltMemory memory;
        Jolt &jolt = memory.position;
        jolt.offset = {5, 5, 5};
        if (broken == 0) jolt.target = HUGE_VAL;
        if (broken == 1) jolt.envelope = std::nan("");
        if (broken == 2) jolt.carry = std::nan("");
        if (broken == 3) {
            jolt.envelope = 1;
            s.position_ratio.y = HUGE_VAL;
        }
        StepJolts(s, {0, 0, 0, false}, &operations, &memory);
        EXPECT_EQ(Apart(jolt.offset, {}), 0) << broken;
        for (const double number : {jolt.target, jolt.envelope, jolt.carry, jolt.previous}) EXPECT_EQ(number, 0);
    }
}

TEST(Jolts, WhoseFilterIsNotFiniteAreTheirPush) {
    Operations operations(PlainHost());
    JoltMemory memory;
    memory.position.filter.value = {std::nan(""), 0, 0};
    StepJolts(Knocking(0, 0), {0, 0, 0, true}, &operations, &memory);
    EXPECT_TRUE(IsFinite(memory.position.offset));
    EXPECT_EQ(memory.position.envelope, 1);
}

TEST(JoltSettings, AreNothingUntilTheyAreSet) {
    const auto &[pushes, interval, position, rotation, smooth, falloff, scale, shake_position, shake_rotation,
                 position_ratio, rotation_ratio, time_scale, seed, speed, offset] = JoltSettings();
    EXPECT_TRUE(IsNothing(pushes, interval, position, rotation, smooth, falloff, scale, shake_position));
    EXPECT_TRUE(IsNothing(shake_rotation, position_ratio, rotation_ratio, time_scale, seed, speed, offset));
    const auto &[clock, whole_clock, frame, is_listed] = JoltInput();
    EXPECT_TRUE(IsNothing(clock, whole_clock, frame, is_listed));
    const auto &[target, envelope, carry, previous, filter, pushed] = Jolt();
    EXPECT_TRUE(IsNothing(target, envelope, carry, previous, filter.carry, filter.value, pushed));
}

TEST(JoltSettings, AreThoseOfThePanel) {
    Settings panel;
    panel.jolt_interval = {3, 2};
    panel.jolt_position_intensity = 1, panel.jolt_rotation_intensity = 2, panel.jolt_smooth = 3;
    panel.jolt_falloff = 4, panel.overall_scale = 20;
    panel.position_intensity = 5, panel.rotation_intensity = 6;
    panel.ratio_x = 7, panel.ratio_y = 8, panel.ratio_z = 9;
    panel.ratio_h = 10, panel.ratio_p = 11, panel.ratio_b = 12;
    panel.seed = 13.9, panel.speed = 14, panel.time_offset = 15.5;
    EXPECT_FALSE(JoltSettingsOf(panel, 30).pushes);
    panel.use_jolt = true;
    const JoltSettings s = JoltSettingsOf(panel, 30);
    EXPECT_TRUE(s.pushes);
    EXPECT_EQ(s.interval, 45);
    EXPECT_EQ(s.position_intensity, 1);
    EXPECT_EQ(s.rotation_intensity, 2);
    EXPECT_EQ(s.smooth, 3);
    EXPECT_NEAR(s.falloff_step, 0.4, 1e-15);
    EXPECT_EQ(s.scale, 3);
    EXPECT_EQ(s.shake_position_intensity, 5);
    EXPECT_EQ(s.shake_rotation_intensity, 6);
    EXPECT_EQ(Apart(s.position_ratio, {7, 8, 9}), 0);
    EXPECT_EQ(Apart(s.rotation_ratio, {10, 11, 12}), 0);
    EXPECT_EQ(s.time_scale, 1.25);
    EXPECT_EQ(s.seed, 13);
    EXPECT_EQ(s.speed, 14);
    EXPECT_EQ(s.time_offset, 15.5);
}

}  // namespace
