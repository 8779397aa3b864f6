// A camera becomes the tag's input: chosen, dropped, and looked through.
#include "host/scene/messages.h"
#include "host/scene/view.h"
#include "host/table/nodes.h"
#include "host/ui/attribute_manager.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kDrop = 1018756, kObjects = 201;
constexpr std::uint32_t kAccept = 4;
constexpr std::int32_t kEditorVisibility = 901;

class InputCamera : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().Link(kInput, nullptr);
        scene().Evaluate();
        scene().document->Undo().Flush();
    }
    host::Object *NewCamera(const std::string &name) {
        host::Object *camera = scene().AddObject(host::kTypeCamera, {10, 20, 30});
        camera->SetName(name);
        camera->SetParameter(host::MakeId(host::kCameraFocalLength), host::Data(85.0));
        camera->SetParameter(host::MakeId(host::kCameraFocusDistance), host::Data(321.0));
        camera->SetParameter(host::MakeId(kEditorVisibility), host::Data(1));
        return camera;
    }
    bool Choose(host::Object *object) {
        return host::EditParameter(scene().tag, host::MakeId(kInput), host::Data::LinkTo(object));
    }
    void ExpectCopied() {
        EXPECT_EQ(scene().camera->Data().Real(host::kCameraFocalLength), 85);
        EXPECT_EQ(scene().camera->Data().Real(host::kCameraFocusDistance), 321);
        EXPECT_EQ(scene().camera->GetTransform().position.y, 20);
    }
    HostAtom *Input() { return scene().State().Link(kInput, scene().document); }

    // As the pointer hovers with the button pressed, or lets go; the flags that came back.
    std::uint32_t Drag(const std::vector<host::Object *> &objects, bool pressed, std::int32_t kind = kObjects) {
        HostAtomArray list;
        for (host::Object *object : objects) list.atoms.push_back(object);
        TableDragAndDrop drag{};
        drag.document = scene().document;
        drag.type = kind;
        drag.data = &list;
        running_.App().input.left_button = pressed;
        scene().tag->SendMessage(kDrop, &drag);
        running_.App().input.left_button = false;
        return drag.flags;
    }
};

TEST_F(InputCamera, IsWhatTheTagsCameraBeginsAs) {
    scene().camera->SetName("Hand");
    host::Object *input = NewCamera("Master");
    ASSERT_TRUE(Choose(input));
    ExpectCopied();
    EXPECT_EQ(scene().camera->Name(), "Hand");
    EXPECT_EQ(input->Name(), "Master");
    host::Data colour_mode, visible;
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(host::kParamUseColor), &colour_mode));
    EXPECT_EQ(colour_mode.Whole(), 2) << "the tag's own orange stays";
    ASSERT_TRUE(scene().camera->GetParameter(host::MakeId(kEditorVisibility), &visible));
    EXPECT_NE(visible.Whole(), 1);
}

TEST_F(InputCamera, IsCopiedOnceWhicheverMessageTellsOfIt) {
    const TableDescID id = host::MakeId(kInput);
    const auto told = [&](std::int32_t message) {
        scene().camera->SetTransform({});
        TableDescriptionCommand command{};
        command.id = id;
        TableDescriptionPostSetValue set{&id};
        scene().tag->SendMessage(message, message == host::kMessageCommand ? static_cast<void *>(&command) : &set);
        return scene().camera->GetTransform().position.y == 20;
    };
    scene().Link(kInput, NewCamera("Master"));
    EXPECT_TRUE(told(host::kMessageCommand));
    EXPECT_TRUE(told(host::kMessageCommand));
    EXPECT_TRUE(told(host::kMessagePostSetParameter));
    EXPECT_FALSE(told(host::kMessageCommand)) << "the second message about one link";
    EXPECT_TRUE(told(host::kMessagePostSetParameter));
    scene().Link(kInput, NewCamera("Second"));
    EXPECT_TRUE(told(host::kMessageCommand)) << "about another link";
}

TEST_F(InputCamera, CalledCameraGetsANameThatTells) {
    host::Object *input = NewCamera("Camera");
    ASSERT_TRUE(Choose(input));
    EXPECT_EQ(input->Name(), "TC Input Cam");
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(input->Name(), "Camera");
    EXPECT_EQ(Input(), nullptr);
    EXPECT_EQ(scene().camera->GetTransform().position.y, 0) << "one step";
}

TEST_F(InputCamera, IsNoOtherObjectAndNotTheTagsOwnCamera) {
    const Shot before = scene().Camera();
    EXPECT_TRUE(Choose(scene().AddObject(host::kTypeNull, {1, 2, 3})));
    EXPECT_TRUE(Choose(scene().camera));
    EXPECT_TRUE(Choose(nullptr));
    EXPECT_TRUE(scene().Camera() == before);
}

TEST_F(InputCamera, DroppedOntoTheTagIsLinkedOnRelease) {
    host::Object *input = NewCamera("Camera");
    EXPECT_EQ(Drag({input}, true), kAccept);
    EXPECT_EQ(Input(), nullptr) << "the button is still down";
    EXPECT_EQ(Drag({input}, false), kAccept);
    EXPECT_EQ(Input(), input);
    EXPECT_EQ(input->Name(), "TC Input Cam");
    ExpectCopied();
    EXPECT_EQ(scene().document->Undo().Steps(), 1u);
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(Input(), nullptr);
}

TEST_F(InputCamera, DropsOfOtherThingsChangeNothing) {
    host::Object *input = NewCamera("Camera"), *null = scene().AddObject(host::kTypeNull, {1, 2, 3});
    EXPECT_EQ(Drag({input, NewCamera("Second")}, false), 0u);
    EXPECT_EQ(Drag({scene().camera}, false), 0u);
    EXPECT_EQ(Drag({}, false), 0u);
    EXPECT_EQ(Drag({input}, false, 1), 0u) << "files";
    EXPECT_EQ(Drag({null}, false), kAccept);
    TableDragAndDrop empty{};
    empty.type = kObjects;
    scene().tag->SendMessage(kDrop, &empty);
    scene().tag->SendMessage(kDrop, nullptr);
    EXPECT_EQ(empty.flags, 0u);
    EXPECT_EQ(Input(), nullptr);
    EXPECT_EQ(input->Name(), "Camera");
}

TEST_F(InputCamera, AndTheTagsAreLookedThroughInTurn) {
    scene().Link(kInput, scene().input);
    host::Document *document = scene().document;
    host::View *view = document->ActiveView();
    ASSERT_NE(view, nullptr);
    scene().tag->SendMessage(host::kMessageEdit, nullptr);
    EXPECT_EQ(view->SceneCamera(document), scene().input);
    EXPECT_EQ(document->ActiveObject(), scene().input);
    scene().tag->SendMessage(host::kMessageEdit, nullptr);
    EXPECT_EQ(view->SceneCamera(document), scene().camera);
    EXPECT_EQ(document->ActiveObject(), scene().camera);
    EXPECT_EQ(document->ActiveTag(), scene().tag);
    scene().tag->SendMessage(host::kMessageEdit, nullptr);
    EXPECT_EQ(view->SceneCamera(document), scene().input);
}

TEST_F(InputCamera, MissingLeavesTheViewAlone) {
    scene().tag->SendMessage(host::kMessageEdit, nullptr);
    EXPECT_EQ(scene().document->ActiveView()->SceneCamera(scene().document), nullptr);
}

}  // namespace
