// A restart that cannot be evaluated: without memory for the motion the camera stands on its input.
#include "host/watch/call_faults.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

class Restart : public WithScene {
  protected:
    void TearDown() override {
        host::ArmCallFault(0);
        WithScene::TearDown();
    }
    // Back at the start frame, where this call fails; the name of the call, empty past the last one.
    std::string RestartWithout(std::int64_t call) {
        scene().Play(30, 31);
        scene().document->SetFrame(0);
        host::ArmCallFault(call);
        scene().Execute();
        const std::string failed = host::FailedCall();
        host::ArmCallFault(0);
        return failed;
    }
};

TEST_F(Restart, WithoutMemoryForItsFirstCurveLeavesTheCameraOnItsInput) {
    scene().Shake();
    scene().PlaceInput({10, 20, 30}, {0.5, 0.25, 0});
    scene().input->Data().SetReal(host::kCameraFocalLength, 85);
    scene().input->Data().SetReal(host::kCameraFocusDistance, 321);
    std::string failed = "none yet";
    for (std::int64_t call = 1; !failed.empty() && failed != "custom.create"; ++call) failed = RestartWithout(call);
    ASSERT_EQ(failed, "custom.create");
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-12);
}

}  // namespace
