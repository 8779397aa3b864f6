// A restart: nothing of the motion before is left, and without memory for the motion the camera stands on its input.
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

// A shake that is off neither runs nor forgets by itself; what it remembered must not come back after a restart.
struct Switches {
    const char *name;
    std::vector<std::int32_t> ids;
};
void PrintTo(const Switches &switches, std::ostream *out) { *out << switches.name; }

class ShakeOff : public WithModule, public testing::WithParamInterface<Switches> {
  protected:
    struct Step {
        std::int64_t frame;
        bool is_on;
    };
    static void Take(Scene &scene, const Step &step) {
        for (const std::int32_t id : GetParam().ids) scene.State().Set(id, step.is_on ? 1 : 0);
        scene.Show(step.frame);
    }
    std::unique_ptr<Scene> NewScene() {
        auto scene = std::make_unique<Scene>(running_);
        scene->Shake();
        scene->Set(6158, 0.9);  // a long memory
        return scene;
    }
};

TEST_P(ShakeOff, AndOnAgainAfterARestartOrAJumpRemembersNothingOfBefore) {
    for (const std::int64_t start : {0, 100}) {
        const std::unique_ptr<Scene> used = NewScene(), fresh = NewScene();
        for (std::int64_t frame = 0; frame <= 30; ++frame) Take(*used, {frame, true});
        for (std::int64_t frame = start; frame <= start + 20; ++frame) {
            const Step step = {frame, frame > start + 3};
            Take(*used, step);
            Take(*fresh, step);
            ASSERT_EQ(Difference(used->Camera(), fresh->Camera()), 0) << "frame " << frame;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Restart, ShakeOff,
                         testing::Values(Switches{"Rotation", {6013, 6014, 6015}},
                                         Switches{"Position", {6010, 6011, 6012}}),
                         testing::PrintToStringParamName());

}  // namespace
