#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "host/scene/transform.h"
#include "scene_fixture.h"

namespace host {
namespace {

double Number(int least, int most) { return *rc::gen::inRange(least, most + 1) / 100.0; }
Vector Place() { return {Number(-5000, 5000), Number(-5000, 5000), Number(-5000, 5000)}; }
Vector Turns() { return {Number(-600, 600), Number(-600, 600), Number(-600, 600)}; }
Vector Sizes() { return {Number(10, 400), Number(10, 400), Number(10, 400)}; }

double Distance(const Matrix &a, const Matrix &b) {
    return Length(a.off - b.off) + Length(a.v1 - b.v1) + Length(a.v2 - b.v2) + Length(a.v3 - b.v3);
}

Matrix Moved(const Vector &by) { return {by, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}; }
Matrix Scaled(const Vector &by) { return {{0, 0, 0}, {by.x, 0, 0}, {0, by.y, 0}, {0, 0, by.z}}; }

Transform AnyTransform() {
    Transform t;
    t.position = Place();
    t.rotation = Turns();
    t.scale = Sizes();
    t.frozen_position = Place();
    t.frozen_rotation = Turns();
    t.frozen_scale = Sizes();
    return t;
}

RC_GTEST_PROP(Transforms, LocalMatrixIsFrozenThenRelativeThenBothScales, ()) {
    const Transform t = AnyTransform();
    const Matrix expected = Moved(t.frozen_position) * HpbToMatrix(t.frozen_rotation) * Moved(t.position) *
                            HpbToMatrix(t.rotation) * Scaled(t.frozen_scale) * Scaled(t.scale);
    RC_ASSERT(Distance(t.Local(), expected) < 1e-9);
}

RC_GTEST_PROP(Transforms, SettingTheLocalMatrixKeepsWhatIsFrozen, ()) {
    Transform t = AnyTransform();
    const Transform frozen = t;
    Matrix wanted = HpbToMatrix(Turns()) * Scaled(Sizes());
    wanted.off = Place();
    t.SetLocal(wanted);
    RC_ASSERT(Distance(t.Local(), wanted) < 1e-9);
    RC_ASSERT(t.frozen_position == frozen.frozen_position && t.frozen_rotation == frozen.frozen_rotation);
    RC_ASSERT(t.frozen_scale == frozen.frozen_scale);
}

RC_GTEST_PROP(Transforms, AbsoluteValuesComeBackAndLeaveEachOtherAlone, ()) {
    Transform t = AnyTransform();
    const Vector place = Place(), size = Sizes(), turns = Turns();
    t.SetAbsPosition(place);
    t.SetAbsScale(size);
    t.SetAbsRotation(turns);
    RC_ASSERT(Length(t.AbsPosition() - place) < 1e-10);
    RC_ASSERT(Length(t.AbsScale() - size) < 1e-12);
    RC_ASSERT(Distance(HpbToMatrix(t.AbsRotation()), HpbToMatrix(turns)) < 1e-10);
}

TEST(Transforms, WithNothingFrozenAbsoluteAnglesAreTheStoredOnes) {
    Transform t;
    t.SetAbsRotation({0, 7, 0});
    EXPECT_EQ(t.rotation, (Vector{0, 7, 0}));
    EXPECT_EQ(t.AbsRotation(), (Vector{0, 7, 0}));
}

TEST(Transforms, MirroredAxesPutTheSignOnOneScale) {
    Transform t;
    const Matrix mirrored{{1, 2, 3}, {-2, 0, 0}, {0, 3, 0}, {0, 0, 4}};
    t.SetLocal(mirrored);
    EXPECT_LT(Distance(t.Local(), mirrored), 1e-12);
    EXPECT_LT(t.scale.x * t.scale.y * t.scale.z, 0);
}

TEST(Transforms, AFlatAxisKeepsTheRotationOfTheOthers) {
    Transform t;
    const Matrix turned = HpbToMatrix({0.3, 0.2, 0.1});
    t.SetLocal({{0, 0, 0}, turned.v1, turned.v2, {0, 0, 0}});
    EXPECT_NEAR(t.rotation.x, 0.3, 1e-12);
    EXPECT_NEAR(t.rotation.y, 0.2, 1e-12);
    EXPECT_NEAR(t.rotation.z, 0.1, 1e-12);
    EXPECT_EQ(t.scale.z, 0);
}

TEST(Transforms, AMatrixWithoutAxesLeavesTheRotation) {
    Transform t;
    t.rotation = {1, 2, 3};
    t.SetLocal({{5, 6, 7}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    EXPECT_EQ(t.rotation, (Vector{1, 2, 3}));
    EXPECT_EQ(t.position, (Vector{5, 6, 7}));
}

using ObjectTransforms = testing::SceneTest;

TEST_F(ObjectTransforms, GlobalMatrixFollowsTheParentsPresentValues) {
    Object *parent = AddCamera("parent");
    Object *child = AddCamera("child", parent);
    Transform t;
    t.position = {0, 0, 10};
    child->SetTransform(t);
    // A quarter turn of heading takes +Z to -X.
    Transform turned;
    turned.position = {100, 0, 0};
    turned.rotation = {1.57079632679489661923, 0, 0};
    parent->SetTransform(turned);
    EXPECT_LT(Length(child->GlobalMatrix().off - Vector{90, 0, 0}), 1e-12);
    turned.position = {200, 0, 0};
    parent->SetTransform(turned);
    EXPECT_LT(Length(child->GlobalMatrix().off - Vector{190, 0, 0}), 1e-12);
}

TEST_F(ObjectTransforms, SettingTheGlobalMatrixSolvesForTheParent) {
    Object *grandparent = AddCamera("grandparent");
    Object *parent = AddCamera("parent", grandparent);
    Object *child = AddCamera("child", parent);
    Transform t;
    t.position = {3, -4, 5};
    t.rotation = {0.4, -0.3, 0.2};
    t.scale = {2, 2, 2};
    t.frozen_position = {1, 1, 1};
    t.frozen_rotation = {0.1, 0.2, 0.3};
    grandparent->SetTransform(t);
    parent->SetTransform(t);
    child->SetTransform(t);
    Matrix wanted = HpbToMatrix({1, 0.5, 0.25});
    wanted.off = {10, 20, 30};
    child->SetGlobalMatrix(wanted);
    EXPECT_LT(Distance(child->GlobalMatrix(), wanted), 1e-12);
    EXPECT_LT(Distance(child->ParentMatrix(), parent->GlobalMatrix()), 1e-15);
}

}  // namespace
}  // namespace host
