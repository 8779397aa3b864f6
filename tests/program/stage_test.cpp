#include "library/shots/stage.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tremolux
