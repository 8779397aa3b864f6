#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "host/animation/track.h"
#include "host/table/entries.h"
#include "scene_fixture.h"

namespace host {
namespace {

using Tree = testing::SceneTest;
using Names = std::vector<std::string>;

Names NamesOf(const Document *document) {
    Names names;
    for (const Object *object : document->AllObjects()) names.push_back(object->Name());
    return names;
}

TEST_F(Tree, InsertingWithoutAPlacePutsTheObjectFirst) {
    AddCamera("a");
    Object *object = Object::Create(kTypeNull).release();
    document->InsertObject(object);
    EXPECT_EQ(NamesOf(document), (Names{"Null", "a"}));
}

TEST_F(Tree, APredecessorWinsOverAParent) {
    Object *a = AddCamera("a");
    Object *b = AddCamera("b");
    Object *object = Object::Create(kTypeNull).release();
    document->InsertObject(object, b, a);
    EXPECT_EQ(object->Parent(), nullptr);
    EXPECT_EQ(NamesOf(document), (Names{"a", "Null", "b"}));
    document->InsertObject(object, b);
    EXPECT_EQ(object->Parent(), b);
    EXPECT_EQ(b->FirstChild(), object);
}

TEST_F(Tree, HierarchyOrderIsParentsBeforeChildren) {
    Object *a = AddCamera("a");
    Object *b = AddCamera("b", a);
    AddCamera("c", b);
    AddCamera("d", a);
    AddCamera("e");
    EXPECT_EQ(NamesOf(document), (Names{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(document->FindObject("d")->Parent(), a);
    EXPECT_EQ(document->FindObject("x"), nullptr);
}

TEST_F(Tree, NothingGoesIntoItself) {
    Object *a = AddCamera("a");
    Object *b = AddCamera("b", a);
    a->InsertUnder(a);
    a->InsertUnder(b);
    a->InsertUnderLast(b);
    a->InsertAfter(b);
    a->InsertUnder(nullptr);
    document->InsertObject(a, b);
    document->InsertObject(a, nullptr, b);
    document->InsertObject(nullptr);
    EXPECT_EQ(NamesOf(document), (Names{"a", "b"}));
    EXPECT_EQ(b->Parent(), a);
}

TEST_F(Tree, KindsDoNotMix) {
    Object *a = AddCamera("a");
    Tag *tag = AddTag(a);
    Object *b = AddCamera("b");
    b->InsertAfter(tag);
    b->InsertUnder(tag);
    static_cast<Node *>(tag)->InsertUnder(b);
    static_cast<Node *>(tag)->InsertAfter(b);
    EXPECT_EQ(NamesOf(document), (Names{"a", "b"}));
    EXPECT_EQ(tag->GetObject(), a);
    EXPECT_EQ(b->FirstChild(), nullptr);
}

TEST_F(Tree, AFreeNodeHasNoSiblings) {
    const std::unique_ptr<Object> a = Object::Create(kTypeNull), b = Object::Create(kTypeNull);
    b->InsertAfter(a.get());
    EXPECT_EQ(a->Next(), nullptr);
}

TEST_F(Tree, ARemovedNodeIsFreeWithEverythingBelowIt) {
    Object *a = AddCamera("a");
    Object *b = AddCamera("b", a);
    AddCamera("c");
    a->Remove();
    EXPECT_EQ(NamesOf(document), (Names{"c"}));
    EXPECT_EQ(b->GetDocument(), nullptr);
    EXPECT_EQ(b->Parent(), a);
    Node::Discard(a);
}

TEST_F(Tree, LinksResolveOnlyInsideTheDocument) {
    Object *a = AddCamera("a");
    const Data link = Data::LinkTo(a);
    const Document other;
    EXPECT_EQ(link.Link(document), a);
    EXPECT_EQ(link.Link(&other), nullptr);
    EXPECT_EQ(link.Link(nullptr), nullptr);
    EXPECT_EQ(link.Link(document, kTypeNull), nullptr);
    a->Remove();
    EXPECT_EQ(link.Link(document), nullptr);
    document->InsertObject(a);
    EXPECT_EQ(link.Link(document), a);
    Node::Discard(a);
    EXPECT_EQ(link.Link(document), nullptr);
}

TEST_F(Tree, UniqueNamesCountUp) {
    AddCamera("Camera");
    for (int i = 0; i < 2; ++i) document->InsertObject(Object::Create(kTypeCamera).release(), nullptr, nullptr, true);
    EXPECT_EQ(NamesOf(document), (Names{"Camera.2", "Camera.1", "Camera"}));
}

TEST_F(Tree, SelectionReplacesAddsAndSubtracts) {
    Object *a = AddCamera("a"), *b = AddCamera("b");
    EXPECT_EQ(document->ActiveObject(), nullptr);
    document->SetActiveObject(a);
    document->SetActiveObject(b, Document::kSelectAdd);
    EXPECT_EQ(document->ActiveObjects(), (std::vector<Object *>{a, b}));
    EXPECT_EQ(document->ActiveObject(), b);
    document->SetActiveObject(b, Document::kSelectSubtract);
    EXPECT_EQ(document->ActiveObject(), a);
    document->SetActiveObject(b);
    EXPECT_EQ(document->ActiveObjects(), (std::vector<Object *>{b}));
    document->SetActiveObject(nullptr);
    EXPECT_EQ(document->ActiveObject(), nullptr);
    const std::unique_ptr<Object> stranger = Object::Create(kTypeNull);
    document->SetActiveObject(stranger.get());
    EXPECT_EQ(document->ActiveObject(), nullptr);
}

TEST_F(Tree, ASelectedTagSelectsItsObject) {
    Object *a = AddCamera("a"), *b = AddCamera("b");
    Tag *tag = AddTag(b);
    document->SetActiveObject(a);
    document->SetActiveTag(tag);
    EXPECT_EQ(document->ActiveTag(), tag);
    EXPECT_EQ(document->ActiveObject(), b);
}

TEST_F(Tree, DeepChainsAreDestroyedWithoutNesting) {
    Object *parent = AddCamera("top");
    for (int i = 0; i < 50000; ++i) {
        Object *child = Object::Create(kTypeNull).release();
        child->InsertUnder(parent);
        parent = child;
    }
    EXPECT_EQ(document->AllObjects().size(), 50001u);
    Node::Discard(document->FirstObject());
    EXPECT_EQ(document->FirstObject(), nullptr);
}

TEST_F(Tree, BroadcastsReachEveryTagOnce) {
    Object *a = AddCamera("a");
    AddTag(a);
    AddTag(AddCamera("b", a));
    fake.log.clear();
    EXPECT_TRUE(Broadcast(document, kMessageEdit, nullptr));
    EXPECT_EQ(fake.log, (Names{"message 21", "message 21"}));
}

TEST(Documents, StartWithThirtyFramesAndNinetyOfThem) {
    Document document;
    EXPECT_EQ(document.Fps(), 30);
    EXPECT_TRUE(SameTime(document.GetTime(), MakeTime(0, 1)));
    EXPECT_TRUE(SameTime(document.Settings().GetTime(kDocumentMinTime), MakeTime(0, 30)));
    EXPECT_TRUE(SameTime(document.Settings().GetTime(kDocumentMaxTime), MakeTime(90, 30)));
    EXPECT_TRUE(SameTime(document.Settings().GetTime(kDocumentLoopMaxTime), MakeTime(3, 1)));
}

TEST(Documents, TakeOnlyUsableFrameRates) {
    Document document;
    for (const std::int32_t fps : {0, -1, 2501}) document.SetFps(fps);
    EXPECT_EQ(document.Fps(), 30);
    document.SetFps(2500);
    EXPECT_EQ(document.Fps(), 2500);
    document.Settings().Set(kDocumentFps, Data(0));
    EXPECT_EQ(document.Fps(), 30) << "a container may hold anything";
}

TEST(Documents, FramesAreExactFractions) {
    Document document;
    document.SetFps(24);
    document.SetFrame(7);
    EXPECT_TRUE(SameTime(document.GetTime(), MakeTime(7, 24)));
    document.SetRange(100, -5);
    EXPECT_TRUE(SameTime(document.Settings().GetTime(kDocumentMinTime), MakeTime(-5, 24)));
    EXPECT_TRUE(SameTime(document.Settings().GetTime(kDocumentLoopMaxTime), MakeTime(100, 24)));
}

TEST(Documents, LookThroughTheEditorCameraUntilOneIsSet) {
    Document document;
    View *view = document.ActiveView();
    ASSERT_NE(view, nullptr);
    EXPECT_NE(view->EditorCamera(), nullptr);
    EXPECT_EQ(view->EditorCamera()->GetDocument(), nullptr);
    EXPECT_EQ(view->SceneCamera(&document), nullptr);
    Object *camera = Object::Create(kTypeCamera).release();
    document.InsertObject(camera);
    view->SetSceneCamera(camera);
    EXPECT_EQ(view->SceneCamera(&document), camera);
    camera->Remove();
    EXPECT_EQ(view->SceneCamera(&document), nullptr);
    Node::Discard(camera);
}

TEST(NodeTables, AnswerNothingForNullHandles) {
    EXPECT_EQ(AtomEntries::type(nullptr), 0);
    EXPECT_EQ(AtomEntries::message(nullptr, 7, nullptr), 0);
    EXPECT_EQ(AtomEntries::get_parameter(nullptr, nullptr, nullptr, 0), 0);
    EXPECT_EQ(AtomEntries::array_at(nullptr, 0), nullptr);
    EXPECT_EQ(ListEntries::next(nullptr), nullptr);
    EXPECT_EQ(ListEntries::data(nullptr), nullptr);
    EXPECT_EQ(ListEntries::first_track(nullptr), nullptr);
    ListEntries::release(nullptr);
    TableMatrix matrix{};
    ObjectEntries::global_matrix(nullptr, &matrix);
    EXPECT_EQ(matrix, kIdentity);
    ObjectEntries::insert_tag(nullptr, nullptr, nullptr);
    EXPECT_EQ(ObjectEntries::create(1), nullptr);
    EXPECT_EQ(DocumentEntries::fps(nullptr), 0);
    EXPECT_EQ(DocumentEntries::execute_passes(nullptr, nullptr, 1, 1, 1, 0), 0);
    EXPECT_EQ(DocumentEntries::active_view(nullptr), nullptr);
    EXPECT_EQ(DocumentEntries::view_scene_camera(nullptr, nullptr), nullptr);
    EXPECT_EQ(AnimationEntries::create_track(nullptr, nullptr), nullptr);
    EXPECT_EQ(AnimationEntries::key_at(nullptr, 0), nullptr);
}

TEST_F(Tree, TheTableTellsHandlesOfOneKindFromAnother) {
    Object *camera = AddCamera("camera");
    Tag *tag = AddTag(camera);
    TableVector v{1, 1, 1};
    ObjectEntries::get_vector(tag, TABLE_REL_POSITION, &v);
    EXPECT_EQ(v, (Vector{0, 0, 0}));
    ObjectEntries::insert_tag(camera, camera, nullptr);
    EXPECT_EQ(camera->FirstTag(), tag);
    EXPECT_EQ(DocumentEntries::fps(camera), 0);
    EXPECT_EQ(AnimationEntries::key_count(camera), 0);
    EXPECT_EQ(ListEntries::data(document), &document->Settings());
}

TEST_F(Tree, ACurveIsNotFreedAwayFromItsTrack) {
    Object *camera = AddCamera("camera");
    const TableDescID id = MakeId(kCameraFocalLength);
    HostAtom *track = AnimationEntries::create_track(camera, &id);
    ListEntries::insert_track(camera, track);
    HostAtom *curve = AnimationEntries::track_curve(track, 1, 1);
    ListEntries::release(curve);
    EXPECT_EQ(AnimationEntries::track_curve(track, 1, 1), curve);
    const TableTime time{1, 30};
    EXPECT_NE(AnimationEntries::add_key(curve, &time, nullptr), nullptr);
}

// Random moves keep the tree whole: everything is found once, and up, down, next and previous agree.
RC_GTEST_PROP(Trees, StayWholeUnderRandomMoves, ()) {
    Document document;
    std::vector<Object *> objects;
    for (int i = 0; i < 8; ++i) {
        objects.push_back(Object::Create(kTypeNull).release());
        document.InsertObject(objects.back());
    }
    const int moves = *rc::gen::inRange(1, 60);
    for (int i = 0; i < moves; ++i) {
        Object *a = objects[*rc::gen::inRange<std::size_t>(0, 8)], *b = objects[*rc::gen::inRange<std::size_t>(0, 8)];
        switch (*rc::gen::inRange(0, 5)) {
            case 0:
                a->InsertAfter(b);
                break;
            case 1:
                a->InsertUnder(b);
                break;
            case 2:
                a->InsertUnderLast(b);
                break;
            case 3:
                document.InsertObject(a, b);
                break;
            default:
                document.InsertObject(a);
                break;
        }
    }
    std::vector<Object *> found = document.AllObjects();
    for (const Object *object : found) {
        if (object->Next() != nullptr) RC_ASSERT(object->Next()->Previous() == object);
        if (object->Down() != nullptr) RC_ASSERT(object->Down()->Up() == object && object->DownLast()->Up() == object);
        RC_ASSERT(object->GetDocument() == &document);
    }
    std::sort(found.begin(), found.end());
    std::sort(objects.begin(), objects.end());
    RC_ASSERT(found == objects);
}

}  // namespace
}  // namespace host
