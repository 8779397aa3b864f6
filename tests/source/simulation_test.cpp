// What the motion starts from.
#include <cmath>

#include "tests/source/probe.h"

namespace {

constexpr double kFar = 12.5;  // something that a reset must take away

class Reset : public WithProbe {
  protected:
    void SetUp() override {
        WithProbe::SetUp();
        host::Transform transform;
        transform.position = {10, 20, -30};
        transform.rotation = {0.5, -0.25, 0.125};
        input_->SetTransform(transform);
        input_->Data().SetReal(host::kCameraFocalLength, 50);
        input_->Data().SetReal(host::kCameraFocusDistance, 750);
    }
    void ResetNow() { probe_->ResetSimulation(Data(), Camera(), Doc()); }
    void ExpectVector(LONG key, double x, double y, double z) {
        ASSERT_EQ(State().Find(key) ? State().Find(key)->type : 0, host::kDataVector) << key;
        const host::Vector v = State().GetVector(key);
        EXPECT_NEAR(v.x, x, 1e-9) << key;
        EXPECT_NEAR(v.y, y, 1e-9) << key;
        EXPECT_NEAR(v.z, z, 1e-9) << key;
    }
    host::Object *AddNull(const host::Vector &place) {
        host::Object *object = host::Object::Create(host::kTypeNull).release();
        document_->InsertObject(object);
        host::Transform transform;
        transform.position = place;
        object->SetTransform(transform);
        return object;
    }
};

TEST_F(Reset, PutsTheClocksTheListedRealsAndTheFlagAtZero) {
    const LONG reals[] = {20000, 10051, 10052, 10053, 10054, 10055, 10056, 10044, 10045, 10046, 10047,
                          10048, 10042, 10043, 10025, 10026, 11004, 10059, 5008,  5013,  5015};
    for (const LONG key : reals) State().SetReal(key, kFar);
    State().Set(kCatchingUp, 1);
    ResetNow();
    for (const LONG key : reals) EXPECT_EQ(State().Real(key), 0) << key;
    EXPECT_EQ(State().Whole(kCatchingUp), 0);
}

TEST_F(Reset, PutsTheVectorsOfTheJoltsAndThePreviousRotationAtZero) {
    const LONG vectors[] = {10060, 10061, 11000, 11001, 20002, 20003, 87651};
    for (const LONG key : vectors) State().SetVector(key, {kFar, kFar, kFar});
    ResetNow();
    for (const LONG key : vectors) ExpectVector(key, 0, 0, 0);
}

TEST_F(Reset, EmptiesTheWorkContainer) {
    host::Container full;
    full.Set(1, 2);
    State().Set(20004, host::Data(full));
    ResetNow();
    ASSERT_NE(State().Find(20004), nullptr);
    ASSERT_NE(State().Find(20004)->GetContainer(), nullptr);
    EXPECT_EQ(State().Find(20004)->GetContainer()->Count(), 0);
}

TEST_F(Reset, StartsTheFiltersAtRestOnTheInputCamera) {
    for (const LONG key : {5000, 5001, 5002, 5003}) State().SetVector(key, {kFar, kFar, kFar});
    ResetNow();
    ExpectVector(5000, 0, 0, 0);
    ExpectVector(5001, 10, 20, -30);
    ExpectVector(5002, 0, 0, 0);
    // A negative pitch and small angles: the matrix gives the same rotation back, up to whole turns.
    const host::Vector angles = State().GetVector(5003);
    EXPECT_NEAR(std::remainder(angles.x - 0.5, 2 * PI), 0, 1e-9);
    EXPECT_NEAR(angles.y, -0.25, 1e-9);
    EXPECT_NEAR(std::remainder(angles.z - 0.125, 2 * PI), 0, 1e-9);
    EXPECT_EQ(State().Real(5009), 50);
    EXPECT_EQ(State().Real(5014), 750);
}

TEST_F(Reset, AimsAtATargetWithBankZero) {
    // Along +X from the input: heading -90 degrees. 100 up on the way: pitch 45.
    State().Set(6068, host::Data::LinkTo(AddNull({110, 120, -30})));
    State().Set(6018, 1);
    ResetNow();
    const host::Vector angles = State().GetVector(5003);
    EXPECT_NEAR(std::remainder(angles.x + PI / 2, 2 * PI), 0, 1e-9);
    EXPECT_NEAR(angles.y, PI / 4, 1e-9);
    EXPECT_EQ(angles.z, 0);
}

TEST_F(Reset, DoesNotAimWhenTheTargetIsSwitchedOff) {
    State().Set(6068, host::Data::LinkTo(AddNull({110, 120, -30})));
    State().Set(6018, 0);
    ResetNow();
    EXPECT_NEAR(State().GetVector(5003).y, -0.25, 1e-9);
}

TEST_F(Reset, CountsATargetBelowTheTagsCameraAsNone) {
    host::Object *below = host::Object::Create(host::kTypeNull).release();
    document_->InsertObject(below, camera_);
    for (host::Object *target : {camera_, below}) {
        State().Set(6068, host::Data::LinkTo(target));
        State().Set(6018, 1);
        ResetNow();
        EXPECT_NEAR(State().GetVector(5003).y, -0.25, 1e-9);
    }
}

TEST_F(Reset, MeasuresTheFocusToTheFocusObject) {
    // 3, 4, 12 away: 13.
    State().Set(6057, host::Data::LinkTo(AddNull({13, 24, -18})));
    ResetNow();
    EXPECT_NEAR(State().Real(5014), 13, 1e-12);
}

TEST_F(Reset, CountsAFocusObjectThatIsTheTagsCameraAsNone) {
    State().Set(6057, host::Data::LinkTo(camera_));
    ResetNow();
    EXPECT_EQ(State().Real(5014), 750);
}

TEST_F(Reset, StartsTheOvershootAtRestOnTheSameValues) {
    for (const LONG base : {30002, 30022, 30042, 30062, 30082, 30102})
        for (LONG entry = 1; entry <= 10; ++entry) State().SetReal(base + entry, kFar);
    ResetNow();
    for (const LONG base : {30002, 30042}) {
        for (const LONG entry : {1, 2}) {
            const host::Vector rotation = State().GetVector(5003);
            ExpectVector(base + entry, rotation.x, rotation.y, rotation.z);
        }
    }
    for (const LONG entry : {1, 2}) {
        ExpectVector(30022 + entry, 10, 20, -30);
        EXPECT_EQ(State().GetVector(30062 + entry).x, 50);
        EXPECT_EQ(State().GetVector(30102 + entry).x, 750);
        ExpectVector(30082 + entry, 0, 0, 0);
    }
    for (const LONG base : {30002, 30022, 30042, 30062, 30082, 30102}) {
        ExpectVector(base + 8, 0, 0, 0);
        for (const LONG entry : {3, 4, 5, 6, 7, 9, 10}) EXPECT_EQ(State().Real(base + entry), 0) << base + entry;
    }
}

TEST_F(Reset, TakesOverTheCamerasOwnFocusObject) {
    host::Object *focus = AddNull({13, 24, -18});
    camera_->Data().Set(host::kCameraFocusObject, host::Data::LinkTo(focus));
    ResetNow();
    EXPECT_EQ(State().Link(6057, document_), focus);
    EXPECT_EQ(camera_->Data().Link(host::kCameraFocusObject, document_), nullptr);
    EXPECT_NEAR(State().Real(5014), 13, 1e-12);
}

TEST_F(Reset, LeavesTheCamerasFocusObjectWithoutAnInputCamera) {
    host::Object *focus = AddNull({13, 24, -18});
    camera_->Data().Set(host::kCameraFocusObject, host::Data::LinkTo(focus));
    State().Set(6001, host::Data::LinkTo(nullptr));
    ResetNow();
    EXPECT_EQ(State().Link(6057, document_), nullptr);
    EXPECT_EQ(camera_->Data().Link(host::kCameraFocusObject, document_), focus);
}

TEST_F(Reset, DoesNothingWithoutContainerOrCamera) {
    State().SetReal(kShakeClock, kFar);
    const host::Container before = State();
    probe_->ResetSimulation(NULL, Camera(), Doc());
    probe_->ResetSimulation(Data(), NULL, Doc());
    EXPECT_TRUE(State() == before);
}

TEST_F(Reset, LeavesTheUsersSettingsAlone) {
    std::vector<LONG> numbers;
    for (LONG id = 6000; id <= 6210; ++id)
        if (id != 6001 && id != 6057 && id != 6068 && id != 6178 && id != 6181 && id != 6209) numbers.push_back(id);
    for (const LONG id : numbers) State().SetReal(id, id / 100.0);
    ResetNow();
    for (const LONG id : numbers) EXPECT_EQ(State().Real(id), id / 100.0) << id;
}

// The blocks of what moves with the input camera and the lens; the spare one and that of the focus stay.
TEST_F(Reset, AReplayStartsTheOvershootOfTheInputAtRestOnIt) {
    for (const LONG base : {30002, 30022, 30042, 30062, 30082, 30102})
        for (LONG entry = 1; entry <= 10; ++entry) State().SetReal(base + entry, kFar);
    probe_->SimulateToFrame(20, Data(), Camera());
    for (const LONG base : {30002, 30042}) {
        for (const LONG entry : {1, 2}) {
            const host::Vector angles = State().GetVector(base + entry);
            EXPECT_NEAR(std::remainder(angles.x - 0.5, 2 * PI), 0, 1e-9);
            EXPECT_NEAR(angles.y, -0.25, 1e-9);
            EXPECT_NEAR(std::remainder(angles.z - 0.125, 2 * PI), 0, 1e-9);
        }
    }
    for (const LONG entry : {1, 2}) {
        ExpectVector(30022 + entry, 10, 20, -30);
        ExpectVector(30062 + entry, 50, 0, 0);
    }
    for (const LONG base : {30002, 30022, 30042, 30062}) {
        ExpectVector(base + 8, 0, 0, 0);
        for (const LONG entry : {3, 4, 5, 6, 7, 9, 10}) EXPECT_EQ(State().Real(base + entry), 0) << base + entry;
    }
    for (const LONG base : {30082, 30102})
        for (LONG entry = 1; entry <= 10; ++entry) EXPECT_EQ(State().Real(base + entry), kFar) << base + entry;
}

TEST_F(Reset, AReplayWithATargetStartsTheOvershootOnTheLookAtIt) {
    State().Set(6068, host::Data::LinkTo(AddNull({110, 120, -30})));
    State().Set(6018, 1);
    probe_->SimulateToFrame(20, Data(), Camera());
    for (const LONG base : {30002, 30042}) {
        const host::Vector angles = State().GetVector(base + 1);
        EXPECT_NEAR(std::remainder(angles.x + PI / 2, 2 * PI), 0, 1e-9);
        EXPECT_NEAR(angles.y, PI / 4, 1e-9);
        EXPECT_EQ(angles.z, 0);
    }
}

}  // namespace
