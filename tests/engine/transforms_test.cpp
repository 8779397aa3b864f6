// The whole motion of a shot that is moved, turned, mirrored, enlarged or set far from the origin: what must go with it
// does, and nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "engine/frame.h"
#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// Every layer on; angles small enough for no turn to be ambiguous.
Settings EverythingOn() {
    Settings s;
    s.position_intensity = 1, s.rotation_intensity = 1, s.overall_scale = 0.2;
    s.use_x = s.use_y = s.use_z = s.use_h = s.use_p = s.use_b = s.use_zoom = s.use_focus = s.use_jolt = true;
    s.position_smooth = 0.4, s.position_overshoot = 0.5, s.position_overshoot_fade = 0.3;
    s.rotation_smooth = 0.3, s.rotation_overshoot = 0.6, s.rotation_overshoot_fade = 0.2;
    s.target_smooth = 0.5, s.target_overshoot = 0.4, s.target_overshoot_fade = 0.6;
    s.position_slow = 0.2, s.position_medium = 0.3, s.position_fast = 0.5;
    s.rotation_slow = 0.02, s.rotation_medium = 0.05, s.rotation_fast = 0.4;
    s.shake_smooth = 0.2;
    s.jolt_position_intensity = 0.1, s.jolt_rotation_intensity = 0.02, s.jolt_falloff = 0.3, s.jolt_smooth = 0.2;
    s.jolt_interval = {1, 3};
    s.zoom_smooth = 0.2, s.zoom_overshoot = 0.3, s.zoom_overshoot_fade = 0.1;
    s.zoom_drift_slow = 0.1, s.zoom_drift_medium = 0.1, s.zoom_drift_fast = 0.1, s.zoom_rate = 1;
    s.focus_smooth = 0.2, s.focus_overshoot = 0.3, s.focus_overshoot_fade = 0.1;
    s.focus_drift_slow = 0.1, s.focus_drift_medium = 0.1, s.focus_drift_fast = 0.1, s.focus_rate = 1;
    s.seed = 12345, s.speed = 1.1, s.speed_variation = 0.3;
    s.ratio_x = 1, s.ratio_y = 0.8, s.ratio_z = 0.6, s.ratio_h = 1, s.ratio_p = 0.8, s.ratio_b = 0.6;
    return s;
}

// A pan that stops, with something to look at and something to focus on that move.
FrameInput Scene(int frame) {
    const double t = std::min(frame, 18);
    FrameInput in;
    in.frame = frame;
    in.frames_per_second = 30;
    in.position = {10 * t, 100 + 3 * t, -5 * t};
    in.angles = {0.05 * t, 0.3 - 0.02 * t, 0.01 * t};
    in.focal_length = 36 + t;
    in.focus_distance = 400 - 4 * t;
    in.has_focus_object = true;
    in.focus_object = {50.0 - t, 80, 300};
    in.target = {-40.0 + 2 * t, 150, 500};
    return in;
}

using Change = std::function<void(FrameInput *)>;

std::vector<FrameMotion> Play(
    const Settings &settings, const Change &change = [](FrameInput *) {}) {
    Operations operations(PlainHost());
    FrameMemory memory;
    std::vector<FrameMotion> shot;
    for (int frame = 0; frame < 32; ++frame) {
        FrameInput in = Scene(frame);
        in.has_target = settings.use_target;
        change(&in);
        if (frame == 0) RestMotion(settings, in, PlainHost(), &memory);
        FrameMotion motion;
        EXPECT_TRUE(StepFrame(settings, in, &operations, &memory, &motion));
        motion.angles = ContinueAngles(frame, motion.angles, PlainHost(), &memory);
        shot.push_back(motion);
    }
    return shot;
}

// Everything in the scene that has a place.
void MovePlaces(FrameInput *in, const std::function<Vector3(const Vector3 &)> &move) {
    for (Vector3 *place : {&in->position, &in->target, &in->focus_object}) *place = move(*place);
}

class Shot : public testing::TestWithParam<bool> {
  protected:
    Shot() { settings_.use_target = GetParam(); }
    // The transformed shot against the plain one, told what becomes of each number.
    static void ExpectSame(const std::vector<FrameMotion> &shot, const std::vector<FrameMotion> &plain,
                           const std::function<FrameMotion(const FrameMotion &)> &expected, double tolerance) {
        ASSERT_EQ(shot.size(), plain.size());
        for (std::size_t i = 0; i < shot.size(); ++i) {
            const FrameMotion wanted = expected(plain[i]);
            ASSERT_LT(Apart(shot[i].position, wanted.position), tolerance) << "frame " << i;
            ASSERT_LT(Apart(shot[i].angles, wanted.angles), tolerance) << "frame " << i;
            ASSERT_NEAR(shot[i].focal_length, wanted.focal_length, tolerance) << "frame " << i;
            ASSERT_NEAR(shot[i].focus_distance, wanted.focus_distance, tolerance) << "frame " << i;
        }
    }
    Settings settings_ = EverythingOn();
};

TEST_P(Shot, MovesWithItsScene) {
    const Vector3 by = {123, -456, 789};
    const auto moved =
        Play(settings_, [&](FrameInput *in) { MovePlaces(in, [&](const Vector3 &place) { return place + by; }); });
    ExpectSame(
        moved, Play(settings_),
        [&](FrameMotion motion) {
            motion.position = motion.position + by;
            return motion;
        },
        1e-8);
}

TEST_P(Shot, FarFromTheOriginIsTheSameAsFarAsNumbersGo) {
    // A double keeps nine digits behind the point there.
    const Vector3 by = {1e7, -1e7, 1e7};
    const auto moved =
        Play(settings_, [&](FrameInput *in) { MovePlaces(in, [&](const Vector3 &place) { return place + by; }); });
    ExpectSame(
        moved, Play(settings_),
        [&](FrameMotion motion) {
            motion.position = motion.position + by;
            return motion;
        },
        1e-5);
}

// The shake of the place goes along the world's axes, whichever way the camera looks; all else turns.
TEST_P(Shot, TurnsWithItsSceneButForTheShakeOfThePlace) {
    settings_.position_intensity = 0;
    const double turn = 0.7;
    const auto about_up = [&](const Vector3 &v) {  // a heading turns the look from z towards -x
        return Vector3{std::cos(turn) * v.x - std::sin(turn) * v.z, v.y, std::sin(turn) * v.x + std::cos(turn) * v.z};
    };
    const auto turned = Play(settings_, [&](FrameInput *in) {
        MovePlaces(in, about_up);
        in->angles.x += turn;
    });
    ExpectSame(
        turned, Play(settings_),
        [&](FrameMotion motion) {
            motion.position = about_up(motion.position);
            motion.angles.x += turn;
            return motion;
        },
        1e-8);
}

// Through the plane of the axes y and z, with the shake turned round by its ratios.
TEST_P(Shot, IsMirroredWithItsScene) {
    const auto plain = Play(settings_);
    settings_.ratio_x *= -1;
    settings_.ratio_h *= -1;
    settings_.ratio_b *= -1;
    const auto mirrored = Play(settings_, [](FrameInput *in) {
        MovePlaces(in, [](const Vector3 &place) { return Vector3{-place.x, place.y, place.z}; });
        in->angles = {-in->angles.x, in->angles.y, -in->angles.z};
    });
    ExpectSame(
        mirrored, plain,
        [](FrameMotion motion) {
            motion.position.x *= -1;
            motion.angles = {-motion.angles.x, motion.angles.y, -motion.angles.z};
            return motion;
        },
        1e-8);
}

// The springs know the size of a step, so a scene of another size needs them off.
TEST_P(Shot, IsEnlargedWithItsScene) {
    settings_.position_overshoot = settings_.focus_overshoot = 0;
    const auto plain = Play(settings_);
    settings_.overall_scale *= 8;
    const auto enlarged = Play(settings_, [](FrameInput *in) {
        MovePlaces(in, [](const Vector3 &place) { return place * 8; });
        in->focus_distance *= 8;
    });
    ExpectSame(
        enlarged, plain,
        [](FrameMotion motion) {
            motion.position = motion.position * 8;
            motion.focus_distance *= 8;
            return motion;
        },
        1e-7);
}

// A heading of whole turns more is the same look, and the camera does not go round.
TEST_P(Shot, OfAHeadingCountedInOtherTurnsIsTheSame) {
    const auto turned = Play(settings_, [](FrameInput *in) { in->angles.x += 6 * kPi; });
    ExpectSame(
        turned, Play(settings_), [](const FrameMotion &motion) { return motion; }, 1e-8);
}

INSTANTIATE_TEST_SUITE_P(WithATargetOrWithout, Shot, testing::Bool());

}  // namespace
