// What an evaluation of the scene does and does not do.
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

class Evaluation : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().Shake();
        scene().PlaceInput({10, 20, 30}, {0.5, 0.25, 0});
    }
};

TEST_F(Evaluation, OfATagOnANonCameraDoesNothing) {
    host::Object *object = scene().AddObject(host::kTypeNull, {0, 0, 0});
    host::Tag *tag = object->MakeTag(kTag);
    ASSERT_NE(tag, nullptr);
    tag->Data().Set(kInput, host::Data::LinkTo(scene().input));
    for (const std::int32_t first_run : {1, 0}) {
        tag->Data().Set(kFirstRun, first_run);
        const host::Container before = tag->Data();
        const host::Matrix place = object->GlobalMatrix();
        scene().Play(0, 3);
        EXPECT_TRUE(tag->Data() == before);
        EXPECT_TRUE(object->GlobalMatrix() == place);
    }
}

TEST_F(Evaluation, ClearsALinkToTheTagsOwnCamera) {
    scene().Link(kInput, scene().camera);
    const Shot before = scene().Camera();
    scene().Show(5);
    EXPECT_EQ(scene().State().Link(kInput, scene().document), nullptr);
    EXPECT_TRUE(scene().Camera() == before);
}

TEST_F(Evaluation, ClearsALinkToACameraBelowTheTagsCamera) {
    host::Object *child = scene().AddObject(host::kTypeNull, {1, 0, 0}, scene().camera);
    host::Object *below = scene().AddObject(host::kTypeCamera, {1, 0, 0}, child);
    scene().Link(kInput, below);
    const Shot before = scene().Camera();
    scene().Show(5);
    EXPECT_EQ(scene().State().Link(kInput, scene().document), nullptr);
    EXPECT_TRUE(scene().Camera() == before);
}

TEST_F(Evaluation, TakesAnInputCameraThatTheTagsCameraHangsBelow) {
    host::Object *above = scene().AddObject(host::kTypeCamera, {1, 2, 3});
    scene().camera->InsertUnder(above);
    scene().Link(kInput, above);
    scene().Show(0);
    EXPECT_EQ(scene().State().Link(kInput, scene().document), above);
    EXPECT_NE(scene().Position().x, 0);
}

TEST_F(Evaluation, OfABakedTagDoesNothing) {
    scene().Play(0, 5);
    scene().State().Set(kBaked, 1);
    const host::Container before = scene().State();
    const Shot shot = scene().Camera();
    scene().PlaceInput({500, 0, 0}, {0, 0, 0});
    for (const std::int64_t frame : {6, 20, 0, -3}) scene().Show(frame);
    EXPECT_TRUE(scene().State() == before);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Evaluation, RestartsAtTheStartFrame) {
    scene().Play(0, 9);
    EXPECT_GT(scene().Real(10051), 0);
    scene().Show(0);
    EXPECT_EQ(scene().Real(10051), 0) << "the first frame after a reset advances the clocks by 0";
    EXPECT_GT(scene().Real(kStep), 0);
    EXPECT_EQ(scene().Real(kLastFrame), 0);
}

TEST_F(Evaluation, RestartsAtAStartFrameThatIsNotZero) {
    for (const std::int64_t start : {12, -20}) {
        scene().document->SetRange(start, 400);
        scene().Show(start + 40);
        scene().Show(start);
        EXPECT_EQ(scene().Real(10051), 0) << start;
        EXPECT_EQ(scene().Real(kLastFrame), static_cast<double>(start));
        EXPECT_EQ(scene().Real(kStartFrame), static_cast<double>(start));
    }
}

TEST_F(Evaluation, BringsTheCameraToTheInputWhenItRestarts) {
    for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030}) scene().Set(id, 0);
    scene().input->Data().SetReal(host::kCameraFocalLength, 85);
    scene().input->Data().SetReal(host::kCameraFocusDistance, 321);
    scene().camera->SetGlobalMatrix({{9, 9, 9}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
    scene().Show(0);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-12);
}

TEST_F(Evaluation, AdvancesTheClocksByThePreviousStepOnAPlainStep) {
    scene().Play(0, 10);
    const double clock = scene().Real(10051), step = scene().Real(kStep);
    scene().Show(11);
    EXPECT_EQ(scene().Real(10051), clock + step);
    EXPECT_EQ(scene().Real(kLastFrame), 11);
}

TEST_F(Evaluation, OfTheSameFrameAgainLeavesTheCameraAndAllState) {
    scene().Play(0, 10);
    const host::Container before = scene().State();
    const Shot shot = scene().Camera();
    scene().PlaceInput({500, 0, 0}, {0, 0, 0});
    scene().Set(6152, 3);
    scene().Evaluate();
    scene().Set(6152, 1);
    EXPECT_TRUE(scene().State() == before);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Evaluation, OfTheStartFrameAgainFollowsTheInput) {
    scene().Show(0);
    scene().PlaceInput({500, 0, 0}, {0.5, 0.25, 0});
    const double before = scene().Position().x;
    scene().Evaluate();
    EXPECT_NEAR(scene().Position().x, before + 490, 1e-9);
}

TEST_F(Evaluation, OfANegativeTimeRestartsEveryTime) {
    scene().document->SetRange(-50, 400);
    for (int i = 0; i < 3; ++i) {
        scene().PlaceInput({100.0 * i, 0, 0}, {0, 0, 0});
        scene().Show(-7);
        for (const std::int32_t key : kClocks) {
            if (key == kStep) continue;
            EXPECT_EQ(scene().Real(key), 0) << key;
        }
        EXPECT_EQ(scene().Real(kLastFrame), -7);
        EXPECT_NEAR(scene().Position().x, 100.0 * i, 50) << "the shake stays below 50";
    }
    scene().Show(-6);
    EXPECT_EQ(scene().Real(10051), 0);
}

TEST_F(Evaluation, OfATimeBetweenMinusOneAndZeroRestartsThoughTheFrameIsZero) {
    scene().document->SetRange(-50, 400);
    scene().Show(-1);
    scene().document->SetTime(host::MakeTime(-1, 60));
    scene().Evaluate();
    EXPECT_EQ(scene().Real(10051), 0);
    scene().PlaceInput({500, 0, 0}, {0, 0, 0});
    scene().Evaluate();
    EXPECT_GT(scene().Position().x, 300);
}

TEST_F(Evaluation, OfFrameZeroHappensInADocumentThatStartsElsewhere) {
    for (const std::int64_t start : {-20, 7}) {
        scene().document->SetRange(start, 400);
        scene().Show(start);
        scene().PlaceInput({500, 0, 0}, {0, 0, 0});
        scene().Show(0);
        EXPECT_GT(scene().Position().x, 300) << start;
        EXPECT_EQ(scene().Real(kLastFrame), 0);
        scene().PlaceInput({10, 20, 30}, {0.5, 0.25, 0});
    }
}

TEST_F(Evaluation, WritesTheStartFrameOnEveryCall) {
    scene().Play(0, 3);
    scene().document->SetRange(2, 400);
    scene().Evaluate();
    EXPECT_EQ(scene().Real(kStartFrame), 2);
    scene().document->SetRange(1, 400);
    scene().State().Set(kFirstRun, 1);
    scene().Evaluate();
    EXPECT_EQ(scene().Real(kStartFrame), 1);
}

TEST_F(Evaluation, WithoutAnInputCameraLeavesTheCameraAtItsLastFrame) {
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    const double clock = scene().Real(10051);
    scene().Link(kInput, nullptr);
    for (const std::int64_t frame : {6, 30, 0}) scene().Show(frame);
    EXPECT_TRUE(scene().Camera() == shot);
    EXPECT_EQ(scene().Real(10051), clock);
}

TEST_F(Evaluation, AfterTheInputCameraWasDeletedLeavesTheCameraAtItsLastFrame) {
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    host::Node::Discard(scene().input);
    for (const std::int64_t frame : {6, 30, 0}) scene().Show(frame);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Evaluation, WithAnInputThatIsNoCameraLeavesTheCameraAtItsLastFrame) {
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    host::Object *object = scene().AddObject(host::kTypeNull, {700, 0, 0});
    scene().Link(kInput, object);
    for (const std::int64_t frame : {6, 30, 0}) scene().Show(frame);
    EXPECT_TRUE(scene().Camera() == shot);
    EXPECT_EQ(scene().State().Link(kInput, scene().document), object) << "the link box takes any object";
}

TEST_F(Evaluation, WithAnInputOfAnotherDocumentLeavesTheCamera) {
    Scene other(running_);
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    scene().Link(kInput, other.input);
    scene().Show(6);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Evaluation, TakesOverTheCamerasOwnFocusObject) {
    host::Object *focus = scene().AddObject(host::kTypeNull, {1, 2, 3});
    scene().camera->Data().Set(host::kCameraFocusObject, host::Data::LinkTo(focus));
    scene().Show(0);
    EXPECT_EQ(scene().State().Link(kFocusObject, scene().document), focus);
    EXPECT_EQ(scene().camera->Data().Link(host::kCameraFocusObject, scene().document), nullptr);
}

TEST_F(Evaluation, OfACloneOfTheDocumentMovesTheClonesCameraAlone) {
    scene().Play(0, 10);
    const Shot shot = scene().Camera();
    const host::Container before = scene().State();
    std::unique_ptr<host::Document> loose(
        static_cast<host::Document *>(scene().document->Clone(host::kCopyDocument, nullptr)));
    ASSERT_NE(loose, nullptr);
    Scene clone(running_, std::move(loose));
    ASSERT_NE(clone.tag, nullptr);
    ASSERT_NE(clone.tag, scene().tag);
    clone.Play(11, 20);
    EXPECT_TRUE(scene().Camera() == shot);
    EXPECT_TRUE(scene().State() == before);
    const Shot rendered = clone.Camera();
    EXPECT_FALSE(rendered == shot);
    scene().Play(11, 20);
    EXPECT_TRUE(scene().Camera() == rendered);
}

TEST_F(Evaluation, AlwaysReportsSuccess) {
    const auto execute = scene().tag->Registration().execute;
    host::Tag *tag = scene().tag;
    host::Document *document = scene().document;
    host::Object *camera = scene().camera;
    EXPECT_EQ(execute(tag->Plugin(), tag, document, camera, nullptr, 3111, 0), 0);
    EXPECT_EQ(execute(tag->Plugin(), nullptr, document, camera, nullptr, 3111, 0), 0);
    EXPECT_EQ(execute(tag->Plugin(), tag, nullptr, camera, nullptr, 3111, 0), 0);
    EXPECT_EQ(execute(tag->Plugin(), tag, document, nullptr, nullptr, 3111, 0), 0);
    EXPECT_EQ(execute(tag->Plugin(), nullptr, nullptr, nullptr, nullptr, 0, 0), 0);
    scene().State().Set(kBaked, 1);
    EXPECT_EQ(scene().Execute(), 0);
    scene().State().Flush();
    EXPECT_EQ(scene().Execute(), 0);
}

TEST_F(Evaluation, WithoutDocumentSettingsDoesNothingToTheCamera) {
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    const double clock = scene().Real(10051);
    scene().document->Settings().Flush();
    EXPECT_EQ(scene().Execute(), 0);
    EXPECT_TRUE(scene().Camera() == shot);
    EXPECT_EQ(scene().Real(10051), clock);
}

TEST_F(Evaluation, HappensOnceForAnEditInThePanel) {
    scene().Play(0, 10);
    const double clock = scene().Real(10051);
    const Shot shot = scene().Camera();
    scene().Set(6020, 2);
    running_.App().SetDocumentTime(scene().document, host::MakeTime(10, 30));
    EXPECT_EQ(scene().Real(10051), clock);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Evaluation, TouchesNothingButItsOwnTagAndCamera) {
    host::Object *target = scene().AddObject(host::kTypeNull, {1, 2, 3});
    scene().Link(kTarget, target);
    scene().Link(kFocusObject, target);
    host::Application &app = running_.App();
    const host::Container settings = *app.WorldPluginData(kTag), input = scene().input->Data();
    const host::Container null_data = target->Data();
    const host::Matrix input_place = scene().input->GlobalMatrix(), target_place = target->GlobalMatrix();
    const std::size_t undo_steps = scene().document->Undo().Steps(), printed = app.console.lines.size();
    const int events = app.requests.events;
    for (const std::int64_t frame : {0, 1, 2, 40, 41, 0}) scene().Show(frame);
    EXPECT_TRUE(*app.WorldPluginData(kTag) == settings);
    EXPECT_TRUE(scene().input->Data() == input);
    EXPECT_TRUE(target->Data() == null_data);
    EXPECT_TRUE(scene().input->GlobalMatrix() == input_place);
    EXPECT_TRUE(target->GlobalMatrix() == target_place);
    EXPECT_EQ(scene().document->Undo().Steps(), undo_steps);
    EXPECT_EQ(app.console.lines.size(), printed);
    EXPECT_EQ(app.requests.events, events);
    EXPECT_TRUE(app.dialogs.All().empty());
}

TEST_F(Evaluation, OfTwoScenesInTurnsIsThatOfEachAlone) {
    Scene other(running_);
    other.Shake();
    other.Set(kSeed, 99);
    other.Set(kSpeed, 2);
    scene().Play(0, 30);
    other.Play(0, 30);
    const Shot first = scene().Camera(), second = other.Camera();
    for (int frame = 0; frame <= 30; ++frame) {
        scene().Show(frame);
        other.Show(30 - frame);
    }
    other.Show(30);
    EXPECT_TRUE(scene().Camera() == first);
    EXPECT_TRUE(other.Camera() == second);
}

TEST_F(Evaluation, OfTwoTagsOnTwoCamerasWithOneInputIsThatOfEachAlone) {
    host::Object *camera = scene().AddObject(host::kTypeCamera, {0, 0, 0});
    host::Tag *tag = camera->MakeTag(kTag);
    ASSERT_NE(tag, nullptr);
    scene().Evaluate();
    tag->Data().Set(kInput, host::Data::LinkTo(scene().input));
    for (std::int32_t id = 6001; id <= 6210; ++id)
        if (const host::Data *setting = scene().State().Find(id)) tag->Data().Set(id, *setting);
    scene().Play(0, 20);
    EXPECT_TRUE(ShotOf(camera) == scene().Camera()) << "the same settings give the same motion";
}

TEST_F(Evaluation, DoesNotHappenWhileTheTagIsSwitchedOff) {
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    ASSERT_TRUE(scene().tag->SetParameter(host::MakeId(host::kParamEnabled), host::Data(std::int32_t{0})));
    scene().Play(6, 9);
    EXPECT_TRUE(scene().Camera() == shot);
}

}  // namespace
