// How the camera follows: smoothing, overshoot and fade of position, rotation, focal length and focus distance.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "host/scene/angles.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

// A channel that follows the input camera, as one number.
struct Channel {
    const char *name;
    std::int32_t smooth, overshoot, fade;
    double step;  // larger than what counts as standing still
    std::function<void(Scene &, double)> put;
    std::function<double(Scene &)> got;
};

void PrintTo(const Channel &channel, std::ostream *out) { *out << channel.name; }

double Heading(Scene &scene) { return scene.State().GetVector(kPreviousRotation).x; }

std::vector<Channel> Channels() {
    return {{"position", 6155, 6153, 6154, 100,
             [](Scene &s, double v) {
                 s.PlaceInput({v, 0, 0}, {0, 0, 0});
             },
             [](Scene &s) { return s.Position().x; }},
            {"rotation", 6156, 6034, 6035, 1.0,
             [](Scene &s, double v) {
                 s.PlaceInput({0, 0, 0}, {v, 0, 0});
             },
             Heading},
            {"zoom", 6162, 6053, 6054, 30,
             [](Scene &s, double v) { s.input->Data().SetReal(host::kCameraFocalLength, 36 + v); },
             [](Scene &s) { return s.Camera().focal_length - 36; }},
            {"focus", 6064, 6063, 6163, 300,
             [](Scene &s, double v) { s.input->Data().SetReal(host::kCameraFocusDistance, 2000 + v); },
             [](Scene &s) { return s.Camera().focus_distance - 2000; }}};
}

class Following : public WithScene, public testing::WithParamInterface<Channel> {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().StopFilters();
    }
    // At rest on 0 at frame 0, then the step; the channel's value on frames 1 to `frames`.
    std::vector<double> Step(double smooth, double overshoot, double fade, int frames) {
        const Channel &channel = GetParam();
        scene().Set(channel.smooth, smooth);
        scene().Set(channel.overshoot, overshoot);
        scene().Set(channel.fade, fade);
        channel.put(scene(), 0);
        scene().Show(0);
        channel.put(scene(), channel.step);
        std::vector<double> values;
        for (int frame = 1; frame <= frames; ++frame) {
            scene().Show(frame);
            values.push_back(channel.got(scene()));
        }
        return values;
    }
    double StepSize() const { return GetParam().step; }
};

INSTANTIATE_TEST_SUITE_P(Each, Following, testing::ValuesIn(Channels()),
                         [](const auto &test) { return test.param.name; });

TEST_P(Following, WithEveryAmountAtZeroIsThereAtOnce) {
    for (const double value : Step(0, 0, 0.5, 5)) EXPECT_NEAR(value, StepSize(), 1e-12);
}

TEST_P(Following, AtFullSmoothingClosesFivePercentOfTheDistanceEachFrame) {
    double rest = StepSize();
    for (const double value : Step(1, 0, 0.5, 60)) {
        rest *= 0.95;
        EXPECT_NEAR(value, StepSize() - rest, 1e-9);
    }
}

TEST_P(Following, AtAnySmoothingAboveOneIsAsAtOne) {
    scene().Set(GetParam().smooth, 1);
    const auto full = Step(1, 0, 0.5, 20);
    EXPECT_EQ(Step(100, 0, 0.5, 20), full);
    EXPECT_EQ(Step(-3, 0, 0.5, 20), Step(0, 0, 0.5, 20));
}

TEST_P(Following, WithOvershootSwingsPastItsGoalAndSettles) {
    for (const double overshoot : {0.05, 0.25, 0.5, 1.0}) {
        const auto values = Step(0.25, overshoot, 0.5, 1500);
        EXPECT_GT(*std::max_element(values.begin(), values.end()), 1.05 * StepSize()) << overshoot;
        EXPECT_NEAR(values.back(), StepSize(), 1e-6) << overshoot;
    }
}

TEST_P(Following, WithoutFadeSettlesInTheEnd) {
    // The least damping of a loose spring is 0.0055 a frame, half of it in the amplitude: 1e-8 takes ln(1e8) / 0.00275
    // = 6700 frames. The filters of the lens go on from what the spring gave, which feeds the loosest spring as fast as
    // that little damping takes away: theirs is tighter.
    const bool lens = GetParam().smooth == 6162 || GetParam().smooth == 6064;
    scene().document->SetRange(0, 9000);
    EXPECT_NEAR(Step(0.25, lens ? 0.75 : 1, 0, 8000).back(), StepSize(), 1e-6);
}

TEST_P(Following, WithMoreFadeSettlesSooner) {
    int before = 100000;
    for (const double fade : {0.1, 0.3, 0.6, 1.0}) {
        const auto values = Step(0.25, 0.5, fade, 1500);
        int settled = static_cast<int>(values.size());
        while (settled > 0 && std::fabs(values[settled - 1] - StepSize()) < 1e-3 * StepSize()) --settled;
        EXPECT_LT(settled, before) << fade;
        before = settled;
    }
}

TEST_P(Following, IsNotThrownWhenTheOvershootIsRaisedInMidShot) {
    // Far from the world's origin and at rest: nothing may move.
    GetParam().put(scene(), 40 * StepSize());
    scene().Play(0, 20);
    const double there = GetParam().got(scene());
    scene().Set(GetParam().overshoot, 0.5);
    for (int frame = 21; frame <= 60; ++frame) {
        scene().Show(frame);
        EXPECT_NEAR(GetParam().got(scene()), there, 1e-9) << frame;
    }
}

TEST_P(Following, PassesTheSmoothedValueThroughWhenTheOvershootIsTakenAwayInMidSwing) {
    Step(0, 0.5, 0.2, 8);
    scene().Set(GetParam().overshoot, 0);
    scene().Play(9, 10);
    // The focal length and the focus distance remember what came out of the swing, and go from there at once.
    EXPECT_NEAR(GetParam().got(scene()), StepSize(), 1e-9);
}

class StandingStill : public WithModule {};

RC_GTEST_FIXTURE_PROP(StandingStill, StaysExactlyWhereItIs, ()) {
    Scene scene(running_);
    const auto number = [](int low, int high) { return *rc::gen::inRange(low * 1000, high * 1000) / 1000.0; };
    scene.PlaceInput({number(-900, 900), number(-900, 900), number(-900, 900)},
                     {number(-3, 3), number(-1, 1), number(-3, 3)});
    // The shake's amounts are 0; filters and springs may be anything.
    for (const std::int32_t id : {6155, 6153, 6154, 6156, 6034, 6035, 6162, 6053, 6054, 6064, 6063, 6163})
        scene.Set(id, number(0, 1));
    scene.Show(0);
    const Shot first = scene.Camera();
    RC_ASSERT((first.matrix.off == scene.input->GlobalMatrix().off));
    RC_ASSERT(Difference(first, ShotOf(scene.input)) < 1e-12);
    for (int frame = 1; frame <= 40; ++frame) {
        scene.Show(frame);
        RC_ASSERT((scene.Camera().matrix.off == first.matrix.off));
        RC_ASSERT(scene.Camera().focal_length == first.focal_length);
        RC_ASSERT(scene.Camera().focus_distance == first.focus_distance);
        RC_ASSERT(Difference(scene.Camera(), first) < 1e-12);
    }
}

// ---- Headings around half a turn

class Turning : public WithModule {
  protected:
    // The same pan about `middle`, back and forth by 40 degrees with a hard stop: the camera's angles, frame by frame.
    std::vector<host::Vector> Pan(double middle, const std::function<void(Scene &)> &set) {
        Scene scene(running_);
        set(scene);
        std::vector<host::Vector> angles;
        for (int frame = 0; frame <= 150; ++frame) {
            double heading = middle + 40 * kDegree * std::sin(std::fmin(frame, 90) / 6.0);
            if (heading >= kPi) heading -= 2 * kPi;  // 181 degrees come as -179
            scene.PlaceInput({0, 0, 0}, {heading, 0.1, 0});
            scene.Show(frame);
            angles.push_back(scene.State().GetVector(kPreviousRotation));
        }
        return angles;
    }
};

RC_GTEST_FIXTURE_PROP(Turning, PassesHalfATurnAsItPassesAnyOtherHeading, ()) {
    const auto amount = [] { return *rc::gen::inRange(0, 101) / 100.0; };
    const double smooth = amount(), overshoot = amount(), fade = amount();
    const auto set = [&](Scene &scene) {
        scene.Set(6156, smooth);
        scene.Set(6034, overshoot);
        scene.Set(6035, fade);
    };
    const auto ahead = Pan(0, set), behind = Pan(kPi, set);
    for (std::size_t i = 0; i < ahead.size(); ++i) {
        // The same but for half a turn, and continuous: never a jump by a turn.
        RC_ASSERT(std::fabs(std::remainder(behind[i].x - ahead[i].x - kPi, 2 * kPi)) < 1e-9);
        RC_ASSERT(std::fabs(behind[i].y - ahead[i].y) < 1e-9);
        RC_ASSERT(std::fabs(behind[i].z - ahead[i].z) < 1e-9);
        if (i > 0) RC_ASSERT(std::fabs(behind[i].x - behind[i - 1].x - (ahead[i].x - ahead[i - 1].x)) < 1e-9);
    }
}

RC_GTEST_FIXTURE_PROP(Turning, NeverMakesAFullTurnForATargetThatPassesBehind, ()) {
    const auto amount = [] { return *rc::gen::inRange(0, 101) / 100.0; };
    Scene scene(running_);
    host::Object *target = scene.AddObject(host::kTypeNull, {0, 0, 0});
    scene.Link(kTarget, target);
    scene.Set(6161, amount());
    scene.Set(6071, amount());
    scene.Set(6072, 0.1 + 0.9 * amount());
    const double from = *rc::gen::inRange(-300, -50), depth = *rc::gen::inRange(50, 400);
    const auto last_move = *rc::gen::inRange(20, 100);
    double travelled = 0, least = 0, most = 0, heading = 0;
    for (int frame = 0; frame <= 1000; ++frame) {
        // From one side to the other, behind a camera at the origin that looks along Z.
        const double x = from - 2 * from * std::fmin(frame, last_move) / last_move;
        host::Transform transform = target->GetTransform();
        transform.position = {x, 20, -depth};
        target->SetTransform(transform);
        scene.document->SetRange(0, 1000);
        scene.Show(frame);
        const double now = scene.State().GetVector(kPreviousRotation).x;
        if (frame > 0) travelled += now - heading;
        heading = now;
        least = std::fmin(least, travelled);
        most = std::fmax(most, travelled);
    }
    // The look turns by twice the angle of the start to the backward axis, the short way.
    const double turn = 2 * std::atan(-from / depth);
    RC_ASSERT(std::fabs(std::fabs(travelled) - turn) < 1e-6);
    RC_ASSERT(most - least < 2 * kPi);
}

}  // namespace
