// The buttons that set parameters and make objects.
#include <cmath>
#include <set>

#include "host/scene/messages.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;

constexpr std::int32_t kZeroPosition = 6042, kZeroRotation = 6043, kZeroInitials = 6174, kRandomize = 6004,
                       kLucky = 6041, kCreateFocus = 6058, kCreateTarget = 6069, kHelp = 6172;

class Buttons : public WithPresets {
  protected:
    Buttons() {
        for (int i = 0; i < 5; ++i)
            BuiltIn("1_A", std::to_string(i + 1) + "_Shake" + std::to_string(i),
                    {{kPositionSlow, host::Data(0.1 * (i + 1))}});
        BuiltIn("1_A", "9_Still");
    }
    void SetUp() override {
        Start();
        scene().Evaluate();
        scene().document->Undo().Flush();
    }
    // Pressing is one step: undone, all is as it was; done again, all is as it became.
    void ExpectOneStep(std::int32_t button) {
        const host::Container before = State();
        Press(button);
        const host::Container after = State();
        EXPECT_EQ(scene().document->Undo().Steps(), 1u) << button;
        EXPECT_EQ(scene().document->Undo().Depth(), 0) << button;
        ASSERT_TRUE(scene().document->Undo().Undo());
        ExpectSameSettings(before);
        ASSERT_TRUE(scene().document->Undo().Redo());
        ExpectSameSettings(after);
    }
    void ExpectSameSettings(const host::Container &wanted) {
        for (std::int32_t id = 6000; id <= 6210; ++id) {
            if (!wanted.Has(id)) continue;
            ASSERT_TRUE(State().Has(id)) << id;
            EXPECT_TRUE(host::EqualData(*wanted.Find(id), *State().Find(id))) << id;
        }
        EXPECT_EQ(State().Whole(kPreset), wanted.Whole(kPreset));
    }
    void ExpectZeroed(std::int32_t button, const std::set<std::int32_t> &zeroed) {
        for (const std::int32_t id :
             {6024, 6025, 6026, 6028, 6029, 6030, 6153, 6155, 6156, 6034, 6161, 6071, 6154, 6035})
            scene().Set(id, 0.5);
        ExpectOneStep(button);
        for (const std::int32_t id :
             {6024, 6025, 6026, 6028, 6029, 6030, 6153, 6155, 6156, 6034, 6161, 6071, 6154, 6035})
            EXPECT_EQ(scene().Real(id), zeroed.count(id) ? 0 : 0.5) << id;
        ExpectNoPreset();
    }
};

TEST_F(Buttons, ZeroPosStopsTheShakeOfThePosition) { ExpectZeroed(kZeroPosition, {6024, 6025, 6026}); }

TEST_F(Buttons, ZeroRotStopsTheShakeOfTheRotation) { ExpectZeroed(kZeroRotation, {6028, 6029, 6030}); }

TEST_F(Buttons, ZeroInitialsStopsLagAndSwingOfTheInput) { ExpectZeroed(kZeroInitials, {6156, 6034, 6155, 6153}); }

TEST_F(Buttons, ZeroInitialsWithATargetLeavesTheInputsRotation) {
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {0, 0, 0}));
    ExpectZeroed(kZeroInitials, {6161, 6071, 6155, 6153});
}

TEST_F(Buttons, ZeroInitialsTakesATargetThatFollowsTheCameraForNone) {
    for (host::Object *target : {scene().camera, scene().AddObject(host::kTypeNull, {0, 0, 0}, scene().camera)}) {
        scene().Link(kTarget, target);
        scene().document->Undo().Flush();
        ExpectZeroed(kZeroInitials, {6156, 6034, 6155, 6153});
    }
}

TEST_F(Buttons, OfScalesSetTheOverallScaleAlone) {
    const std::pair<std::int32_t, double> scales[] = {{6184, 0.2}, {6185, 1}, {6186, 1.3}, {6187, 5}, {6188, 20}};
    for (const auto &[button, scale] : scales) {
        scene().document->Undo().Flush();
        host::Container wanted = State();
        wanted.SetReal(6022, scale);
        ExpectOneStep(button);
        ExpectSameSettings(wanted);
    }
}

TEST_F(Buttons, RandomizeSeedsDrawsFromTheSequence) {
    std::uint32_t state = 1;
    const auto draw = [&] {
        state = state * 214013u + 2531011u;
        return state >> 16 & 0x7FFF;
    };
    Press(kRandomize);
    const double first = scene().Real(kSeed);
    // Tags drew from the same sequence to shuffle their presets before.
    int skipped = 0;
    while (draw() != first && skipped < 1000) ++skipped;
    ASSERT_LT(skipped, 1000);
    for (int i = 0; i < 20; ++i) {
        Press(kRandomize);
        EXPECT_EQ(scene().Real(kSeed), draw());
    }
    EXPECT_EQ(State().Find(kSeed)->type, host::kDataReal);
}

TEST_F(Buttons, RandomizeSeedsIsOneStep) { ExpectOneStep(kRandomize); }

TEST_F(Buttons, RandomizeSeedsLeavesWhatIsNoWholeNumber) {
    for (const host::Data &seed : {host::Data(1.5), host::Data("seven"), host::Data(std::nan(""))}) {
        State().Set(kSeed, seed);
        Press(kRandomize);
        EXPECT_TRUE(host::EqualData(*State().Find(kSeed), seed));
    }
    State().Set(kSeed, host::Data(7));
    Press(kRandomize);
    EXPECT_EQ(State().Find(kSeed)->type, host::kDataReal);
}

TEST_F(Buttons, LuckyShowsEveryShakingPresetOnceBeforeAnyRepeats) {
    for (int round = 0; round < 3; ++round) {
        std::set<double> seen;
        for (int i = 0; i < 5; ++i) {
            Press(kLucky);
            EXPECT_TRUE(seen.insert(scene().Real(kPositionSlow)).second) << round << " " << i;
            EXPECT_EQ(State().Whole(3004, -1), i);
        }
        EXPECT_EQ(seen.count(0), 0u) << "the one that does not shake is not among them";
    }
}

TEST_F(Buttons, LuckyTakesTheUsersCategoryAndCustomWithANewSeed) {
    scene().Set(6025, 0.77);
    scene().Set(6022, 3);
    host::Object *target = scene().AddObject(host::kTypeNull, {1, 2, 3});
    scene().Link(kTarget, target);
    scene().Link(kFocusObject, target);
    const std::string folder = State().Text(kFolderText);
    Press(kLucky);
    EXPECT_EQ(State().Whole(kCategory), kUser);
    ExpectNoPreset();
    EXPECT_EQ(scene().Real(6025), 0) << "what the preset lacks is put back";
    EXPECT_EQ(scene().Real(6022), 3);
    EXPECT_EQ(State().Link(kTarget, scene().document), target);
    EXPECT_EQ(State().Link(kFocusObject, scene().document), target);
    EXPECT_EQ(State().Link(kInput, scene().document), scene().input);
    EXPECT_EQ(State().Text(kFolderText), folder);
    EXPECT_NE(scene().Real(kSeed), 12345);
}

TEST_F(Buttons, LuckyIsOneStep) { ExpectOneStep(kLucky); }

TEST_F(Buttons, LuckySurvivesAnyPosition) {
    for (const std::int32_t position : {-2147483647, -5, 100, 2147483647}) {
        State().Set(3004, host::Data(position));
        Press(kLucky);
        EXPECT_EQ(State().Whole(3004, -1), 0) << position;
    }
}

TEST_F(Buttons, LuckyWithoutAPresetThatShakesChangesNothing) {
    std::filesystem::remove_all(Root());
    Start();
    scene().Set(6025, 0.77);
    scene().document->Undo().Flush();
    const host::Container before = State();
    TableDescriptionCommand press{};
    press.id = host::MakeId(kLucky);
    EXPECT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
    EXPECT_TRUE(State() == before);
    EXPECT_EQ(scene().document->Undo().Steps(), 0u);
}

TEST_F(Buttons, AreOneStepWhoeverSendsTheMessage) {
    for (const std::int32_t button :
         {kZeroPosition, kZeroRotation, kZeroInitials, kRandomize, kLucky, kCreateFocus, kCreateTarget, 6184, 6188}) {
        scene().document->Undo().Flush();
        TableDescriptionCommand press{};
        press.id = host::MakeId(button);
        EXPECT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
        EXPECT_EQ(scene().document->Undo().Steps(), 1u) << button;
        EXPECT_EQ(scene().document->Undo().Depth(), 0) << button;
    }
}

TEST_F(Buttons, HelpOpensTheGuideThatComesWithTheModule) {
    const host::Container before = State();
    Press(kHelp);
    ASSERT_EQ(running_->App().requests.opened_pages.size(), 1u);
    const std::filesystem::path page = module_.parent_path() / "res" / "guide.html";
    EXPECT_TRUE(std::filesystem::is_regular_file(page));
    const std::string path = page.generic_u8string();
    EXPECT_EQ(running_->App().requests.opened_pages[0], (path[0] == '/' ? "file://" : "file:///") + path);
    EXPECT_TRUE(State() == before);
}

TEST_F(Buttons, ThatAreNoneAndMessagesWithoutDataDoNothing) {
    const host::Container before = State();
    const int events = running_->App().requests.events;
    scene().document->Undo().Flush();
    TableDescriptionCommand press{};
    for (const std::int32_t id : {0, -1, 5999, 6002, 2147483647}) {
        press.id = host::MakeId(id);
        EXPECT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
    }
    for (const std::int32_t message :
         {host::kMessageCommand, host::kMessagePostSetParameter, host::kMessageDocumentInfo, host::Message(1001090),
          host::Message(1018756), host::Message(424242)})
        EXPECT_TRUE(scene().tag->SendMessage(message, nullptr)) << message;
    TableDescriptionPostSetValue nothing{};
    EXPECT_TRUE(scene().tag->SendMessage(host::kMessagePostSetParameter, &nothing));
    TableGetCustomIcon no_icon{};
    EXPECT_FALSE(scene().tag->SendMessage(1001090, &no_icon));
    EXPECT_TRUE(State() == before);
    EXPECT_EQ(running_->App().requests.events, events);
}

TEST_F(Buttons, CreateMakesANullAtTheTopAndLinksIt) {
    const std::pair<std::int32_t, std::pair<std::int32_t, const char *>> creations[] = {
        {kCreateFocus, {kFocusObject, "Focus Null"}}, {kCreateTarget, {kTarget, "Target Null"}}};
    for (const auto &[button, expected] : creations) {
        scene().document->Undo().Flush();
        Press(button);
        auto *made = static_cast<host::Object *>(State().Link(expected.first, scene().document));
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(made->Name(), expected.second);
        EXPECT_EQ(made->Type(), host::kTypeNull);
        EXPECT_EQ(made, scene().document->FirstObject());
        EXPECT_EQ(host::Length(made->GlobalMatrix().off), 0);
        EXPECT_EQ(scene().document->Undo().Steps(), 1u);
        ASSERT_TRUE(scene().document->Undo().Undo());
        EXPECT_EQ(scene().document->FindObject(expected.second), nullptr);
        EXPECT_EQ(State().Link(expected.first, scene().document), nullptr) << "no dead link";
        ASSERT_TRUE(scene().document->Undo().Redo());
        EXPECT_NE(State().Link(expected.first, scene().document), nullptr);
    }
}

TEST_F(Buttons, OnATagWithoutADocumentDoNoHarm) {
    scene().camera->Remove();
    const std::unique_ptr<host::Object> removed(scene().camera);
    for (const std::int32_t button :
         {kZeroPosition, kZeroInitials, kRandomize, kLucky, kCreateFocus, kCreateTarget, 6187, 6046, 6175, 6047, kHelp})
        Press(button);
    EXPECT_EQ(scene().Real(6022), 5);
    EXPECT_EQ(State().Link(kTarget, scene().document), nullptr);
}

}  // namespace
