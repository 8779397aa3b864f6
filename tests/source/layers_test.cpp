// In which order a frame calls its layers, and what it hands them.
#include <gtest/gtest.h>

#include <cmath>

#include "tag/parameters.h"
#include "tests/source/probe.h"

namespace {

using Numbers = std::vector<double>;

// Notes each layer's name and its numbers in order; vectors as three of them. What the layers give is made up.
class LayerProbe : public ProbeTag {
  public:
    static NodeData *Alloc() { return last = gNew LayerProbe; }
    struct Layer {
        std::string name;
        Numbers numbers;
    };
    std::vector<Layer> layers;
    BaseObject *focus_object = NULL;

    Real EvaluateZoom(BaseContainer *, Real time_offset, Real seed, LONG flag, Real rate, Real slow, Real medium,
                      Real fast, Real speed, Real drift_smooth, Real smooth, Real overshoot, Real fade,
                      Real focal_length, Real frame, Real drift_clock, Real zoom_clock, LONG hidden_frames,
                      Real hidden_1, Real hidden_2, Real hidden_3, Real hidden_4) override {
        layers.push_back(
            {"zoom",
             {time_offset,         seed,     (Real)flag, rate,     slow,         medium, fast,        speed,
              drift_smooth,        smooth,   overshoot,  fade,     focal_length, frame,  drift_clock, zoom_clock,
              (Real)hidden_frames, hidden_1, hidden_2,   hidden_3, hidden_4}});
        return 61;
    }
    Vector EvaluatePosition(BaseContainer *, const Vector &input, Real smooth, Real time_offset, Real slow, Real medium,
                            Real fast, Real frame, Real overshoot, Real fade, Real shake_smooth, Real seed, LONG x,
                            LONG y, LONG z, Real intensity, Real scale, Real ratio_x, Real ratio_y, Real ratio_z,
                            Real speed, Real clock) override {
        layers.push_back(
            {"position", {input.x,   input.y,   input.z, smooth,       time_offset, slow,    medium,  fast,
                          frame,     overshoot, fade,    shake_smooth, seed,        (Real)x, (Real)y, (Real)z,
                          intensity, scale,     ratio_x, ratio_y,      ratio_z,     speed,   clock}});
        return Vector(1, 2, 3);
    }
    Vector EvaluateRotation(BaseContainer *, LONG use_target, const Vector &target, const Vector &position,
                            Real target_smooth, Real time_offset, Real target_overshoot, Real target_fade,
                            const Vector &input, Real smooth, Real overshoot, Real fade, Real seed, LONG h, LONG p,
                            LONG b, Real intensity, Real scale, Real ratio_h, Real ratio_p, Real ratio_b, Real speed,
                            Real clock, Real shake_smooth, Real slow, Real medium, Real fast, Real frame) override {
        layers.push_back({"rotation", {(Real)use_target, target.x,   target.y,      target.z,     position.x,
                                       position.y,       position.z, target_smooth, time_offset,  target_overshoot,
                                       target_fade,      input.x,    input.y,       input.z,      smooth,
                                       overshoot,        fade,       seed,          (Real)h,      (Real)p,
                                       (Real)b,          intensity,  scale,         ratio_h,      ratio_p,
                                       ratio_b,          speed,      clock,         shake_smooth, slow,
                                       medium,           fast,       frame}});
        return Vector(0.1, 0.2, 0.3);
    }
    Real EvaluateFocus(BaseContainer *, Real input_distance, BaseObject *object, Real smooth, Real overshoot, Real fade,
                       const Vector &object_position, const Vector &camera_position, Real drift_smooth, LONG flag,
                       Real time_offset, Real slow, Real medium, Real fast, LONG seed, Real rate, Real speed,
                       Real frame) override {
        focus_object = object;
        layers.push_back({"focus",
                          {input_distance,
                           smooth,
                           overshoot,
                           fade,
                           object_position.x,
                           object_position.y,
                           object_position.z,
                           camera_position.x,
                           camera_position.y,
                           camera_position.z,
                           drift_smooth,
                           (Real)flag,
                           time_offset,
                           slow,
                           medium,
                           fast,
                           (Real)seed,
                           rate,
                           speed,
                           frame}});
        return 777;
    }
    void EvaluateJolts(BaseContainer *data, Real time_scale, Real seed, LONG interval, Real frames_per_second,
                       LONG clock, Real time_offset, Real position_intensity, Real rotation_intensity, Real smooth,
                       LONG flag, Real scale, Real shake_position_intensity, Real speed, Real x, Real y, Real z, Real h,
                       Real p, Real b, Real shake_rotation_intensity, Real falloff_step, LONG frame,
                       LONG use_list) override {
        layers.push_back({"jolts",
                          {time_scale,
                           seed,
                           (Real)interval,
                           frames_per_second,
                           (Real)clock,
                           time_offset,
                           position_intensity,
                           rotation_intensity,
                           smooth,
                           (Real)flag,
                           scale,
                           shake_position_intensity,
                           speed,
                           x,
                           y,
                           z,
                           h,
                           p,
                           b,
                           shake_rotation_intensity,
                           falloff_step,
                           (Real)frame,
                           (Real)use_list}});
        data->SetVector(kJoltPositionOffset, Vector(10, 20, 30));
        data->SetVector(kJoltRotationOffset, Vector(0.01, 0.02, 0.03));
    }
};

class Layers : public WithProbe {
  protected:
    Layers() : WithProbe(LayerProbe::Alloc) {}
    LayerProbe &Probe() { return *static_cast<LayerProbe *>(probe_); }
    // A value of its own for every parameter.
    static double ValueOf(LONG id) { return (id - 6000) * 0.001; }
    double SetUpFrame() {
        for (const LONG id : {6020, 6021, 6022, 6024, 6025, 6026, 6028, 6029, 6030, 6034, 6035, 6037, 6053,
                              6054, 6059, 6063, 6064, 6071, 6072, 6076, 6077, 6078, 6100, 6101, 6102, 6128,
                              6129, 6130, 6132, 6134, 6135, 6136, 6138, 6140, 6144, 6149, 6151, 6152, 6153,
                              6154, 6155, 6156, 6158, 6161, 6162, 6163, 6165, 6170, 6204, 6205, 6206, 6207})
            State().SetReal(id, ValueOf(id));
        State().SetReal(6142, 4711.9);
        State().Set(6203, host::Data(host::MakeTime(44, 30)));
        State().Set(6038, host::Data(host::MakeTime(25, 30)));
        // Every second switch off.
        for (const LONG id : {6010, 6012, 6014, 6016}) State().Set(id, 0);
        for (const LONG id : {6011, 6013, 6015, 6017, 6018, 6145}) State().Set(id, 1);
        host::Transform place = input_->GetTransform();
        place.position = {100, 200, 300};
        place.rotation = {0.4, 0.5, 0.6};
        input_->SetTransform(place);
        input_->Data().SetReal(host::kCameraFocalLength, 55);
        input_->Data().SetReal(host::kCameraFocusDistance, 888);
        Show(0);
        Probe().layers.clear();
        Show(1);
        return Data()->GetReal(kShakeClock);
    }
    void ExpectNumbers(std::size_t layer, const char *name, const Numbers &wanted) {
        ASSERT_LT(layer, Probe().layers.size());
        EXPECT_EQ(Probe().layers[layer].name, name);
        const Numbers &got = Probe().layers[layer].numbers;
        ASSERT_EQ(got.size(), wanted.size());
        for (std::size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], wanted[i], 1e-12) << name << " " << i;
    }
};

TEST_F(Layers, FollowEachOtherWithTheirSettingsInOrder) {
    const double clock = SetUpFrame();
    ASSERT_GT(clock, 0);
    const auto v = ValueOf;
    ASSERT_EQ(Probe().layers.size(), 5u);
    ExpectNumbers(0, "zoom", {v(6151), 4711,    0,       v(6138), v(6134),
                              v(6135), v(6136), v(6152), v(6165), v(6162),
                              v(6053), v(6054), 55,      1,       Data()->GetReal(kZoomDriftClock),
                              clock,   44,      v(6204), v(6206), v(6207),
                              v(6205)});
    ExpectNumbers(
        1, "position",
        {100,  200, 300, v(6155), v(6151), 2 * v(6024),    v(6025), v(6026), 1,       v(6153), v(6154), v(6158),
         4711, 0,   1,   0,       v(6020), 0.15 * v(6022), v(6076), v(6077), v(6078), v(6152), clock});
    ExpectNumbers(2, "rotation", {0,
                                  0,
                                  0,
                                  0,
                                  1,
                                  2,
                                  3,
                                  v(6161),
                                  v(6151),
                                  v(6071),
                                  v(6072),
                                  0.4,
                                  0.5,
                                  0.6,
                                  v(6156),
                                  v(6034),
                                  v(6035),
                                  4711,
                                  1,
                                  0,
                                  1,
                                  v(6021),
                                  0.15 * v(6022),
                                  v(6100),
                                  v(6101),
                                  v(6102),
                                  v(6152),
                                  clock,
                                  v(6158),
                                  v(6028),
                                  v(6029),
                                  v(6030),
                                  1});
    ExpectNumbers(3, "focus", {888,     v(6064), v(6063), v(6163), 0,       0,       0,    1,       2,       3,
                               v(6059), 1,       v(6151), v(6128), v(6129), v(6130), 4711, v(6132), v(6152), 1});
    ExpectNumbers(
        4, "jolts",
        {1.25,           4711,    25,      30,      std::trunc(clock), v(6151), v(6037), v(6144), v(6170), 1,
         0.15 * v(6022), v(6020), v(6152), v(6076), v(6077),           v(6078), v(6100), v(6101), v(6102), v(6021),
         0.1 * v(6140),  1,       1});
}

TEST_F(Layers, KnowTargetAndFocusObject) {
    host::Object *target = host::Object::Create(host::kTypeNull).release();
    document_->InsertObject(target);
    host::Transform place = target->GetTransform();
    place.position = {7, 8, 9};
    target->SetTransform(place);
    State().Set(kTargetObject, host::Data::LinkTo(target));
    State().Set(kFocusObject, host::Data::LinkTo(target));
    SetUpFrame();
    const Numbers &rotation = Probe().layers[2].numbers, &focus = Probe().layers[3].numbers;
    EXPECT_EQ(Numbers(rotation.begin(), rotation.begin() + 4), (Numbers{1, 7, 8, 9}));
    EXPECT_EQ(Numbers(focus.begin() + 4, focus.begin() + 7), (Numbers{7, 8, 9}));
    EXPECT_NE(Probe().focus_object, nullptr);
}

TEST_F(Layers, AndTheJoltsOffsetsMakeTheCamera) {
    SetUpFrame();
    const host::Matrix matrix = camera_->GlobalMatrix();
    EXPECT_NEAR(matrix.off.x, 11, 1e-12);
    EXPECT_NEAR(matrix.off.y, 22, 1e-12);
    EXPECT_NEAR(matrix.off.z, 33, 1e-12);
    const Vector angles = Data()->GetVector(kPreviousRotation);
    EXPECT_NEAR(angles.x, 0.11, 1e-12);
    EXPECT_NEAR(angles.y, 0.22, 1e-12);
    EXPECT_NEAR(angles.z, 0.33, 1e-12);
    EXPECT_EQ(camera_->Data().Real(host::kCameraFocalLength), 61);
    EXPECT_EQ(camera_->Data().Real(host::kCameraFocusDistance), 777);
}

}  // namespace
