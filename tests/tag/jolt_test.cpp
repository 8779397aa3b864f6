// When jolts hit, and how they fall off.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

#include "host/files/scenefile.h"
#include "host/scene/messages.h"
#include "host/ui/attribute_manager.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

// Settings, and the tag's own entries.
constexpr std::int32_t kPositionIntensity = 6037, kRotationIntensity = 6144, kInterval = 6038, kList = 6181,
                       kTwinList = 6209, kFalloff = 6140, kSmooth = 6170, kSwitch = 6145;
constexpr std::int32_t kPositionTarget = 10045, kPositionEnvelope = 10047, kRotationEnvelope = 10048,
                       kPositionOffset = 10061, kRotationOffset = 10060;
// So steep that a target is below 0 after the frame that fired it, which shows the frame.
constexpr double kSteepFalloff = 100, kSteepStep = 0.1 * kSteepFalloff;

class Jolt : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        Prepare(scene());
    }
    static void Prepare(Scene &scene) {
        scene.Set(kVariation, 0);  // the jolt clock counts frames
        scene.Set(kPositionIntensity, 0.4);
        scene.Set(kRotationIntensity, 0.2);
        scene.Set(kSmooth, 0.5);
        scene.Set(kFalloff, kSteepFalloff);
    }
    // 0.5 of the smoothing is added to what hits.
    static constexpr double kPositionHit = 0.4 * (1 + 0.5 * 0.5), kRotationHit = 0.2 * (1 + 0.5 * 0.5);

    static void SetInterval(Scene &scene, double frames) {
        scene.State().Set(kInterval, host::Data(host::MakeTime(frames, 30)));
    }
    void List(const char *text) { scene().State().Set(kList, host::Data(text)); }
    static bool HasHit(Scene &scene) {
        return std::fabs(scene.Real(kPositionTarget) - (kPositionHit - kSteepStep)) < 1e-12;
    }
    static std::vector<std::int64_t> Hits(Scene &scene, std::int64_t last_frame) {
        std::vector<std::int64_t> frames;
        for (std::int64_t frame = 0; frame <= last_frame; ++frame) {
            scene.Show(frame);
            if (HasHit(scene)) frames.push_back(frame);
        }
        return frames;
    }
    std::vector<std::int64_t> Hits(std::int64_t last_frame) { return Hits(scene(), last_frame); }
    using Frames = std::vector<std::int64_t>;
};

TEST_F(Jolt, HitsOnListedFramesAloneWithoutAnInterval) {
    List("7, 19,3");
    EXPECT_EQ(Hits(60), (Frames{3, 7, 19}));
}

TEST_F(Jolt, IntervalBelowOneFrameIsOff) {
    for (const TableTime &interval : {TableTime{9, 300}, TableTime{0, 30}, TableTime{-30, 30}}) {  // 0.9, 0, -30 frames
        scene().State().Set(kInterval, host::Data(interval));
        EXPECT_EQ(Hits(60), Frames{}) << interval.numerator;
    }
}

TEST_F(Jolt, OfAnIntervalOfOneFrameHitsOnEveryFrame) {
    // Frame k: r = 1, and trunc(k + 1 - 0.8) is k.
    SetInterval(scene(), 1);
    EXPECT_EQ(Hits(30).size(), 31u);
}

RC_GTEST_FIXTURE_PROP(Jolt, HitsOnceInEveryInterval, ()) {
    Scene scene(running_);
    Prepare(scene);
    const int interval = *rc::gen::inRange(2, 40);
    const std::int64_t seed = *rc::gen::inRange(0, 100000);
    scene.Set(kSeed, static_cast<double>(seed));
    SetInterval(scene, interval);
    scene.document->SetRange(0, 1000);
    const auto hits = Hits(scene, 8 * interval - 1);
    RC_ASSERT(hits.size() == 8u);
    for (std::size_t block = 0; block < hits.size(); ++block) {
        const double first = static_cast<double>(block) * interval;
        // The hash is small enough for a plain conversion here.
        const double k = static_cast<double>(block);
        const auto hash = static_cast<std::int64_t>(k * k * 111.333 * k + static_cast<double>(seed) * 131.92111);
        const double place = static_cast<double>(hash % interval + 1);
        RC_ASSERT(hits[block] == static_cast<std::int64_t>((k + 1) * interval - place * 0.8));
        RC_ASSERT(static_cast<double>(hits[block]) >= std::floor(first + 0.2 * interval));
        RC_ASSERT(static_cast<double>(hits[block]) < first + interval);
    }
    RC_ASSERT(Hits(scene, 8 * interval - 1) == hits);  // again, by the same seed
}

TEST_F(Jolt, MovesWithTheTimeOffset) {
    SetInterval(scene(), 20);
    const Frames plain = Hits(90);
    scene().Set(kTimeOffset, 5.9);  // cut to 5
    const Frames moved = Hits(85);
    for (const std::int64_t frame : moved)
        EXPECT_TRUE(std::find(plain.begin(), plain.end(), frame + 5) != plain.end()) << frame;
}

TEST_F(Jolt, OnFramesOutsideTheListNeverHappens) {
    List("-4,12");
    scene().document->SetRange(-10, 100);
    Frames hits;
    for (std::int64_t frame = -10; frame <= 60; ++frame) {
        scene().Show(frame);
        if (HasHit(scene())) hits.push_back(frame);
    }
    EXPECT_EQ(hits, Frames{12}) << "12 is the list's last frame; 13 is its count";
}

TEST_F(Jolt, OfTheTwinListNeverHits) {
    scene().State().Set(kTwinList, host::Data("5,6,7"));
    EXPECT_EQ(Hits(20), Frames{});
}

TEST_F(Jolt, OfATwinListThatTheTagWasToldOfNeverHits) {
    const TableDescID id = host::MakeId(kTwinList);
    scene().State().Set(kTwinList, host::Data("5,6,7"));
    TableDescriptionPostSetValue told{&id};
    scene().tag->SendMessage(host::kMessagePostSetParameter, &told);
    EXPECT_EQ(Hits(20), Frames{});
    // It was read, all the same: what it showed when it was empty it shows again.
    scene().State().Set(kTwinList, host::Data(""));
    scene().tag->SendMessage(host::kMessagePostSetParameter, &told);
    EXPECT_EQ(scene().State().Text(kTwinList), "Numbers seperated by commas");
}

TEST_F(Jolt, FieldThatShowsItsPlaceholderListsNothing) {
    List("3");
    scene().Play(0, 1);
    List("Numbers seperated by commas");
    EXPECT_EQ(Hits(20), Frames{});
}

TEST_F(Jolt, HitsOnTheFramesOfTheTextThatIsThereNow) {
    List("3");
    EXPECT_EQ(Hits(20), Frames{3});
    List("5, 9");  // nobody tells the tag
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
    List("");
    EXPECT_EQ(Hits(20), Frames{});
    EXPECT_EQ(scene().State().Text(kList), "Numbers seperated by commas");
}

TEST_F(Jolt, HitsOnTheOldFramesAgainAfterAnUndoAndOnTheNewOnesAfterARedo) {
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("3")));
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("5, 9")));
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(scene().State().Text(kList), "3");
    EXPECT_EQ(Hits(20), Frames{3});
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(Hits(20), Frames{});
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(scene().document->Undo().Redo());
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
}

TEST_F(Jolt, HitsInACloneForRenderingAndInTheSavedSceneAsInTheOpenOne) {
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("3")));
    scene().Play(0, 5);
    List("7");
    TemporaryFolder folder;
    std::string error;
    ASSERT_TRUE(host::SaveDocument(scene().document, folder.Path() / "scene", &error)) << error;
    std::unique_ptr<host::Document> loaded = host::LoadDocument(folder.Path() / "scene", &error);
    ASSERT_NE(loaded, nullptr) << error;
    Scene saved(running_, std::move(loaded));
    saved.Evaluate();
    Scene clone(running_,
                std::unique_ptr<host::Document>(static_cast<host::Document *>(scene().document->Clone(0, nullptr))));
    ASSERT_NE(clone.tag, nullptr);
    EXPECT_EQ(Hits(20), Frames{7});
    EXPECT_EQ(Hits(saved, 20), Frames{7});
    EXPECT_EQ(Hits(clone, 20), Frames{7});
}

TEST_F(Jolt, TextCountsPlainNumbersOnly) {
    const struct {
        const char *text;
        Frames frames;
    } cases[] = {{"0", {0}},
                 {" 0,00,+0,-0", {}},
                 {" 4 ,\t5,+6,-7", {4, 5, 6}},
                 {"8x,1e1,0x9,9.0,1 2,--3,+-4,+", {}},
                 {"5,5,3,5", {3, 5}},
                 {",,6,", {6}},
                 {"9999999,10000000,99999999999999999999,2", {2}},
                 {"002", {2}}};
    for (const auto &[text, frames] : cases) {
        ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data(text)));
        EXPECT_EQ(Hits(20), frames) << text;
    }
}

TEST_F(Jolt, OfATextThatIsTakenBackHitsNoMoreAndHitsAgainWhenItIsDoneAgain) {
    const std::string before = scene().State().Text(kList);
    scene().document->Undo().Flush();
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("5,9")));
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
    EXPECT_EQ(scene().document->Undo().Steps(), 1u);
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(scene().State().Text(kList), before);
    EXPECT_EQ(Hits(20), Frames{});
    ASSERT_TRUE(scene().document->Undo().Redo());
    EXPECT_EQ(scene().State().Text(kList), "5,9");
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
}

TEST_F(Jolt, PlaceholderThatTheTagWroteGoesWithItsEdit) {
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("5,9")));
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kList), host::Data("")));
    EXPECT_EQ(scene().State().Text(kList), "Numbers seperated by commas");
    EXPECT_EQ(Hits(20), Frames{});
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(scene().State().Text(kList), "5,9");
    EXPECT_EQ(Hits(20), (Frames{5, 9}));
    ASSERT_TRUE(scene().document->Undo().Redo());
    EXPECT_EQ(scene().State().Text(kList), "Numbers seperated by commas");
    EXPECT_EQ(Hits(20), Frames{});
}

// No row of the panel shows the twin: a script sets it, in a step of its own.
TEST_F(Jolt, TextOfTheTwinIsTakenBackAndDoneAgain) {
    const std::string before = scene().State().Text(kTwinList);
    host::UndoStack &undo = scene().document->Undo();
    undo.Flush();
    undo.Start();
    undo.Add(host::kUndoChangeSmall, scene().tag);
    const TableDescID id = host::MakeId(kTwinList);
    scene().State().Set(kTwinList, host::Data(""));
    TableDescriptionPostSetValue told{&id};
    scene().tag->SendMessage(host::kMessagePostSetParameter, &told);
    undo.End();
    EXPECT_EQ(scene().State().Text(kTwinList), "Numbers seperated by commas");
    ASSERT_TRUE(undo.Undo());
    EXPECT_EQ(scene().State().Text(kTwinList), before);
    ASSERT_TRUE(undo.Redo());
    EXPECT_EQ(scene().State().Text(kTwinList), "Numbers seperated by commas");
}

TEST_F(Jolt, WithoutFalloffKeepsItsHeight) {
    scene().Set(kFalloff, 0);
    List("2");
    scene().document->SetRange(0, 1000);
    scene().Play(0, 900);
    EXPECT_EQ(scene().Real(kPositionTarget), kPositionHit);
    EXPECT_NEAR(scene().Real(kPositionEnvelope), kPositionHit, 1e-12);
    EXPECT_NEAR(scene().Real(kRotationEnvelope), kRotationHit, 1e-12);
}

TEST_F(Jolt, WithAFalloffOfOneLosesATenthAFrame) {
    scene().Set(kFalloff, 1);
    List("2");
    scene().Play(0, 1);
    for (int frame = 2; frame <= 6; ++frame) {
        scene().Show(frame);
        EXPECT_NEAR(scene().Real(kPositionTarget), kPositionHit - 0.1 * (frame - 1), 1e-12) << frame;
    }
    scene().Show(7);  // 0.5 - 0.5 = 0 on frame 6; from 0 it goes to -0.1, again and again
    EXPECT_NEAR(scene().Real(kPositionTarget), -0.1, 1e-12);
}

TEST_F(Jolt, WithoutRotationIntensityFreezesTheRotationEnvelope) {
    scene().Set(kFalloff, 0.2);
    List("2");
    scene().Play(0, 6);
    const double envelope = scene().Real(kRotationEnvelope);
    EXPECT_GT(envelope, 0);
    scene().Set(kRotationIntensity, 0);
    scene().Play(7, 30);
    EXPECT_EQ(scene().Real(kRotationEnvelope), envelope);
}

TEST_F(Jolt, PushesTheCameraByItsOffsetsAndLeavesItAtItsPlace) {
    scene().StopFilters();
    scene().PlaceInput({10, 20, 30}, {0.1, 0.2, 0});
    scene().Set(kFalloff, 0.5);
    List("5");
    double farthest = 0;
    scene().document->SetRange(0, 1000);
    for (int frame = 0; frame <= 500; ++frame) {
        scene().Show(frame);
        const host::Vector offset = scene().State().GetVector(kPositionOffset);
        EXPECT_LT(host::Length(scene().Position() - host::Vector{10, 20, 30} - offset), 1e-9) << frame;
        farthest = std::fmax(farthest, host::Length(offset));
        if (frame < 5) {
            EXPECT_EQ(host::Length(offset), 0) << frame;
        }
    }
    EXPECT_GT(farthest, 0.1);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-6);
}

TEST_F(Jolt, ThatIsSwitchedOffDoesNotPush) {
    scene().StopFilters();
    scene().State().Set(kSwitch, 0);
    List("2");
    for (int frame = 0; frame <= 20; ++frame) {
        scene().Show(frame);
        EXPECT_TRUE(scene().State().GetVector(kPositionOffset) == (host::Vector{0, 0, 0}));
        EXPECT_TRUE(scene().State().GetVector(kRotationOffset) == (host::Vector{0, 0, 0}));
    }
}

TEST_F(Jolt, ObeysTheRatiosButNotTheSwitchesOfTheShake) {
    List("2");
    scene().Set(6077, 0);
    scene().Set(6101, 0);
    for (const std::int32_t shake_switch : {6010, 6011, 6012, 6013, 6014, 6015}) scene().State().Set(shake_switch, 0);
    scene().Play(0, 4);
    const host::Vector position = scene().State().GetVector(kPositionOffset),
                       rotation = scene().State().GetVector(kRotationOffset);
    EXPECT_EQ(position.y, 0);
    EXPECT_EQ(rotation.y, 0);
    EXPECT_NE(position.x * position.z * rotation.x * rotation.z, 0);
}

TEST_F(Jolt, InFlightEndsWithAJump) {
    scene().Set(kFalloff, 0);
    List("2");
    scene().Play(0, 10);
    EXPECT_GT(scene().Real(kPositionEnvelope), 0);
    scene().Show(50);
    EXPECT_EQ(scene().Real(kPositionEnvelope), 0);
    EXPECT_TRUE(scene().State().GetVector(kPositionOffset) == (host::Vector{0, 0, 0}));
}

}  // namespace
