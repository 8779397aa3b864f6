#include "host/ui/attribute_manager.h"
#include "scene_fixture.h"

namespace host {
namespace {

using testing::kButton;
using testing::kSpeed;
using testing::kTarget;
using Log = std::vector<std::string>;
using Tags = testing::SceneTest;

TEST_F(Tags, ATagIsMadeInOrder) {
    fake.on_init = [](Node *node) {
        // The container has the type's id and nothing in it; the tag stands nowhere yet.
        EXPECT_EQ(node->Data().id, testing::kFakeTag);
        EXPECT_EQ(node->Data().Count(), 0);
        EXPECT_EQ(node->GetDocument(), nullptr);
    };
    const std::unique_ptr<Tag> tag = Tag::Create(testing::kFakeTag);
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(fake.log, (Log{"allocate", "attach", "init"}));
    EXPECT_EQ(tag->Name(), "Fake");
    EXPECT_TRUE(tag->IsInstanceOf(kTypeTag));
    EXPECT_FALSE(tag->IsInstanceOf(kTypeObject));
}

TEST_F(Tags, ThePriorityCanBeChangedInsideInit) {
    fake.on_init = [](Node *node) {
        Data priority;
        ASSERT_TRUE(node->GetParameter(MakeId(kParamPriority), &priority));
        ASSERT_EQ(priority.type, kDataPriority);
        static_cast<Priority *>(priority.value.custom)->Set(Priority::kPriority, Data(200));
        EXPECT_TRUE(node->SetParameter(MakeId(kParamPriority), priority));
    };
    const std::unique_ptr<Tag> tag = Tag::Create(testing::kFakeTag);
    // Expressions run at 3000.
    EXPECT_EQ(tag->ExecutionPriority(), 3200);
}

TEST_F(Tags, ATagIsEnabledAtPriorityThreeThousandFromTheBeginning) {
    const std::unique_ptr<Tag> tag = Tag::Create(testing::kFakeTag);
    EXPECT_TRUE(tag->Enabled());
    EXPECT_EQ(tag->ExecutionPriority(), 3000);
    EXPECT_EQ(testing::RealParameter(tag.get(), MakeId(kParamEnabled)), 1);
}

TEST_F(Tags, ARefusedInitLeavesNothing) {
    fake.init_answer = false;
    EXPECT_EQ(Tag::Create(testing::kFakeTag), nullptr);
    EXPECT_EQ(AddCamera("camera")->MakeTag(testing::kFakeTag), nullptr);
    EXPECT_EQ(fake.alive, 0);
}

TEST_F(Tags, AnUnknownTypeGivesNoTag) { EXPECT_EQ(Tag::Create(1), nullptr); }

TEST_F(Tags, DestructionTellsThePlugInBeforeItGoes) {
    std::unique_ptr<Tag> tag = Tag::Create(testing::kFakeTag);
    fake.log.clear();
    tag.reset();
    EXPECT_EQ(fake.log, (Log{"free", "destroy"}));
}

TEST_F(Tags, StandOnTheirObjectInTheGivenOrder) {
    Object *camera = AddCamera("camera");
    Tag *second = camera->MakeTag(testing::kFakeTag);
    Tag *first = camera->MakeTag(testing::kFakeTag);
    Tag *third = camera->MakeTag(testing::kFakeTag, second);
    EXPECT_EQ(camera->FirstTag(), first);
    EXPECT_EQ(first->Next(), second);
    EXPECT_EQ(second->Next(), third);
    EXPECT_EQ(camera->FindTag(testing::kFakeTag, 2), third);
    EXPECT_EQ(camera->FindTag(testing::kFakeTag, 3), nullptr);
    EXPECT_EQ(third->GetObject(), camera);
    EXPECT_EQ(third->GetDocument(), document);
    third->Remove();
    EXPECT_EQ(third->GetObject(), nullptr);
    EXPECT_EQ(third->GetDocument(), nullptr);
    Node::Discard(third);
}

using AttributeManager = testing::SceneTest;

TEST_F(AttributeManager, AnEditIsOneUndoStepWithItsMessagesInOrder) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.log.clear();
    bool open_before = false;
    fake.on_message = [&](Node *node, std::int32_t type, void *) {
        EXPECT_EQ(document->Undo().Depth(), 1) << type;
        if (type == kMessageInitUndo) open_before = !node->Data().Has(kSpeed);
    };
    EXPECT_TRUE(EditParameter(tag, MakeId(kSpeed), Data(3)));
    EXPECT_TRUE(open_before);
    const Log messages(fake.log.begin(), fake.log.begin() + 5);
    EXPECT_EQ(messages, (Log{"enabling 2000", "message 16", "message 19", "message 20", "message 17"}));
    EXPECT_EQ(tag->Data().Real(kSpeed), 3);
    EXPECT_EQ(document->Undo().Steps(), 1u);
    EXPECT_EQ(document->Undo().Depth(), 0);
    EXPECT_EQ(document->Undo().LastStepTypes(), (std::vector<std::int32_t>{kUndoChangeSmall}));
    fake.on_message = nullptr;
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_FALSE(tag->Data().Has(kSpeed));
}

TEST_F(AttributeManager, AChangedLinkIsAlsoSentAsACommand) {
    Object *camera = AddCamera("camera");
    Tag *tag = AddTag(camera);
    fake.log.clear();
    EXPECT_TRUE(EditParameter(tag, MakeId(kTarget), Data::LinkTo(camera)));
    const Log messages(fake.log.begin() + 1, fake.log.begin() + 6);
    EXPECT_EQ(messages, (Log{"message 16", "message 19", "message 20", "message 17", "message 18"}));
}

TEST_F(AttributeManager, TheSceneIsEvaluatedAfterAnEdit) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.log.clear();
    EXPECT_TRUE(EditParameter(tag, MakeId(kSpeed), Data(3)));
    EXPECT_EQ(fake.log.back(), "execute Fake");
}

TEST_F(AttributeManager, AButtonIsACommandInsideAnUndoStep) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.log.clear();
    fake.on_message = [&](Node *node, std::int32_t type, void *data) {
        if (type != kMessageCommand) return;
        EXPECT_EQ(static_cast<TableDescriptionCommand *>(data)->id.level[0].id, kButton);
        EXPECT_TRUE(document->Undo().Add(kUndoChange, node));
        node->Data().SetReal(kSpeed, 9);
        document->Undo().Start();  // never ended by the plug-in
    };
    EXPECT_TRUE(PressButton(tag, MakeId(kButton)));
    const Log messages(fake.log.begin(), fake.log.begin() + 3);
    EXPECT_EQ(messages, (Log{"enabling 2003", "message 16", "message 18"}));
    EXPECT_EQ(document->Undo().Depth(), 0);
    EXPECT_EQ(document->Undo().Steps(), 1u);
    fake.on_message = nullptr;
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_FALSE(tag->Data().Has(kSpeed));
}

TEST_F(AttributeManager, ADisabledControlTakesNothing) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.enabled = false;
    fake.log.clear();
    EXPECT_FALSE(EditParameter(tag, MakeId(kSpeed), Data(3)));
    EXPECT_FALSE(PressButton(tag, MakeId(kButton)));
    EXPECT_EQ(fake.log, (Log{"enabling 2000", "enabling 2003"}));
    EXPECT_EQ(document->Undo().Steps(), 0u);
    EXPECT_TRUE(tag->SetParameter(MakeId(kSpeed), Data(3.0))) << "code may always write";
}

TEST_F(AttributeManager, WhatDoesNotFitIsRefused) {
    Tag *tag = AddTag(AddCamera("camera"));
    EXPECT_FALSE(EditParameter(tag, MakeId(kSpeed), Data("fast")));
    EXPECT_FALSE(EditParameter(tag, MakeId(kButton), Data(1)));
    EXPECT_FALSE(EditParameter(tag, MakeId(4711), Data(1)));
    EXPECT_FALSE(EditParameter(nullptr, MakeId(kSpeed), Data(1)));
    EXPECT_FALSE(PressButton(tag, MakeId(kSpeed)));
    EXPECT_FALSE(PressButton(nullptr, MakeId(kButton)));
    EXPECT_EQ(document->Undo().Steps(), 0u);
}

TEST_F(AttributeManager, ATagThatDestroysItselfInAnAnswerDoesNoHarm) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.on_message = [&](Node *node, std::int32_t type, void *) {
        if (type == kMessageCommand) delete node;
    };
    EXPECT_TRUE(PressButton(tag, MakeId(kButton)));
    EXPECT_EQ(fake.alive, 0);
}

TEST_F(AttributeManager, ACamerasPositionIsEditedByComponent) {
    Object *camera = AddCamera("camera");
    EXPECT_TRUE(EditParameter(camera, MakeId(kParamRelPosition, kVectorX), Data(5)));
    EXPECT_EQ(camera->GetTransform().position.x, 5);
    EXPECT_TRUE(EditParameter(camera, MakeId(kCameraFocalLength), Data(0.0)));
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 1) << "the shortest focal length";
}

}  // namespace
}  // namespace host
