#include "library/shots/stage.h"

#include <gtest/gtest.h>

#include "host/animation/track.h"
#include "host/scene/object.h"
#include "host/value/descid.h"
#include "library/shots/embedded_host.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

constexpr std::int32_t kTargetSwitch = 6018;

class StageTest : public testing::Test {
  protected:
    void SwitchTarget(std::int32_t on) { stage_.CameraTag().SetParameter(host::MakeId(kTargetSwitch), host::Data(on)); }
    static CameraMove Still() {
        CameraMove move;
        move.samples.emplace_back();
        return move;
    }
    program_test::Workplace workplace_;
    EmbeddedHost host_{TREMOLUX_MODULE_FILE, workplace_.Path("home")};
    Stage stage_{Still()};
};

TEST_F(StageTest, SwitchesTheTargetOnWithTheObject) {
    SwitchTarget(0);
    EXPECT_FALSE(stage_.TurnsToTarget());
    stage_.AddTarget(Still());
    EXPECT_TRUE(stage_.TurnsToTarget());
}

TEST_F(StageTest, LetsTheTargetBeSwitchedOffAfterwards) {
    stage_.AddTarget(Still());
    SwitchTarget(0);
    EXPECT_FALSE(stage_.TurnsToTarget());
}

TEST_F(StageTest, TurnsToNothingWithoutAnObject) {
    SwitchTarget(1);
    EXPECT_FALSE(stage_.TurnsToTarget());
}

// Longer than what is keyed at once.
CameraMove Walk(std::size_t frames) {
    CameraMove move;
    move.first_frame = -7;
    for (std::size_t i = 0; i < frames; ++i) {
        move.samples.emplace_back();
        move.samples.back().position.x = 0.25 * static_cast<double>(i);
    }
    return move;
}

TEST_F(StageTest, FollowsALongMoveFromItsFirstFrameToItsLastAndAgain) {
    const CameraMove walk = Walk(20003);
    Stage stage(walk);
    for (int round = 0; round < 2; ++round) {
        for (std::int64_t frame = walk.first_frame; frame <= walk.LastFrame(); ++frame) {
            stage.PlayFrame(frame);
            ASSERT_EQ(stage.Input().position.x, 0.25 * static_cast<double>(frame + 7)) << frame;
        }
    }
}

TEST_F(StageTest, KeysAllOfALongMoveForThoseWhoLookAtTheScene) {
    const CameraMove walk = Walk(10001);
    Stage stage(walk);
    stage.KeyWholeMove();
    const host::Object *input = stage.Document().FindObject("Input Camera");
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->Tracks().front()->GetCurve()->KeyCount(), 10001);
}

}  // namespace
}  // namespace tremolux
