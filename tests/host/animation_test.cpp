#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "host/animation/passes.h"
#include "host/animation/segment.h"
#include "host/animation/track.h"
#include "scene_fixture.h"

namespace host {
namespace {

Key *AddKey(Curve *curve, double frame, double value, std::int32_t interpolation) {
    Key *key = curve->AddKey(MakeTime(frame, 30));
    key->SetValue(value);
    key->SetInterpolation(interpolation);
    return key;
}

TEST(Curves, KeepTheirKeysInTheOrderOfTime) {
    Curve curve(nullptr);
    std::int32_t index = -1;
    Key *late = curve.AddKey(MakeTime(10, 30), &index);
    EXPECT_EQ(index, 0);
    Key *early = curve.AddKey(MakeTime(1, 30), &index);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(curve.AddKey(MakeTime(2, 6), &index), late) << "10/30 is 2/6";
    EXPECT_EQ(index, 1);
    EXPECT_EQ(curve.KeyCount(), 2);
    EXPECT_EQ(curve.KeyAt(0), early);
    EXPECT_EQ(early->Next(), late);
    early->SetTime(MakeTime(20, 30));
    EXPECT_EQ(curve.KeyAt(1), early);
    EXPECT_EQ(late->Next(), early);
    EXPECT_EQ(early->Next(), nullptr);
    EXPECT_EQ(curve.KeyAt(2), nullptr);
    EXPECT_EQ(curve.KeyAt(-1), nullptr);
}

TEST(Curves, FindKeysExactlyLeftAndRight) {
    Curve curve(nullptr);
    Key *first = curve.AddKey(MakeTime(10, 30)), *second = curve.AddKey(MakeTime(20, 30));
    std::int32_t index = 7;
    EXPECT_EQ(curve.FindKey(MakeTime(1, 3), &index), first);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(curve.FindKey(MakeTime(15, 30), &index), nullptr);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(curve.FindKey(MakeTime(15, 30), &index, Curve::kMatchLeft), first);
    EXPECT_EQ(curve.FindKey(MakeTime(15, 30), &index, Curve::kMatchRight), second);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(curve.FindKey(MakeTime(20, 30), &index, Curve::kMatchRight), second);
    EXPECT_EQ(curve.FindKey(MakeTime(5, 30), &index, Curve::kMatchLeft), nullptr);
    EXPECT_EQ(curve.FindKey(MakeTime(25, 30), &index, Curve::kMatchRight), nullptr);
}

TEST(Curves, TakeOverAKeyInPlaceOfOneAtTheSameTime) {
    Curve curve(nullptr);
    curve.AddKey(MakeTime(1, 30))->SetValue(1);
    Key *key = new Key;
    key->SetTime(MakeTime(2, 60));
    key->SetValue(5);
    EXPECT_TRUE(curve.InsertKey(key));
    EXPECT_TRUE(curve.InsertKey(key));
    EXPECT_FALSE(curve.InsertKey(nullptr));
    EXPECT_EQ(curve.KeyCount(), 1);
    EXPECT_EQ(curve.ValueAt(MakeTime(1, 30)), 5);
}

TEST(Curves, GiveNothingWithoutKeysAndTheEndValuesOutside) {
    Curve curve(nullptr);
    EXPECT_EQ(curve.ValueAt(MakeTime(0, 1)), 0);
    AddKey(&curve, 10, 4, kInterpolationLinear);
    AddKey(&curve, 20, 6, kInterpolationLinear);
    EXPECT_EQ(curve.ValueAt(MakeTime(-100, 30)), 4);
    EXPECT_EQ(curve.ValueAt(MakeTime(100, 30)), 6);
}

TEST(Curves, LinearKeysAreJoinedByAStraightLine) {
    Curve curve(nullptr);
    AddKey(&curve, 10, 4, kInterpolationLinear);
    AddKey(&curve, 20, 6, kInterpolationLinear);
    // Three tenths of the way from 4 to 6.
    EXPECT_NEAR(curve.ValueAt(MakeTime(13, 30)), 4.6, 1e-12);
}

TEST(Curves, StepKeysHoldUntilTheNext) {
    Curve curve(nullptr);
    AddKey(&curve, 10, 4, kInterpolationStep);
    AddKey(&curve, 20, 6, kInterpolationStep);
    EXPECT_EQ(curve.ValueAt(MakeTime(599, 900)), 4);
    EXPECT_EQ(curve.ValueAt(MakeTime(20, 30)), 6);
}

TEST(Curves, SplineKeysWithoutTangentsEaseInAndOut) {
    Curve curve(nullptr);
    AddKey(&curve, 0, 0, kInterpolationSpline);
    AddKey(&curve, 40, 10, kInterpolationSpline);
    // Cubic Hermite with level ends: 10 (3 s^2 - 2 s^3); a quarter of the way 10 * 0.15625.
    EXPECT_NEAR(curve.ValueAt(MakeTime(10, 30)), 1.5625, 1e-12);
    EXPECT_NEAR(curve.ValueAt(MakeTime(20, 30)), 5, 1e-12);
}

TEST(Curves, TangentsOfAThirdGiveTheirSlope) {
    Curve curve(nullptr);
    Key *a = AddKey(&curve, 0, 1, kInterpolationSpline);
    Key *b = AddKey(&curve, 30, 3, kInterpolationSpline);
    // Over one second, slopes 3 and -6 a second: Hermite at s = 0.5 is (1 + 3) / 2 + (3 - -6) / 8.
    a->right = {MakeTime(10, 30), 1};
    b->left = {MakeTime(-10, 30), 2};
    EXPECT_NEAR(curve.ValueAt(MakeTime(15, 30)), 3.125, 1e-12);
}

TEST(Curves, ASplineRunsIntoALinearKeyAlongTheChord) {
    Curve curve(nullptr);
    AddKey(&curve, 0, 0, kInterpolationSpline);
    AddKey(&curve, 30, 8, kInterpolationLinear);
    // Slopes 0 and 8 a second: at s = 0.5, 8 / 2 + (0 - 8) / 8.
    EXPECT_NEAR(curve.ValueAt(MakeTime(15, 30)), 3, 1e-12);
}

RC_GTEST_PROP(Curves, AreExactAtEveryKey, ()) {
    Curve curve(nullptr);
    const int count = *rc::gen::inRange(1, 40);
    std::vector<std::pair<int, double>> written;
    for (int i = 0; i < count; ++i) {
        const int frame = *rc::gen::inRange(-200, 200);
        const double value = *rc::gen::inRange(-100000, 100000) / 7.0;
        AddKey(&curve, frame, value, *rc::gen::inRange(1, 4))->right = {MakeTime(frame % 3, 30), value};
        written.emplace_back(frame, value);
    }
    for (auto entry = written.begin(); entry != written.end(); ++entry) {
        const bool is_last =
            std::none_of(entry + 1, written.end(), [&](const auto &o) { return o.first == entry->first; });
        if (is_last) RC_ASSERT(curve.ValueAt(MakeTime(entry->first, 30)) == entry->second);
    }
    for (std::int32_t i = 1; i < curve.KeyCount(); ++i) {
        RC_ASSERT(Before(curve.KeyAt(i - 1)->GetTime(), curve.KeyAt(i)->GetTime()));
    }
}

// A point of the Bezier curve, at share u, must lie on what the segment answers for its time.
RC_GTEST_PROP(Segments, PassThroughTheBezierCurveInTimeAndValue, ()) {
    const auto number = [](int least, int most) { return *rc::gen::inRange(least, most + 1) / 100.0; };
    const double start = number(-500, 500), length = number(50, 500);
    const SplineSegment s{start,
                          number(-900, 900),
                          start + length,
                          number(-900, 900),
                          length * number(1, 100),
                          number(-900, 900),
                          -length * number(1, 100),
                          number(-900, 900)};
    const double u = number(2, 98), v = 1 - u;
    const double time = v * v * v * s.start_time + 3 * v * v * u * (s.start_time + s.right_tangent_time) +
                        3 * v * u * u * (s.end_time + s.left_tangent_time) + u * u * u * s.end_time;
    const double value = v * v * v * s.start_value + 3 * v * v * u * (s.start_value + s.right_tangent_value) +
                         3 * v * u * u * (s.end_value + s.left_tangent_value) + u * u * u * s.end_value;
    // Where the curve stands nearly upright in time, a rounding of the time moves the value far: compare by its slope.
    const double dt =
        3 * (v * v * s.right_tangent_time + 2 * v * u * (length + s.left_tangent_time - s.right_tangent_time) -
             u * u * s.left_tangent_time);
    RC_PRE(dt > 0.01 * length);
    RC_ASSERT(std::fabs(ValueOnSegment(s, time) - value) < 1e-8);
}

TEST(Segments, OfNoLengthGiveTheEnd) { EXPECT_EQ(ValueOnSegment({1, 2, 1, 3, 0, 0, 0, 0}, 1), 3); }

TEST(Segments, OverlongTangentsAreCutToTheSegment) {
    const SplineSegment s{0, 0, 1, 1, 50, 0, -50, 0};
    double last = 0;
    for (int i = 0; i <= 100; ++i) {
        const double value = ValueOnSegment(s, i / 100.0);
        EXPECT_GE(value, last);
        last = value;
    }
    EXPECT_EQ(last, 1);
}

class Tracks : public testing::SceneTest {
  protected:
    Tracks() : camera(AddCamera("camera")) {}
    Track *AddTrack(Node *node, const TableDescID &id) {
        Track *track = Track::Create(node, id).release();
        EXPECT_TRUE(node->InsertTrack(track));
        return track;
    }
    // 2 to 6 between frames 10 and 20, straight.
    Track *AddRamp() {
        Track *track = AddTrack(camera, MakeId(kCameraFocalLength));
        AddKey(track->GetCurve(), 10, 2, kInterpolationLinear);
        AddKey(track->GetCurve(), 20, 6, kInterpolationLinear);
        return track;
    }
    Object *camera;
};

TEST_F(Tracks, AreMadeForNumbersAndData) {
    EXPECT_EQ(Track::Create(camera, MakeId(kCameraFocalLength))->Category(), 1);
    EXPECT_EQ(Track::Create(camera, MakeId(kParamRelRotation, kVectorZ))->Category(), 1);
    EXPECT_EQ(Track::Create(camera, MakeId(kCameraFocusObject))->Category(), 2);
    Tag *tag = AddTag(camera);
    EXPECT_EQ(Track::Create(tag, MakeId(testing::kSwitch))->Category(), 2);
    EXPECT_EQ(Track::Create(tag, MakeId(testing::kCount))->Category(), 1);
    EXPECT_EQ(Track::Create(camera, MakeId(kParamRelPosition)), nullptr) << "one track for each component";
    EXPECT_EQ(Track::Create(tag, MakeId(testing::kButton)), nullptr);
    EXPECT_EQ(Track::Create(camera, MakeId(4711)), nullptr);
    EXPECT_EQ(Track::Create(nullptr, MakeId(kCameraFocalLength)), nullptr);
}

TEST_F(Tracks, StandInTheOrderOfPositionRotationScaleAndTheRest) {
    Track *focal = AddTrack(camera, MakeId(kCameraFocalLength));
    Track *bank = AddTrack(camera, MakeId(kParamRelRotation, kVectorZ));
    Track *z = AddTrack(camera, MakeId(kParamRelPosition, kVectorZ));
    Track *x = AddTrack(camera, MakeId(kParamRelPosition, kVectorX));
    EXPECT_EQ(camera->Tracks(), (std::vector<Track *>{x, z, bank, focal}));
    EXPECT_EQ(x->Next(), z);
    EXPECT_EQ(bank->Previous(), z);
    EXPECT_EQ(camera->FindTrack(MakeId(kParamRelPosition, kVectorX)), x);
    EXPECT_EQ(x->Main(), camera);
    static_cast<Node *>(z)->Remove();
    EXPECT_EQ(x->Next(), bank);
    EXPECT_EQ(z->Main(), nullptr);
    Node::Discard(z);
}

TEST_F(Tracks, ASecondTrackOfAParameterReplacesTheFirst) {
    AddTrack(camera, MakeId(kCameraFocalLength));
    Track *second = AddTrack(camera, MakeId(kCameraFocalLength));
    EXPECT_EQ(camera->Tracks(), (std::vector<Track *>{second}));
}

TEST_F(Tracks, HoldTheEndValuesUnlessTheyLoop) {
    const Track *track = AddRamp();
    EXPECT_EQ(track->ValueAt(MakeTime(0, 30)), 2);
    EXPECT_EQ(track->ValueAt(MakeTime(99, 30)), 6);
}

TEST_F(Tracks, LoopModesCarryOnOutsideTheKeys) {
    Track *track = AddRamp();
    const auto after = [track](double frame, std::int32_t loop) {
        track->after = loop;
        return track->ValueAt(MakeTime(frame, 30));
    };
    // Frame 33 is 23 frames after the first key: two whole rounds and three frames, 0.3 of the rise of 4.
    EXPECT_NEAR(after(33, kLoopContinue), 6 + 13 * 0.4, 1e-9);
    EXPECT_NEAR(after(33, kLoopRepeat), 3.2, 1e-9);
    EXPECT_NEAR(after(33, kLoopOffsetRepeat), 3.2 + 2 * 4, 1e-9);
    EXPECT_NEAR(after(33, kLoopOscillate), 3.2, 1e-9);
    EXPECT_NEAR(after(23, kLoopOscillate), 6 - 1.2, 1e-9);
    const auto before = [track](double frame, std::int32_t loop) {
        track->before = loop;
        return track->ValueAt(MakeTime(frame, 30));
    };
    // Frame 7 is three frames before the first key: 0.7 of the round before.
    EXPECT_NEAR(before(7, kLoopContinue), 2 - 3 * 0.4, 1e-9);
    EXPECT_NEAR(before(7, kLoopRepeat), 4.8, 1e-9);
    EXPECT_NEAR(before(7, kLoopOffsetRepeat), 4.8 - 4, 1e-9);
    EXPECT_NEAR(before(7, kLoopOscillate), 3.2, 1e-9);
}

TEST_F(Tracks, OneKeyHoldsWhateverTheLoop) {
    Track *track = AddTrack(camera, MakeId(kCameraFocalLength));
    AddKey(track->GetCurve(), 10, 2, kInterpolationLinear);
    for (std::int32_t loop = kLoopOff; loop <= kLoopOscillate; ++loop) {
        track->after = loop;
        EXPECT_EQ(track->ValueAt(MakeTime(50, 30)), 2);
    }
}

TEST_F(Tracks, DriveTheirParameters) {
    AddRamp();
    Track *y = AddTrack(camera, MakeId(kParamRelPosition, kVectorY));
    AddKey(y->GetCurve(), 0, 7, kInterpolationLinear);
    Animate(camera, MakeTime(15, 30));
    EXPECT_NEAR(camera->Data().Real(kCameraFocalLength), 4, 1e-12);
    EXPECT_EQ(camera->GetTransform().position, (Vector{0, 7, 0}));
}

TEST_F(Tracks, WithoutKeysOrSwitchedOffOutsideTheyWriteNothing) {
    AddTrack(camera, MakeId(kCameraFocusDistance));
    Track *ramp = AddRamp();
    ramp->before = kLoopOff;
    Animate(camera, MakeTime(0, 30));
    EXPECT_EQ(camera->Data().Real(kCameraFocusDistance), 2000);
    EXPECT_EQ(camera->Data().Real(kCameraFocalLength), 36);
}

TEST_F(Tracks, DataIsTakenFromTheKeyBefore) {
    Object *other = AddCamera("other");
    Track *track = AddTrack(camera, MakeId(kCameraFocusObject));
    track->GetCurve()->AddKey(MakeTime(0, 30))->data = Data::LinkTo(camera);
    track->GetCurve()->AddKey(MakeTime(10, 30))->data = Data::LinkTo(other);
    Animate(camera, MakeTime(9, 30));
    EXPECT_EQ(camera->Data().Link(kCameraFocusObject, document), camera);
    Animate(camera, MakeTime(10, 30));
    EXPECT_EQ(camera->Data().Link(kCameraFocusObject, document), other);
}

TEST_F(Tracks, ASwitchFollowsItsKeys) {
    Tag *tag = AddTag(camera);
    Track *track = AddTrack(tag, MakeId(testing::kSwitch));
    track->GetCurve()->AddKey(MakeTime(0, 30))->SetValue(0);
    track->GetCurve()->AddKey(MakeTime(10, 30))->SetValue(1);
    Animate(tag, MakeTime(9, 30));
    EXPECT_EQ(tag->Data().Whole(testing::kSwitch, 7), 0);
    Animate(tag, MakeTime(10, 30));
    EXPECT_EQ(tag->Data().Whole(testing::kSwitch, 7), 1);
    EXPECT_EQ(track->ValueAt(MakeTime(9, 30)), 0) << "who asks the track is told the same";
    EXPECT_EQ(track->ValueAt(MakeTime(10, 30)), 1);
    track->GetCurve()->KeyAt(1)->data = Data(3);
    EXPECT_EQ(track->ValueAt(MakeTime(10, 30)), 3);
}

TEST_F(Tracks, ATimeFollowsItsCurveInSeconds) {
    constexpr std::int32_t kTime = 4712;
    camera->Data().Set(kTime, host::Data(MakeTime(6, 30)));
    Track *track = AddTrack(camera, MakeId(kTime));
    EXPECT_EQ(track->Category(), 1);
    AddKey(track->GetCurve(), 0, 0.2, kInterpolationLinear);
    AddKey(track->GetCurve(), 10, 0.4, kInterpolationLinear);
    Animate(camera, MakeTime(5, 30));
    EXPECT_TRUE(SameTime(camera->Data().GetTime(kTime), MakeTime(3, 10)));
}

}  // namespace
}  // namespace host
