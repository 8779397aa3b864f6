// Turning to a target.
#include <gtest/gtest.h>

#include <cmath>

#include "host/scene/angles.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kTargetSwitch = 6018, kTargetSmooth = 6161, kTargetOvershoot = 6071, kTargetFade = 6072;

class Target : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().StopFilters();
        scene().PlaceInput({10, 20, 30}, {0.5, 0.1, 0.3});
        target_ = scene().AddObject(host::kTypeNull, {0, 0, 0});
        Move({110, 120, 130});
        scene().Link(kTarget, target_);
    }
    void Move(const host::Vector &place) {
        host::Transform transform = target_->GetTransform();
        transform.position = place;
        target_->SetTransform(transform);
    }
    host::Vector Angles() { return scene().State().GetVector(kPreviousRotation); }
    host::Vector View() { return scene().Camera().matrix.v3; }
    host::Object *target_ = nullptr;
};

TEST_F(Target, IsLookedAtWithoutBank) {
    scene().Show(0);
    EXPECT_LT(host::Length(View() - host::Vector{1, 1, 1} * (1 / std::sqrt(3))), 1e-12);
    EXPECT_NEAR(std::remainder(Angles().x + kPi / 4, 2 * kPi), 0, 1e-12);
    EXPECT_NEAR(Angles().y, std::atan(1 / std::sqrt(2)), 1e-12);
    EXPECT_NEAR(Angles().z, 0, 1e-12);
}

TEST_F(Target, IsLookedAtFromTheShakenPosition) {
    for (const std::int32_t id : {6024, 6025, 6026}) scene().Set(id, 0.1);
    for (int frame = 0; frame <= 20; ++frame) {
        scene().Show(frame);
        const host::Vector way = host::Vector{110, 120, 130} - scene().Position();
        EXPECT_LT(host::Length(View() - way * (1 / host::Length(way))), 1e-9) << frame;
    }
}

TEST_F(Target, ThatIsSwitchedOffOrNotLinkedIsIgnored) {
    scene().State().Set(kTargetSwitch, 0);
    scene().Show(0);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-12);
    scene().State().Set(kTargetSwitch, 1);
    scene().Link(kTarget, nullptr);
    scene().Show(1);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-9);
}

TEST_F(Target, BelowTheCameraIsIgnored) {
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {5, 5, 5}, scene().camera));
    scene().Play(0, 10);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-9);
}

TEST_F(Target, ExactlyAtTheCameraTurnsNothing) {
    scene().Play(0, 5);
    const host::Vector angles = Angles();
    Move({10, 20, 30});
    scene().Play(6, 12);
    EXPECT_LT(host::Length(Angles() - angles), 1e-12);
}

TEST_F(Target, ExactlyAtTheCameraFromTheStartKeepsTheInputsLook) {
    Move({10, 20, 30});
    scene().Play(0, 5);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-12);
}

TEST_F(Target, StraightAboveAndBelowHasHeadingZero) {
    for (const double side : {1.0, -1.0}) {
        Move({10, 20 + side * 50, 30});
        scene().Show(0);
        // Looking up with heading and bank 0: the camera's right is X, its up is against the view's Z.
        EXPECT_LT(host::Length(View() - host::Vector{0, side, 0}), 1e-12);
        EXPECT_LT(host::Length(scene().Camera().matrix.v1 - host::Vector{1, 0, 0}), 1e-12);
    }
}

TEST_F(Target, IsClosedInOnByFivePercentAFrameAtFullSmoothing) {
    Move({10, 20, 130});  // straight ahead: heading 0
    scene().Set(kTargetSmooth, 1);
    scene().Show(0);
    EXPECT_NEAR(Angles().x, 0, 1e-12);
    Move({-90, 20, 130});  // 45 degrees to the left
    double rest = kPi / 4;
    for (int frame = 1; frame <= 40; ++frame) {
        scene().Show(frame);
        rest *= 0.95;
        EXPECT_NEAR(Angles().x, kPi / 4 - rest, 1e-9);
    }
}

TEST_F(Target, ThatJumpsIsSwungPast) {
    Move({10, 20, 130});
    scene().Set(kTargetOvershoot, 0.3);
    scene().Set(kTargetFade, 0.5);
    scene().Show(0);
    Move({-90, 20, 130});
    double most = 0;
    scene().document->SetRange(0, 1000);
    for (int frame = 1; frame <= 800; ++frame) {
        scene().Show(frame);
        most = std::fmax(most, Angles().x);
    }
    EXPECT_GT(most, 1.1 * kPi / 4);
    EXPECT_NEAR(Angles().x, kPi / 4, 1e-6);
}

// The input looks 90 degrees to the left, the target lies straight ahead; both springs are on.
TEST_F(Target, IsTurnedToAndFromWithoutAJump) {
    scene().PlaceInput({0, 0, 0}, {kPi / 2, 0, 0});
    Move({0, 0, 500});
    for (const std::int32_t smooth : {6156, kTargetSmooth}) scene().Set(smooth, 0.5);
    for (const std::int32_t overshoot : {6034, kTargetOvershoot}) scene().Set(overshoot, 0.4);
    scene().document->SetRange(0, 2000);
    scene().Play(0, 200);
    EXPECT_NEAR(Angles().x, 0, 1e-9);
    double before = Angles().x;
    const auto play = [&](int first, int last) {
        for (int frame = first; frame <= last; ++frame) {
            scene().Show(frame);
            EXPECT_LT(std::fabs(Angles().x - before), 0.4) << frame;
            before = Angles().x;
        }
    };
    scene().State().Set(kTargetSwitch, 0);
    play(201, 700);
    EXPECT_NEAR(Angles().x, kPi / 2, 1e-6);
    scene().State().Set(kTargetSwitch, 1);
    play(701, 1200);
    EXPECT_NEAR(Angles().x, 0, 1e-6);
}

}  // namespace
