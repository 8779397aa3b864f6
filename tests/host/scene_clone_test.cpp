#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "scene_fixture.h"

namespace host {
namespace {

using testing::kSpeed;
using testing::kTarget;
using Clones = testing::SceneTest;

TEST_F(Clones, ATagIsMadeAnewThenFilledThenToldByItsSource) {
    Tag *tag = AddTag(AddCamera("camera"));
    tag->Data().SetReal(kSpeed, 4);
    static_cast<testing::FakeObject *>(tag->Plugin())->member = 17;
    fake.log.clear();
    const std::unique_ptr<Tag> copy(static_cast<Tag *>(tag->Clone(0, nullptr)));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(fake.log, (std::vector<std::string>{"allocate", "attach", "init", "copy"}));
    EXPECT_EQ(copy->GetDocument(), nullptr);
    EXPECT_EQ(copy->Data().Real(kSpeed), 4);
    EXPECT_EQ(static_cast<testing::FakeObject *>(copy->Plugin())->member, 17);
    tag->Data().SetReal(kSpeed, 5);
    EXPECT_EQ(copy->Data().Real(kSpeed), 4) << "copies are deep";
}

TEST_F(Clones, ATagCopiedAloneKeepsItsLinks) {
    Object *goal = AddCamera("goal");
    Tag *tag = AddTag(AddCamera("camera"));
    tag->Data().Set(kTarget, Data::LinkTo(goal));
    Tag *copy = static_cast<Tag *>(tag->Clone(0, nullptr));
    goal->InsertTag(copy);
    EXPECT_EQ(copy->Data().Link(kTarget, document), goal);
}

TEST_F(Clones, LinksInsideACopiedGroupFollow) {
    Object *parent = AddCamera("parent");
    Object *child = AddCamera("child", parent);
    Object *outside = AddCamera("outside");
    Tag *tag = AddTag(parent);
    Container inner;
    inner.Set(1, Data::LinkTo(child));
    tag->Data().Set(kTarget, Data::LinkTo(child));  // copied before its goal
    tag->Data().Set(1, Data::LinkTo(outside));
    tag->Data().Set(2, Data(inner));
    Object *copy = static_cast<Object *>(parent->Clone(0, nullptr));
    document->InsertObject(copy);
    const Container &data = copy->FirstTag()->Data();
    EXPECT_EQ(data.Link(kTarget, document), copy->FirstChild());
    EXPECT_EQ(data.Find(2)->GetContainer()->Link(1, document), copy->FirstChild());
    EXPECT_EQ(data.Link(1, document), outside);
    EXPECT_EQ(tag->Data().Link(kTarget, document), child);
}

TEST_F(Clones, NodesCopiedInOneTranslationFindEachOther) {
    Object *a = AddCamera("a"), *b = AddCamera("b");
    AddTag(a)->Data().Set(kTarget, Data::LinkTo(b));
    HostAliasTrans translation;
    Object *copy_a = static_cast<Object *>(a->Clone(0, &translation));
    Object *copy_b = static_cast<Object *>(b->Clone(0, &translation));
    document->InsertObject(copy_a);
    document->InsertObject(copy_b);
    EXPECT_EQ(copy_a->FirstTag()->Data().Link(kTarget, document), copy_b);
}

TEST_F(Clones, AWholeDocumentIsTurnedToItself) {
    Object *goal = AddCamera("goal");
    Object *camera = AddCamera("camera");
    AddTag(camera)->Data().Set(kTarget, Data::LinkTo(goal));
    document->ActiveView()->SetSceneCamera(camera);
    document->SetFps(25);
    document->SetFrame(12);
    const std::unique_ptr<Document> copy(static_cast<Document *>(document->Clone(kCopyDocument, nullptr)));
    ASSERT_NE(copy, nullptr);
    Object *camera_copy = copy->FindObject("camera");
    ASSERT_NE(camera_copy, nullptr);
    EXPECT_NE(camera_copy, camera);
    EXPECT_EQ(camera_copy->FirstTag()->Data().Link(kTarget, copy.get()), copy->FindObject("goal"));
    EXPECT_EQ(copy->ActiveView()->SceneCamera(copy.get()), camera_copy);
    EXPECT_EQ(document->ActiveView()->SceneCamera(document), camera);
    EXPECT_EQ(copy->Fps(), 25);
    EXPECT_TRUE(SameTime(copy->GetTime(), MakeTime(12, 25)));
    // A clone is evaluated like the original, with its own nodes.
    fake.on_execute = [&](Tag *tag, Document *evaluated, std::int32_t, std::int32_t) {
        EXPECT_EQ(evaluated, copy.get());
        EXPECT_EQ(tag->GetObject(), camera_copy);
        return 0;
    };
    EXPECT_TRUE(ExecutePasses(copy.get(), true, true, true));
}

TEST_F(Clones, FlagsLeavePartsOut) {
    Object *camera = AddCamera("camera");
    AddCamera("child", camera);
    AddTag(camera);
    camera->SetBits(kBitActive);
    Track *track = Track::Create(camera, MakeId(kCameraFocalLength)).release();
    track->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(50);
    camera->InsertTrack(track);
    const auto copied = [camera](std::int32_t flags) {
        return std::unique_ptr<Object>(static_cast<Object *>(camera->Clone(flags, nullptr)));
    };
    const auto all = copied(0);
    EXPECT_NE(all->FirstChild(), nullptr);
    EXPECT_NE(all->FirstTag(), nullptr);
    ASSERT_EQ(all->Tracks().size(), 1u);
    EXPECT_EQ(all->Tracks()[0]->Main(), all.get());
    EXPECT_EQ(all->Tracks()[0]->ValueAt(MakeTime(0, 1)), 50);
    EXPECT_EQ(all->Bits(), kBitActive);
    EXPECT_EQ(copied(kCopyNoHierarchy)->FirstChild(), nullptr);
    EXPECT_NE(copied(kCopyNoHierarchy)->FirstTag(), nullptr);
    EXPECT_TRUE(copied(kCopyNoAnimation)->Tracks().empty());
    EXPECT_EQ(copied(kCopyNoBits)->Bits(), 0);
    EXPECT_EQ(copied(kCopyNoBranches)->FirstTag(), nullptr);
}

TEST_F(Clones, TransformAndFrozenValuesAreCopied) {
    Object *camera = AddCamera("camera");
    Transform t;
    t.position = {1, 2, 3};
    t.frozen_rotation = {0.1, 0.2, 0.3};
    t.order = 4;
    camera->SetTransform(t);
    const std::unique_ptr<Object> copy(static_cast<Object *>(camera->Clone(0, nullptr)));
    EXPECT_EQ(copy->GetTransform().position, t.position);
    EXPECT_EQ(copy->GetTransform().frozen_rotation, t.frozen_rotation);
    EXPECT_EQ(copy->GetTransform().order, 4);
}

TEST_F(Clones, ACopyThatThePlugInRefusesIsNone) {
    Object *camera = AddCamera("camera");
    AddTag(camera);
    fake.init_answer = false;
    EXPECT_EQ(camera->Clone(0, nullptr), nullptr);
    EXPECT_EQ(document->Clone(kCopyDocument, nullptr), nullptr);
    EXPECT_EQ(fake.alive, 1);
}

TEST_F(Clones, CopyingIntoANodeReplacesWhatItHas) {
    Object *source = AddCamera("source"), *goal = AddCamera("goal");
    AddTag(source, "new");
    AddTag(goal, "old");
    AddCamera("child", source);
    EXPECT_TRUE(source->CopyInto(goal, 0, nullptr));
    EXPECT_EQ(goal->FirstTag()->Name(), "new");
    EXPECT_EQ(goal->FirstTag()->Next(), nullptr);
    ASSERT_NE(goal->FirstChild(), nullptr);
    EXPECT_FALSE(source->CopyInto(source, 0, nullptr));
    EXPECT_FALSE(source->CopyInto(source->FirstChild(), 0, nullptr));
    EXPECT_FALSE(source->CopyInto(source->FirstTag(), 0, nullptr));
    EXPECT_FALSE(source->CopyInto(nullptr, 0, nullptr));
}

}  // namespace
}  // namespace host
