// Saving, deleting, exporting and importing presets, and the user's folder.
#include <algorithm>
#include <fstream>

#include "host/description/description.h"
#include "host/files/faults.h"
#include "host/ui/attribute_manager.h"
#include "host/value/text.h"
#include "tests/support/links.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class UserPresets : public WithPresets {
  protected:
    UserPresets() {
        BuiltIn("1_A", "1_First", {{kPositionSlow, host::Data(0.125)}});
        BuiltIn("1_A", "2_Second", {{kPositionSlow, host::Data(0.25)}});
        BuiltIn("2_B", "1_Third", {{kPositionSlow, host::Data(0.5)}});
    }
    void SetUp() override { Start(); }
    void Save(const std::string &name, bool control = false) {
        Dialogs().AnswerText(name);
        Press(kSave, control);
    }
    Names Files() const { return NamesIn(UserFolder()); }
    double Saved(const std::string &file) { return ReadPresetFile(UserFolder() / file).Real(kPositionSlow); }
};

// ---- Save

TEST_F(UserPresets, AreSavedWithEverySettingThatAPresetCarries) {
    scene().Set(kPositionSlow, 0.75);
    State().Set(6181, host::Data("7,8"));
    Save("Walk");
    ASSERT_EQ(Files(), Names{"00_Walk"});
    const host::Container preset = ReadPresetFile(UserFolder() / "00_Walk");
    EXPECT_EQ(preset.Text(1002), "Walk");
    EXPECT_EQ(preset.Real(1040651), 1.015);
    EXPECT_EQ(preset.Find(1040651)->type, host::kDataReal);
    EXPECT_EQ(preset.Whole(100, 7), 0);
    EXPECT_EQ(preset.Real(kPositionSlow), 0.75);
    EXPECT_EQ(preset.Text(6181), "7,8");
    for (std::int32_t id = 6000; id <= 6210; ++id) {
        const bool own = id == 6001 || id == 6022 || id == 6057 || id == 6068 || id == 6178;
        ASSERT_EQ(preset.Has(id), !own && State().Has(id)) << id;
        EXPECT_EQ(preset.Whole(-id), preset.Has(id) ? 1 : 0) << id;
        if (preset.Has(id)) {
            EXPECT_TRUE(host::EqualData(*preset.Find(id), *State().Find(id))) << id;
        }
    }
    EXPECT_FALSE(preset.Has(3003));
}

TEST_F(UserPresets, AreShownAndChosenAfterSaving) {
    Save("Walk");
    EXPECT_EQ(State().Whole(kCategory), kUser);
    EXPECT_EQ(State().Whole(3005), kUser);
    EXPECT_EQ(PresetNames(), Names{"Walk"});
    EXPECT_EQ(State().Whole(kPreset, 7), 0);
    EXPECT_EQ(State().Whole(1040441), 4);
    Type(kPositionSlow, host::Data(0.9));
    EXPECT_EQ(State().Whole(kPreset), kCustom);
}

TEST_F(UserPresets, AreRememberedByTheirPlaceInTheList) {
    Save("Amble");
    Save("Walk");
    EXPECT_EQ(State().Whole(kPreset), 1);
    EXPECT_EQ(State().Whole(3006), 1);
}

TEST_F(UserPresets, AreShownAmongTheCategoriesThatAreThereWhenTheyAreSaved) {
    BuiltIn("3_C", "1_New");
    Save("Walk");
    const auto categories = Entries(kCategory);
    ASSERT_EQ(categories.size(), 5u);
    EXPECT_EQ(categories[2].second, "C");
}

TEST_F(UserPresets, AreNumberedByTheFilesInTheFolder) {
    for (const char *name : {"a", "b", "c"}) Users(name);
    fs::create_directories(UserFolder() / "Exports");
    std::ofstream(UserFolder() / "note") << "no preset, but a file";
    Save("Fifth");
    EXPECT_TRUE(fs::exists(UserFolder() / "04_Fifth"));
    for (int i = 0; i < 5; ++i) Users("x" + std::to_string(i));
    Save("Eleventh");
    EXPECT_TRUE(fs::exists(UserFolder() / "010_Eleventh"));
}

TEST_F(UserPresets, ThatAreNotNamedAreNotSaved) {
    Press(kSave);  // cancelled
    for (const char *name : {"", " ", "...", " . "}) Save(name);
    Save(std::string(151, 'x'));
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(State().Whole(kCategory, 7), 0);
}

TEST_F(UserPresets, HaveFileNamesThatEverySystemTakes) {
    const std::pair<const char *, const char *> names[] = {{"a/b\\c:d", "a-b-c-d"},
                                                           {"what?*\"<>|", "what------"},
                                                           {" lead", "-lead"},
                                                           {"trail. ", "trail--"},
                                                           {"..", ""},
                                                           {"../../up", "---..-up"},
                                                           {"CON", "-"},
                                                           {"com3.txt", "-.txt"},
                                                           {"tab\there", "tab-here"},
                                                           {"\xC3\xBC"
                                                            "ber",
                                                            "\xC3\xBC"
                                                            "ber"}};
    for (const auto &[typed, expected] : names) {
        fs::remove_all(UserFolder());
        fs::create_directories(UserFolder());
        Save(typed);
        if (*expected == 0) {
            EXPECT_EQ(Files(), Names{}) << typed;
            continue;
        }
        EXPECT_EQ(Files(), Names{std::string("00_") + expected}) << typed;
        EXPECT_EQ(PresetNames(), Names{typed}) << "the name stays as it was typed";
    }
}

TEST_F(UserPresets, OfTheSameNameAreReplacedWhenTheUserSaysSo) {
    Users("07_Walk", {{kPositionSlow, host::Data(0.1)}});
    scene().Set(kPositionSlow, 0.75);
    Dialogs().AnswerText("wALK");
    Dialogs().AnswerNo();
    Press(kSave);
    EXPECT_EQ(Saved("07_Walk"), 0.1);
    Dialogs().AnswerText("wALK");
    Dialogs().AnswerYes();
    Press(kSave);
    EXPECT_EQ(Files(), Names{"07_Walk"});
    EXPECT_EQ(Saved("07_Walk"), 0.75);
    EXPECT_EQ(Asked(), (Names{"Override existing preset?", "Override existing preset?"}));
}

TEST_F(UserPresets, OfTheSameNameTwiceHaveTheLastOneReplaced) {
    Users("00_Walk", {{kPositionSlow, host::Data(0.1)}});
    Users("01_Walk", {{kPositionSlow, host::Data(0.2)}});
    scene().Set(kPositionSlow, 0.75);
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerYes();
    Press(kSave);
    EXPECT_EQ(Saved("00_Walk"), 0.1);
    EXPECT_EQ(Saved("01_Walk"), 0.75);
}

TEST_F(UserPresets, NeverTakeThePlaceOfAFileThatIsNone) {
    Users("00_Walk", {{kPositionSlow, host::Data(0.1)}});
    std::ofstream(UserFolder() / "zz_Walk") << "text";
    scene().Set(kPositionSlow, 0.75);
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerYes();
    Press(kSave);
    EXPECT_EQ(Files(), (Names{"00_Walk", "zz_Walk"}));
    EXPECT_EQ(Saved("00_Walk"), 0.75);
    EXPECT_EQ(fs::file_size(UserFolder() / "zz_Walk"), 4u);
}

TEST_F(UserPresets, OfANameThatOnlyAForeignFileHasAreNewOnes) {
    std::ofstream(UserFolder() / "01_Walk") << "text";
    Save("Walk");
    EXPECT_EQ(Files(), (Names{"01_Walk", "02_Walk"})) << "one file is there, and its number is taken";
    EXPECT_EQ(Asked(), Names{});
    EXPECT_EQ(fs::file_size(UserFolder() / "01_Walk"), 4u);
    EXPECT_EQ(PresetNames(), Names{"Walk"});
}

TEST_F(UserPresets, AreNotSavedOverADefaultPreset) {
    Users("00_Walk", {{kPositionSlow, host::Data(0.1)}}, true);
    Dialogs().AnswerText("walk");
    Dialogs().AnswerYes();
    Press(kSave);
    EXPECT_EQ(Asked(), Names{"Preset name has already been used, choose another."});
    EXPECT_EQ(Saved("00_Walk"), 0.1);
    EXPECT_EQ(Files(), Names{"00_Walk"});
}

TEST_F(UserPresets, AreNotSavedWhereAnyOfTheirNameIsADefaultPreset) {
    Users("00_Walk", {{kPositionSlow, host::Data(0.1)}}, true);
    Users("01_Walk", {{kPositionSlow, host::Data(0.2)}});
    Dialogs().AnswerText("walk");
    Dialogs().AnswerYes();
    Press(kSave);
    EXPECT_EQ(Asked(), Names{"Preset name has already been used, choose another."});
    EXPECT_EQ(Saved("01_Walk"), 0.2);
}

TEST_F(UserPresets, AreSavedAsDefaultsWithControl) {
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerYes();
    Press(kSave, true);
    EXPECT_EQ(Asked(), Names{"Saving as a default preset"});
    EXPECT_EQ(ReadPresetFile(UserFolder() / "00_Walk").Whole(100), 1);
    EXPECT_EQ(State().Whole(kCategory, 7), 0) << "the category stays";

    scene().Set(kPositionSlow, 0.75);
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerYes();
    Dialogs().AnswerYes();
    Press(kSave, true);
    EXPECT_EQ(Asked().back(), "Override existing default preset?");
    EXPECT_EQ(Saved("00_Walk"), 0.75);
}

TEST_F(UserPresets, AreSavedAsDefaultsThoughControlIsReleasedToTypeTheName) {
    Dialogs().on_show = [this] { running_->App().input.control = false; };
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerYes();
    Press(kSave, true);
    EXPECT_EQ(Asked(), Names{"Saving as a default preset"});
    EXPECT_EQ(ReadPresetFile(UserFolder() / "00_Walk").Whole(100), 1);
}

TEST_F(UserPresets, AreSavedAsUsualThoughControlIsHeldInTheDialog) {
    Dialogs().on_show = [this] { running_->App().input.control = true; };
    Save("Walk");
    EXPECT_EQ(Asked(), Names{});
    EXPECT_EQ(ReadPresetFile(UserFolder() / "00_Walk").Whole(100, 7), 0);
}

TEST_F(UserPresets, AreSavedAsUsualWhenTheDefaultQuestionIsDenied) {
    Dialogs().AnswerText("Walk");
    Dialogs().AnswerNo();
    Press(kSave, true);
    EXPECT_EQ(ReadPresetFile(UserFolder() / "00_Walk").Whole(100, 7), 0);
    EXPECT_EQ(State().Whole(kCategory), kUser);
}

TEST_F(UserPresets, ThatCannotBeWrittenChangeNothing) {
    Users("00_Walk", {{kPositionSlow, host::Data(0.1)}});
    for (const host::FileFault fault : {host::FileFault::kFails, host::FileFault::kKilled}) {
        host::ArmFileFault(1, fault);
        Save("New");
        host::ArmFileFault(0, host::FileFault::kNone);
        EXPECT_EQ(Saved("00_Walk"), 0.1);
    }
}

TEST_F(UserPresets, WithoutTheirFolderAreNotSavedAndNothingBreaks) {
    fs::remove_all(UserFolder());
    std::ofstream(UserFolder()) << "a file where the folder was";
    Save("Walk");
    Press(kDelete);
    Press(kExportAll);
    Choose(kCategory, kUser);
    EXPECT_EQ(PresetNames(), Names{});
    EXPECT_TRUE(fs::is_regular_file(UserFolder()));
}

// ---- Delete

TEST_F(UserPresets, AreDeleted) {
    Save("Walk");
    Press(kDelete);
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(PresetNames(), Names{});
    EXPECT_EQ(State().Whole(1040441), 3);
    ExpectNoPreset();
}

TEST_F(UserPresets, AreDeletedFromTheListOfAllToo) {
    Save("Walk");
    Choose(kCategory, kAll);
    ASSERT_EQ(PresetNames()[static_cast<std::size_t>(State().Whole(kPreset))], "Walk");
    Press(kDelete);
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(PresetNames().size(), 3u);
}

TEST_F(UserPresets, BuiltInOnesAreDeletedWithControlAlone) {
    Press(kDelete);
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"1_First", "2_Second"}));
    EXPECT_EQ(State().Whole(kPreset, 7), 0);
    Press(kDelete, true);
    EXPECT_EQ(NamesIn(Root() / "1_A"), Names{"2_Second"});
    ExpectNoPreset();
}

TEST_F(UserPresets, NothingIsDeletedWithoutAChosenOne) {
    Save("Walk");
    for (const std::int32_t value : {kCustom, 1, 4000, -1}) {
        State().Set(kPreset, value);
        Press(kDelete, true);
    }
    EXPECT_EQ(Files(), Names{"00_Walk"});
}

// ---- The folder

TEST_F(UserPresets, LieInTheFolderThatTheUserChooses) {
    const fs::path other = folder_.Path() / "other place";
    WritePresetFile(other / "5_Other", PresetOf("Other", {}));
    Save("Walk");
    Dialogs().AnswerText(host::PathText(other));
    Press(kChooseFolder);
    EXPECT_EQ(Asked(), Names{"Select your User Preset folder"});
    EXPECT_EQ(host::PathFromText(running_->App().WorldPluginData(kTag)->Text(5037)), other);
    EXPECT_EQ(State().Text(kFolderText), host::PathText(other));
    EXPECT_TRUE(fs::is_directory(other / "Exports"));
    EXPECT_EQ(PresetNames(), Names{"Other"});
    ExpectNoPreset();
    EXPECT_EQ(State().Whole(1040441), 4);

    Press(kResetFolder);
    EXPECT_EQ(host::PathFromText(State().Text(kFolderText)).lexically_normal(), UserFolder().lexically_normal());
    EXPECT_EQ(PresetNames(), Names{"Walk"});
    ExpectNoPreset();
}

TEST_F(UserPresets, StayWhereTheyAreWhenTheChoiceIsCancelled) {
    scene().Evaluate();
    const host::Container before = State();
    Press(kChooseFolder);
    EXPECT_TRUE(State() == before);
}

TEST_F(UserPresets, LieInTheFolderThatTheUserTypes) {
    const fs::path other = folder_.Path() / "other";
    WritePresetFile(other / "5_Other", PresetOf("Other", {{kPositionSlow, host::Data(0.875)}}));
    Choose(kCategory, kUser);
    Type(kFolderText, host::Data(host::PathText(other)));
    EXPECT_EQ(PresetNames(), Names{"Other"});
    ExpectNoPreset();
    EXPECT_EQ(scene().Real(kPositionSlow), 0.125) << "none was chosen before";
}

TEST_F(UserPresets, OfATypedFolderAreAppliedWhereOneWasChosen) {
    const fs::path other = folder_.Path() / "other";
    WritePresetFile(other / "5_Other", PresetOf("Other", {{kPositionSlow, host::Data(0.875)}}));
    Save("Walk");
    Type(kFolderText, host::Data(host::PathText(other)));
    EXPECT_EQ(scene().Real(kPositionSlow), 0.875);
    EXPECT_EQ(State().Whole(kPreset, 7), 0);
    EXPECT_EQ(State().Text(kAppliedName), "Other");
}

TEST_F(UserPresets, DoNotMoveToAFolderThatIsNotThere) {
    const std::string before = State().Text(kFolderText);
    for (const std::string &text : {std::string(), host::PathText(folder_.Path() / "missing"), std::string("\x01")}) {
        Type(kFolderText, host::Data(text));
        EXPECT_EQ(State().Text(kFolderText), before) << text;
    }
    EXPECT_EQ(host::PathFromText(running_->App().WorldPluginData(kTag)->Text(5037)).lexically_normal(),
              UserFolder().lexically_normal());
}

TEST_F(UserPresets, LieInATypedFolderHoweverItIsWritten) {
    const fs::path other = folder_.Path() / "other";
    const std::string plain = host::PathText(other);
    for (const std::string &typed :
         {plain + "/", plain + "//", plain + "/.", host::PathText(folder_.Path()) + "/./other/",
          host::PathText(folder_.Path()) + "//.//other"}) {
        fs::remove_all(other);
        WritePresetFile(other / "5_Other", PresetOf("Other", {}));
        Press(kResetFolder);
        Type(kFolderText, host::Data(typed));
        EXPECT_EQ(host::PathFromText(State().Text(kFolderText)), other) << typed;
        EXPECT_EQ(host::PathFromText(running_->App().WorldPluginData(kTag)->Text(5037)), other) << typed;
        Choose(kCategory, kUser);
        Choose(kPreset, 0);
        Press(kDelete);
        EXPECT_EQ(NamesIn(other), Names{}) << typed;
    }
}

TEST_F(UserPresets, OfAFolderThatALinkLeadsToLieThere) {
    if (!test_support::CanLink(folder_.Path())) GTEST_SKIP() << "this system makes no symbolic links";
    const fs::path other = folder_.Path() / "far" / "other";
    fs::create_directories(other / "inside");
    fs::create_directory_symlink(other / "inside", folder_.Path() / "link");
    WritePresetFile(other / "5_Other", PresetOf("Other", {}));
    Type(kFolderText, host::Data(host::PathText(folder_.Path() / "link" / "..")));
    Choose(kCategory, kUser);
    EXPECT_EQ(PresetNames(), Names{"Other"}) << "not beside the link";
}

TEST_F(UserPresets, DoNotMoveToAFolderThatDependsOnTheWorkingFolder) {
    const std::string before = State().Text(kFolderText);
    for (const char *text : {".", "./", "..", "tests"}) {
        Type(kFolderText, host::Data(text));
        EXPECT_EQ(State().Text(kFolderText), before) << text;
        Dialogs().AnswerText(text);
        Press(kChooseFolder);
        EXPECT_EQ(State().Text(kFolderText), before) << text;
    }
}

TEST_F(UserPresets, LieInTheUsualFolderAgainWhereTheSettingsNameNoFolderOfTheirOwn) {
    running_->App().WorldPluginData(kTag)->Set(5037, host::Data::Filename("."));
    const Scene second(*running_);
    EXPECT_EQ(host::PathFromText(running_->App().WorldPluginData(kTag)->Text(5037)).lexically_normal(),
              UserFolder().lexically_normal());
}

TEST_F(UserPresets, LieInTheFolderThatEveryPanelShows) {
    Scene second(*running_);
    second.Evaluate();
    const std::string other = host::PathText(folder_.Path() / "other");
    fs::create_directories(folder_.Path() / "other");
    Type(kFolderText, host::Data(other));
    host::Description panel;
    EXPECT_TRUE(host::BuildDescription(second.tag, nullptr, 0, &panel));
    EXPECT_EQ(second.tag->Data().Text(kFolderText), other);
}

// ---- Export

TEST_F(UserPresets, AreExportedOneByOne) {
    Save("Walk");
    Press(kExportOne);
    const fs::path exported = UserRoot() / "Exports" / "User" / "00_Walk";
    EXPECT_TRUE(ReadPresetFile(exported) == ReadPresetFile(UserFolder() / "00_Walk"));
    ASSERT_EQ(running_->App().requests.shown_folders.size(), 1u);
    EXPECT_EQ(host::PathFromText(running_->App().requests.shown_folders[0]), UserRoot() / "Exports");

    Choose(kCategory, kAll);
    Choose(kPreset, 0);
    Press(kExportOne);
    EXPECT_TRUE(IsPresetFile(UserRoot() / "Exports" / "1_A" / "1_First"));
    EXPECT_EQ(running_->App().requests.shown_folders.size(), 1u) << "for a built-in one nothing is opened";

    Choose(kPreset, 3);
    ASSERT_EQ(State().Text(kAppliedName), "Walk");
    Press(kExportOne);
    EXPECT_EQ(running_->App().requests.shown_folders.size(), 2u);
    Press(kExportOne, true);
    EXPECT_EQ(running_->App().requests.shown_folders.size(), 2u) << "with Control as a built-in one";
}

TEST_F(UserPresets, AreNotExportedFromABuiltInCategory) {
    Press(kExportOne);
    EXPECT_EQ(NamesIn(UserRoot() / "Exports"), Names{});
    EXPECT_EQ(Asked(), Names{});
}

TEST_F(UserPresets, AreAskedForWhenNoneIsChosenAmongAll) {
    Choose(kCategory, kAll);
    for (const std::int32_t value : {kCustom, 4000, 3, -1}) {
        State().Set(kPreset, value);
        Press(kExportOne);
        EXPECT_EQ(Asked().back(), "No user preset selected.") << value;
    }
    EXPECT_EQ(Asked().size(), 4u);
    Choose(kCategory, kUser);
    Press(kExportOne);
    EXPECT_EQ(Asked().size(), 4u) << "in the user's own category nothing is said";
}

TEST_F(UserPresets, AreExportedAllAtOnceAndTheBuiltInOnesWithControl) {
    Save("Walk");
    Save("Run");
    Press(kExportAll);
    EXPECT_EQ(NamesIn(UserRoot() / "Exports"), Names{"User"});
    EXPECT_EQ(NamesIn(UserRoot() / "Exports" / "User"), (Names{"00_Walk", "01_Run"}));
    std::ofstream(UserRoot() / "Exports" / "User" / "00_Walk") << "older";
    Press(kExportAll, true);
    EXPECT_EQ(NamesIn(UserRoot() / "Exports"), (Names{"1_A", "2_B", "User"}));
    EXPECT_EQ(NamesIn(UserRoot() / "Exports" / "1_A"), (Names{"1_First", "2_Second"}));
    EXPECT_TRUE(IsPresetFile(UserRoot() / "Exports" / "User" / "00_Walk")) << "replaced";
}

TEST_F(UserPresets, ExportedOntoThemselvesStayAsTheyAre) {
    fs::create_directories(UserRoot() / "Exports" / "User");
    Dialogs().AnswerText(host::PathText(UserRoot() / "Exports" / "User"));
    Press(kChooseFolder);
    Save("Walk");
    const host::Container before = ReadPresetFile(UserRoot() / "Exports" / "User" / "00_Walk");
    Press(kExportAll);
    Press(kExportOne);
    EXPECT_TRUE(ReadPresetFile(UserRoot() / "Exports" / "User" / "00_Walk") == before);
}

// ---- Import

class Imports : public UserPresets {
  protected:
    void SetUp() override { StartWithoutEvaluation(); }
    void Import(const std::string &folder, const std::string &file, double slow) {
        WritePresetFile(WithPresets::Imports() / folder / file,
                        PresetOf(file.substr(file.find('_') + 1), {{kPositionSlow, host::Data(slow)}}));
    }
    fs::path From() const { return WithPresets::Imports(); }
    double BuiltInValue(const std::string &category, const std::string &file) {
        return ReadPresetFile(Root() / category / file).Real(kPositionSlow);
    }
};

TEST_F(Imports, AreTakenOverAtTheFirstEvaluation) {
    Import("User", "5_Mine", 0.1);
    Import("a", "3_Added", 0.2);
    Import("7_New", "1_Fresh", 0.3);
    scene().Evaluate();
    EXPECT_EQ(Files(), Names{"5_Mine"});
    EXPECT_EQ(BuiltInValue("1_A", "3_Added"), 0.2) << "categories are known by their display name, whatever the case";
    EXPECT_EQ(BuiltInValue("7_New", "1_Fresh"), 0.3);
    for (const char *folder : {"User", "a", "7_New"}) EXPECT_EQ(NamesIn(From() / folder), Names{}) << folder;
    EXPECT_EQ(State().Whole(1040441), 6);
    EXPECT_EQ(PresetNames(), (Names{"First", "Second", "Added"}));
}

TEST_F(Imports, BesideFoldersAreTakenOverAll) {
    Names taken;
    for (int i = 1; i < 8; ++i) {
        taken.push_back(std::to_string(i) + "_Mine" + std::to_string(i));
        Import("User", taken.back(), 0.1);
        fs::create_directories(From() / "User" / ("0folder" + std::to_string(i)));
    }
    scene().Evaluate();
    EXPECT_EQ(Files(), taken);
}

TEST_F(Imports, TakeThePlaceOfWhatHasTheirName) {
    Import("1_A", "9_second", 0.9);
    scene().Evaluate();
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"1_First", "9_second"}));
    EXPECT_EQ(BuiltInValue("1_A", "9_second"), 0.9);
}

TEST_F(Imports, LeaveFilesOfTheirNameThatAreNoPresets) {
    std::ofstream(Root() / "1_A" / "9_walk") << "text";
    std::ofstream(Root() / "1_A" / "5_walk") << "another text";
    Import("1_A", "5_walk", 0.9);
    scene().Evaluate();
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"04_walk", "1_First", "2_Second", "5_walk", "9_walk"}));
    EXPECT_EQ(BuiltInValue("1_A", "04_walk"), 0.9) << "four files were there";
    EXPECT_EQ(fs::file_size(Root() / "1_A" / "9_walk"), 4u);
    EXPECT_EQ(fs::file_size(Root() / "1_A" / "5_walk"), 12u);
    EXPECT_EQ(NamesIn(From() / "1_A"), Names{});
}

TEST_F(Imports, LeaveADamagedPresetOfTheirName) {
    std::ifstream good(Root() / "1_A" / "2_Second", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(good)), std::istreambuf_iterator<char>());
    std::ofstream(Root() / "1_A" / "7_Walk", std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    Import("1_A", "5_walk", 0.9);
    scene().Evaluate();
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"1_First", "2_Second", "5_walk", "7_Walk"}));
    EXPECT_EQ(fs::file_size(Root() / "1_A" / "7_Walk"), bytes.size() / 2);
}

TEST_F(Imports, LeaveTheUsersPresetsAloneThatLieThere) {
    const fs::path users = From() / "User";
    const std::string plain = host::PathText(users), root = host::PathText(From());
    std::vector<std::string> spellings = {plain, plain + "/", plain + "/.", root + "/./User",
                                          root + "/../Imports/User"};
#ifdef _WIN32
    spellings.push_back(root + "/uSER");
#else
    fs::create_directories(users);
    fs::create_directory_symlink(users, folder_.Path() / "link");
    spellings.push_back(host::PathText(folder_.Path() / "link"));
#endif
    for (const std::string &spelling : spellings) {
        Import("User", "5_Mine", 0.1);
        Import("User", "6_Other", 0.2);
        running_->App().WorldPluginData(kTag)->Set(5037, host::Data::Filename(spelling));
        State().Set(kFirstRun, 1);
        scene().Evaluate();
        EXPECT_EQ(NamesIn(users), (Names{"5_Mine", "6_Other"})) << spelling;
    }
    EXPECT_EQ(NamesIn(Root()), (Names{"1_A", "2_B"}));
}

TEST_F(Imports, LeaveTheUsersPresetsAloneInAnyFolderOfTheirs) {
    Import("Mine", "5_Walk", 0.1);
    running_->App().WorldPluginData(kTag)->Set(5037, host::Data::Filename(host::PathText(From() / "Mine")));
    scene().Evaluate();
    EXPECT_EQ(NamesIn(From() / "Mine"), Names{"5_Walk"});
    EXPECT_EQ(NamesIn(Root()), (Names{"1_A", "2_B"}));
}

TEST_F(Imports, TakeThePlaceOfOnePresetAlone) {
    BuiltIn("1_A", "5_Second", {{kPositionSlow, host::Data(0.3)}});
    Import("1_A", "5_Second", 0.9);
    scene().Evaluate();
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"1_First", "2_Second", "5_Second"}));
    EXPECT_EQ(BuiltInValue("1_A", "2_Second"), 0.25);
    EXPECT_EQ(BuiltInValue("1_A", "5_Second"), 0.9);
}

TEST_F(Imports, OfOneNameThatComeTogetherAllStay) {
    Import("User", "1_Walk", 0.1);
    Import("User", "2_walk", 0.2);
    Import("1_A", "3_Run", 0.3);
    Import("A", "3_Run", 0.4);  // the same category by its display name
    scene().Evaluate();
    EXPECT_EQ(Files(), (Names{"1_Walk", "2_walk"}));
    std::vector<double> runs;
    for (const std::string &name : NamesIn(Root() / "1_A"))
        if (name.find("Run") != std::string::npos) runs.push_back(BuiltInValue("1_A", name));
    std::sort(runs.begin(), runs.end());
    EXPECT_EQ(runs, (std::vector<double>{0.3, 0.4}));
}

TEST_F(Imports, ThatNobodyMayDeleteTakeThePlaceOfNothing) {
    Import("User", "5_Walk", 0.9);
    host::ProtectFromRemoval(From() / "User" / "5_Walk");
    for (const char *mine : {"5_Walk", "7_Walk"}) {
        for (const std::string &name : Files()) fs::remove(UserFolder() / name);
        Users(mine, {{kPositionSlow, host::Data(0.1)}});
        State().Set(kRecheck, 1);
        scene().Evaluate();
        EXPECT_EQ(Files(), Names{mine});
        EXPECT_EQ(Saved(mine), 0.1);
    }
    host::ProtectFromRemoval({});
    State().Set(kRecheck, 1);
    scene().Evaluate();
    EXPECT_EQ(Files(), Names{"5_Walk"});
    EXPECT_EQ(Saved("5_Walk"), 0.9);
}

TEST_F(Imports, OfTheSameFileNameInAnotherCaseAreThereAfterwards) {
    Import("1_A", "2_SECOND", 0.9);
    scene().Evaluate();
    double imported = 0;
    int count = 0;
    for (const std::string &name : NamesIn(Root() / "1_A"))
        if (name != "1_First") imported = BuiltInValue("1_A", name), ++count;
    EXPECT_EQ(count, 1);
    EXPECT_EQ(imported, 0.9);
}

TEST_F(Imports, OfTwoOfTheirNameTakeThePlaceOfTheFirstInTheList) {
    BuiltIn("1_A", "10_Second");
    Import("1_A", "2_Second", 0.9);
    scene().Evaluate();
    EXPECT_EQ(NamesIn(Root() / "1_A"), (Names{"10_Second", "1_First", "2_Second"}));
    EXPECT_EQ(BuiltInValue("1_A", "2_Second"), 0.9);
}

TEST_F(Imports, OfManyOfTheirNameTakeThePlaceOfTheFirstInTheList) {
    Names kept = {"1_First", "99_Second"};
    for (int prefix = 12; prefix > 2; --prefix) {
        kept.push_back(std::to_string(prefix) + "_Second");
        BuiltIn("1_A", kept.back());
    }
    Import("1_A", "99_Second", 0.9);
    scene().Evaluate();
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(NamesIn(Root() / "1_A"), kept) << "2_Second is gone";
}

TEST_F(Imports, HappenWhenASceneWasLoadedToo) {
    scene().Evaluate();
    Import("User", "5_Mine", 0.1);
    State().Set(kRecheck, 1);
    scene().Evaluate();
    EXPECT_EQ(Files(), Names{"5_Mine"});
}

TEST_F(Imports, LeaveAloneWhatIsNoPreset) {
    fs::create_directories(From() / "User");
    std::ofstream(From() / "User" / "readme") << "text";
    std::ofstream(From() / "loose") << "text";
    scene().Evaluate();
    EXPECT_EQ(Files(), Names{});
    EXPECT_TRUE(fs::exists(From() / "User" / "readme"));
}

TEST_F(Imports, DoNotFollowLinks) {
    if (!test_support::CanLink(folder_.Path())) GTEST_SKIP() << "this system makes no symbolic links";
    fs::create_directories(From() / "User");
    WritePresetFile(folder_.Path() / "outside" / "1_X", PresetOf("X", {}));
    fs::create_symlink(folder_.Path() / "outside" / "1_X", From() / "User" / "1_Link");
    fs::create_directory_symlink(folder_.Path() / "outside", From() / "Linked");
    scene().Evaluate();
    EXPECT_EQ(Files(), Names{});
    EXPECT_TRUE(IsPresetFile(folder_.Path() / "outside" / "1_X"));
    EXPECT_EQ(NamesIn(Root()), (Names{"1_A", "2_B"}));
}

// ---- Killed at any moment

class Killed : public UserPresets {
  protected:
    void SetUp() override {}
    ~Killed() override { host::ArmFileFault(0, host::FileFault::kNone); }

    // Every value of a preset called Walk that lies, complete, in one of the folders.
    std::vector<double> Walks() {
        std::vector<double> found;
        for (const fs::path &folder : {UserFolder(), From() / "User", UserRoot() / "Exports" / "User"})
            for (const std::string &name : NamesIn(folder)) {
                if (name[0] == '.') continue;
                EXPECT_TRUE(IsPresetFile(folder / name)) << "half written: " << folder / name;
                if (!IsPresetFile(folder / name)) continue;
                const host::Container preset = ReadPresetFile(folder / name);
                if (preset.Text(1002) == "Walk") found.push_back(preset.Real(kPositionSlow));
            }
        return found;
    }
    fs::path From() const { return WithPresets::Imports(); }

    // Runs `work` killed at its first use of the file system, its second, and so on until it comes through.
    template <typename Prepare, typename Work, typename Check>
    void AtEveryUse(Prepare prepare, Work work, Check check) {
        for (std::int64_t nth = 1;; ++nth) {
            SCOPED_TRACE(nth);
            Start();
            fs::remove_all(UserFolder());
            fs::create_directories(UserFolder());
            fs::remove_all(From());
            fs::remove_all(UserRoot() / "Exports" / "User");
            prepare();
            host::ArmFileFault(nth, host::FileFault::kKilled);
            work();
            const bool came_through = host::FileUses() < nth;
            host::ArmFileFault(0, host::FileFault::kNone);
            check(came_through);
            scene_.reset();
            if (came_through) break;
            ASSERT_LT(nth, 500);
        }
    }
};

TEST_F(Killed, SavingLeavesTheOldPresetOrTheNewOne) {
    AtEveryUse(
        [&] {
            Users("00_Walk", {{kPositionSlow, host::Data(0.1)}});
        },
        [&] {
            scene().Set(kPositionSlow, 0.75);
            Dialogs().AnswerText("Walk");
            Dialogs().AnswerYes();
            Press(kSave);
            Dialogs().Clear();
        },
        [&](bool came_through) {
            const std::vector<double> walks = Walks();
            ASSERT_EQ(walks.size(), 1u);
            EXPECT_TRUE(walks[0] == 0.75 || (!came_through && walks[0] == 0.1)) << walks[0];
        });
}

TEST_F(Killed, ImportingLosesNeitherTheImportNorWhatWasThere) {
    AtEveryUse(
        [&] {
            Users("00_Walk", {{kPositionSlow, host::Data(0.1)}});
            WritePresetFile(From() / "User" / "05_Walk", PresetOf("Walk", {{kPositionSlow, host::Data(0.75)}}));
            State().Set(kRecheck, 1);
        },
        [&] { scene().Evaluate(); },
        [&](bool came_through) {
            const std::vector<double> walks = Walks();
            EXPECT_EQ(std::count(walks.begin(), walks.end(), 0.75) >= 1, true) << "the import is somewhere";
            if (came_through) {
                EXPECT_EQ(walks, std::vector<double>{0.75});
            }
        });
}

TEST_F(Killed, ExportingLeavesTheOldCopyOrTheNewOne) {
    AtEveryUse(
        [&] {
            Users("00_Walk", {{kPositionSlow, host::Data(0.75)}});
            WritePresetFile(UserRoot() / "Exports" / "User" / "00_Walk",
                            PresetOf("Walk", {{kPositionSlow, host::Data(0.1)}}));
        },
        [&] { Press(kExportAll); },
        [&](bool came_through) {
            const std::vector<double> walks = Walks();
            ASSERT_EQ(walks.size(), 2u);
            EXPECT_EQ(walks[0], 0.75);
            EXPECT_TRUE(walks[1] == 0.75 || (!came_through && walks[1] == 0.1)) << walks[1];
        });
}

}  // namespace
