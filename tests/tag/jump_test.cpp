// A frame looks the same whichever way it was reached.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <map>

#include "tests/support/shake_model.h"
#include "tests/tag/scene.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;
using ClockValues = std::map<std::int32_t, double>;

ClockValues ClocksOf(Scene &scene) {
    ClockValues values;
    for (const std::int32_t key : kClocks) values[key] = scene.Real(key);
    return values;
}

double ClockDifference(const ClockValues &a, const ClockValues &b) {
    double most = 0;
    for (const auto &[key, value] : a) most = std::max(most, std::fabs(value - b.at(key)));
    return most;
}

// Playback counts from the start frame; before time zero every frame restarts, so that the last of them counts.
model::Clocks ExpectedClocks(std::int64_t start, std::int64_t frame, const model::ClockInput &input) {
    model::Clocks clocks;
    for (std::int64_t f = frame < 0 ? frame : std::max<std::int64_t>(start, -1); f <= frame; ++f)
        clocks.Advance(static_cast<double>(f), input);
    return clocks;
}

class Jump : public WithModule {
  protected:
    // An input that stands still, looking roughly along Z: no angle comes near half a turn.
    std::unique_ptr<Scene> StandingScene(int fps, std::int64_t start, bool with_target) {
        auto scene = std::make_unique<Scene>(running_, fps, start, start + 500);
        scene->Shake();
        scene->PlaceInput({10, 150, -400}, {0.4, -0.2, 0.1});
        if (with_target) scene->Link(kTarget, scene->AddObject(host::kTypeNull, {30, 100, 900}));
        return scene;
    }
};

// In percent steps, so that shrinking ends at readable numbers.
double Percent(int low, int high) { return *rc::gen::inRange(low, high + 1) / 100.0; }

RC_GTEST_FIXTURE_PROP(Jump, LandsOnTheShakePhaseOfPlayback, ()) {
    const int fps = *rc::gen::element(24, 25, 30, 60);
    const auto start = static_cast<std::int64_t>(*rc::gen::inRange(-40, 40));
    const auto frame = start + *rc::gen::inRange(0, 120);
    const bool with_target = *rc::gen::arbitrary<bool>();
    auto scene = StandingScene(fps, start, with_target);
    scene->Set(kSeed, *rc::gen::inRange(0, 100000));
    scene->Set(kSpeed, Percent(0, 300));
    scene->Set(kVariation, Percent(0, 100));
    scene->Set(kFocusSpeed, Percent(0, 300));
    scene->Set(kZoomSpeed, Percent(0, 300));
    scene->Set(kTimeOffset, Percent(-500, 500));

    scene->Play(start, frame);
    const Shot played = scene->Camera();
    const ClockValues clocks = ClocksOf(*scene);

    // Away, and back at once; from further on and from before.
    const auto away = *rc::gen::element<std::int64_t>(start + 333, start, frame + 2, start + 1);
    scene->Show(away);
    scene->Show(frame);
    RC_ASSERT(ClocksOf(*scene) == clocks);
    RC_ASSERT(Difference(scene->Camera(), played) < 1e-9);
    RC_ASSERT(scene->State().Whole(kCatchingUp) == 0);

    // And on from there as playback goes on.
    scene->Play(frame + 1, frame + 3);
    const ClockValues jumped_on = ClocksOf(*scene);
    const Shot shot = scene->Camera();
    scene->Play(start, frame + 3);
    RC_ASSERT(ClocksOf(*scene) == jumped_on);
    RC_ASSERT(Difference(scene->Camera(), shot) < 1e-9);
}

RC_GTEST_FIXTURE_PROP(Jump, CountsTheClocksAsTheirRulesSay, ()) {
    const auto start = static_cast<std::int64_t>(*rc::gen::inRange(-30, 30));
    const auto frame = start + *rc::gen::inRange(0, 90);
    const model::ClockInput input{static_cast<double>(*rc::gen::inRange(0, 100000)), Percent(0, 300), Percent(0, 100),
                                  Percent(0, 300), Percent(0, 300)};
    auto scene = StandingScene(30, start, false);
    scene->Set(kSeed, input.seed);
    scene->Set(kSpeed, input.speed);
    scene->Set(kVariation, input.variation);
    scene->Set(kFocusSpeed, input.focus_rate);
    scene->Set(kZoomSpeed, input.zoom_rate);
    const model::Clocks wanted = ExpectedClocks(start, frame, input);
    const ClockValues expected = {{20000, wanted.step},       {10051, wanted.shake}, {10052, wanted.focus},
                                  {10053, wanted.zoom_drift}, {10054, wanted.jolt},  {10055, wanted.auxiliary},
                                  {10056, wanted.zoom}};
    scene->Play(start, frame);
    RC_ASSERT(ClockDifference(ClocksOf(*scene), expected) < 1e-9);
    scene->Show(start + 400);
    scene->Show(frame);
    RC_ASSERT(ClockDifference(ClocksOf(*scene), expected) < 1e-9);
}

RC_GTEST_FIXTURE_PROP(Jump, AfterManyOthersIsTheSameAsTheFirst, ()) {
    const auto start = static_cast<std::int64_t>(*rc::gen::inRange(-20, 20));
    auto scene = StandingScene(30, start, false);
    model::ClockInput input{12345, 1, 0.25, 1, 1};
    const int jumps = *rc::gen::inRange(2, 8);
    for (int i = 0; i < jumps; ++i) {
        // Sometimes something else drives the clocks, and sometimes what drove them before comes back.
        if (*rc::gen::inRange(0, 3) == 0) input.speed = *rc::gen::element(0.5, 1.0, 2.0);
        if (*rc::gen::inRange(0, 4) == 0) input.variation = *rc::gen::element(0.0, 0.25, 1.0);
        if (*rc::gen::inRange(0, 4) == 0) input.seed = *rc::gen::element(1.0, 12345.0);
        if (*rc::gen::inRange(0, 4) == 0) input.zoom_rate = *rc::gen::element(0.5, 1.0);
        scene->Set(kSeed, input.seed);
        scene->Set(kSpeed, input.speed);
        scene->Set(kVariation, input.variation);
        scene->Set(kFocusSpeed, input.focus_rate);
        scene->Set(kZoomSpeed, input.zoom_rate);
        const auto frame = start + *rc::gen::inRange(2, 1500);
        scene->Show(start + 2000 + i * 2);
        scene->Show(frame);
        const model::Clocks wanted = ExpectedClocks(start, frame, input);
        RC_ASSERT(std::fabs(scene->Real(10051) - wanted.shake) < 1e-9);
        RC_ASSERT(std::fabs(scene->Real(10053) - wanted.zoom_drift) < 1e-9);
        RC_ASSERT(std::fabs(scene->Real(kStep) - wanted.step) < 1e-9);
    }
}

RC_GTEST_FIXTURE_PROP(Jump, ReplaysTheTracksOfWhatDrivesTheClocks, ()) {
    const auto start = static_cast<std::int64_t>(*rc::gen::inRange(-20, 20));
    const auto frame = start + *rc::gen::inRange(0, 100);
    auto scene = StandingScene(30, start, false);
    const double fast = Percent(50, 300);
    const auto some = [] { return *rc::gen::weightedElement<bool>({{3, true}, {1, false}}); };
    if (some()) Animate(scene->tag, host::MakeId(kSpeed), 30, {{-10, 0.25}, {40, fast}, {80, 0}});
    if (some()) Animate(scene->tag, host::MakeId(kVariation), 30, {{0, 0}, {60, 1}});
    if (some()) Animate(scene->tag, host::MakeId(kFocusSpeed), 30, {{0, fast}, {50, 0.5}});
    if (some()) Animate(scene->tag, host::MakeId(kZoomSpeed), 30, {{10, 0}, {70, fast}});
    if (some()) Animate(scene->tag, host::MakeId(kSeed), 30, {{0, 12345}, {50, 12360.5}});
    scene->Play(start, frame);
    const ClockValues clocks = ClocksOf(*scene);
    const Shot played = scene->Camera();
    scene->Show(start + 400);
    scene->Show(frame);
    RC_ASSERT(ClockDifference(ClocksOf(*scene), clocks) < 1e-9);
    RC_ASSERT(tag_test::Difference(scene->Camera(), played) < 1e-9);
}

TEST_F(Jump, ReplaysTheTrackOfEachParameterThatDrivesAClock) {
    for (const std::int32_t id : {kSpeed, kVariation, kFocusSpeed, kZoomSpeed, kSeed}) {
        auto scene = StandingScene(30, 0, false);
        Animate(scene->tag, host::MakeId(id), 30, {{0, 0}, {40, 0.75}});
        scene->Play(0, 40);
        const ClockValues clocks = ClocksOf(*scene);
        scene->Show(200);
        scene->Show(40);
        EXPECT_LT(ClockDifference(ClocksOf(*scene), clocks), 1e-9) << id;
    }
}

TEST_F(Jump, ReadsATrackAtEveryReplayedFrame) {
    // Speed 0 up to frame 9 and 1 from frame 10 on, no variation: frame 11 to 30 add 1 each.
    auto scene = StandingScene(30, 0, false);
    scene->Set(kVariation, 0);
    Animate(scene->tag, host::MakeId(kSpeed), 30, {{9, 0}, {10, 1}});
    scene->Show(30);
    EXPECT_DOUBLE_EQ(scene->Real(10051), 20);
    EXPECT_DOUBLE_EQ(scene->Real(kStep), 1);
}

TEST_F(Jump, PassesOverATrackWithoutKeys) {
    auto scene = StandingScene(30, 0, false);
    scene->Play(0, 20);
    const Shot played = scene->Camera();
    Animate(scene->tag, host::MakeId(kSpeed), 30, {});
    scene->Show(200);
    scene->Show(20);
    EXPECT_TRUE(scene->Camera() == played);
    EXPECT_EQ(scene->Real(kSpeed), 1);
}

TEST_F(Jump, LeavesTheTrackedParametersAtTheFramesValue) {
    auto scene = StandingScene(30, 0, false);
    Animate(scene->tag, host::MakeId(kSpeed), 30, {{0, 0}, {100, 2}});
    scene->Show(50);
    EXPECT_NEAR(scene->Real(kSpeed), 1, 1e-12);
}

TEST_F(Jump, CountsFromMinusOneInADocumentThatStartsEarlier) {
    auto scene = StandingScene(30, -25, false);
    scene->Set(kVariation, 0);
    scene->Show(4);
    EXPECT_EQ(scene->Real(10051), 5) << "frames 0 to 4 add 1 each";
    scene->Play(-25, 4);
    EXPECT_EQ(scene->Real(10051), 5);
}

TEST_F(Jump, CountsFromAStartFrameThatIsNotZero) {
    auto scene = StandingScene(30, 100, false);
    scene->Set(kVariation, 0);
    scene->Show(107);
    EXPECT_EQ(scene->Real(10051), 7);
}

TEST_F(Jump, ByTwoFramesRunsUp) {
    auto scene = StandingScene(30, 0, false);
    scene->Play(0, 12);
    const Shot played = scene->Camera();
    scene->Play(0, 10);
    scene->Show(12);
    EXPECT_TRUE(scene->Camera() == played);
}

TEST_F(Jump, BackwardsByOneFrameRunsUp) {
    auto scene = StandingScene(30, 0, false);
    scene->Play(0, 9);
    const Shot played = scene->Camera();
    scene->Show(10);
    scene->Show(9);
    EXPECT_TRUE(scene->Camera() == played);
}

TEST_F(Jump, DoesNotHangOnTheStateThatItFinds) {
    auto scene = StandingScene(30, 0, false);
    scene->Play(0, 20);
    const Shot played = scene->Camera();
    for (const std::int32_t key : kClocks) scene->Set(key, 1e6);
    scene->Set(kLastFrame, std::nan(""));
    scene->Show(20);
    EXPECT_TRUE(scene->Camera() == played);
}

TEST_F(Jump, ToALateFrameCountsFromTheStart) {
    auto scene = StandingScene(30, 0, false);
    scene->Set(kVariation, 0);  // each frame adds 1
    scene->Show(1000000);
    EXPECT_EQ(scene->Real(10051), 1000000);
}

TEST_F(Jump, ToAFrameOfManyMillionsEnds) {
    auto scene = StandingScene(30, 0, false);
    scene->Set(kVariation, 0);
    scene->Show(100000000);
    EXPECT_EQ(scene->Real(10051), 10000000) << "the last ten million frames";
    for (const std::int32_t key : kClocks) EXPECT_TRUE(std::isfinite(scene->Real(key))) << key;
    EXPECT_TRUE(host::IsFinite(scene->Camera().matrix));
    EXPECT_EQ(scene->Real(kLastFrame), 100000000);
}

TEST_F(Jump, AtTwentyFiveFramesASecondKnowsFrameTwentyNine) {
    // 29 / 25 * 25 falls a little short of 29; the clocks must not notice.
    const model::ClockInput input{12345, 1, 0.5, 1, 1};
    auto scene = StandingScene(25, 0, false);
    scene->Set(kVariation, 0.5);
    scene->Play(0, 29);
    EXPECT_NEAR(scene->Real(kStep), model::ClockStep(29, 12345, 1, 0.5), 1e-12);
    const ClockValues clocks = ClocksOf(*scene);
    EXPECT_NEAR(clocks.at(10051), ExpectedClocks(0, 29, input).shake, 1e-9);
    scene->Show(200);
    scene->Show(29);
    EXPECT_EQ(ClocksOf(*scene), clocks);
}

}  // namespace
