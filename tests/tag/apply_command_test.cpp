// The menu's command: a hand-held camera in one step.
#include "host/scene/view.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kCommand = 1039960, kVisibleInEditor = 901;

class ApplyCommand : public WithModule {
  protected:
    void SetUp() override {
        WithModule::SetUp();
        document_ = running_.App().NewDocument();
    }
    host::Object *Add(std::int32_t type, const std::string &name) {
        host::Object *object = host::Object::Create(type).release();
        document_->InsertObject(object);
        object->SetName(name);
        return object;
    }
    host::Object *AddCamera(const std::string &name) {
        host::Object *camera = Add(host::kTypeCamera, name);
        host::Transform transform;
        transform.position = {10, 20, 30};
        camera->SetTransform(transform);
        camera->Data().SetReal(host::kCameraFocalLength, 85);
        document_->SetActiveObject(camera);
        return camera;
    }
    // The new camera, which is first.
    host::Object *Run() {
        running_.App().CallCommand(kCommand);
        return document_->FirstObject();
    }
    host::Object *InputOf(host::Object *camera) {
        host::Tag *tag = camera->FindTag(kTag);
        EXPECT_NE(tag, nullptr);
        return tag ? static_cast<host::Object *>(tag->Data().Link(kInput, document_)) : nullptr;
    }
    void ExpectShown(host::Object *camera) {
        EXPECT_EQ(camera->Name(), "TremoluxCam");
        EXPECT_EQ(document_->ActiveObject(), camera);
        EXPECT_EQ(document_->ActiveTag(), camera->FindTag(kTag));
        EXPECT_EQ(document_->ActiveView()->SceneCamera(document_), camera);
        EXPECT_EQ(document_->Undo().Depth(), 0);
    }
    std::int32_t Parameter(host::Object *object, std::int32_t id) {
        host::Data value;
        EXPECT_TRUE(object->GetParameter(host::MakeId(id), &value)) << id;
        return value.Whole();
    }
    host::Document *document_ = nullptr;
};

TEST_F(ApplyCommand, MakesTheSelectedCameraHandHeld) {
    host::Object *input = AddCamera("Master");
    input->SetParameter(host::MakeId(host::kParamUseColor), host::Data(2));
    host::Object *camera = Run();
    ASSERT_NE(camera, input);
    ExpectShown(camera);
    EXPECT_EQ(InputOf(camera), input);
    EXPECT_EQ(camera->Data().Real(host::kCameraFocalLength), 85);
    EXPECT_EQ(camera->GetTransform().position.z, 30);
    EXPECT_EQ(input->Name(), "Master");
    EXPECT_EQ(Parameter(input, host::kParamUseColor), 0);
    EXPECT_EQ(Parameter(input, kVisibleInEditor), 1) << "only the shaken camera is seen";
    EXPECT_EQ(Parameter(camera, kVisibleInEditor), 2);
    EXPECT_TRUE(running_.App().dialogs.All().empty());
}

TEST_F(ApplyCommand, HasTheNewCameraShownByAnEventAfterItsStep) {
    AddCamera("Master");
    const int before = running_.App().requests.events;
    Run();
    EXPECT_EQ(running_.App().requests.events, before + 1);
}

TEST_F(ApplyCommand, NamesACameraThatHasNoNameOfItsOwn) {
    host::Object *input = AddCamera("Camera");
    Run();
    EXPECT_EQ(input->Name(), "TC Input Cam");
}

TEST_F(ApplyCommand, TwiceMakesTwoCamerasOfOneInput) {
    host::Object *input = AddCamera("Master"), *first = Run();
    document_->SetActiveObject(input);
    host::Object *second = Run();
    ASSERT_NE(first, second);
    EXPECT_EQ(InputOf(first), input);
    EXPECT_EQ(InputOf(second), input);
}

TEST_F(ApplyCommand, IsOneStepToUndo) {
    host::Object *input = AddCamera("Master");
    document_->Undo().Flush();
    Run();
    EXPECT_EQ(document_->Undo().Steps(), 1u);
    ASSERT_TRUE(document_->Undo().Undo());
    EXPECT_EQ(document_->FirstObject(), input);
    ASSERT_TRUE(document_->Undo().Redo());
    EXPECT_EQ(InputOf(document_->FirstObject()), input);
}

TEST_F(ApplyCommand, CreatesACameraWhenTheUserWantsOne) {
    document_->SetActiveObject(Add(host::kTypeNull, "Null"));
    running_.App().dialogs.AnswerYes();
    host::Object *camera = Run();
    ASSERT_EQ(running_.App().dialogs.All().size(), 1u);
    EXPECT_EQ(running_.App().dialogs.All()[0].text, "No camera selected, create a camera?");
    ExpectShown(camera);
    host::Object *input = InputOf(camera);
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->Name(), "TC Input Cam");
    EXPECT_EQ(input->Type(), host::kTypeCamera);
    EXPECT_EQ(Parameter(input, host::kParamUseColor), 0);
}

TEST_F(ApplyCommand, WithoutACameraMakesATagWithoutInput) {
    host::Object *null = Add(host::kTypeNull, "Null");
    for (host::Object *selected : {null, static_cast<host::Object *>(nullptr)}) {
        document_->SetActiveObject(selected);
        running_.App().dialogs.AnswerNo();
        host::Object *camera = Run();
        ExpectShown(camera);
        EXPECT_EQ(camera->Type(), host::kTypeCamera);
        EXPECT_EQ(InputOf(camera), nullptr);
    }
    EXPECT_EQ(null->Name(), "Null");
}

// Whatever stands first in the document instead.
TEST_F(ApplyCommand, WhereTheHostMakesNoCameraTakesNothingElseForIt) {
    static bool makes_a_null;
    CommandRegistration stand_in{};
    stand_in.id = host::kTypeCamera;
    stand_in.self = reinterpret_cast<ModuleObject *>(this);  // nothing destroys it
    stand_in.execute = [](ModuleObject *, HostAtom *document) -> std::int32_t {
        if (makes_a_null)
            static_cast<host::Document *>(document)->InsertObject(host::Object::Create(host::kTypeNull).release());
        return 1;
    };
    ASSERT_TRUE(running_.App().registry.Register(stand_in));
    for (const bool makes : {false, true}) {
        makes_a_null = makes;
        host::Object *other = Add(host::kTypeCamera, "Other");
        document_->SetActiveObject(nullptr);
        running_.App().dialogs.AnswerYes();
        host::Object *camera = Run();
        ExpectShown(camera);
        EXPECT_EQ(InputOf(camera), nullptr);
        EXPECT_EQ(other->Name(), "Other");
    }
}

TEST_F(ApplyCommand, WithoutATagStillShowsANewCamera) {
    for (const auto &plugin : running_.App().registry.Tags())
        plugin->node.allocate = [](void *) -> ModuleObject * { return nullptr; };
    host::Object *input = AddCamera("Master"), *camera = Run();
    ASSERT_NE(camera, input);
    EXPECT_EQ(camera->Name(), "TremoluxCam");
    EXPECT_EQ(camera->FirstTag(), nullptr);
    EXPECT_EQ(document_->ActiveObject(), camera);
    EXPECT_EQ(document_->ActiveView()->SceneCamera(document_), camera);
    EXPECT_EQ(document_->Undo().Depth(), 0);
    EXPECT_EQ(Parameter(input, kVisibleInEditor), 1);
}

TEST_F(ApplyCommand, IsFollowedByTheMotionOfItsInput) {
    host::Object *input = AddCamera("Master");
    host::Object *camera = Run();
    running_.App().HandleEvents();
    document_->SetFrame(1);
    host::Transform transform = input->GetTransform();
    transform.position = {500, 0, 0};
    input->SetTransform(transform);
    for (int frame = 2; frame < 80; ++frame) running_.App().SetDocumentTime(document_, host::MakeTime(frame, 30));
    EXPECT_NEAR(camera->GlobalMatrix().off.x, 500, 5);
}

}  // namespace
