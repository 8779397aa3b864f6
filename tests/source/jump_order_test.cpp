// How a restart and a jump find the scene when they call their operations: a tag that overrides one relies on it.
#include "ocamera.h"
#include "tag/scene.h"
#include "tests/source/probe.h"

namespace {

constexpr LONG kJoltNumbers[] = {10042, 10043, 10045, 10046, 10047, 10048, 10025, 10026};
constexpr LONG kJoltVectors[] = {11000, 11001};

// Notes what stands where as it is called.
class Witness : public ProbeTag {
  public:
    static NodeData *Alloc() { return last = gNew Witness; }
    void ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc) override {
        camera_at_reset = camera->GetMg();
        focal_length_at_reset = ReadLens(camera, CAMERA_FOCUS);
        focus_distance_at_reset = ReadLens(camera, CAMERAOBJECT_TARGETDISTANCE);
        ProbeTag::ResetSimulation(data, camera, doc);
    }
    void SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera) override {
        for (const LONG key : kJoltNumbers) jolts_at_run_up.push_back(data->GetReal(key));
        for (const LONG key : kJoltVectors) jolts_at_run_up.push_back(Len(data->GetVector(key)));
        ProbeTag::SimulateToFrame(frame, data, camera);
    }
    Matrix camera_at_reset;
    Real focal_length_at_reset = 0, focus_distance_at_reset = 0;
    std::vector<Real> jolts_at_run_up;
};

class Order : public WithProbe {
  protected:
    Order() : WithProbe(Witness::Alloc) {}
    Witness &witness() { return *static_cast<Witness *>(probe_); }
};

TEST_F(Order, ARestartHasTheCameraAtItsInputBeforeAnythingIsReset) {
    host::Transform transform;
    transform.position = {10, 20, 30};
    transform.rotation = {0.5, 0.25, 0.125};
    input_->SetTransform(transform);
    input_->Data().SetReal(host::kCameraFocalLength, 85);
    input_->Data().SetReal(host::kCameraFocusDistance, 321);
    transform.position = {-7, -8, -9};
    transform.rotation = {1, 1, 1};
    camera_->SetTransform(transform);
    Show(0);
    const Matrix &found = witness().camera_at_reset;
    const host::Matrix wanted = input_->GlobalMatrix();
    const std::pair<Vector, host::Vector> rows[] = {
        {found.off, wanted.off}, {found.v1, wanted.v1}, {found.v2, wanted.v2}, {found.v3, wanted.v3}};
    for (const auto &[is, should] : rows) {
        EXPECT_NEAR(is.x, should.x, 1e-12);
        EXPECT_NEAR(is.y, should.y, 1e-12);
        EXPECT_NEAR(is.z, should.z, 1e-12);
    }
    EXPECT_EQ(witness().focal_length_at_reset, 85);
    EXPECT_EQ(witness().focus_distance_at_reset, 321);
}

TEST_F(Order, AJumpHasNoJoltInFlightBeforeItRunsUp) {
    for (int frame = 0; frame <= 3; ++frame) Show(frame);
    for (const LONG key : kJoltNumbers) State().SetReal(key, 0.75);
    for (const LONG key : kJoltVectors) State().SetVector(key, {1, 2, 3});
    Show(40);
    ASSERT_EQ(witness().jolts_at_run_up.size(), std::size(kJoltNumbers) + std::size(kJoltVectors));
    for (const Real jolt : witness().jolts_at_run_up) EXPECT_EQ(jolt, 0);
}

}  // namespace
