// The first evaluation of a new tag, and of one that comes from a file.
#include "host/value/text.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

// A module without built-in presets and a user without own ones, and a tag that was never evaluated.
class FirstEvaluation : public testing::Test {
  protected:
    void SetUp() override {
        const std::filesystem::path module = CopyModule(folder_.Path());
        std::filesystem::remove_all(module.parent_path() / "res" / "Presets");
        running_ = std::make_unique<RunningHost>(module);
        ASSERT_TRUE(running_->Started()) << running_->Error();
        scene_ = std::make_unique<Scene>(*running_);
        ASSERT_NE(scene_->tag, nullptr);
        scene_->State().Set(kFirstRun, 1);
    }
    void TearDown() override {
        scene_.reset();
        running_.reset();
    }
    Scene &scene() { return *scene_; }

    TemporaryFolder folder_;
    std::unique_ptr<RunningHost> running_;
    std::unique_ptr<Scene> scene_;
};

TEST_F(FirstEvaluation, WritesTheResetValues) {
    const std::pair<std::int32_t, double> reset[] = {
        {6020, 1}, {6021, 1},    {6028, 0},    {6029, 0},    {6030, 0},   {6034, 0.55},  {6035, 0.2},
        {6049, 0}, {6071, 0.65}, {6072, 0.25}, {6076, 1},    {6077, 1},   {6078, 1},     {6100, 1},
        {6101, 1}, {6102, 1},    {6119, 0.15}, {6132, 1},    {6140, 0.1}, {6142, 12345}, {6149, 0.25},
        {6151, 0}, {6152, 1},    {6158, 0.25}, {6165, 0.25}, {6170, 0.5}};
    for (const auto &[id, value] : reset) scene().Set(id, -77);
    for (std::int32_t id = 6010; id <= 6018; ++id) scene().State().Set(id, 0);
    scene().State().Set(6145, 0);
    scene().Evaluate();
    for (const auto &[id, value] : reset) EXPECT_DOUBLE_EQ(scene().Real(id), value) << id;
    for (std::int32_t id = 6010; id <= 6018; ++id) EXPECT_EQ(scene().State().Whole(id), 1) << id;
    EXPECT_EQ(scene().State().Whole(6145), 1);
}

TEST_F(FirstEvaluation, WritesTheDefaultWhereThereIsNoResetValue) {
    const std::pair<std::int32_t, double> defaults[] = {{6024, 0}, {6153, 0.25}, {6155, 0.25}, {6037, 0.05}, {6138, 1}};
    for (const auto &[id, value] : defaults) scene().Set(id, 0.125);
    scene().Evaluate();
    for (const auto &[id, value] : defaults) EXPECT_EQ(scene().Real(id), value) << id;
}

TEST_F(FirstEvaluation, LeavesTheScaleAndTheLinks) {
    host::Object *target = scene().AddObject(host::kTypeNull, {1, 2, 3});
    scene().Set(6022, 7);
    scene().Link(kTarget, target);
    scene().Link(kFocusObject, target);
    scene().Evaluate();
    EXPECT_EQ(scene().Real(6022), 7);
    EXPECT_EQ(scene().State().Link(kInput, scene().document), scene().input);
    EXPECT_EQ(scene().State().Link(kTarget, scene().document), target);
    EXPECT_EQ(scene().State().Link(kFocusObject, scene().document), target);
}

TEST_F(FirstEvaluation, ShowsCustomSettingsWhenThereAreNoPresets) {
    scene().State().Set(10028, 3);
    scene().Evaluate();
    EXPECT_EQ(scene().State().Whole(10028), 5803);
    EXPECT_EQ(scene().State().Whole(3005, 7), -1);
    EXPECT_EQ(scene().State().Whole(3006), 5803);
}

TEST_F(FirstEvaluation, ShowsTheUsersPresetFolder) {
    scene().Evaluate();
    const auto shown = host::PathFromText(scene().State().Text(6178));
    EXPECT_EQ(shown.lexically_normal(),
              (running_->UserFolder() / "plugins" / "TremoluxCam" / "User").lexically_normal());
}

TEST_F(FirstEvaluation, ColoursTheCameraOrange) {
    scene().camera->Data().Set(host::kParamUseColor, 0);
    scene().Evaluate();
    host::Data mode, colour;
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(host::kParamUseColor), &mode));
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(host::kParamColor), &colour));
    EXPECT_EQ(mode.Whole(), 2);
    const host::Vector orange = colour.GetVector();
    EXPECT_EQ(orange.x, 1);
    EXPECT_NEAR(orange.y, 0.41667, 1e-12);
    EXPECT_EQ(orange.z, 0);
}

TEST_F(FirstEvaluation, LeavesTheCameraWhereItIs) {
    scene().PlaceInput({100, 200, 300}, {1, 0.5, 0});
    const Shot before = scene().Camera();
    scene().Evaluate();
    EXPECT_TRUE(scene().Camera() == before);
    scene().Evaluate();
    EXPECT_FALSE(scene().Camera() == before) << "the next evaluation moves it, though the frame is 0 as before";
    EXPECT_NEAR(scene().Position().x, 100, 1e-9);
}

TEST_F(FirstEvaluation, ClearsItsMarksAndTheClocks) {
    for (const std::int32_t key : kClocks) scene().Set(key, 5);
    scene().State().Set(kRecheck, 1);
    scene().Evaluate();
    EXPECT_EQ(scene().State().Whole(kFirstRun, 7), 0);
    EXPECT_EQ(scene().State().Whole(kRecheck, 7), 0);
    for (const std::int32_t key : kClocks) EXPECT_EQ(scene().Real(key), 0) << key;
}

TEST_F(FirstEvaluation, ReplacesAnEmptyTriggerByItsPlaceholder) {
    for (const std::int32_t trigger : {6181, 6209}) {
        scene().State().Set(kFirstRun, 1);
        scene().State().Set(trigger, host::Data(""));
        scene().Evaluate();
        EXPECT_EQ(scene().State().Text(trigger), "Numbers seperated by commas") << trigger;
    }
}

TEST_F(FirstEvaluation, HappensWithoutAnInputCameraToo) {
    scene().Link(kInput, nullptr);
    scene().Set(6034, -77);
    scene().Evaluate();
    EXPECT_DOUBLE_EQ(scene().Real(6034), 0.55);
    EXPECT_EQ(scene().State().Whole(kFirstRun, 7), 0);
}

TEST_F(FirstEvaluation, IsFollowedByARunUpAwayFromTheStartFrame) {
    scene().Evaluate();
    scene().Shake();
    scene().Play(0, 25);
    const Shot played = scene().Camera();
    scene().State().Set(kFirstRun, 1);
    scene().Show(25);
    scene().Shake();  // the set-up takes the rotation layers back
    scene().Show(25);
    EXPECT_TRUE(scene().Camera() == played);
}

// A tag that comes from a file: only the remembered preset is checked.
class Recheck : public FirstEvaluation {
  protected:
    void SetUp() override {
        FirstEvaluation::SetUp();
        scene().State().Set(kFirstRun, 0);
        scene().State().Set(kRecheck, 1);
    }
};

TEST_F(Recheck, KeepsEverySettingOfTheUser) {
    for (std::int32_t id = 6000; id <= 6210; ++id) {
        const host::Data *held = scene().State().Find(id);
        if (held && held->type == host::kDataReal) scene().Set(id, id / 1000.0);
    }
    for (const std::int32_t id : {6010, 6014, 6018}) scene().State().Set(id, 0);
    scene().State().Set(6181, host::Data("5,6"));
    const host::Container before = scene().State();
    scene().Evaluate();
    for (std::int32_t id = 6000; id <= 6210; ++id) {
        const host::Data *old = before.Find(id);
        if (!old || old->type == host::kDataLink) continue;
        ASSERT_NE(scene().State().Find(id), nullptr) << id;
        EXPECT_TRUE(host::EqualData(*old, *scene().State().Find(id))) << id;
    }
    EXPECT_EQ(scene().State().Link(kInput, scene().document), scene().input);
}

TEST_F(Recheck, EvaluatesNothingAndIsOver) {
    scene().PlaceInput({100, 200, 300}, {0, 0, 0});
    const Shot before = scene().Camera();
    scene().Evaluate();
    EXPECT_TRUE(scene().Camera() == before);
    EXPECT_EQ(scene().State().Whole(kRecheck, 7), 0);
    scene().Evaluate();
    EXPECT_NEAR(scene().Position().x, 100, 1e-9);
}

TEST_F(Recheck, GivesTheCameraItsColourAgain) {
    scene().camera->Data().Set(host::kParamUseColor, 0);
    scene().camera->SetParameter(host::MakeId(host::kParamColor), host::Data(host::Vector{0, 1, 0}));
    scene().Evaluate();
    host::Data mode, colour;
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(host::kParamUseColor), &mode));
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(host::kParamColor), &colour));
    EXPECT_EQ(mode.Whole(), 2);
    EXPECT_EQ(colour.GetVector().x, 1);
    EXPECT_NEAR(colour.GetVector().y, 0.41667, 1e-12);
    EXPECT_EQ(colour.GetVector().z, 0);
}

TEST_F(Recheck, ReplacesAnEmptyTriggerByItsPlaceholder) {
    for (const std::int32_t trigger : {6181, 6209}) {
        scene().State().Set(kRecheck, 1);
        scene().State().Set(trigger, host::Data(""));
        scene().Evaluate();
        EXPECT_EQ(scene().State().Text(trigger), "Numbers seperated by commas") << trigger;
    }
}

TEST_F(Recheck, FallsBackToCustomWhenTheRememberedPresetIsGone) {
    scene().State().Set(1040575, 0);
    scene().State().Set(1040574, host::Data("gone"));
    scene().State().Set(10028, 0);
    scene().State().Set(30000, host::Data("Gone"));
    scene().Evaluate();
    EXPECT_EQ(scene().State().Whole(20001), 1);
    EXPECT_EQ(scene().Real(30001), 5803);
    EXPECT_EQ(scene().State().Text(30000), "");
    EXPECT_EQ(scene().State().Whole(10028), 5803);
    EXPECT_EQ(scene().State().Whole(1040575), 5803);
    EXPECT_EQ(scene().State().Text(1040574), "");
}

TEST_F(Recheck, SurvivesAnyRememberedPosition) {
    for (const std::int32_t position : {-1, -2147483647, 2147483647}) {
        scene().State().Set(kRecheck, 1);
        scene().State().Set(1040575, position);
        scene().Evaluate();
        EXPECT_EQ(scene().State().Whole(1040575), 5803) << position;
    }
}

TEST_F(Recheck, HasNothingToCheckWhenCustomIsRemembered) {
    scene().State().Set(1040575, 5803);
    scene().State().Set(20001, 0);
    scene().State().Set(30000, host::Data("kept"));
    scene().Evaluate();
    EXPECT_EQ(scene().State().Whole(20001, 7), 0);
    EXPECT_EQ(scene().State().Text(30000), "kept");
}

}  // namespace
