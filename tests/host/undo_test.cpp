#include "host/animation/track.h"
#include "host/table/entries.h"
#include "scene_fixture.h"

namespace host {
namespace {

using testing::kSpeed;
using testing::kTarget;
using UndoSteps = testing::SceneTest;
using Types = std::vector<std::int32_t>;

TEST_F(UndoSteps, AChangeIsTakenBackAndMadeAgain) {
    Object *camera = AddCamera("camera");
    Transform before;
    before.position = {1, 2, 3};
    camera->SetTransform(before);
    UndoStack &undo = document->Undo();
    EXPECT_TRUE(undo.Start());
    EXPECT_TRUE(undo.Add(kUndoChange, camera));
    Transform after = before;
    after.position = {7, 8, 9};
    after.frozen_rotation = {1, 0, 0};
    camera->SetTransform(after);
    camera->SetName("changed");
    camera->Data().SetReal(kCameraFocalLength, 100);
    camera->SetBits(kBitActive);
    EXPECT_TRUE(undo.End());

    EXPECT_TRUE(undo.Undo());
    EXPECT_EQ(camera->GetTransform().position, before.position);
    EXPECT_EQ(camera->GetTransform().frozen_rotation, (Vector{0, 0, 0}));
    EXPECT_EQ(camera->Name(), "camera");
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 36);
    EXPECT_EQ(camera->Bits(), 0);
    EXPECT_FALSE(undo.Undo());

    EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(camera->GetTransform().position, after.position);
    EXPECT_EQ(camera->Name(), "changed");
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 100);
    EXPECT_EQ(camera->Bits(), kBitActive);
    EXPECT_FALSE(undo.Redo());
}

TEST_F(UndoSteps, ADeletedNodeComesBackToItsPlaceAndItsLinksWithIt) {
    Object *a = AddCamera("a"), *b = AddCamera("b"), *c = AddCamera("c");
    Tag *watcher = AddTag(c);
    watcher->Data().Set(kTarget, Data::LinkTo(b));
    Tag *tag = AddTag(b);
    UndoStack &undo = document->Undo();
    EXPECT_TRUE(undo.Add(kUndoDelete, b));
    b->Remove();
    EXPECT_EQ(b->GetDocument(), nullptr);
    EXPECT_EQ(tag->GetDocument(), nullptr);
    EXPECT_EQ(watcher->Data().Link(kTarget, document), nullptr);
    fake.log.clear();

    EXPECT_TRUE(undo.Undo());
    EXPECT_EQ(a->Next(), b);
    EXPECT_EQ(b->Next(), c);
    EXPECT_EQ(watcher->Data().Link(kTarget, document), b);
    EXPECT_EQ(tag->GetDocument(), document);

    EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(a->Next(), c);
    EXPECT_EQ(b->GetDocument(), nullptr);
    EXPECT_EQ(watcher->Data().Link(kTarget, document), nullptr);
    undo.Flush();
    EXPECT_EQ(fake.alive, 1) << "the buffer's nodes are destroyed with it";
}

TEST_F(UndoSteps, AFreedNodeThatAStepNeedsLivesOn) {
    Object *camera = AddCamera("camera");
    Tag *tag = AddTag(camera);
    document->Undo().Add(kUndoDelete, tag);
    ListEntries::release(tag);
    EXPECT_EQ(camera->FirstTag(), nullptr);
    EXPECT_EQ(fake.alive, 1);
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_EQ(camera->FirstTag(), tag);
    document->Undo().Flush();
    EXPECT_EQ(camera->FirstTag(), tag);
}

TEST_F(UndoSteps, ANewNodeIsTakenOutAndPutInAgain) {
    Object *a = AddCamera("a");
    Object *b = AddCamera("b", a);
    UndoStack &undo = document->Undo();
    EXPECT_TRUE(undo.Add(kUndoNew, b));
    const Data link = Data::LinkTo(b);
    EXPECT_TRUE(undo.Undo());
    EXPECT_EQ(a->FirstChild(), nullptr);
    EXPECT_EQ(link.Link(document), nullptr);
    EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(a->FirstChild(), b);
    EXPECT_EQ(link.Link(document), b);
}

TEST_F(UndoSteps, ANewStepEndsWhatCouldBeMadeAgain) {
    Object *camera = AddCamera("camera");
    AddTag(camera);
    UndoStack &undo = document->Undo();
    undo.Add(kUndoNew, camera);
    undo.Undo();
    Object *other = AddCamera("other");
    undo.Add(kUndoNew, other);
    EXPECT_FALSE(undo.Redo());
    EXPECT_EQ(fake.alive, 0) << "nobody can bring the first camera back";
}

TEST_F(UndoSteps, NestedStepsJoinAndEmptyOnesVanish) {
    Object *camera = AddCamera("camera");
    UndoStack &undo = document->Undo();
    undo.Start();
    undo.Add(kUndoChangeSmall, camera);
    undo.Start();
    undo.Add(kUndoBits, camera);
    EXPECT_TRUE(undo.End());
    EXPECT_EQ(undo.Steps(), 0u);
    EXPECT_TRUE(undo.End());
    EXPECT_EQ(undo.Steps(), 1u);
    EXPECT_EQ(undo.LastStepTypes(), (Types{kUndoChangeSmall, kUndoBits}));
    EXPECT_FALSE(undo.End());
    undo.Start();
    undo.End();
    EXPECT_EQ(undo.Steps(), 1u);
}

TEST_F(UndoSteps, TheOldestGoesForANewOneWhereThereAreMany) {
    Object *camera = AddCamera("camera");
    UndoStack &undo = document->Undo();
    const int steps = static_cast<int>(UndoStack::kMostSteps);
    for (int i = 0; i < steps + 5; ++i) {
        undo.Add(kUndoChangeSmall, camera);
        camera->SetName(std::to_string(i));
    }
    EXPECT_EQ(undo.Steps(), UndoStack::kMostSteps);
    for (int i = 0; i < steps; ++i) EXPECT_TRUE(undo.Undo());
    EXPECT_FALSE(undo.Undo());
    EXPECT_EQ(camera->Name(), "4") << "five changes cannot be taken back";
    for (int i = 0; i < steps; ++i) EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(camera->Name(), std::to_string(steps + 4));
}

TEST_F(UndoSteps, WhatAForgottenStepRemovedIsDestroyedWithIt) {
    Object *camera = AddCamera("camera");
    AddTag(camera);
    UndoStack &undo = document->Undo();
    undo.Add(kUndoDelete, camera);
    camera->Remove();
    Object *other = AddCamera("other");
    for (std::size_t i = 0; i + 1 < UndoStack::kMostSteps; ++i) undo.Add(kUndoBits, other);
    EXPECT_EQ(fake.alive, 1);
    undo.Add(kUndoBits, other);
    EXPECT_EQ(fake.alive, 0);
}

TEST_F(UndoSteps, AStepThatIsTakenBackLeavesTheOthersAsTheyWere) {
    Object *camera = AddCamera("camera");
    UndoStack &undo = document->Undo();
    for (const char *name : {"first", "second"}) {
        undo.Add(kUndoChangeSmall, camera);
        camera->SetName(name);
    }
    undo.Undo();
    undo.Start();
    undo.Add(kUndoChangeSmall, camera);
    camera->SetName("by mistake");
    undo.TakeBack();
    EXPECT_EQ(camera->Name(), "first");
    EXPECT_EQ(undo.Depth(), 0);
    EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(camera->Name(), "second");
    EXPECT_FALSE(undo.Redo());
    undo.TakeBack();
    EXPECT_EQ(camera->Name(), "second");
}

TEST_F(UndoSteps, ADroppedStepStaysDoneAndIsNoStep) {
    Object *camera = AddCamera("camera");
    UndoStack &undo = document->Undo();
    undo.Add(kUndoChangeSmall, camera);
    camera->SetName("first");
    undo.Undo();
    const std::size_t steps = undo.Steps();
    undo.Start();
    undo.Add(kUndoChangeSmall, camera);
    camera->SetName("silently");
    undo.Drop();
    EXPECT_EQ(camera->Name(), "silently");
    EXPECT_EQ(undo.Steps(), steps);
    EXPECT_EQ(undo.Depth(), 0);
    EXPECT_TRUE(undo.Redo()) << "what was taken back can still be made again";
    undo.Drop();
    EXPECT_EQ(camera->Name(), "first");
}

TEST_F(UndoSteps, WrongEntriesAreRefused) {
    const std::unique_ptr<Object> stranger = Object::Create(kTypeNull);
    UndoStack &undo = document->Undo();
    EXPECT_FALSE(undo.Add(kUndoChange, nullptr));
    EXPECT_FALSE(undo.Add(kUndoChange, stranger.get()));
    EXPECT_FALSE(undo.Add(1, AddCamera("camera")));
    EXPECT_EQ(undo.Steps(), 0u);
}

TEST_F(UndoSteps, EverythingInAStepIsTakenBackInReverse) {
    Object *camera = AddCamera("camera");
    UndoStack &undo = document->Undo();
    undo.Start();
    for (int value = 1; value <= 3; ++value) {
        undo.Add(kUndoChangeSmall, camera);
        camera->Data().SetReal(kCameraFocalLength, value);
    }
    undo.End();
    undo.Undo();
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 36);
    undo.Redo();
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 3);
}

TEST_F(UndoSteps, TracksComeBackWithTheirKeys) {
    Object *camera = AddCamera("camera");
    Track *focal = Track::Create(camera, MakeId(kCameraFocalLength)).release();
    focal->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(20);
    camera->InsertTrack(focal);
    UndoStack &undo = document->Undo();
    undo.Start();
    undo.Add(kUndoChange, camera);
    focal->GetCurve()->Flush();
    focal->GetCurve()->AddKey(MakeTime(1, 1))->SetValue(80);
    Track *x = Track::Create(camera, MakeId(kParamRelPosition, kVectorX)).release();
    camera->InsertTrack(x);
    undo.End();

    undo.Undo();
    ASSERT_EQ(camera->Tracks().size(), 1u);
    EXPECT_EQ(camera->Tracks()[0], focal) << "the track is still the same one";
    ASSERT_EQ(focal->GetCurve()->KeyCount(), 1);
    EXPECT_EQ(focal->GetCurve()->KeyAt(0)->GetValue(), 20);
    EXPECT_EQ(focal->GetCurve()->KeyAt(0)->GetCurve(), focal->GetCurve());

    undo.Redo();
    ASSERT_EQ(camera->Tracks().size(), 2u);
    EXPECT_EQ(camera->FindTrack(MakeId(kCameraFocalLength))->ValueAt(MakeTime(0, 1)), 80);
}

TEST_F(UndoSteps, ATracksDeletionIsTakenBack) {
    Object *camera = AddCamera("camera");
    Track *focal = Track::Create(camera, MakeId(kCameraFocalLength)).release();
    focal->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(20);
    camera->InsertTrack(focal);
    document->Undo().Add(kUndoDelete, focal);
    ListEntries::release(focal);
    EXPECT_TRUE(camera->Tracks().empty());
    document->Undo().Undo();
    ASSERT_EQ(camera->Tracks().size(), 1u);
    EXPECT_EQ(camera->Tracks()[0]->ValueAt(MakeTime(0, 1)), 20);
}

TEST_F(UndoSteps, ATracksChangeIsTakenBackFromAnyOfItsKeys) {
    Object *camera = AddCamera("camera");
    Track *focal = Track::Create(camera, MakeId(kCameraFocalLength)).release();
    Key *key = focal->GetCurve()->AddKey(MakeTime(0, 1));
    key->SetValue(20);
    camera->InsertTrack(focal);
    document->Undo().Add(kUndoChange, key);
    key->SetValue(99);
    focal->after = kLoopRepeat;
    document->Undo().Undo();
    EXPECT_EQ(focal->ValueAt(MakeTime(0, 1)), 20);
    EXPECT_EQ(focal->after, kLoopConstant);
    document->Undo().Redo();
    EXPECT_EQ(focal->ValueAt(MakeTime(0, 1)), 99);
}

TEST_F(UndoSteps, AChangeRemembersTagsAndChildren) {
    Object *camera = AddCamera("camera");
    Tag *kept = AddTag(camera, "kept");
    Tag *freed = AddTag(camera, "freed");
    Object *child = AddCamera("child", camera);
    UndoStack &undo = document->Undo();
    undo.Start();
    undo.Add(kUndoChange, camera);
    kept->Data().SetReal(kSpeed, 5);
    Node::Discard(freed);
    AddTag(camera, "added");
    child->SetName("renamed");
    AddCamera("grandchild", child);
    undo.End();

    undo.Undo();
    EXPECT_EQ(camera->FirstTag(), kept);
    EXPECT_EQ(kept->Next(), freed);
    EXPECT_EQ(freed->Next(), nullptr);
    EXPECT_FALSE(kept->Data().Has(kSpeed));
    EXPECT_EQ(child->Name(), "child");
    EXPECT_EQ(child->FirstChild(), nullptr);

    undo.Redo();
    EXPECT_EQ(kept->Next()->Name(), "added");
    EXPECT_EQ(kept->Data().Real(kSpeed), 5);
    ASSERT_NE(child->FirstChild(), nullptr);
    EXPECT_EQ(child->FirstChild()->Name(), "grandchild");
}

TEST_F(UndoSteps, AMoveInTheHierarchyIsTakenBack) {
    Object *a = AddCamera("a"), *b = AddCamera("b"), *c = AddCamera("c");
    document->Undo().Add(kUndoHierarchy, b);
    b->InsertUnder(c);
    Transform t;
    t.position = {1, 1, 1};
    b->SetTransform(t);
    document->Undo().Undo();
    EXPECT_EQ(a->Next(), b);
    EXPECT_EQ(b->Next(), c);
    EXPECT_EQ(b->GetTransform().position, (Vector{0, 0, 0}));
    document->Undo().Redo();
    EXPECT_EQ(b->Parent(), c);
    EXPECT_EQ(b->GetTransform().position, (Vector{1, 1, 1}));
}

TEST_F(UndoSteps, SelectionInsideAStepBelongsToIt) {
    Object *a = AddCamera("a"), *b = AddCamera("b");
    document->SetActiveObject(a);
    EXPECT_EQ(document->Undo().Steps(), 0u) << "outside of a step nothing is recorded";
    document->Undo().Start();
    document->SetActiveObject(b);
    document->Undo().End();
    EXPECT_EQ(document->Undo().LastStepTypes(), (Types{kUndoDeactivate, kUndoActivate}));
    document->Undo().Undo();
    EXPECT_EQ(document->ActiveObjects(), (std::vector<Object *>{a}));
}

TEST_F(UndoSteps, TheDocumentsSettingsAreRestoredInPlace) {
    const Container *settings = &document->Settings();
    document->Undo().Add(kUndoChange, document);
    document->SetFps(25);
    document->Undo().Undo();
    EXPECT_EQ(document->Fps(), 30);
    EXPECT_EQ(&document->Settings(), settings);
    document->Undo().Redo();
    EXPECT_EQ(document->Fps(), 25);
}

TEST_F(UndoSteps, EveryNodeIsToldWhichWayItWent) {
    Object *camera = AddCamera("camera");
    AddTag(camera);
    std::vector<std::int32_t> seen;
    fake.on_message = [&](Node *node, std::int32_t type, void *data) {
        if (type != kMessageDocumentInfo) return;
        const auto *info = static_cast<TableDocumentInfo *>(data);
        EXPECT_EQ(info->document, document);
        seen.push_back(info->type);
        EXPECT_FALSE(document->Undo().Add(kUndoChange, node)) << "an answer to an undo is no new step";
    };
    document->Undo().Add(kUndoChangeSmall, camera);
    document->Undo().Undo();
    document->Undo().Redo();
    EXPECT_EQ(seen, (std::vector<std::int32_t>{1013, 1014}));
}

TEST_F(UndoSteps, AnOpenStepIsEndedByAnUndo) {
    Object *camera = AddCamera("camera");
    document->Undo().Start();
    document->Undo().Add(kUndoChangeSmall, camera);
    camera->SetName("changed");
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_EQ(camera->Name(), "camera");
    EXPECT_EQ(document->Undo().Depth(), 0);
}

TEST_F(UndoSteps, ANodeThatWasDestroyedForGoodIsPassedOver) {
    Object *camera = AddCamera("camera");
    document->Undo().Add(kUndoChangeSmall, camera);
    document->Undo().Add(kUndoHierarchy, camera);
    delete camera;
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_TRUE(document->Undo().Undo());
    EXPECT_TRUE(document->Undo().Redo());
    EXPECT_EQ(document->FirstObject(), nullptr);
}

}  // namespace
}  // namespace host
