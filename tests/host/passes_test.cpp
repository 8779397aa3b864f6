#include "host/animation/passes.h"

#include "host/animation/priority_list.h"
#include "host/animation/track.h"
#include "host/table/entries.h"
#include "scene_fixture.h"

namespace host {
namespace {

using Passes = testing::SceneTest;
using Log = std::vector<std::string>;

void SetPriority(Tag *tag, std::int32_t mode, std::int32_t priority) {
    Priority *value = new Priority;
    value->Set(Priority::kMode, Data(mode));
    value->Set(Priority::kPriority, Data(priority));
    tag->Data().Set(kParamPriority, Data::Custom(value));
}

TEST_F(Passes, EqualPrioritiesRunInTheOrderOfTheObjectManager) {
    Object *a = AddCamera("a");
    AddTag(AddCamera("c"), "4");
    AddTag(a, "1");
    AddTag(a, "2");
    AddTag(AddCamera("b", a), "3");
    fake.log.clear();
    EXPECT_TRUE(ExecutePasses(document, true, true, true));
    EXPECT_EQ(fake.log, (Log{"execute 1", "execute 2", "execute 3", "execute 4"}));
}

TEST_F(Passes, PrioritiesOrderTheTagsAndAreHandedOver) {
    Object *camera = AddCamera("a");
    Tag *late = AddTag(camera, "late"), *middle = AddTag(camera, "middle"), *early = AddTag(camera, "early");
    SetPriority(late, 4, 0);
    SetPriority(early, 0, -499);
    std::vector<std::int32_t> priorities;
    fake.on_execute = [&](Tag *, Document *, std::int32_t priority, std::int32_t) {
        priorities.push_back(priority);
        return 0;
    };
    fake.log.clear();
    ExecutePasses(document, false, true, false);
    EXPECT_EQ(fake.log, (Log{"execute early", "execute middle", "execute late"}));
    EXPECT_EQ(priorities, (std::vector<std::int32_t>{501, 3000, 5000}));
    EXPECT_EQ(middle->ExecutionPriority(), 3000);
}

TEST_F(Passes, FlagsSayWhatTheEvaluationIncludes) {
    AddTag(AddCamera("a"));
    std::int32_t seen = -1;
    fake.on_execute = [&](Tag *, Document *, std::int32_t, std::int32_t flags) {
        seen = flags;
        return 0;
    };
    ExecutePasses(document, true, true, true);
    EXPECT_EQ(seen, 2 + 4 + 8);
    ExecutePasses(document, false, true, false);
    EXPECT_EQ(seen, 4);
    seen = -1;
    ExecutePasses(document, true, false, true);
    EXPECT_EQ(seen, -1);
}

TEST_F(Passes, TracksRunAtTwoThousandBeforeExpressionsOfTheSameNumber) {
    Object *camera = AddCamera("a");
    Track *track = Track::Create(camera, MakeId(kCameraFocalLength)).release();
    track->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(50);
    camera->InsertTrack(track);
    Tag *before = AddTag(camera, "before"), *at = AddTag(camera, "at"), *after = AddTag(camera, "after");
    SetPriority(before, 0, 499);
    SetPriority(at, 1, 0);
    std::vector<double> seen;
    fake.on_execute = [&](Tag *tag, Document *, std::int32_t, std::int32_t) {
        seen.push_back(camera->Data().Real(kCameraFocalLength));
        if (tag == after) camera->Data().SetReal(kCameraFocalLength, 70);
        return 0;
    };
    EXPECT_TRUE(ExecutePasses(document, true, true, true));
    EXPECT_EQ(seen, (std::vector<double>{36, 50, 50}));
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 70) << "expressions win for the frame";
    EXPECT_TRUE(ExecutePasses(document, true, false, false));
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 50) << "and the track has it again at the next";
    camera->Data().SetReal(kCameraFocalLength, 70);
    ExecutePasses(document, false, true, true);
    EXPECT_EQ(seen[3], 70) << "no tracks without animation";
}

TEST_F(Passes, AnAnimatedTagIsToldAfterItsTracks) {
    Tag *tag = AddTag(AddCamera("a"));
    Track *track = Track::Create(tag, MakeId(testing::kSpeed)).release();
    track->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(5);
    tag->InsertTrack(track);
    fake.log.clear();
    fake.on_message = [&](Node *node, std::int32_t type, void *) {
        EXPECT_EQ(type, kMessageAnimate);
        EXPECT_EQ(node->Data().Real(testing::kSpeed), 5);
    };
    ExecutePasses(document, true, true, true);
    EXPECT_EQ(fake.log, (Log{"message 300001037", "execute Fake"}));
}

TEST_F(Passes, ADisabledTagIsLeftOutEvenWhenATrackJustDisabledIt) {
    Tag *tag = AddTag(AddCamera("a"));
    tag->Data().Set(kParamEnabled, Data(0));
    fake.log.clear();
    ExecutePasses(document, true, true, true);
    EXPECT_TRUE(fake.log.empty());
    tag->Data().Set(kParamEnabled, Data(1));
    Track *track = Track::Create(tag, MakeId(kParamEnabled)).release();
    track->GetCurve()->AddKey(MakeTime(0, 1))->SetValue(0);
    tag->InsertTrack(track);
    ExecutePasses(document, true, true, true);
    EXPECT_EQ(fake.log, (Log{"message 300001037"}));
}

TEST_F(Passes, APlugInMayNameItsOwnPriorities) {
    Tag *tag = AddTag(AddCamera("a"));
    fake.on_add_to_execution = [](Tag *own, HostPriorityList *list) {
        list->Add(own, 4100, 0);
        list->Add(own, 1100, 0);
        return true;
    };
    std::vector<std::int32_t> priorities;
    fake.on_execute = [&](Tag *, Document *, std::int32_t priority, std::int32_t) {
        priorities.push_back(priority);
        return 0;
    };
    ExecutePasses(document, true, true, true);
    EXPECT_EQ(priorities, (std::vector<std::int32_t>{1100, 4100}));
    EXPECT_EQ(tag->ExecutionPriority(), 3000);
}

TEST_F(Passes, EachCallExecutesEachExpressionOnce) {
    AddTag(AddCamera("a"));
    fake.log.clear();
    for (int i = 0; i < 3; ++i) ExecutePasses(document, true, true, true);
    EXPECT_EQ(fake.log.size(), 3u);
}

TEST_F(Passes, EvaluationInsideAnExpressionIsRefused) {
    AddTag(AddCamera("a"));
    bool inner = true;
    fake.on_execute = [&](Tag *, Document *evaluated, std::int32_t, std::int32_t) {
        inner = ExecutePasses(evaluated, true, true, true);
        return 0;
    };
    EXPECT_TRUE(ExecutePasses(document, true, true, true));
    EXPECT_FALSE(inner);
    inner = false;
    fake.on_execute = nullptr;
    EXPECT_TRUE(ExecutePasses(document, true, true, true)) << "and allowed again afterwards";
}

TEST_F(Passes, ABrokenOffExpressionEndsTheEvaluation) {
    Object *camera = AddCamera("a");
    AddTag(camera, "1");
    AddTag(camera, "2");
    fake.on_execute = [](Tag *, Document *, std::int32_t, std::int32_t) { return 1; };
    fake.log.clear();
    EXPECT_FALSE(ExecutePasses(document, true, true, true));
    EXPECT_EQ(fake.log, (Log{"execute 1"}));
}

TEST_F(Passes, ExpressionsMayDestroyWhatComesAfterThem) {
    Object *camera = AddCamera("a");
    AddTag(camera, "1");
    Tag *second = AddTag(camera, "2");
    fake.on_execute = [&](Tag *, Document *, std::int32_t, std::int32_t) {
        Node::Discard(second);
        return 0;
    };
    fake.log.clear();
    EXPECT_TRUE(ExecutePasses(document, true, true, true));
    EXPECT_EQ(fake.log, (Log{"execute 1", "free", "destroy"}));
}

TEST_F(Passes, LaterExpressionsSeeWhatEarlierOnesDid) {
    Object *camera = AddCamera("a");
    Tag *first = AddTag(camera, "1");
    AddTag(camera, "2");
    double seen = 0;
    fake.on_execute = [&](Tag *tag, Document *, std::int32_t, std::int32_t) {
        if (tag == first) {
            Transform t;
            t.position = {5, 0, 0};
            camera->SetTransform(t);
        } else {
            seen = camera->GlobalMatrix().off.x;
        }
        return 0;
    };
    ExecutePasses(document, true, true, true);
    EXPECT_EQ(seen, 5);
}

TEST(PriorityLists, KeepTheOrderOfEqualOnes) {
    HostPriorityList list;
    const std::unique_ptr<Object> nodes[] = {Object::Create(kTypeNull), Object::Create(kTypeNull),
                                             Object::Create(kTypeNull), Object::Create(kTypeNull)};
    EXPECT_TRUE(list.Add(nodes[0].get(), 3, 0));
    EXPECT_TRUE(list.Add(nodes[1].get(), 1, 0));
    EXPECT_TRUE(list.Add(nodes[2].get(), 3, 0));
    EXPECT_TRUE(list.Add(nodes[3].get(), 1, 0));
    EXPECT_FALSE(list.Add(nullptr, 0, 0));
    list.Sort();
    const Node *expected[] = {nodes[1].get(), nodes[3].get(), nodes[0].get(), nodes[2].get()};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(list.entries[i].node->node, expected[i]) << i;
}

TEST_F(Passes, NothingIsNoScene) { EXPECT_FALSE(ExecutePasses(nullptr, true, true, true)); }

}  // namespace
}  // namespace host
