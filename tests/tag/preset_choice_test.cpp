// Lists of categories and presets, choosing from them, and the library behind them.
#include <chrono>
#include <cmath>
#include <fstream>

#include "host/files/faults.h"
#include "host/ui/attribute_manager.h"
#include "tests/support/links.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;
using Entry = std::pair<std::int32_t, std::string>;

class Presets : public WithPresets {};

// ---- Lists

TEST_F(Presets, ListCategoriesByShorterPrefixFirst) {
    for (const char *category : {"10_Run", "2_Walk", "1_Stand", "Handheld"}) BuiltIn(category, "1_A");
    Start();
    const auto entries = Entries(kCategory);
    ASSERT_EQ(entries.size(), 6u);
    Names names;
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(entries[i].first, static_cast<std::int32_t>(i));
        names.push_back(entries[i].second);
    }
    // "Handheld" has no prefix: it is compared whole, and digits come before letters.
    EXPECT_EQ(names, (Names{"Stand", "Walk", "Run", "Handheld"}));
    EXPECT_EQ(entries[4], (Entry{kUser, "User"}));
    EXPECT_EQ(entries[5], (Entry{kAll, "All"}));
}

TEST_F(Presets, ListThePresetsOfTheChosenCategoryAndThenTheFixedEntries) {
    BuiltIn("1_A", "2_Second");
    BuiltIn("1_A", "10_Third");
    BuiltIn("1_A", "1_First");
    BuiltIn("2_B", "1_Other");
    Start();
    EXPECT_EQ(
        Entries(kPreset),
        (std::vector<Entry>{{0, "First"}, {1, "Second"}, {2, "Third"}, {6179, ""}, {5805, ""}, {5803, "Custom"}}));
    Choose(kCategory, 1);
    EXPECT_EQ(PresetNames(), Names{"Other"});
    EXPECT_EQ(State().Whole(3005), 1);
}

TEST_F(Presets, AnEmptyCategoryListsTheFixedEntriesAlone) {
    fs::create_directories(Root() / "1_Empty");
    Start();
    EXPECT_EQ(Entries(kPreset), (std::vector<Entry>{{6179, ""}, {5805, ""}, {5803, "Custom"}}));
    EXPECT_EQ(Entries(kCategory).front(), (Entry{0, "Empty"}));
}

TEST_F(Presets, ThatAreNotThereAreNotChangedByAnEdit) {
    Start();
    Type(kPositionSlow, host::Data(0.9));
    EXPECT_EQ(State().Whole(kChanged), 0);
}

TEST_F(Presets, AllListsBuiltInOnesAndTheUsers) {
    BuiltIn("1_A", "3_C");
    BuiltIn("2_B", "1_A");
    Users("02_B");
    Start();
    Choose(kCategory, kAll);
    EXPECT_EQ(PresetNames(), (Names{"A", "C", "B"})) << "shorter prefixes first";
    Choose(kCategory, kUser);
    EXPECT_EQ(PresetNames(), Names{"B"});
}

TEST_F(Presets, ShowTheirOwnNameOrThatOfTheFile) {
    WritePresetFile(Root() / "1_A" / "1_file", PresetOf("Own name", {}));
    WritePresetFile(Root() / "1_A" / "2_by its file", PresetOf("", {}));
    Start();
    EXPECT_EQ(PresetNames(), (Names{"Own name", "by its file"}));
}

TEST_F(Presets, PassOverWhatIsNoPresetFile) {
    BuiltIn("1_A", "5_Good");
    const auto write = [&](const char *name, const std::string &bytes) {
        std::ofstream(Root() / "1_A" / name, std::ios::binary) << bytes;
    };
    std::ifstream good(Root() / "1_A" / "5_Good", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(good)), std::istreambuf_iterator<char>());
    write("1_empty", "");
    write("2_text", "a preset, really");
    write("3_code", bytes.substr(0, 8) + "XXXX" + bytes.substr(12));
    write("4_huge", bytes + std::string(2000000, 'x'));
    write("._hidden", bytes);
    Start();
    EXPECT_EQ(PresetNames(), Names{"Good"});
    EXPECT_EQ(State().Whole(1040441), 1);
}

TEST_F(Presets, CutOffAnywhereAreNoPresetsAndDoNoHarm) {
    BuiltIn("1_A", "1_Good", {{kPositionSlow, host::Data(0.5)}, {6181, host::Data("1,2,3")}});
    std::ifstream good(Root() / "1_A" / "1_Good", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(good)), std::istreambuf_iterator<char>());
    fs::create_directories(Root() / "2_Cut");
    for (std::size_t length = 0; length < bytes.size(); ++length)
        std::ofstream(Root() / "2_Cut" / ("1_" + std::to_string(length)), std::ios::binary) << bytes.substr(0, length);
    Start();
    EXPECT_EQ(State().Whole(1040441), 1);
}

TEST_F(Presets, ALinkOutOfTheFolderIsNotFollowed) {
    if (!test_support::CanLink(folder_.Path())) GTEST_SKIP() << "this system makes no symbolic links";
    BuiltIn("1_A", "1_Good");
    WritePresetFile(folder_.Path() / "outside" / "1_Secret", PresetOf("Secret", {}));
    fs::create_symlink(folder_.Path() / "outside" / "1_Secret", Root() / "1_A" / "2_Link");
    fs::create_directory_symlink(folder_.Path() / "outside", Root() / "2_Link");
    Start();
    EXPECT_EQ(PresetNames(), Names{"Good"});
    EXPECT_EQ(Entries(kCategory).size(), 3u);
}

TEST_F(Presets, EndTheirListAtFourThousand) {
    BuiltIn("1_A", "1_0000");
    for (int i = 1; i < 4100; ++i)
        fs::copy_file(Root() / "1_A" / "1_0000", Root() / "1_A" / ("1_" + std::to_string(10000 + i)));
    Start();
    EXPECT_EQ(PresetNames().size(), 4000u);
    EXPECT_EQ(State().Whole(1040441), 4000);
    Choose(kPreset, 3999);
    EXPECT_EQ(State().Whole(kPreset), 3999);
}

// ---- The library

TEST_F(Presets, AreAllHeldByTheTagInReadingOrder) {
    BuiltIn("10_Late", "1_A");
    BuiltIn("10_Late", "2_B");
    BuiltIn("2_Early", "1_C");
    Users("00_Mine");
    Users("01_More");
    Start();
    ASSERT_EQ(State().Whole(1040441), 5);
    const host::Container &category = *State().Find(3000)->GetContainer(), &index = *State().Find(3001)->GetContainer(),
                          &preset = *State().Find(3002)->GetContainer();
    // The folders come by name: "10_Late" is read before "2_Early", though the panel shows it after.
    const std::int32_t categories[] = {0, 0, 1, 2, 2}, indices[] = {0, 1, 0, 0, 1};
    const char *names[] = {"A", "B", "C", "Mine", "More"};
    for (std::int32_t n = 0; n < 5; ++n) {
        EXPECT_EQ(category.Whole(n), categories[n]) << n;
        EXPECT_EQ(index.Whole(n), indices[n]) << n;
        EXPECT_EQ(preset.Find(n)->GetContainer()->Text(1002), names[n]) << n;
    }
}

TEST_F(Presets, AfterASubFolderOfACategoryAreNotRead) {
    BuiltIn("1_A", "a_before");
    BuiltIn("1_A", "z_after");
    fs::create_directories(Root() / "1_A" / "m_folder");
    Start();
    EXPECT_EQ(State().Whole(1040441), 1);
}

TEST_F(Presets, AfterASubFolderOfTheUsersFolderAreRead) {
    Users("00_A");
    Users("zz_Z");
    fs::create_directories(UserFolder() / "Exports");
    Start();
    EXPECT_EQ(State().Whole(1040441), 2);
}

TEST_F(Presets, AreMarkedByTheirFileWhenTheyShake) {
    BuiltIn("1_A", "1_Still", {{6134, host::Data(0.0)}});
    BuiltIn("1_A", "2_Zoom", {{6136, host::Data(0.25)}});
    BuiltIn("1_A", "3_Jolt", {{6038, host::Data(host::MakeTime(10, 30))}});
    Start();
    const host::Container &preset = *State().Find(3002)->GetContainer();
    EXPECT_FALSE(preset.Find(0)->GetContainer()->Has(3003));
    EXPECT_EQ(preset.Find(1)->GetContainer()->Text(3003), "2_Zoom");
    EXPECT_EQ(preset.Find(2)->GetContainer()->Text(3003), "3_Jolt");
}

TEST_F(Presets, ThatSomebodyElseChangedAreReadAnew) {
    BuiltIn("1_A", "1_A", {{kPositionSlow, host::Data(0.1)}});
    Start();
    for (int i = 0; i < 3; ++i) {
        BuiltIn("1_A", "1_A", {{kPositionSlow, host::Data(0.2 + i)}});
        const Scene second(*running_);
        const host::Container &preset = *second.tag->Data().Find(3002)->GetContainer();
        EXPECT_EQ(preset.Find(0)->GetContainer()->Real(kPositionSlow), 0.2 + i);
        EXPECT_EQ(second.tag->Data().Real(kPositionSlow), 0.2 + i) << "and applied to a new tag";
    }
}

// ---- A new tag

TEST_F(Presets, TheFirstOfTheFirstCategoryIsANewTagsBeginning) {
    BuiltIn("10_Late", "1_Wrong", {{kPositionSlow, host::Data(0.9)}});
    BuiltIn("2_Early", "10_Wrong", {{kPositionSlow, host::Data(0.8)}});
    BuiltIn("2_Early", "9_Right", {{kPositionSlow, host::Data(0.125)}});
    Start();
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125);
    EXPECT_EQ(scene().Real(6022), 1);
    EXPECT_EQ(State().Whole(kPreset, -1), 0);
    EXPECT_EQ(State().Whole(3005, 7), 0);
    EXPECT_EQ(State().Whole(3006, 7), 0);
    EXPECT_EQ(State().Text(kAppliedName), "Right");
    EXPECT_EQ(scene().Real(kAppliedValue), 0);
    EXPECT_EQ(State().Whole(kAppliedPosition, -1), 0);
    EXPECT_EQ(State().Whole(kChanged, 7), 0);
}

TEST_F(Presets, BeginANewTagAtAnOverallScaleOfOne) {
    BuiltIn("1_A", "1_B", {{6022, host::Data(4.0)}});
    StartWithoutEvaluation();
    scene().Set(6022, 7);
    scene().Evaluate();
    EXPECT_EQ(scene().Real(6022), 1) << "neither what stood there nor what the preset holds";
}

TEST_F(Presets, BeginANewTagAtTheFirstCategory) {
    BuiltIn("1_A", "1_First", {{kPositionSlow, host::Data(0.125)}});
    BuiltIn("2_B", "1_Other", {{kPositionSlow, host::Data(0.75)}});
    StartWithoutEvaluation();
    for (const std::int32_t category : {1, kUser, kAll, -3}) {
        State().Set(kFirstRun, 1);
        State().Set(kCategory, category);
        scene().Evaluate();
        EXPECT_EQ(State().Whole(kCategory, 7), 0) << category;
        EXPECT_EQ(PresetNames(), std::vector<std::string>{"First"}) << category;
        EXPECT_EQ(scene().Real(kPositionSlow), 0.125) << category;
    }
}

TEST_F(Presets, AreNotAppliedToANewTagWhoseInputIsItsOwnCamera) {
    BuiltIn("1_A", "1_B", {{kPositionSlow, host::Data(0.125)}});
    StartWithoutEvaluation();
    scene().Link(kInput, scene().camera);
    scene().Set(kPositionSlow, 0.75);
    scene().Set(6022, 7);
    State().Set(kPreset, host::Data(kCustom));
    scene().Evaluate();
    EXPECT_EQ(scene().Real(kPositionSlow), 0.75);
    EXPECT_EQ(scene().Real(6022), 7);
    EXPECT_EQ(State().Whole(kPreset), kCustom);
    EXPECT_EQ(State().Whole(kFirstRun, 7), 0) << "and it is set up all the same";
}

TEST_F(Presets, WithoutANameLeaveANewTagAtCustomWithTheirValues) {
    WritePresetFile(Root() / "1_A" / "1_B", PresetOf("", {{kPositionSlow, host::Data(0.125)}}));
    Start();
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125);
    ExpectNoPreset();
    EXPECT_EQ(State().Whole(kChanged), 1);
    EXPECT_EQ(scene().Real(kAppliedValue), kCustom);
}

TEST_F(Presets, OfTheUserAloneLeaveANewTagAtItsDefaults) {
    Users("00_Mine", {{kPositionSlow, host::Data(0.5)}});
    Start();
    EXPECT_EQ(scene().Real(kPositionSlow), 0);
    EXPECT_EQ(scene().Real(6153), 0.25);
    ExpectNoPreset();
}

// ---- Choosing

class ChosenPresets : public WithPresets {
  protected:
    ChosenPresets() {
        BuiltIn("1_A", "1_First", {{kPositionSlow, host::Data(0.125)}});
        BuiltIn("1_A", "2_Second",
                {{kPositionSlow, host::Data(0.25)}, {6181, host::Data("5,6")}, {6012, host::Data(0)}});
        BuiltIn("2_B", "1_Third", {{kPositionSlow, host::Data(0.5)}});
    }
    void SetUp() override { Start(); }
};

TEST_F(ChosenPresets, AreAppliedAndRemembered) {
    Choose(kPreset, 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.25);
    EXPECT_EQ(State().Text(6181), "5,6");
    EXPECT_EQ(State().Whole(6012, 7), 0);
    EXPECT_EQ(State().Whole(kPreset), 1);
    EXPECT_EQ(State().Whole(3006), 1);
    EXPECT_EQ(State().Whole(kAppliedPosition), 1);
    EXPECT_EQ(State().Text(kAppliedName), "Second");
    EXPECT_EQ(scene().Real(kAppliedValue), 1);
    const std::string path = State().Text(kAppliedPath);
    EXPECT_NE(path.find("2_second"), std::string::npos) << "in lower case: " << path;
    EXPECT_EQ(State().Find(10049)->GetContainer()->Count(), 2);
    EXPECT_EQ(State().Find(10050)->GetContainer()->Real(kPositionSlow), 0.25);
}

TEST_F(ChosenPresets, PutEverythingThatTheyLackBackToItsDefault) {
    for (const std::int32_t id : {6025, 6026, 6034, 6142, 6153, 6155}) scene().Set(id, 0.77);
    State().Set(6181, host::Data("1,2"));
    State().Set(6209, host::Data("1,2"));
    State().Set(6038, host::Data(host::MakeTime(7, 30)));
    State().Set(6010, 0);
    Choose(kPreset, 0);
    for (const auto &[id, value] :
         std::map<std::int32_t, double>{{6025, 0}, {6026, 0}, {6034, 0.55}, {6142, 12345}, {6153, 0.25}, {6155, 0.25}})
        EXPECT_EQ(scene().Real(id), value) << id;
    EXPECT_EQ(State().Text(6181), "Numbers seperated by commas");
    EXPECT_EQ(State().Text(6209), "Numbers seperated by commas");
    EXPECT_EQ(host::Seconds(State().GetTime(6038)), 0);
    EXPECT_EQ(State().Whole(6010), 1);
}

TEST_F(ChosenPresets, NeverTouchTheLinksTheScaleAndTheFolder) {
    host::Object *target = scene().AddObject(host::kTypeNull, {1, 2, 3});
    Values own = {{6022, host::Data(9.0)}, {6178, host::Data("/elsewhere")}};
    for (const std::int32_t id : {6001, 6057, 6068}) own[id] = host::Data(1);
    WritePresetFile(Root() / "1_A" / "2_Second", PresetOf("Second", own));
    scene().Link(kTarget, target);
    scene().Link(kFocusObject, target);
    scene().Set(6022, 3);
    const std::string shown = State().Text(6178);
    Choose(kPreset, 1);
    EXPECT_EQ(State().Link(kInput, scene().document), scene().input);
    EXPECT_EQ(State().Link(kTarget, scene().document), target);
    EXPECT_EQ(State().Link(kFocusObject, scene().document), target);
    EXPECT_EQ(scene().Real(6022), 3);
    EXPECT_EQ(State().Text(6178), shown);
}

TEST_F(ChosenPresets, AreOneStepToUndo) {
    scene().Set(6025, 0.77);
    const host::Container before = State();
    Choose(kPreset, 1);
    ASSERT_NE(scene().Real(kPositionSlow), before.Real(kPositionSlow));
    ASSERT_TRUE(scene().document->Undo().Undo());
    for (const std::int32_t id : {6025, kPositionSlow}) EXPECT_EQ(scene().Real(id), before.Real(id)) << id;
    EXPECT_EQ(State().Text(6181), before.Text(6181));
    EXPECT_EQ(State().Whole(kPreset), before.Whole(kPreset));
}

TEST_F(ChosenPresets, CustomChangesNoValue) {
    Choose(kPreset, 1);
    const host::Container before = State();
    Choose(kPreset, kCustom);
    for (std::int32_t id = 6000; id <= 6210; ++id) {
        ASSERT_EQ(before.Has(id), State().Has(id)) << id;
        if (before.Has(id)) {
            EXPECT_TRUE(host::EqualData(*before.Find(id), *State().Find(id))) << id;
        }
    }
    EXPECT_EQ(State().Whole(kPreset), kCustom);
    EXPECT_EQ(State().Whole(kAppliedPosition), kCustom);
    EXPECT_EQ(State().Text(kAppliedPath), "");
}

TEST_F(ChosenPresets, TheEmptyEntriesAndValuesWithoutAPresetApplyNothing) {
    Choose(kPreset, 1);
    scene().Set(6025, 0.77);
    for (const std::int32_t value : {6179, 5805, 2, 4000, -1, 2147483647}) {
        // Cycles take any number here; a host may hand over what it stored.
        host::EditParameter(scene().tag, host::MakeId(kPreset), host::Data(value));
        EXPECT_EQ(State().Whole(kPreset), 1) << value;
        EXPECT_EQ(scene().Real(6025), 0.77) << value;
    }
}

TEST_F(ChosenPresets, ThatAreGoneByThenApplyNothing) {
    fs::remove(Root() / "1_A" / "2_Second");
    scene().Set(6025, 0.77);
    Choose(kPreset, 1);
    EXPECT_EQ(State().Whole(kPreset, 7), 0);
    EXPECT_EQ(scene().Real(6025), 0.77);
}

TEST_F(ChosenPresets, InAnotherCategoryAreCustomHoweverNothingIsChosenThere) {
    BuiltIn("2_B", "2_Fourth");
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    ASSERT_EQ(PresetNames(), (Names{"Third", "Fourth"}));
    for (const std::int32_t value : {6179, 5805, 2}) {
        host::EditParameter(scene().tag, host::MakeId(kPreset), host::Data(value));
        EXPECT_EQ(State().Whole(kPreset), kCustom) << value;
        Press(kDelete, true);
        EXPECT_EQ(NamesIn(Root() / "2_B"), (Names{"1_Third", "2_Fourth"})) << value;
    }
    fs::remove(Root() / "2_B" / "2_Fourth");
    Choose(kPreset, 1);
    EXPECT_EQ(State().Whole(kPreset), kCustom) << "its file is gone, and \"Second\" is not in this list";
    Choose(kCategory, 0);
    EXPECT_EQ(State().Whole(kPreset), 1) << "\"Second\" is what the settings are";
}

TEST_F(ChosenPresets, AreNoLongerWhatTheSettingsAreWhenTheirFileHoldsOtherValues) {
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    BuiltIn("1_A", "2_Second", {{kPositionSlow, host::Data(0.75)}});
    Choose(kCategory, 0);
    EXPECT_EQ(State().Whole(kPreset), kCustom);
}

TEST_F(ChosenPresets, AreNotDeletedByAValueThatChoseNone) {
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    State().Set(kPreset, 0);
    Press(kDelete, true);
    EXPECT_EQ(NamesIn(Root() / "2_B"), Names{"1_Third"});
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"1_First", "2_Second"}));
}

TEST_F(ChosenPresets, AreReadAsTheirFileIsNow) {
    BuiltIn("1_A", "2_Second", {{kPositionSlow, host::Data(0.75)}});
    Choose(kPreset, 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.75);
}

TEST_F(ChosenPresets, AreReadAsTheirFileIsNowThoughItsTimeIsTheSame) {
    // The clock of files may lag behind: the same second is given to files written after it.
    const fs::path file = Root() / "1_A" / "2_Second";
    const auto a_second_ago = fs::file_time_type::clock::now() - std::chrono::seconds(1);
    for (const double slow : {0.5, 0.75}) {
        BuiltIn("1_A", "2_Second", {{kPositionSlow, host::Data(slow)}});
        fs::last_write_time(file, a_second_ago);
        Choose(kPreset, 1);
        EXPECT_EQ(scene().Real(kPositionSlow), slow);
        Choose(kPreset, 0);
    }
}

TEST_F(ChosenPresets, AreAppliedAsSoonAsTheirFileCanBeReadAgain) {
    const fs::path file = Root() / "1_A" / "2_Second";
    bool came_through = false;
    for (std::int64_t nth = 1; !came_through; ++nth) {
        ASSERT_LT(nth, 50);
        const double slow = 0.5 + 0.01 * static_cast<double>(nth);
        BuiltIn("1_A", "2_Second", {{kPositionSlow, host::Data(slow)}});
        fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(400 + nth));
        host::ArmFileFault(nth, host::FileFault::kFails);
        Choose(kPreset, 1);
        came_through = host::FileUses() < nth;
        host::ArmFileFault(0, host::FileFault::kNone);
        Choose(kPreset, 0);
        Choose(kPreset, 1);
        EXPECT_EQ(scene().Real(kPositionSlow), slow) << "after use " << nth << " of the file system failed";
        Choose(kPreset, 0);
    }
}

TEST_F(ChosenPresets, ACategoryAppliesNothingByItself) {
    scene().Set(6025, 0.77);
    Choose(kCategory, 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125);
    EXPECT_EQ(scene().Real(6025), 0.77);
    EXPECT_EQ(State().Whole(kPreset), kCustom) << "the preset that is applied is not in that list";
    Choose(kCategory, kAll);
    EXPECT_EQ(PresetNames()[static_cast<std::size_t>(State().Whole(kPreset))], "First");
    Choose(kCategory, 0);
    EXPECT_EQ(State().Whole(kPreset, 7), 0);
}

TEST_F(ChosenPresets, AreChosenFromACopiedTagToo) {
    auto *camera = static_cast<host::Object *>(scene().camera->Clone(0, nullptr));
    scene().document->InsertObject(camera, nullptr);
    host::Tag *copy = camera->FindTag(kTag);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->Data().Real(kPositionSlow), 0.125);
    ASSERT_TRUE(host::EditParameter(copy, host::MakeId(kPreset), host::Data(1)));
    EXPECT_EQ(copy->Data().Real(kPositionSlow), 0.25);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125);
}

// ---- A preset from a stranger

TEST_F(ChosenPresets, HoldTheirValuesToTheLimitsAndTypes) {
    WritePresetFile(Root() / "1_A" / "2_Second", PresetOf("Second", {{6155, host::Data(7.0)},
                                                                     {6153, host::Data(-1.0)},
                                                                     {6020, host::Data(3)},
                                                                     {6021, host::Data(std::nan(""))},
                                                                     {6024, host::Data(HUGE_VAL)},
                                                                     {6025, host::Data("much")},
                                                                     {6026, host::Data(host::Vector{1, 2, 3})},
                                                                     {6142, host::Data(1e9)},
                                                                     {6181, host::Data(5)},
                                                                     {6038, host::Data(0.5)},
                                                                     {6010, host::Data("off")},
                                                                     {6011, host::Data(0.0)}}));
    Choose(kPreset, 1);
    for (const auto &[id, value] : std::map<std::int32_t, double>{
             {6155, 1}, {6153, 0}, {6020, 3}, {6021, 1}, {6024, 0}, {6025, 0}, {6026, 0}, {6142, 99999}}) {
        EXPECT_EQ(scene().Real(id), value) << id;
        EXPECT_EQ(State().Find(id)->type, host::kDataReal) << id;
    }
    EXPECT_EQ(State().Text(6181), "Numbers seperated by commas");
    EXPECT_EQ(host::Seconds(State().GetTime(6038)), 0);
    EXPECT_EQ(State().Whole(6010), 1);
    EXPECT_EQ(State().Whole(6011, 7), 0);
}

TEST_F(ChosenPresets, HoldTheirIntervalToTimesFromZeroOn) {
    const std::pair<TableTime, double> intervals[] = {
        {{15, 30}, 0.5}, {{-15, 30}, 0}, {{1, 0}, 0}, {{std::nan(""), 30}, 0}, {{HUGE_VAL, 1}, 0}};
    for (const auto &[interval, seconds] : intervals) {
        WritePresetFile(Root() / "1_A" / "2_Second", PresetOf("Second", {{6038, host::Data(interval)}}));
        Choose(kPreset, 0);
        Choose(kPreset, 1);
        EXPECT_EQ(host::Seconds(State().GetTime(6038)), seconds) << interval.numerator << "/" << interval.denominator;
    }
}

TEST_F(ChosenPresets, WithoutTheMarkAValueIsNotThere) {
    host::Container preset = PresetOf("Second", {{kPositionSlow, host::Data(0.75)}});
    preset.Set(-kPositionSlow, host::Data(0));
    WritePresetFile(Root() / "1_A" / "2_Second", preset);
    Choose(kPreset, 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0);
}

TEST_F(ChosenPresets, WithThousandsOfEntriesOrDeepOnesDoNoHarm) {
    host::Container deep = PresetOf("Second", {{kPositionSlow, host::Data(0.75)}});
    for (int i = 0; i < 60; ++i) {
        host::Container outer;
        outer.Set(1, host::Data(deep));
        deep = outer;
    }
    host::Container many = PresetOf("Second", {{kPositionSlow, host::Data(0.75)}, {6025, host::Data(deep)}});
    for (std::int32_t id = 2000000; id < 2010000; ++id) many.Set(id, host::Data(id));
    WritePresetFile(Root() / "1_A" / "2_Second", many);
    Choose(kPreset, 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.75);
    EXPECT_EQ(scene().Real(6025), 0);
    EXPECT_FALSE(State().Has(2000000));
}

// ---- Edits

TEST_F(ChosenPresets, AreCustomAfterAnEdit) {
    Choose(kPreset, 1);
    Type(kPositionSlow, host::Data(0.75));
    EXPECT_EQ(State().Whole(kPreset), kCustom);
    EXPECT_EQ(State().Whole(kChanged), 1);
    EXPECT_EQ(State().Text(kAppliedName), "");
    EXPECT_EQ(scene().Real(kPositionSlow), 0.75);
    Choose(kPreset, 1);
    EXPECT_EQ(State().Whole(kChanged, 7), 0);
    EXPECT_EQ(State().Whole(kPreset), 1);
}

TEST_F(ChosenPresets, StayChosenWhenAnEditChangesNothing) {
    Choose(kPreset, 1);
    Type(kPositionSlow, host::Data(0.25));
    Type(6153, host::Data(0.25));
    EXPECT_EQ(State().Whole(kPreset), 1);
    EXPECT_EQ(State().Whole(kChanged, 7), 0);
}

TEST_F(ChosenPresets, StayChosenWhenTheScenesOwnSettingsChange) {
    Choose(kPreset, 1);
    Type(6022, host::Data(5.0));
    Type(kTarget, host::Data::LinkTo(scene().AddObject(host::kTypeNull, {0, 0, 0})));
    Type(kFocusObject, host::Data::LinkTo(scene().AddObject(host::kTypeNull, {0, 0, 0})));
    Type(6181, host::Data("9"));
    EXPECT_EQ(State().Whole(kPreset), 1);
}

TEST_F(ChosenPresets, AreStillCustomAfterAnEditWhenTheCategoryComesBack) {
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    Type(kPositionSlow, host::Data(0.75));
    Choose(kCategory, 0);
    EXPECT_EQ(State().Whole(kPreset), kCustom);
}

// ---- Loaded scenes

TEST_F(ChosenPresets, AreStillRememberedWhenAllIsAsItWas) {
    Choose(kPreset, 1);
    const host::Container before = State();
    State().Set(kRecheck, 1);
    scene().Evaluate();
    EXPECT_EQ(State().Whole(kPreset), 1);
    EXPECT_EQ(State().Whole(kAppliedPosition), 1);
    EXPECT_EQ(State().Text(kAppliedName), "Second");
}

TEST_F(ChosenPresets, AreStillRememberedInASceneThatShowsAnotherCategory) {
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    State().Set(kRecheck, 1);
    scene().Evaluate();
    EXPECT_EQ(State().Whole(kPreset), kCustom);
    EXPECT_EQ(State().Whole(kChanged, 7), 0);
    Choose(kCategory, 0);
    EXPECT_EQ(State().Whole(kPreset), 1);
}

TEST_F(ChosenPresets, OfAnotherCategoryAreForgottenWithTheirFileAndNeverThoseOfTheSamePlace) {
    BuiltIn("2_B", "2_Fourth");
    Choose(kPreset, 1);
    Choose(kCategory, 1);
    fs::remove(Root() / "1_A" / "2_Second");
    State().Set(kRecheck, 1);
    scene().Evaluate();
    ExpectNoPreset();
    EXPECT_EQ(State().Whole(kChanged), 1);
}

TEST_F(ChosenPresets, AreForgottenWhenTheirFileHoldsOneOfAnotherName) {
    for (const std::int32_t category : {0, 1}) {
        WritePresetFile(Root() / "1_A" / "2_Second", PresetOf("Second", {}));
        Choose(kCategory, 0);
        Choose(kPreset, 1);
        Choose(kCategory, category);
        WritePresetFile(Root() / "1_A" / "2_Second", PresetOf("Somebody else's", {}));
        State().Set(kRecheck, 1);
        scene().Evaluate();
        ExpectNoPreset();
    }
}

TEST_F(ChosenPresets, AreCustomWhenAnotherOneStandsInTheirPlace) {
    Choose(kPreset, 1);
    BuiltIn("1_A", "1_Fresh");
    State().Set(kRecheck, 1);
    scene().Evaluate();
    ExpectNoPreset();
    EXPECT_EQ(State().Whole(kChanged), 1);
    EXPECT_EQ(scene().Real(kPositionSlow), 0.25) << "the settings stay";
}

}  // namespace
