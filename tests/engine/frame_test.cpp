#include "engine/frame.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// Layers that note what they were handed, and answer with numbers of their own.
class Noting : public Operations {
  public:
    Noting() : Operations(PlainHost()) {}
    void ClocksAreSet() override { called.push_back("clocks"); }
    double StepZoom(const ZoomSettings &, const ZoomInput &input, ZoomMemory *) override {
        called.push_back("zoom");
        zoom = input;
        return answers_badly == 0 ? std::nan("") : 35;
    }
    Vector3 StepPosition(const PositionSettings &, const PositionInput &input, PositionMemory *) override {
        called.push_back("position");
        position = input;
        return {1, 2, answers_badly == 1 ? HUGE_VAL : 3};
    }
    Vector3 StepRotation(const RotationSettings &, const RotationInput &input, RotationMemory *) override {
        called.push_back("rotation");
        rotation = input;
        return {0.1, 0.2, answers_badly == 2 ? HUGE_VAL : 0.3};
    }
    double StepFocus(const FocusSettings &, const FocusInput &input, FocusMemory *) override {
        called.push_back("focus");
        focus = input;
        return answers_badly == 3 ? std::nan("") : 500;
    }
    void StepJolts(const JoltSettings &, const JoltInput &input, JoltMemory *memory) override {
        called.push_back("jolts");
        jolts = input;
        memory->position.offset = {10, 20, 30};
        memory->rotation.offset = {1, 2, 3};
    }
    std::vector<std::string> called;
    int answers_badly = -1;
    ZoomInput zoom;
    PositionInput position;
    RotationInput rotation;
    FocusInput focus;
    JoltInput jolts;
};

FrameInput Input() {
    FrameInput in;
    in.frame = 12.75;
    in.frames_per_second = 30;
    in.position = {4, 5, 6};
    in.angles = {0.4, 0.5, 0.6};
    in.focal_length = 50;
    in.focus_distance = 700;
    in.target = {7, 8, 9};
    in.focus_object = {10, 11, 12};
    in.is_jolt_listed = true;
    return in;
}

FrameMemory AfterSomeFrames() {
    FrameMemory memory;
    memory.clocks = {0.5, 20.25, 30, 40, 50.75, 60, 70};
    return memory;
}

TEST(Frame, HandsEachLayerItsClockAndItsInput) {
    Noting layers;
    FrameMemory memory = AfterSomeFrames();
    FrameMotion motion;
    Settings settings;
    settings.zoom_rate = 2;
    settings.focus_rate = 4;
    ASSERT_TRUE(StepFrame(settings, Input(), &layers, &memory, &motion));
    EXPECT_EQ(layers.called, (std::vector<std::string>{"clocks", "zoom", "position", "rotation", "focus", "jolts"}));
    EXPECT_EQ(layers.zoom.focal_length, 50);
    EXPECT_EQ(layers.zoom.frame, 12.75);
    EXPECT_EQ(layers.zoom.drift_clock, 41);
    EXPECT_EQ(Apart(layers.position.position, {4, 5, 6}), 0);
    EXPECT_EQ(layers.position.frame, 12.75);
    EXPECT_EQ(layers.position.clock, 20.75);
    EXPECT_EQ(Apart(layers.rotation.angles, {0.4, 0.5, 0.6}), 0);
    EXPECT_EQ(Apart(layers.rotation.target, {7, 8, 9}), 0);
    EXPECT_EQ(Apart(layers.rotation.position, {1, 2, 3}), 0);  // the camera's new place, without its jolt
    EXPECT_EQ(layers.rotation.frame, 12.75);
    EXPECT_EQ(layers.rotation.clock, 20.75);
    EXPECT_EQ(layers.focus.distance, 700);
    EXPECT_EQ(Apart(layers.focus.object, {10, 11, 12}), 0);
    EXPECT_EQ(Apart(layers.focus.camera, {1, 2, 3}), 0);
    EXPECT_EQ(layers.focus.frame, 12.75);
    EXPECT_EQ(layers.focus.drift_clock, 32);
    EXPECT_EQ(layers.jolts.clock, 51.25);
    EXPECT_EQ(layers.jolts.whole_clock, 51);
    EXPECT_EQ(layers.jolts.frame, 12);
    EXPECT_TRUE(layers.jolts.is_listed);
    EXPECT_EQ(Apart(motion.position, {11, 22, 33}), 0);
    EXPECT_LT(Apart(motion.angles, {1.1, 2.2, 3.3}), 1e-12);
    EXPECT_EQ(motion.focal_length, 35);
    EXPECT_EQ(motion.focus_distance, 500);
}

TEST(Frame, AimsAtATargetThatIsThereAndSwitchedOn) {
    for (const bool is_there : {false, true}) {
        for (const bool is_on : {false, true}) {
            Noting layers;
            FrameMemory memory;
            FrameMotion motion;
            FrameInput in = Input();
            in.has_target = is_there;
            in.has_focus_object = is_on;
            Settings settings;
            settings.use_target = is_on;
            ASSERT_TRUE(StepFrame(settings, in, &layers, &memory, &motion));
            EXPECT_EQ(layers.rotation.is_aiming, is_there && is_on);
            EXPECT_EQ(layers.focus.has_object, is_on);
        }
    }
}

// The drifts start on the document's first frame alone.
TEST(Frame, HasNoPastOnTheFirstOneAndAfterAJump) {
    for (const bool is_first : {false, true}) {
        for (const bool is_jump : {false, true}) {
            Noting layers;
            FrameMemory memory;
            memory.start_frame = is_first ? 12.75 : 3;
            memory.is_catching_up = is_jump;
            FrameMotion motion;
            ASSERT_TRUE(StepFrame(Settings(), Input(), &layers, &memory, &motion));
            EXPECT_EQ(HasNoPast(memory, 12.75), is_first || is_jump);
            EXPECT_EQ(layers.position.restart, is_first || is_jump);
            EXPECT_EQ(layers.rotation.restart, is_first || is_jump);
            EXPECT_EQ(layers.zoom.starts, is_first);
            EXPECT_EQ(layers.focus.starts, is_first);
        }
    }
}

TEST(Frame, EndsWithoutMotionWhereALayerLeavesTheNumbers) {
    for (int layer = 0; layer < 4; ++layer) {
        Noting layers;
        layers.answers_badly = layer;
        FrameMemory memory;
        FrameMotion motion;
        motion.focal_length = 7;
        EXPECT_FALSE(StepFrame(Settings(), Input(), &layers, &memory, &motion)) << layer;
        EXPECT_EQ(motion.focal_length, 7);
    }
}

TEST(Frame, WithoutMemoryForItsFirstCurveLeavesTheClocksAndForItsSecondTheLayers) {
    for (const int granted : {0, 1}) {
        Noting layers;
        FrameMemory memory = AfterSomeFrames();
        FrameMotion motion;
        const NoMemory none(granted);
        EXPECT_FALSE(StepFrame(Settings(), Input(), &layers, &memory, &motion));
        EXPECT_EQ(memory.clocks.shake, granted == 0 ? 20.25 : 20.75);
        EXPECT_EQ(layers.called.size(), granted == 0 ? 0u : 1u);
    }
    EXPECT_EQ(LivingCurves(), 0);
}

TEST(Frame, CountsItsClocksBySpeedVariationAndRates) {
    Settings settings;
    settings.speed = 1, settings.speed_variation = 2, settings.focus_rate = 3, settings.zoom_rate = 4;
    settings.seed = 5.9;
    EXPECT_TRUE(ClockSettingsOf(settings) == (ClockSettings{1, 2, 3, 4, 5}));
}

TEST(Frame, IsNothingUntilItIsSet) {
    const auto &[frame, rate, position, angles, focal_length, distance, has_target, has_object, target, object,
                 listed] = FrameInput();
    EXPECT_TRUE(IsNothing(frame, rate, position, angles, focal_length, distance));
    EXPECT_TRUE(IsNothing(has_target, has_object, target, object, listed));
    const FrameMotion motion;
    EXPECT_TRUE(IsNothing(motion.position, motion.angles, motion.focal_length, motion.focus_distance));
    const FrameMemory memory;
    EXPECT_TRUE(IsNothing(memory.start_frame, memory.last_frame, memory.is_catching_up, memory.previous_angles));
}

TEST(Angles, GoOnFromThoseOfTheFrameBefore) {
    FrameMemory memory;
    memory.previous_angles = {3.1, 0, 0};
    EXPECT_NEAR(ContinueAngles(5, {-3.1, 0, 0}, PlainHost(), &memory).x, 2 * kPi - 3.1, 1e-12);
    EXPECT_NEAR(memory.previous_angles.x, 2 * kPi - 3.1, 1e-12);
    EXPECT_NEAR(ContinueAngles(6, {-2, 0, 0}, PlainHost(), &memory).x, 2 * kPi - 2, 1e-12);
}

TEST(Angles, OfFrameZeroAndAfterNoNumberGoOnFromNone) {
    FrameMemory memory;
    memory.previous_angles = {3.1, 0, 0};
    EXPECT_NEAR(ContinueAngles(0, {-3.1, 0, 0}, PlainHost(), &memory).x, -3.1, 1e-12);
    memory.previous_angles = {std::nan(""), 0, 0};
    EXPECT_NEAR(ContinueAngles(5, {2 * kPi + 1, 0, 0}, PlainHost(), &memory).x, 1, 1e-12);
    EXPECT_NEAR(memory.previous_angles.x, 1, 1e-12);
}

}  // namespace
