// The motion as keys, and back.
#include <cmath>
#include <map>

#include "host/animation/track.h"
#include "host/files/scenefile.h"
#include "host/scene/messages.h"
#include "host/services/bitmap.h"
#include "host/ui/attribute_manager.h"
#include "tests/tag/scene.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kQuick = 6046, kBrute = 6175, kUnBake = 6047, kRecord = 10032, kIconMessage = 1001090;
constexpr std::int32_t kLast = 60;

class Bakes : public WithModule {
  protected:
    void SetUp() override {
        WithModule::SetUp();
        Begin(0);
    }
    void TearDown() override { scene_.reset(); }
    void Begin(std::int64_t first) {
        scene_.reset();
        scene_ = std::make_unique<Scene>(running_, 30, first, kLast);
        ASSERT_NE(scene_->tag, nullptr);
        for (const std::int32_t id : {6024, 6025, 6026}) scene_->Set(id, 0.1);
        for (const std::int32_t id : {6028, 6029, 6030}) scene_->Set(id, 20 * kDegree);
        scene_->Set(6134, 0.05);
        scene_->Set(6128, 0.05);
        scene_->State().Set(6181, host::Data("20"));
        host::EditParameter(scene_->tag, host::MakeId(6181), host::Data("20"));
        AddTrack(scene_->input, host::MakeId(903, 1000), {{-20, -200}, {0, 0}, {30, 300}, {kLast, 100}});
        AddTrack(scene_->input, host::MakeId(904, 1000), {{-20, 1}, {0, 0}, {25, 2}, {kLast, -1}});
    }
    void AddTrack(host::Node *node, const TableDescID &id, std::initializer_list<std::pair<int, double>> keys) {
        Animate(node, id, 30, keys);
    }
    bool Press(std::int32_t button) { return host::PressButton(scene().tag, host::MakeId(button)); }
    std::vector<Shot> Playback(std::int64_t first) {
        std::vector<Shot> shots;
        for (std::int64_t frame = first; frame <= kLast; ++frame) {
            scene().Show(frame);
            shots.push_back(scene().Camera());
        }
        return shots;
    }
    void ExpectSame(const std::vector<Shot> &a, const std::vector<Shot> &b) {
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i) EXPECT_LT(Difference(a[i], b[i]), 1e-9) << i;
    }
    double ValueAt(std::int32_t first, std::int32_t second, int frame) {
        const host::Track *track =
            scene().camera->FindTrack(second ? host::MakeId(first, second) : host::MakeId(first));
        return track ? track->ValueAt(host::MakeTime(frame, 30)) : -1;
    }
    std::size_t Tracks() { return scene().camera->Tracks().size(); }
    Scene &scene() { return *scene_; }
    std::unique_ptr<Scene> scene_;
};

TEST_F(Bakes, ByBruteForceKeepTheLiveMotionOnEveryFrame) {
    for (const std::int64_t first : {-20, -1, 0, 10}) {
        SCOPED_TRACE(first);
        Begin(first);
        const std::vector<Shot> live = Playback(first);
        ASSERT_TRUE(Press(kBrute));
        EXPECT_EQ(scene().State().Whole(kBaked), 1);
        EXPECT_EQ(Tracks(), 8u);
        ExpectSame(Playback(first), live);
    }
}

// Every key of both bakes.
class BothBakes : public Bakes {
  protected:
    void AnimateWholeInput() {
        AddTrack(scene().input, host::MakeId(903, 1001), {{0, 150}, {kLast, 170}});
        AddTrack(scene().input, host::MakeId(903, 1002), {{0, -400}, {20, -350}, {kLast, -500}});
        AddTrack(scene().input, host::MakeId(904, 1001), {{0, -0.1}, {kLast, 0.2}});
        AddTrack(scene().input, host::MakeId(904, 1002), {{0, 0}, {kLast, 0.1}});
        AddTrack(scene().input, host::MakeId(1010), {{0, 300}, {kLast, 900}});
    }
    // Moves the object under a new parent at this place.
    host::Object *PutUnder(host::Object *child, const host::Vector &angles) {
        host::Object *object = scene().AddObject(host::kTypeNull, {100, -50, 30});
        host::Transform transform = object->GetTransform();
        transform.rotation = angles;
        object->SetTransform(transform);
        child->Remove();
        scene().document->InsertObject(child, object);
        return object;
    }
    static void Freeze(host::Object *object, const host::Vector &position, const host::Vector &angles) {
        host::Transform transform = object->GetTransform();
        transform.frozen_position = position;
        transform.frozen_rotation = angles;
        object->SetTransform(transform);
    }
    // At half frames too, where a key that is a whole turn off would show.
    std::vector<Shot> PlayHalfFrames(std::int64_t first) {
        std::vector<Shot> shots;
        for (std::int64_t half = 2 * first; half <= 2 * kLast; ++half) {
            scene().document->SetTime(host::MakeTime(static_cast<double>(half), 60));
            scene().Evaluate();
            shots.push_back(scene().Camera());
        }
        return shots;
    }
    using Keys = std::map<std::pair<std::int32_t, std::int32_t>, std::vector<double>>;
    Keys BakedKeys(std::int32_t button) {
        Keys keys;
        EXPECT_TRUE(Press(button));
        EXPECT_EQ(Tracks(), 8u);
        for (const host::Track *track : scene().camera->Tracks()) {
            std::vector<double> &values = keys[{host::LevelId(track->Id(), 0), host::LevelId(track->Id(), 1)}];
            for (std::int32_t i = 0; i < track->GetCurve()->KeyCount(); ++i)
                values.push_back(track->GetCurve()->KeyAt(i)->GetValue());
        }
        return keys;
    }
    void ExpectAgreement(std::int64_t first = 0) {
        const Keys quick = BakedKeys(kQuick);
        const std::vector<Shot> played = PlayHalfFrames(first);
        ASSERT_TRUE(Press(kUnBake));
        scene().document->SetFrame(0);
        const Keys brute = BakedKeys(kBrute);
        const std::vector<Shot> other_played = PlayHalfFrames(first);
        for (std::size_t i = 0; i < played.size(); ++i)
            ASSERT_LT(Difference(played[i], other_played[i]), 1e-6) << "half frame " << i;
        ASSERT_EQ(quick.size(), brute.size());
        for (const auto &[channel, values] : brute) {
            const std::vector<double> &other = quick.at(channel);
            ASSERT_EQ(values.size(), other.size());
            for (std::size_t i = 0; i < values.size(); ++i)
                EXPECT_NEAR(values[i], other[i], 1e-6) << channel.first << "/" << channel.second << " at " << i;
        }
    }
};

TEST_F(BothBakes, AgreeOnAFullyKeyedInput) {
    AnimateWholeInput();
    ExpectAgreement();
}

TEST_F(BothBakes, AgreeOnAnInputThatStandsStillInPart) { ExpectAgreement(); }

TEST_F(BothBakes, AgreeOnAnimatedSettings) {
    AnimateWholeInput();
    AddTrack(scene().tag, host::MakeId(6024), {{0, 0.0}, {30, 0.4}, {kLast, 0.1}});
    AddTrack(scene().tag, host::MakeId(6152), {{0, 0.5}, {kLast, 2.0}});
    AddTrack(scene().tag, host::MakeId(6142), {{0, 100}, {kLast, 101}});
    AddTrack(scene().tag, host::MakeId(6010), {{0, 0}, {kLast, 3}});
    AddTrack(scene().tag, host::MakeId(6016), {{0, 1}, {kLast, 0}});
    AddTrack(scene().tag, host::MakeId(6038), {{0, 0.2}, {kLast, 0.6}});
    AddTrack(scene().tag, host::MakeId(6037), {{0, 0.2}, {kLast, 0}});
    AddTrack(scene().tag, host::MakeId(6151), {{0, 0}, {kLast, 20}});
    ExpectAgreement();
}

TEST_F(BothBakes, PassOverATrackWithoutKeys) {
    AddTrack(scene().tag, host::MakeId(6152), {});
    AddTrack(scene().tag, host::MakeId(6024), {});
    ExpectAgreement();
}

TEST_F(BothBakes, AgreeOnAMovingTargetAndFocusObject) {
    AnimateWholeInput();
    host::Object *subject = scene().AddObject(host::kTypeNull, {0, 120, 300});
    AddTrack(subject, host::MakeId(903, 1000), {{0, -200}, {kLast, 200}});
    scene().Link(kTarget, subject);
    scene().Link(kFocusObject, subject);
    ExpectAgreement();
}

TEST_F(BothBakes, AgreeBelowParents) {
    AnimateWholeInput();
    PutUnder(scene().input, {0.5, 0.2, 0.1});
    PutUnder(scene().camera, {0.5, 0.2, 0.1});
    ExpectAgreement();
}

TEST_F(BothBakes, NeverTurnTheCameraRoundBetweenTwoKeys) {
    AnimateWholeInput();
    // The input's heading of 0 to 2 and back to -1 passes half a turn within each of these.
    for (const double heading : {0.0, 1.5, -1.5, 2.5, -2.5, kPi}) {
        Begin(0);
        AnimateWholeInput();
        PutUnder(scene().camera, {heading, 0.1, 0});
        for (const std::int32_t bake : {kQuick, kBrute}) {
            const Keys keys = BakedKeys(bake);
            for (const std::int32_t component : {1000, 1001, 1002}) {
                const std::vector<double> &angles = keys.at({904, component});
                for (std::size_t i = 1; i < angles.size(); ++i)
                    ASSERT_LT(std::fabs(angles[i] - angles[i - 1]), 1.0) << heading << " at " << i;
            }
            ASSERT_TRUE(Press(kUnBake));
        }
        ExpectAgreement();
    }
}

TEST_F(BothBakes, AgreeInADocumentThatStartsElsewhere) {
    for (const std::int64_t first : {-20, -1, 0, 10}) {
        SCOPED_TRACE(first);
        Begin(first);
        AnimateWholeInput();
        host::Object *subject = scene().AddObject(host::kTypeNull, {0, 120, 300});
        AddTrack(subject, host::MakeId(903, 1000), {{-20, -200}, {kLast, 200}});
        scene().Link(kTarget, subject);
        AddTrack(scene().tag, host::MakeId(6018), {{-20, 0}, {-10, 1}, {20, 1}, {21, 0}});
        AddTrack(scene().tag, host::MakeId(6155), {{-20, 0.8}, {kLast, 0.1}});
        const std::vector<Shot> live = Playback(first);
        ExpectAgreement(first);
        ExpectSame(Playback(first), live);
        ASSERT_TRUE(Press(kUnBake));
        scene().Link(kFocusObject, subject);
        ExpectAgreement(first);
    }
}

TEST_F(BothBakes, AgreeUnderAParentWithAScale) {
    AnimateWholeInput();
    for (host::Object *child : {scene().input, scene().camera}) {
        host::Object *parent = PutUnder(child, {0.5, 0.2, 0.1});
        host::Transform transform = parent->GetTransform();
        transform.scale = {2, 2, 2};
        parent->SetTransform(transform);
    }
    Freeze(scene().camera, {-500, 80, 900}, {-1.1, 0.4, 0.5});
    ExpectAgreement();
}

TEST_F(BothBakes, OfATagThatSleptStartWhereTheDocumentStartsNow) {
    Begin(10);
    ASSERT_TRUE(Press(kBrute));
    ASSERT_TRUE(Press(kUnBake));
    scene().State().Set(kBaked, 1);
    scene().document->SetRange(0, kLast);
    TableDescriptionCommand press{};
    press.id = host::MakeId(kBrute);
    ASSERT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
    const std::vector<Shot> baked = Playback(0);
    ASSERT_TRUE(Press(kUnBake));
    ASSERT_TRUE(Press(kUnBake));
    scene().State().Set(kBaked, 0);
    for (host::Track *track : std::vector<host::Track *>(scene().camera->Tracks())) delete track;
    ExpectSame(Playback(0), baked);
}

TEST_F(BothBakes, AgreeWithPlaybackOnCamerasWithFrozenValues) {
    AnimateWholeInput();
    Freeze(scene().input, {1000, -200, 30}, {0.7, -0.3, 0.2});
    Freeze(scene().camera, {-500, 80, 900}, {-1.1, 0.4, 0.5});
    PutUnder(scene().camera, {0.5, 0.2, 0.1});
    const std::vector<Shot> live = Playback(0);
    EXPECT_GT(host::Length(live[0].matrix.off - scene().camera->GetTransform().position), 100) << "frozen for good";
    ExpectAgreement();
    ExpectSame(Playback(0), live);
}

TEST_F(BothBakes, DifferOnAZoomWhichQuickOnesDoNotSee) {
    AddTrack(scene().input, host::MakeId(500), {{0, 28}, {kLast, 50}});
    for (const std::int32_t id : {6162, 6053, 6134}) scene().Set(id, 0);  // the focal length is the input's
    scene().Show(20);
    const std::vector<double> quick = BakedKeys(kQuick).at({500, 0});
    for (const double focal_length : quick) EXPECT_NEAR(focal_length, 28, 1e-9);
    ASSERT_TRUE(Press(kUnBake));
    const std::vector<double> brute = BakedKeys(kBrute).at({500, 0});
    for (int frame = 0; frame <= kLast; ++frame)
        EXPECT_NEAR(brute[static_cast<std::size_t>(frame)], 28 + 22.0 * frame / kLast, 1e-9) << frame;
}

TEST_F(BothBakes, QuickOnesEndAtFrameZeroWithTheTagAsleep) {
    scene().Show(17);
    BakedKeys(kQuick);
    EXPECT_EQ(host::Seconds(scene().document->GetTime()), 0);
    EXPECT_EQ(scene().State().Whole(kBaked), 1);
    EXPECT_EQ(running_.App().status.percent, -1);
    const host::Container before = scene().State();
    scene().Show(30);
    EXPECT_EQ(scene().State().Real(kLastFrame), before.Real(kLastFrame)) << "nothing is evaluated";
}

TEST_F(BothBakes, QuickOnesNeedAnInputCameraThatIsOne) {
    scene().Link(kInput, scene().AddObject(host::kTypeNull, {0, 0, 0}));
    ASSERT_TRUE(Press(kQuick));
    EXPECT_EQ(Tracks(), 0u);
    ASSERT_TRUE(Press(kUnBake));
    EXPECT_EQ(scene().State().Whole(kBaked, 7), 0);
}

TEST_F(Bakes, BeginAtANegativeFirstFrame) {
    Begin(-5);
    ASSERT_TRUE(Press(kBrute));
    const host::Curve *curve = scene().camera->FindTrack(host::MakeId(500))->GetCurve();
    ASSERT_EQ(curve->KeyCount(), kLast + 6);
    EXPECT_EQ(host::Seconds(curve->KeyAt(0)->GetTime()) * 30, -5);
}

TEST_F(Bakes, PutTheTimeBackAndShowProgress) {
    scene().Show(17);
    ASSERT_TRUE(Press(kBrute));
    EXPECT_EQ(host::Seconds(scene().document->GetTime()) * 30, 17);
    EXPECT_EQ(running_.App().status.percent, -1) << "cleared";
    EXPECT_EQ(running_.App().status.history.front(), "0 %");
    EXPECT_EQ(running_.App().status.history.back(), "100 %");
    EXPECT_EQ(running_.App().status.history.size(), static_cast<std::size_t>(kLast + 1));
}

TEST_F(Bakes, NeedAnInputCameraBeforeAnythingIsEmptied) {
    scene().Link(kInput, nullptr);
    AddTrack(scene().camera, host::MakeId(500), {{0, 40}});
    ASSERT_TRUE(Press(kBrute));
    EXPECT_EQ(scene().State().Whole(kBaked, 0), 0);
    EXPECT_EQ(Tracks(), 1u);
    EXPECT_FALSE(scene().State().Has(kRecord));
}

TEST_F(Bakes, AreUndoneByUnBakeWithTheKeysOfBefore) {
    AddTrack(scene().camera, host::MakeId(500), {{-3, 30}, {0, 40}, {10, 50}});
    AddTrack(scene().camera, host::MakeId(903, 1001), {{5, 7}, {10030, 9}});
    AddTrack(scene().camera, host::MakeId(907), {{0, 2}});
    ASSERT_TRUE(Press(kBrute));
    EXPECT_EQ(Tracks(), 9u) << "no second track for a baked channel";
    ASSERT_TRUE(Press(kUnBake));
    EXPECT_EQ(scene().State().Whole(kBaked, 7), 0);
    ASSERT_EQ(Tracks(), 2u) << "tracks of other parameters go too";
    EXPECT_EQ(ValueAt(500, 0, 10), 50);
    EXPECT_EQ(ValueAt(500, 0, 0), 40) << "keys before frame 0 are met at frame 0";
    EXPECT_EQ(ValueAt(903, 1001, 5), 7);
    EXPECT_EQ(ValueAt(903, 1001, 10030), 9) << "frames that are keys of the record come back too";
    EXPECT_EQ(scene().camera->FindTrack(host::MakeId(903, 1001))->GetCurve()->KeyCount(), 2);
    EXPECT_TRUE(scene().State().Has(kRecord));
}

TEST_F(Bakes, GiveBackAFocalLengthThatDrivesTheCamera) {
    AddTrack(scene().camera, host::MakeId(500), {{0, 40}, {10, 50}});
    ASSERT_TRUE(Press(kBrute));
    ASSERT_TRUE(Press(kUnBake));
    scene().Link(kInput, nullptr);
    scene().Show(10);
    EXPECT_EQ(scene().camera->Data().Real(host::kCameraFocalLength), 50);
}

TEST_F(Bakes, GoOnLiveAfterUnBake) {
    const std::vector<Shot> live = Playback(0);
    ASSERT_TRUE(Press(kBrute));
    ASSERT_TRUE(Press(kUnBake));
    EXPECT_EQ(Tracks(), 0u);
    ExpectSame(Playback(0), live);
}

TEST_F(Bakes, SavedLoadedAndUnBakedGiveTheKeysBack) {
    for (const std::int32_t bake : {kQuick, kBrute}) {
        Begin(0);
        AddTrack(scene().camera, host::MakeId(903, 1002), {{0, 1}, {20, 2.125}, {21, -1e300}, {55, 0.1}});
        AddTrack(scene().camera, host::MakeId(904, 1001), {{3, 0.3}, {9, -7}});
        AddTrack(scene().camera, host::MakeId(500), {{0, 40}, {33, 50}});
        ASSERT_TRUE(Press(bake));
        TemporaryFolder folder;
        std::string error;
        ASSERT_TRUE(host::SaveDocument(scene().document, folder.Path() / "scene", &error)) << error;
        std::unique_ptr<host::Document> loaded = host::LoadDocument(folder.Path() / "scene", &error);
        ASSERT_NE(loaded, nullptr) << error;
        scene_ = std::make_unique<Scene>(running_, std::move(loaded));
        ASSERT_NE(scene().tag, nullptr);
        EXPECT_EQ(Tracks(), 8u);
        ASSERT_TRUE(Press(kUnBake));
        ASSERT_EQ(Tracks(), 3u);
        const auto expect_keys = [this](const TableDescID &id, std::vector<std::pair<int, double>> keys) {
            const host::Track *track = scene().camera->FindTrack(id);
            ASSERT_NE(track, nullptr);
            const host::Curve *curve = track->GetCurve();
            ASSERT_EQ(curve->KeyCount(), static_cast<std::int32_t>(keys.size()));
            for (std::int32_t i = 0; i < curve->KeyCount(); ++i) {
                EXPECT_EQ(host::Seconds(curve->KeyAt(i)->GetTime()), keys[i].first / 30.0);
                EXPECT_EQ(curve->KeyAt(i)->GetValue(), keys[i].second);
            }
        };
        expect_keys(host::MakeId(903, 1002), {{0, 1}, {20, 2.125}, {21, -1e300}, {55, 0.1}});
        expect_keys(host::MakeId(904, 1001), {{3, 0.3}, {9, -7}});
        expect_keys(host::MakeId(500), {{0, 40}, {33, 50}});
    }
}

TEST_F(Bakes, UnBakeOfATagThatWasNeverBakedDoesNothing) {
    AddTrack(scene().camera, host::MakeId(500), {{0, 40}});
    ASSERT_TRUE(Press(kUnBake));
    EXPECT_EQ(Tracks(), 1u);
}

TEST_F(Bakes, UnBakeReadsADamagedRecordWithoutHarm) {
    host::Container track, record;
    track.Set(10030, host::Data(500));
    track.Set(10031, host::Data(0));
    track.Set(10029, host::Data(2147483647));
    track.Set(3, host::Data(45.0));
    track.Set(10000003, host::Data(1));
    track.Set(10000004, host::Data("no mark"));
    record.Set(0, host::Data(track));
    track.Set(10030, host::Data(987654));
    record.Set(1, host::Data(track));
    record.Set(2, host::Data("no record"));
    scene().State().Set(kRecord, host::Data(record));
    ASSERT_TRUE(Press(kUnBake));
    EXPECT_EQ(Tracks(), 1u);
    EXPECT_EQ(ValueAt(500, 0, 3), 45);
}

// ---- Tracks that are no plain animation

TEST_F(Bakes, GiveBackATrackWithoutKeys) {
    AddTrack(scene().camera, host::MakeId(500), {});
    ASSERT_TRUE(Press(kBrute));
    EXPECT_EQ(Tracks(), 8u);
    ASSERT_TRUE(Press(kUnBake));
    ASSERT_EQ(Tracks(), 1u);
    EXPECT_EQ(scene().camera->Tracks()[0]->GetCurve()->KeyCount(), 0);
}

TEST_F(Bakes, GiveBackThousandsOfKeys) {
    AddTrack(scene().camera, host::MakeId(1010), {});
    host::Curve *curve = scene().camera->Tracks()[0]->GetCurve();
    for (int frame = 0; frame < 5000; ++frame) curve->AddKey(host::MakeTime(frame, 30))->SetValue(frame * frame);
    for (const std::int32_t bake : {kQuick, kBrute}) {
        ASSERT_TRUE(Press(bake));
        ASSERT_TRUE(Press(kUnBake));
        ASSERT_EQ(Tracks(), 1u);
        curve = scene().camera->Tracks()[0]->GetCurve();
        ASSERT_EQ(curve->KeyCount(), 5000);
        for (int frame = 0; frame < 5000; ++frame)
            ASSERT_EQ(curve->KeyAt(frame)->GetValue(), double(frame) * frame) << frame;
    }
}

TEST_F(Bakes, KeepOneKeyOfThoseWithinOneFrame) {
    AddTrack(scene().camera, host::MakeId(500), {});
    host::Curve *curve = scene().camera->Tracks()[0]->GetCurve();
    // Frames 4, 4 1/3 and 4 2/3, with 10 a frame between them.
    for (int third = 0; third < 3; ++third) {
        host::Key *key = curve->AddKey(host::MakeTime(12 + third, 90));
        key->SetValue(40 + 10 * third / 3.0);
        key->SetInterpolation(host::kInterpolationLinear);
    }
    ASSERT_TRUE(Press(kQuick));
    ASSERT_TRUE(Press(kUnBake));
    curve = scene().camera->Tracks()[0]->GetCurve();
    ASSERT_EQ(curve->KeyCount(), 1);
    EXPECT_EQ(host::Seconds(curve->KeyAt(0)->GetTime()) * 30, 4);
    EXPECT_EQ(curve->KeyAt(0)->GetValue(), 40);
}

// Beyond ten million frames there is no room for a key in what a bake keeps: it is lost, and no other with it.
TEST_F(Bakes, KeepTheKeysBesideOneOfFarBeyondAnyShot) {
    AddTrack(scene().camera, host::MakeId(500), {{10, 40}, {20, 50}, {10000010, 60}, {10000020, 70}});
    ASSERT_TRUE(Press(kQuick));
    ASSERT_TRUE(Press(kUnBake));
    const host::Curve *curve = scene().camera->Tracks()[0]->GetCurve();
    ASSERT_EQ(curve->KeyCount(), 2);
    EXPECT_EQ(curve->KeyAt(0)->GetValue(), 40);
    EXPECT_EQ(curve->KeyAt(1)->GetValue(), 50);
}

// ---- Out of order

TEST_F(Bakes, OfABakedTagKeepTheBakedKeysAsThoseOfBefore) {
    AddTrack(scene().camera, host::MakeId(500), {{0, 77}});
    ASSERT_TRUE(Press(kBrute));
    const std::vector<Shot> baked = Playback(0);
    // The panel of a baked tag offers un-bake alone; a message may come all the same.
    TableDescriptionCommand press{};
    press.id = host::MakeId(kBrute);
    ASSERT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
    EXPECT_EQ(Tracks(), 8u);
    ASSERT_TRUE(Press(kUnBake));
    ASSERT_EQ(Tracks(), 8u);
    scene().State().Set(kBaked, host::Data(1));
    ExpectSame(Playback(0), baked);
}

TEST_F(Bakes, UnBakeTwiceGivesTheSameKeys) {
    AddTrack(scene().camera, host::MakeId(500), {{0, 40}, {10, 50}});
    ASSERT_TRUE(Press(kQuick));
    for (int i = 0; i < 2; ++i) {
        TableDescriptionCommand press{};
        press.id = host::MakeId(kUnBake);
        ASSERT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
        ASSERT_EQ(Tracks(), 1u);
        EXPECT_EQ(scene().camera->Tracks()[0]->GetCurve()->KeyCount(), 2);
        EXPECT_EQ(ValueAt(500, 0, 10), 50);
    }
}

TEST_F(Bakes, OfATagThatIsOnNoCameraDoNoHarm) {
    host::Object *null = scene().AddObject(host::kTypeNull, {0, 0, 0});
    host::Tag *tag = null->MakeTag(kTag);
    ASSERT_NE(tag, nullptr);
    tag->Data().Set(kInput, host::Data::LinkTo(scene().input));
    for (const std::int32_t button : {kQuick, kBrute, kUnBake, 6058, 6069}) {
        TableDescriptionCommand press{};
        press.id = host::MakeId(button);
        EXPECT_TRUE(tag->SendMessage(host::kMessageCommand, &press)) << button;
    }
    EXPECT_TRUE(null->Tracks().empty());
}

TEST_F(Bakes, OfADocumentThatEndsAtZeroKeyTheOneFrameThereIs) {
    for (const std::int32_t bake : {kQuick, kBrute}) {
        Begin(0);
        scene().document->SetRange(0, 0);
        running_.App().status.history.clear();
        ASSERT_TRUE(Press(bake));
        ASSERT_EQ(Tracks(), 8u);
        for (const host::Track *track : scene().camera->Tracks()) EXPECT_EQ(track->GetCurve()->KeyCount(), 1);
        EXPECT_EQ(running_.App().status.history.front(), "100 %");
    }
}

TEST_F(Bakes, EndAtTheLargestFrameThatADocumentCanHave) {
    constexpr std::int32_t kLargest = 2147483647;
    for (const std::int32_t bake : {kQuick, kBrute}) {
        scene_ = std::make_unique<Scene>(running_, 30, kLargest - 3, kLargest);
        ASSERT_TRUE(Press(bake));
        ASSERT_EQ(Tracks(), 8u);
        for (const host::Track *track : scene().camera->Tracks()) {
            ASSERT_EQ(track->GetCurve()->KeyCount(), 4);
            EXPECT_NEAR(host::Seconds(track->GetCurve()->KeyAt(3)->GetTime()) * 30, kLargest, 1e-6);
        }
    }
}

TEST_F(Bakes, MeasureTheirProgressByTheLastFrame) {
    for (const std::int32_t bake : {kQuick, kBrute}) {
        Begin(20);
        running_.App().status.history.clear();
        ASSERT_TRUE(Press(bake));
        EXPECT_EQ(running_.App().status.history.front(), "33 %") << "20 of 60, not 0 of 40";
    }
}

TEST_F(Bakes, FromANegativeFrameComeBackFromZeroOn) {
    for (const std::int32_t bake : {kQuick, kBrute}) {
        Begin(-5);
        AddTrack(scene().camera, host::MakeId(500), {{-4, 30}, {0, 40}, {3, 50}});
        ASSERT_TRUE(Press(bake));
        EXPECT_EQ(scene().camera->FindTrack(host::MakeId(500))->GetCurve()->KeyCount(), kLast + 6);
        ASSERT_TRUE(Press(kUnBake));
        EXPECT_EQ(scene().camera->Tracks()[0]->GetCurve()->KeyCount(), 2) << "frames 0 and 3";
    }
}

// ---- Undo

TEST_F(Bakes, AreOneStepOfTheirOwnWhereNoneIsOpenAndTheHostRefusesEntriesThen) {
    AddTrack(scene().camera, host::MakeId(500), {{0, 40}, {10, 50}});
    scene().document->Undo().RefuseOutsideSteps();
    const auto send = [this](std::int32_t button) {
        TableDescriptionCommand press{};
        press.id = host::MakeId(button);
        EXPECT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
    };
    host::UndoStack &undo = scene().document->Undo();
    for (const std::int32_t bake : {kQuick, kBrute}) {
        undo.Flush();
        send(bake);
        ASSERT_EQ(Tracks(), 8u);
        EXPECT_EQ(undo.Depth(), 0);
        EXPECT_EQ(undo.Steps(), 1u);
        send(kUnBake);
        ASSERT_EQ(Tracks(), 1u);
        EXPECT_EQ(undo.Steps(), 2u);
        ASSERT_TRUE(undo.Undo());
        ASSERT_EQ(Tracks(), 8u);
        EXPECT_EQ(scene().State().Whole(kBaked), 1);
        ASSERT_TRUE(undo.Undo());
        ASSERT_EQ(Tracks(), 1u);
        EXPECT_EQ(scene().State().Whole(kBaked, 0), 0);
        EXPECT_EQ(ValueAt(500, 0, 10), 50);
    }
}

// ---- The input camera

TEST_F(Bakes, StopWhenTheInputCameraIsDeletedMeanwhile) {
    for (const std::int32_t bake : {kQuick, kBrute}) {
        Begin(0);
        running_.App().status.on_change = [this] {
            if (running_.App().status.percent != 50 || !scene().input) return;
            scene().input->Remove();
            delete scene().input;
            scene().input = nullptr;
        };
        ASSERT_TRUE(Press(bake));
        running_.App().status.on_change = nullptr;
        // Frame 30 of 60 has begun: by brute force it is finished with what is there.
        EXPECT_EQ(host::Seconds(scene().document->GetTime()) * 30, bake == kBrute ? 30 : 0);
        EXPECT_EQ(scene().camera->FindTrack(host::MakeId(500))->GetCurve()->KeyCount(), bake == kBrute ? 31 : 30);
        ASSERT_TRUE(Press(kUnBake));
        EXPECT_EQ(Tracks(), 0u);
    }
}

TEST_F(Bakes, StopWhenTheInputCameraGoesMeanwhile) {
    running_.App().status.on_change = [this] {
        if (running_.App().status.percent == 50) scene().Link(kInput, nullptr);
    };
    ASSERT_TRUE(Press(kBrute));
    running_.App().status.on_change = nullptr;
    EXPECT_EQ(host::Seconds(scene().document->GetTime()) * 30, 30) << "the time stays where the bake stopped";
    EXPECT_EQ(running_.App().status.percent, 50);
}

TEST_F(Bakes, AreToldByTheTagsIcon) {
    const auto shows = [this](const char *file) {
        TableIconData icon{};
        TableGetCustomIcon request{};
        request.icon = &icon;
        EXPECT_TRUE(scene().tag->SendMessage(kIconMessage, &request));
        host::Bitmap wanted;
        EXPECT_EQ(wanted.Load(ModuleFile().parent_path() / "res" / file), host::kImageOk);
        EXPECT_TRUE(request.filled);
        EXPECT_EQ(icon.w, wanted.width);
        return static_cast<host::Bitmap *>(icon.bitmap)->rgba == wanted.rgba;
    };
    EXPECT_TRUE(shows("Tremolux_Cam_Icon.png"));
    scene().State().Set(kBaked, host::Data(1));
    EXPECT_TRUE(shows("Tremolux_Cam_Icon_Baked.png"));
    scene().Link(kInput, nullptr);
    EXPECT_TRUE(shows("Tremolux_Cam_Icon_Empty.png"));
    scene().State().Set(kBaked, host::Data(0));
    EXPECT_TRUE(shows("Tremolux_Cam_Icon_Empty.png"));
}

}  // namespace
