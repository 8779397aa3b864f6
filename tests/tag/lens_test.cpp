// Drift of the focal length and the focus distance, and focusing on an object.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/shake_model.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kZoomSwitch = 6016, kFocusSwitch = 6017, kZoomDriftSmooth = 6165, kFocusDriftSmooth = 6059;
constexpr std::int32_t kZoomDrift = 10059, kZoomDriftCarry = 11004, kFocusDriftCarry = 5015, kFocusDriftRaw = 5016;

class Lens : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().StopFilters();
        SetLens(36, 500);
    }
    void SetLens(double focal_length, double distance) {
        scene().input->Data().SetReal(host::kCameraFocalLength, focal_length);
        scene().input->Data().SetReal(host::kCameraFocusDistance, distance);
    }
    void Drift() {
        for (const std::int32_t id : {6134, 6135, 6136, 6128, 6129, 6130}) scene().Set(id, 0.05);
    }
    std::vector<Shot> Shots(int last_frame) {
        std::vector<Shot> shots;
        for (int frame = 0; frame <= last_frame; ++frame) {
            scene().Show(frame);
            shots.push_back(scene().Camera());
        }
        return shots;
    }
    // At the clocks in the container.
    double RawZoomDrift() {
        return model::ZoomDrift(static_cast<std::int32_t>(scene().Real(kTimeOffset)), scene().Real(kSeed),
                                scene().Real(kZoomSpeed), {0.05, 0.05, 0.05}, scene().Real(kSpeed),
                                scene().Real(10053));
    }
    double RawFocusDrift(double distance) {
        return model::FocusDrift(scene().Real(10052), static_cast<std::int32_t>(scene().Real(kTimeOffset)),
                                 {0.05, 0.05, 0.05}, scene().Real(kSeed), scene().Real(kFocusSpeed),
                                 scene().Real(kSpeed), distance);
    }
};

TEST_F(Lens, WithTheSwitchesOffDoesNotDrift) {
    Drift();
    scene().State().Set(kZoomSwitch, 0);
    scene().State().Set(kFocusSwitch, 0);
    for (const Shot &shot : Shots(30)) {
        EXPECT_EQ(shot.focal_length, 36);
        EXPECT_EQ(shot.focus_distance, 500);
    }
}

TEST_F(Lens, DriftsByTheNoiseTimesTheInputsFocalLength) {
    Drift();
    scene().Set(kTimeOffset, 3.7);  // cut to 3
    scene().Set(kZoomSpeed, 1.5);
    for (int frame = 0; frame <= 40; ++frame) {
        scene().Show(frame);
        EXPECT_NEAR(scene().Camera().focal_length, 36 + 36 * RawZoomDrift(), 1e-9) << frame;
    }
}

TEST_F(Lens, DriftsTwiceAsFarWithTwiceTheFocalLength) {
    Drift();
    scene().Set(kZoomDriftSmooth, 0.6);
    const auto once = Shots(60);
    SetLens(72, 500);
    const auto twice = Shots(60);
    double farthest = 0;
    for (std::size_t i = 0; i < once.size(); ++i) {
        EXPECT_NEAR(twice[i].focal_length - 72, 2 * (once[i].focal_length - 36), 1e-9);
        farthest = std::fmax(farthest, std::fabs(once[i].focal_length - 36));
    }
    EXPECT_GT(farthest, 0.1);
}

TEST_F(Lens, StartsTheDriftFilterOnTheNoiseOfTheFirstFrame) {
    Drift();
    scene().Set(kZoomDriftSmooth, 1);
    scene().Show(0);
    EXPECT_NEAR(scene().Camera().focal_length, 36 + 36 * RawZoomDrift(), 1e-9);
    EXPECT_EQ(scene().Real(kZoomDriftCarry), 0);
    // Full smoothing: a = 0.95, b = 0.25; the carry is 95 % of what the value, just reached, lies from the one before.
    double value = scene().Real(kZoomDrift), carry = 0;
    for (int frame = 1; frame <= 30; ++frame) {
        scene().Show(frame);
        const double goal = 36 * RawZoomDrift();
        const double next = value + 0.05 * (0.75 * carry + goal - value);
        carry = 0.95 * (0.75 * carry + next - value);
        value = next;
        EXPECT_NEAR(scene().Real(kZoomDrift), value, 1e-9);
        EXPECT_NEAR(scene().Real(kZoomDriftCarry), carry, 1e-9);
        EXPECT_NEAR(scene().Camera().focal_length, 36 + value, 1e-9);
    }
}

TEST_F(Lens, RemembersTheRawFocusDrift) {
    Drift();
    scene().Set(kFocusDriftSmooth, 1);
    scene().Show(0);
    double raw = 0, carry = 0;  // the first frame writes neither
    EXPECT_NEAR(scene().Camera().focus_distance, 500 + RawFocusDrift(500), 1e-9);
    for (int frame = 1; frame <= 30; ++frame) {
        scene().Show(frame);
        const double goal = RawFocusDrift(500);
        const double error = 0.75 * carry + goal - raw;
        EXPECT_NEAR(scene().Camera().focus_distance, 500 + raw + 0.05 * error, 1e-9);
        carry = 0.95 * error;
        raw = goal;
        EXPECT_NEAR(scene().Real(kFocusDriftCarry), carry, 1e-9);
        EXPECT_NEAR(scene().Real(kFocusDriftRaw), raw, 1e-9);
    }
}

TEST_F(Lens, LeavesTheMemoryOfAFocusDriftThatIsExactlyZero) {
    scene().Play(0, 3);
    scene().Set(kFocusDriftCarry, 7);
    scene().Set(kFocusDriftRaw, 8);
    scene().Play(4, 6);
    EXPECT_EQ(scene().Real(kFocusDriftCarry), 7);
    EXPECT_EQ(scene().Real(kFocusDriftRaw), 8);
    EXPECT_EQ(scene().Camera().focus_distance, 500);
}

TEST_F(Lens, OfAFreshTagWithoutSmoothingIsTheInputs) {
    SetLens(50, 1234);
    scene().Show(0);
    EXPECT_EQ(scene().Camera().focal_length, 50);
    EXPECT_EQ(scene().Camera().focus_distance, 1234);
}

class FocusOnAnObject : public Lens {
  protected:
    void SetUp() override {
        Lens::SetUp();
        scene().PlaceInput({100, 0, 0}, {0, 0, 0});
        object_ = scene().AddObject(host::kTypeNull, {100, 30, 40});
    }
    host::Object *object_ = nullptr;
};

TEST_F(FocusOnAnObject, TakesItsDistanceFromTheNewPosition) {
    scene().Link(kFocusObject, object_);
    for (const std::int32_t id : {6024, 6025, 6026}) scene().Set(id, 0.05);
    for (int frame = 0; frame <= 20; ++frame) {
        scene().Show(frame);
        EXPECT_NEAR(scene().Camera().focus_distance, host::Length(scene().Position() - host::Vector{100, 30, 40}),
                    1e-9);
    }
}

TEST_F(FocusOnAnObject, GoesToTheDistanceWhereTheObjectIsLinkedInMidShot) {
    scene().Set(6064, 0.5);
    scene().Set(6063, 0.2);
    scene().Play(0, 5);
    EXPECT_EQ(scene().Camera().focus_distance, 500);
    scene().Link(kFocusObject, object_);
    scene().Show(6);
    EXPECT_GT(scene().Camera().focus_distance, 100);
    scene().Play(7, 400);
    EXPECT_NEAR(scene().Camera().focus_distance, 50, 1e-6);
}

TEST_F(FocusOnAnObject, DriftsInProportionToTheDistance) {
    Drift();
    scene().Link(kFocusObject, object_);
    for (int frame = 0; frame <= 20; ++frame) {
        scene().Show(frame);
        EXPECT_NEAR(scene().Camera().focus_distance, 50 + RawFocusDrift(50), 1e-9) << frame;
    }
}

TEST_F(FocusOnAnObject, IsOverWhenTheObjectIsGone) {
    scene().Link(kFocusObject, object_);
    scene().Play(0, 5);
    object_->Remove();
    const std::unique_ptr<host::Object> removed(object_);
    scene().Play(6, 7);
    EXPECT_NEAR(scene().Camera().focus_distance, 500, 1e-9);
}

TEST_F(FocusOnAnObject, ThatHangsBelowTheCameraDoesNotHappen) {
    scene().Link(kFocusObject, scene().AddObject(host::kTypeNull, {0, 0, 10}, scene().camera));
    scene().Play(0, 5);
    EXPECT_EQ(scene().Camera().focus_distance, 500);
}

}  // namespace
