#include <cmath>

#include "host/scene/parameters.h"
#include "scene_fixture.h"

namespace host {
namespace {

using testing::RealParameter;
using Parameters = testing::SceneTest;

TEST_F(Parameters, ACameraHasItsLens) {
    const Object *camera = AddCamera("camera");
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraFocalLength)), 36);
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraAperture)), 36);
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraFocusDistance)), 2000);
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraZoom)), 1);
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraProjection)), 0);
    Data link;
    EXPECT_TRUE(camera->GetParameter(MakeId(kCameraFocusObject), &link));
    EXPECT_EQ(link.type, kDataLink);
    EXPECT_EQ(link.Link(document), nullptr);
}

TEST_F(Parameters, FieldOfViewFollowsFocalLengthAndSensor) {
    Object *camera = AddCamera("camera");
    // 2 atan(1/2) = 53.13 degrees.
    EXPECT_NEAR(RealParameter(camera, MakeId(kCameraFov)) * 180 / 3.14159265358979, 53.13, 0.005);
    // A right angle: 2 atan(36 / (2 f)) = pi/2 for f = 18.
    EXPECT_TRUE(camera->SetParameter(MakeId(kCameraFov), Data(std::acos(0.0))));
    EXPECT_NEAR(RealParameter(camera, MakeId(kCameraFocalLength)), 18, 1e-12);
    EXPECT_FALSE(camera->SetParameter(MakeId(kCameraFov), Data(0.0)));
    EXPECT_FALSE(camera->SetParameter(MakeId(kCameraFov), Data(NAN)));
    EXPECT_FALSE(camera->Data().Has(kCameraFov));
}

TEST_F(Parameters, ComponentsReachIntoTheTransform) {
    Object *camera = AddCamera("camera");
    EXPECT_TRUE(camera->SetParameter(MakeId(kParamRelPosition, kVectorY), Data(12.5)));
    EXPECT_TRUE(camera->SetParameter(MakeId(kParamRelRotation, kVectorX), Data(7)));
    EXPECT_EQ(camera->GetTransform().position, (Vector{0, 12.5, 0}));
    EXPECT_EQ(camera->GetTransform().rotation, (Vector{7, 0, 0}));
    EXPECT_EQ(RealParameter(camera, MakeId(kParamRelPosition, kVectorY)), 12.5);
    Data data;
    EXPECT_FALSE(camera->GetParameter(MakeId(kParamRelPosition, 1003), &data));
    EXPECT_FALSE(camera->SetParameter(MakeId(kParamRelPosition, 1003), Data(1.0)));
    EXPECT_FALSE(camera->SetParameter(MakeId(kParamRelPosition), Data("here")));
    EXPECT_FALSE(camera->Data().Has(kParamRelPosition));
}

TEST_F(Parameters, GlobalAndAbsoluteVectorsAreComputed) {
    Object *parent = AddCamera("parent");
    Object *child = AddCamera("child", parent);
    parent->SetParameter(MakeId(kParamRelPosition), Data(Vector{10, 0, 0}));
    child->SetParameter(MakeId(kParamFrozenPosition), Data(Vector{0, 5, 0}));
    child->SetParameter(MakeId(kParamRelPosition), Data(Vector{0, 0, 1}));
    Data data;
    EXPECT_TRUE(child->GetParameter(MakeId(kParamGlobalPosition), &data));
    EXPECT_EQ(data.GetVector(), (Vector{10, 5, 1}));
    EXPECT_TRUE(child->GetParameter(MakeId(kParamAbsPosition), &data));
    EXPECT_EQ(data.GetVector(), (Vector{0, 5, 1}));
    EXPECT_TRUE(child->SetParameter(MakeId(kParamGlobalPosition, kVectorX), Data(0.0)));
    EXPECT_EQ(child->GetTransform().position, (Vector{-10, 0, 1}));
    EXPECT_TRUE(child->SetParameter(MakeId(kParamGlobalRotation), Data(Vector{1, 0.5, 0.25})));
    EXPECT_NEAR(child->GetTransform().rotation.x, 1, 1e-12);
    EXPECT_TRUE(child->SetParameter(MakeId(kParamAbsScale), Data(Vector{2, 3, 4})));
    EXPECT_EQ(child->GetTransform().scale, (Vector{2, 3, 4}));
}

TEST_F(Parameters, TheRotationOrderTakesOnlyKnownOnes) {
    Object *camera = AddCamera("camera");
    EXPECT_EQ(RealParameter(camera, MakeId(kParamRotationOrder)), 6);
    EXPECT_TRUE(camera->SetParameter(MakeId(kParamRotationOrder), Data(2)));
    EXPECT_FALSE(camera->SetParameter(MakeId(kParamRotationOrder), Data(7)));
    EXPECT_EQ(camera->GetTransform().order, 2);
}

TEST_F(Parameters, TheNameIsAParameter) {
    Object *camera = AddCamera("camera");
    EXPECT_TRUE(camera->SetParameter(MakeId(kParamName), Data("B camera")));
    EXPECT_EQ(camera->Name(), "B camera");
    EXPECT_FALSE(camera->SetParameter(MakeId(kParamName), Data(5)));
}

TEST_F(Parameters, TheDocumentsSettingsAreItsParameters) {
    EXPECT_TRUE(document->SetParameter(MakeId(kDocumentFps), Data(25)));
    EXPECT_EQ(document->Fps(), 25);
    EXPECT_EQ(document->Settings().Whole(kDocumentFps), 25);
    EXPECT_FALSE(document->SetParameter(MakeId(kDocumentFps), Data(0)));
    EXPECT_TRUE(document->SetParameter(MakeId(kDocumentTime), Data(MakeTime(1, 25))));
    EXPECT_TRUE(SameTime(document->GetTime(), MakeTime(1, 25)));
}

TEST_F(Parameters, AWriteFromCodeIsKeptAsItIsAndAnnounced) {
    Tag *tag = AddTag(AddCamera("camera"));
    std::int32_t announced = 0;
    fake.on_message = [&](Node *, std::int32_t type, void *data) {
        if (type == kMessagePostSetParameter) {
            announced = static_cast<TableDescriptionPostSetValue *>(data)->id->level[0].id;
        }
    };
    const std::uint32_t dirty = tag->Dirty(kDirtyData);
    EXPECT_TRUE(tag->SetParameter(MakeId(testing::kSpeed), Data(500)));
    EXPECT_EQ(tag->Data().Find(testing::kSpeed)->type, kDataWhole);
    EXPECT_EQ(tag->Data().Whole(testing::kSpeed), 500);
    EXPECT_EQ(announced, testing::kSpeed);
    EXPECT_GT(tag->Dirty(kDirtyData), dirty);
}

TEST_F(Parameters, AUsersWriteIsHeldToTypeAndLimits) {
    Tag *tag = AddTag(AddCamera("camera"));
    EXPECT_TRUE(tag->SetParameter(MakeId(testing::kSpeed), Data(500), kSetUserInteraction));
    EXPECT_EQ(tag->Data().Find(testing::kSpeed)->type, kDataReal);
    EXPECT_EQ(tag->Data().Real(testing::kSpeed), 10);
    EXPECT_TRUE(tag->SetParameter(MakeId(testing::kCount), Data(-3.7), kSetUserInteraction));
    EXPECT_EQ(tag->Data().Find(testing::kCount)->type, kDataWhole);
    EXPECT_EQ(tag->Data().Whole(testing::kCount), 0);
    EXPECT_TRUE(tag->SetParameter(MakeId(testing::kSpeed), Data(500.0), kSetUserInteraction | kSetDontCheckLimits));
    EXPECT_EQ(tag->Data().Real(testing::kSpeed), 500);
    EXPECT_FALSE(tag->SetParameter(MakeId(testing::kButton), Data(1), kSetUserInteraction));
}

TEST_F(Parameters, ThePlugInIsAskedFirst) {
    Tag *tag = AddTag(AddCamera("camera"));
    double held = 3;
    fake.on_get_parameter = [&](const TableDescID &id, Data *out) {
        if (id.level[0].id != testing::kSpeed) return false;
        *out = Data(held);
        return true;
    };
    fake.on_set_parameter = [&](const TableDescID &id, const Data &data) {
        if (id.level[0].id != testing::kSpeed) return false;
        held = data.Real();
        return true;
    };
    EXPECT_EQ(RealParameter(tag, MakeId(testing::kSpeed)), 3);
    EXPECT_TRUE(tag->SetParameter(MakeId(testing::kSpeed), Data(4.5)));
    EXPECT_EQ(held, 4.5);
    EXPECT_FALSE(tag->Data().Has(testing::kSpeed));
    EXPECT_EQ(fake.log.back(), "message 19");
}

TEST_F(Parameters, WhatIsDescribedButNotStoredHasItsDefault) {
    const Tag *tag = AddTag(AddCamera("camera"));
    Data data;
    EXPECT_TRUE(tag->GetParameter(MakeId(testing::kLabel), &data));
    EXPECT_EQ(data.type, kDataString);
    EXPECT_TRUE(tag->GetParameter(MakeId(testing::kSpeed), &data));
    EXPECT_EQ(data.type, kDataReal);
    EXPECT_EQ(data.Real(), 0);
    EXPECT_FALSE(tag->GetParameter(MakeId(testing::kButton), &data));
    EXPECT_FALSE(tag->GetParameter(MakeId(77), &data));
    EXPECT_EQ(data.type, kDataNil);
    EXPECT_FALSE(tag->GetParameter(TableDescID{}, &data));
}

TEST_F(Parameters, AnimationIsNeitherLimitedNorAnnounced) {
    Tag *tag = AddTag(AddCamera("camera"));
    fake.log.clear();
    EXPECT_TRUE(tag->WriteAnimated(MakeId(testing::kSpeed), 500.0));
    EXPECT_EQ(tag->Data().Real(testing::kSpeed), 500);
    EXPECT_TRUE(fake.log.empty());
}

TEST_F(Parameters, AnAnimatedWholeNumberStaysOne) {
    Tag *tag = AddTag(AddCamera("camera"));
    tag->Data().Set(testing::kCount, Data(1));
    EXPECT_TRUE(tag->WriteAnimated(MakeId(testing::kCount), 2.75));
    EXPECT_EQ(tag->Data().Find(testing::kCount)->type, kDataWhole);
    EXPECT_EQ(tag->Data().Whole(testing::kCount), 2);
}

}  // namespace
}  // namespace host
