// What the guide tells an artist is what happens. Each test names the sentence that it holds.
#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>

#include "host/files/scenefile.h"
#include "host/scene/messages.h"
#include "host/scene/view.h"
#include "host/ui/attribute_manager.h"
#include "host/value/text.h"
#include "tests/tag/preset_bench.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kApplyCommand = 1039960, kQuickBake = 6046, kBruteForceBake = 6175, kUnBakeButton = 6047;
constexpr std::int32_t kLastFrameShown = 120;

// The page's text: no tags, one blank between words.
std::string GuideText() {
    std::ifstream file(ModuleFile().parent_path() / "res" / "guide.html");
    const std::string page((std::istreambuf_iterator<char>(file)), {});
    std::string text;
    bool in_tag = false;
    for (const char c : page) {
        if (c == '<') in_tag = true;
        const bool is_blank = c == '\n' || c == ' ' || in_tag;
        if (!is_blank)
            text += c;
        else if (c != '<' && !in_tag && !text.empty() && text.back() != ' ')
            text += ' ';
        if (c == '>') in_tag = false;
    }
    return text;
}

class GuideSays : public WithPresets {
  protected:
    GuideSays() {
        BuiltIn("1_A", "1_Calm", {{kPositionSlow, host::Data(0.125)}, {kRotationSlow, host::Data(0.1)}});
        BuiltIn("1_A", "2_Wild", {{kPositionSlow, host::Data(0.5)}, {kRotationSlow, host::Data(0.3)}});
    }
    void SetUp() override { Start(); }
    static void Says(const std::string &sentence) {
        EXPECT_NE(GuideText().find(sentence), std::string::npos) << "the guide does not say: " << sentence;
    }
    std::vector<Shot> Play(std::int64_t last = kLastFrameShown) {
        std::vector<Shot> shots;
        for (std::int64_t frame = 0; frame <= last; ++frame) {
            scene().Show(frame);
            shots.push_back(scene().Camera());
        }
        return shots;
    }
    // How far a played camera comes from where the input stands still.
    double Strayed(const std::vector<Shot> &shots) {
        double most = 0;
        for (const Shot &shot : shots) most = std::max(most, host::Length(shot.matrix.off));
        return most;
    }
    double Turned(const std::vector<Shot> &shots) {
        double most = 0;
        for (const Shot &shot : shots) most = std::max(most, host::Length(shot.matrix.v3 - host::Vector{0, 0, 1}));
        return most;
    }
    void Still() {
        for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030}) scene().Set(id, 0);
    }
};

// ---- The first shot

TEST_F(GuideSays, TheCommandPutsASecondCameraOnTop) {
    Says(
        "Select your camera and run the command TremoluxCam. A second camera of that name stands at the top of the "
        "scene, with the tag on it, and the view looks through it. A camera that was called \"Camera\" is now called "
        "\"TC Input Cam\".");
    host::Document *document = scene().document;
    host::Object *selected = scene().AddObject(host::kTypeCamera, {1, 2, 3});
    selected->SetName("Camera");
    document->SetActiveObject(selected);
    running_->App().SetActiveDocument(document);
    running_->App().CallCommand(kApplyCommand);
    host::Object *camera = document->FirstObject();
    EXPECT_EQ(camera->Name(), "TremoluxCam");
    EXPECT_NE(camera->FindTag(kTag), nullptr);
    EXPECT_EQ(document->ActiveView()->SceneCamera(document), camera);
    EXPECT_EQ(selected->Name(), "TC Input Cam");
}

TEST_F(GuideSays, ANewInputCameraIsCopiedAndADoubleClickChangesTheView) {
    Says(
        "the tag's camera then begins as a copy of it. A double click on the tag changes the view between the two "
        "cameras.");
    Still();
    scene().StopFilters();
    host::Object *input = scene().AddObject(host::kTypeCamera, {10, 20, 30});
    input->Data().SetReal(host::kCameraFocalLength, 85);
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(kInput), host::Data::LinkTo(input)));
    EXPECT_EQ(scene().camera->Data().Real(host::kCameraFocalLength), 85);
    EXPECT_EQ(scene().camera->GetTransform().position.y, 20);
    host::Document *document = scene().document;
    std::vector<host::Object *> seen;
    for (int i = 0; i < 2; ++i) {
        scene().tag->SendMessage(host::kMessageEdit, nullptr);
        seen.push_back(document->ActiveView()->SceneCamera(document));
    }
    EXPECT_EQ(seen, (std::vector<host::Object *>{input, scene().camera}));
}

TEST_F(GuideSays, TheInputCameraIsNotChanged) {
    Says("The input camera itself is never changed by the motion.");
    const Shot before = ShotOf(scene().input);
    Play();
    EXPECT_TRUE(ShotOf(scene().input) == before);
}

TEST_F(GuideSays, AJumpShowsTheShakeOfPlayback) {
    Says(
        "A frame that you jump to shows the shake that playback would show there; lag, swing and jolts begin anew "
        "after a jump.");
    scene().StopFilters();
    const std::vector<Shot> played = Play();
    scene().Show(7);
    scene().Show(90);
    EXPECT_LT(Difference(scene().Camera(), played[90]), 1e-9);
}

TEST_F(GuideSays, ANewTagBecomesTheFirstPreset) {
    Says(
        "A new tag becomes the first preset when it is evaluated for the first time: what was set before is replaced.");
    StartWithoutEvaluation();
    scene().Set(kPositionSlow, 0.9);
    scene().Set(6026, 0.9);
    scene().Evaluate();
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125);
    EXPECT_EQ(scene().Real(6026), 0);
}

TEST_F(GuideSays, ALoadedSceneShowsTheSavedCameraInItsColour) {
    Says(
        "A scene that was loaded shows the camera as it was saved until the frame changes, and the camera has its "
        "colour again.");
    Play(10);
    const Shot saved = scene().Camera();
    scene().camera->SetParameter(host::MakeId(host::kParamUseColor), host::Data(0));
    std::string error;
    ASSERT_TRUE(host::SaveDocument(scene().document, folder_.Path() / "scene", &error)) << error;
    std::unique_ptr<host::Document> document = host::LoadDocument(folder_.Path() / "scene", &error);
    ASSERT_NE(document, nullptr) << error;
    Scene loaded(*running_, std::move(document));
    loaded.Evaluate();
    EXPECT_TRUE(loaded.Camera() == saved);
    host::Data uses_color;
    ASSERT_TRUE(loaded.camera->GetParameter(host::MakeId(host::kParamUseColor), &uses_color));
    EXPECT_EQ(uses_color.Whole(), 2);
    loaded.Show(11);
    EXPECT_FALSE(loaded.Camera() == saved);
}

// ---- Presets

TEST_F(GuideSays, AnEditReadsCustomAndTheShotsOwnSettingsStay) {
    Says(
        "As soon as a setting differs, the choice reads \"Custom\". Input camera, target, focus object and scale are "
        "the shot's own: no preset touches them.");
    scene().Set(6022, 3);
    scene().Link(kTarget, scene().input);
    Choose(kPreset, 1);
    EXPECT_EQ(scene().Real(6022), 3);
    EXPECT_EQ(State().Link(kInput, scene().document), scene().input);
    EXPECT_EQ(State().Link(kTarget, scene().document), scene().input);
    Type(kPositionSlow, host::Data(0.75));
    EXPECT_EQ(State().Whole(kPreset), kCustom);
}

TEST_F(GuideSays, SavedPresetsAreTheUsersAndAKnownNameAsks) {
    Says("Your own presets, in the category \"User\". Saving under a known name asks first.");
    for (int i = 0; i < 2; ++i) {
        Dialogs().AnswerText("Walk");
        Press(kSave);
        EXPECT_EQ(State().Whole(kCategory), kUser);
        EXPECT_EQ(PresetNames(), std::vector<std::string>{"Walk"});
    }
    EXPECT_EQ(Asked(), std::vector<std::string>{"Override existing preset?"});
}

TEST_F(GuideSays, OnlySubFoldersOfImportsAreTakenOver) {
    Says(
        "Presets in the sub-folders of the folder \"Imports\" beside the module are taken over with the next new tag "
        "or loaded scene: those in \"User\" become your own, any other sub-folder is a category.");
    for (const std::int32_t loaded_or_new : {kRecheck, kFirstRun}) {
        for (const char *folder : {"", "User", "New"})
            WritePresetFile(Imports() / folder / "1_Came", PresetOf("Came", {}));
        State().Set(loaded_or_new, 1);
        scene().Evaluate();
        EXPECT_TRUE(IsPresetFile(UserFolder() / "1_Came"));
        EXPECT_TRUE(IsPresetFile(Root() / "New" / "1_Came"));
        EXPECT_EQ(NamesIn(Imports() / "User").size() + NamesIn(Imports() / "New").size(), 0u);
        EXPECT_TRUE(IsPresetFile(Imports() / "1_Came"));
    }
}

TEST_F(GuideSays, TheFolderIsChosenTypedOrTheUsualOne) {
    Says("Where your presets lie: a folder that you choose or type, and the usual one again.");
    const std::string usual = State().Text(kFolderText), other = host::PathText(folder_.Path() / "other");
    std::filesystem::create_directories(folder_.Path() / "other");
    Dialogs().AnswerText(other);
    Press(kChooseFolder);
    EXPECT_EQ(State().Text(kFolderText), other);
    Press(kResetFolder);
    EXPECT_EQ(State().Text(kFolderText), usual);
    Type(kFolderText, host::Data(other));
    EXPECT_EQ(State().Text(kFolderText), other);
}

TEST_F(GuideSays, LuckyIsRandomWithANewSeedAndEachComesOnce) {
    Says("Another preset in random order, with a new seed. Each comes once before one comes again.");
    std::map<double, int> seen;
    for (int i = 0; i < 2; ++i) {
        const double seed = scene().Real(kSeed);
        Press(6041);
        EXPECT_NE(scene().Real(kSeed), seed);
        ++seen[scene().Real(kPositionSlow)];
    }
    EXPECT_EQ(seen, (std::map<double, int>{{0.125, 1}, {0.5, 1}}));
}

// ---- How much

TEST_F(GuideSays, OneSliderEachHoldsTheShakeOfPlaceAndDirection) {
    Says("One slider each for all shake of the place and of the direction.");
    scene().Set(6020, 0);
    EXPECT_EQ(Strayed(Play()), 0);
    EXPECT_GT(Turned(Play()), 0.001);
    scene().Set(6020, 1);
    scene().Set(6021, 0);
    EXPECT_GT(Strayed(Play()), 0.1);
    EXPECT_EQ(Turned(Play()), 0);
}

TEST_F(GuideSays, TheScaleSuitsWhatTheShotIsAbout) {
    Says("The size of your world. The amounts suit a room and people at 100 %");
    double previous = 0;
    for (const std::int32_t button : {6184, 6185, 6186, 6187, 6188}) {
        Press(button);
        const double strayed = Strayed(Play());
        EXPECT_GT(strayed, previous) << button;
        previous = strayed;
        if (button == 6185) {
            EXPECT_EQ(scene().Real(6022), 1);
        }
    }
}

TEST_F(GuideSays, ASwitchTakesOneAxisAway) {
    Says("Switch a single axis, the zoom, the focus, the jolts or the target off and on.");
    State().Set(6011, 0);
    for (const Shot &shot : Play()) EXPECT_EQ(shot.matrix.off.y, 0);
    EXPECT_GT(Strayed(Play()), 0);
    scene().Set(6134, 0.05);
    scene().Set(6128, 0.05);
    const Shot drifted = Play().back();
    State().Set(6016, 0);
    EXPECT_EQ(Play().back().focal_length, scene().input->Data().Real(host::kCameraFocalLength));
    EXPECT_NE(scene().Camera().focus_distance, scene().input->Data().Real(host::kCameraFocusDistance));
    State().Set(6017, 0);
    EXPECT_EQ(Play().back().focus_distance, scene().input->Data().Real(host::kCameraFocusDistance));
    EXPECT_NE(drifted.focal_length, scene().Camera().focal_length);
    Type(6181, host::Data("118"));
    const Shot jolted = Play().back();
    State().Set(6145, 0);
    EXPECT_FALSE(Play().back() == jolted);
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {900, 0, 10}));
    const Shot turned = Play().back();
    State().Set(6018, 0);
    EXPECT_GT(Difference(Play().back(), turned), 0.5);
}

// ---- Lag and swing

TEST_F(GuideSays, ZeroSmoothingFollowsAtOnceAndMoreFollowsLater) {
    Says("How late the operator follows the input camera. 0 % follows at once.");
    Still();
    scene().StopFilters();
    double previous = 1e9;
    for (const double smooth : {0.0, 0.3, 0.6}) {
        scene().Set(6155, smooth);
        scene().PlaceInput({0, 0, 0}, {0, 0, 0});
        scene().Show(0);
        scene().PlaceInput({100, 0, 0}, {0, 0, 0});
        scene().Show(1);
        const double x = scene().Position().x;
        if (smooth == 0) {
            EXPECT_NEAR(x, 100, 1e-9);
        }
        EXPECT_LT(x, previous);
        previous = x;
    }
}

TEST_F(GuideSays, TheCameraSwingsPastWhereAFastInputStops) {
    Says("How far the camera swings past the place where the input stops. Slow moves swing less.");
    Still();
    scene().StopFilters();
    const auto farthest = [this](double step) {
        double most = 0;
        for (int frame = 0; frame <= 100; ++frame) {
            scene().PlaceInput({step * std::min(frame, 20), 0, 0}, {0, 0, 0});
            scene().Show(frame);
            most = std::max(most, scene().Position().x);
        }
        return most / (20 * step);
    };
    for (const double amount : {0.25, 0.6}) {
        scene().Set(6153, amount);
        const double fast = farthest(20) - 1, slow = farthest(0.5) - 1;
        EXPECT_GT(fast, 0.001) << amount;
        EXPECT_LT(slow, 0.9 * fast) << amount;
    }
}

TEST_F(GuideSays, ZeroInitialsSitsOnTheInputAndShakesThere) {
    Says("No lag and no swing: the camera sits on the input camera and shakes there.");
    Press(6174);
    Still();
    scene().PlaceInput({0, 0, 0}, {0, 0, 0});
    scene().Show(0);
    scene().PlaceInput({100, 50, 0}, {0.5, 0, 0});
    scene().Show(1);
    EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-9);
    scene().Set(kPositionSlow, 0.5);
    Play();
    EXPECT_GT(host::Length(scene().Position() - scene().input->GlobalMatrix().off), 0.01);
}

// ---- Shake

TEST_F(GuideSays, AButtonClearsThreeSliders) {
    Says("Clear three sliders at once.");
    for (const auto &[button, ids] :
         std::map<std::int32_t, std::vector<std::int32_t>>{{6042, {6024, 6025, 6026}}, {6043, {6028, 6029, 6030}}}) {
        for (const std::int32_t id : ids) scene().Set(id, 0.3);
        Press(button);
        for (const std::int32_t id : ids) EXPECT_EQ(scene().Real(id), 0) << id;
    }
}

TEST_F(GuideSays, TheLayersGoFromSwayToTremor) {
    Says("Sway: the body that balances.");
    Says("Breath, steps and corrections.");
    Says("Tremor, engines, hard ground.");
    // How often the height changes its direction.
    const auto turns = [this](std::int32_t layer) {
        Still();
        scene().StopFilters();
        scene().Set(layer, 0.5);
        const std::vector<Shot> shots = Play(400);
        int count = 0;
        for (std::size_t i = 2; i < shots.size(); ++i)
            count += (shots[i].matrix.off.y - shots[i - 1].matrix.off.y) *
                         (shots[i - 1].matrix.off.y - shots[i - 2].matrix.off.y) <
                     0;
        return count;
    };
    const int slow = turns(6024), medium = turns(6025), fast = turns(6026);
    EXPECT_LT(3 * slow, medium);
    EXPECT_LT(3 * medium, fast);
}

// ---- Jolts

TEST_F(GuideSays, OneKnockComesInEveryIntervalAndOnListedFrames) {
    Says("One knock in every interval, at a frame that the seed picks; at 0 none.");
    Says("Frames on which a knock comes in any case, separated by commas: 24, 96, 97.");
    scene().Set(6149, 0);
    scene().Set(6140, 100);
    // Hit or not is seen by the target of the envelope: right after a knock it is the height less what falls off.
    const auto hits = [this] {
        std::vector<int> frames;
        for (int frame = 0; frame < 120; ++frame) {
            scene().Show(frame);
            if (scene().Real(10045) > -10) frames.push_back(frame);
        }
        return frames;
    };
    EXPECT_EQ(hits(), std::vector<int>{});
    Type(6181, host::Data("24, 96, 97"));
    EXPECT_EQ(hits(), (std::vector<int>{24, 96, 97}));
    Type(6181, host::Data(""));
    State().Set(6038, host::Data(host::MakeTime(40, 30)));
    const std::vector<int> by_interval = hits();
    ASSERT_EQ(by_interval.size(), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(by_interval[static_cast<std::size_t>(i)] / 40, i);
    scene().Set(kSeed, 54321);
    EXPECT_NE(hits(), by_interval);
}

// ---- Target and focus

TEST_F(GuideSays, TheCameraTurnsToTheTargetAndFocusesOnTheObject) {
    Says("The camera turns to it instead of taking the input camera's angles");
    Says("The focus follows its distance");
    Still();
    scene().StopFilters();
    scene().PlaceInput({0, 0, 0}, {1, 0.3, 0});
    host::Object *subject = scene().AddObject(host::kTypeNull, {0, 0, 700});
    scene().Link(kTarget, subject);
    scene().Link(kFocusObject, subject);
    Play(3);
    EXPECT_LT(host::Length(scene().Camera().matrix.v3 - host::Vector{0, 0, 1}), 1e-9);
    EXPECT_NEAR(scene().Camera().focus_distance, 700, 1e-9);
}

// ---- Lens

TEST_F(GuideSays, DriftsGoWithFocalLengthAndDistance) {
    Says("A hand that never rests on the zoom ring, in parts of the focal length.");
    Says("A focus puller who searches, in parts of the distance.");
    Still();
    scene().StopFilters();
    scene().Set(6134, 0.05);
    scene().Set(6128, 0.05);
    const auto drift = [this](double times) {
        scene().input->Data().SetReal(host::kCameraFocalLength, 36 * times);
        scene().input->Data().SetReal(host::kCameraFocusDistance, 500 * times);
        std::vector<double> values;
        for (const Shot &shot : Play(50)) {
            values.push_back(shot.focal_length - 36 * times);
            values.push_back(shot.focus_distance - 500 * times);
        }
        return values;
    };
    const std::vector<double> once = drift(1), twice = drift(2);
    for (std::size_t i = 0; i < once.size(); ++i) EXPECT_NEAR(twice[i], 2 * once[i], 1e-9) << i;
    EXPECT_GT(*std::max_element(once.begin(), once.end()), 0.01);
}

// ---- Seed, time and ratios

TEST_F(GuideSays, TheSeedIsTheTake) {
    Says("Another seed is another take of the same shot. Two cameras with the same seed shake alike.");
    const std::vector<Shot> first = Play(50);
    scene().Set(kSeed, 4711);
    EXPECT_GT(Difference(Play(50)[40], first[40]), 0.01);
    scene().Set(kSeed, 12345);
    const std::vector<Shot> again = Play(50);
    for (std::size_t i = 0; i < first.size(); ++i) EXPECT_TRUE(again[i] == first[i]) << i;
}

TEST_F(GuideSays, TheOffsetSlidesTheShakeInTime) {
    Says("Slides the shake in time, to bring a good moment to the frame where you need it.");
    scene().StopFilters();
    scene().Set(kVariation, 0);
    const std::vector<Shot> plain = Play(100);
    scene().Set(kTimeOffset, 30);
    const std::vector<Shot> slid = Play(50);
    for (std::size_t i = 0; i < slid.size(); ++i) EXPECT_LT(Difference(slid[i], plain[i + 30]), 1e-9) << i;
}

TEST_F(GuideSays, ThePaceActsAsItsSquare) {
    Says("It acts as its square: 200 % is four times as fast.");
    scene().StopFilters();
    scene().Set(kVariation, 0);
    const std::vector<Shot> plain = Play(100);
    scene().Set(kSpeed, 2);
    const std::vector<Shot> fast = Play(25);
    for (std::size_t i = 0; i < fast.size(); ++i) EXPECT_LT(Difference(fast[i], plain[4 * i]), 1e-9) << i;
}

TEST_F(GuideSays, RatiosAreSharesOfTheAxes) {
    Says("Shares of the axes and angles in shake and jolts");
    scene().StopFilters();
    const std::vector<Shot> plain = Play(50);
    scene().Set(6077, 2);
    const std::vector<Shot> doubled = Play(50);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        EXPECT_NEAR(doubled[i].matrix.off.y, 2 * plain[i].matrix.off.y, 1e-9) << i;
        EXPECT_NEAR(doubled[i].matrix.off.x, plain[i].matrix.off.x, 1e-9) << i;
    }
}

// ---- Keys instead of the tag

TEST_F(GuideSays, ABakeWritesAKeyForEachFrameAndTheTagSleeps) {
    Says(
        "A bake writes the motion as keys of the tag's camera, one for each frame of the document: position, rotation, "
        "focal length and focus distance.");
    Says("The tag stays and sleeps");
    scene().document->SetRange(0, 20);
    for (const std::int32_t bake : {kQuickBake, kBruteForceBake}) {
        Press(bake);
        ASSERT_EQ(scene().camera->Tracks().size(), 8u);
        for (const TableDescID &id :
             {host::MakeId(903, 1000), host::MakeId(903, 1001), host::MakeId(903, 1002), host::MakeId(904, 1000),
              host::MakeId(904, 1001), host::MakeId(904, 1002), host::MakeId(500), host::MakeId(1010)}) {
            const host::Track *track = scene().camera->FindTrack(id);
            ASSERT_NE(track, nullptr);
            EXPECT_EQ(track->GetCurve()->KeyCount(), 21);
        }
        scene().Set(kPositionSlow, 9);
        scene().Show(3);
        const Shot baked = scene().Camera();
        scene().Set(kPositionSlow, 0.125);
        scene().Show(4);
        scene().Show(3);
        EXPECT_TRUE(scene().Camera() == baked);
        Press(kUnBakeButton);
        EXPECT_TRUE(scene().camera->Tracks().empty());
    }
}

TEST_F(GuideSays, AQuickBakeDoesNotSeeAZoomButABruteForceBakeDoes) {
    Says("Quick Bake does not see a zoom; use Brute Force Bake.");
    scene().document->SetRange(0, 20);
    Animate(scene().input, host::MakeId(500), 30, {{0, 28}, {20, 48}});
    scene().StopFilters();
    for (const std::int32_t bake : {kQuickBake, kBruteForceBake}) {
        Press(bake);
        scene().Show(20);
        EXPECT_NEAR(scene().Camera().focal_length, bake == kQuickBake ? 28 : 48, 1e-9);
        Press(kUnBakeButton);
    }
}

TEST_F(GuideSays, UnBakeGivesTheKeysBackAtWholeFrames) {
    Says(
        "Removes all keys of the camera, gives back those that its position, rotation, focal length and focus distance "
        "had before the bake, at whole frames, and wakes the tag. Keys of other parameters do not come back");
    Animate(scene().camera, host::MakeId(500), 60, {{4, 40}, {19, 50}});  // frames 2 and 9.5
    Animate(scene().camera, host::MakeId(907), 30, {{0, 2}});
    Press(kBruteForceBake);
    Press(kUnBakeButton);
    ASSERT_EQ(scene().camera->Tracks().size(), 1u);
    const host::Curve *curve = scene().camera->Tracks()[0]->GetCurve();
    ASSERT_EQ(curve->KeyCount(), 2);
    EXPECT_EQ(host::Seconds(curve->KeyAt(1)->GetTime()) * 30, 9);
    EXPECT_NEAR(curve->KeyAt(1)->GetValue(), 40 + 10 * 7 / 7.5, 1e-9) << "the value at that whole frame";
    EXPECT_EQ(State().Whole(kBaked, 7), 0);
}

}  // namespace
