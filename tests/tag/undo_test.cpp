// Every button of the panel, taken back and done again.
#include <fstream>
#include <iterator>

#include "host/files/scenefile.h"
#include "host/ui/attribute_manager.h"
#include "host/value/text.h"
#include "tests/tag/preset_bench.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;

struct Button {
    std::int32_t id;
    const char *name;
    bool changes_scene = true;
    bool with_control = false;
    // An entry that follows the files, which no undo brings back.
    std::int32_t follows_files = 0;
};

void PrintTo(const Button &button, std::ostream *out) { *out << button.name; }

std::string Name(const testing::TestParamInfo<Button> &info) { return info.param.name; }

class EveryButton : public WithPresets, public testing::WithParamInterface<Button> {
  protected:
    EveryButton() {
        BuiltIn("1_A", "1_Shaky", {{kPositionSlow, host::Data(0.2)}});
        BuiltIn("1_A", "2_Shakier", {{kPositionSlow, host::Data(0.4)}});
    }
    void SetUp() override {
        Start();
        scene().document->SetRange(0, 20);
        for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030, 6153, 6155, 6156, 6034}) scene().Set(id, 0.3);
        Animate(scene().input, host::MakeId(903, 1000), 30, {{0, 0}, {20, 50}});
        Animate(scene().camera, host::MakeId(903, 1001), 30, {{0, 3}, {7, 4}});
        Animate(scene().camera, host::MakeId(500), 30, {{2, 40}, {9, 50}});
        scene().Show(0);
        // The name of what is saved, or the folder that is chosen.
        Dialogs().AnswerText(GetParam().id == kChooseFolder ? host::PathText(folder_.Path()) : "Mine");
        scene().document->Undo().Flush();
    }
    // Everything that is saved with the scene, after the update that follows each step.
    std::string Everything() {
        scene().Evaluate();
        const std::filesystem::path file = folder_.Path() / "everything.scene";
        std::string error;
        EXPECT_TRUE(host::SaveDocument(scene().document, file, &error)) << error;
        std::ifstream in(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    host::UndoStack &Undo() { return scene().document->Undo(); }
};

TEST_P(EveryButton, IsTakenBackInOneStepAndDoneAgain) {
    const std::string before = Everything();
    const host::Container settings = State();
    Press(GetParam().id, GetParam().with_control);
    const std::string after = Everything();
    EXPECT_EQ(after != before, GetParam().changes_scene);
    EXPECT_EQ(Undo().Steps(), 1u);
    EXPECT_EQ(Undo().Depth(), 0);
    ASSERT_TRUE(Undo().Undo());
    if (const std::int32_t id = GetParam().follows_files) {
        EXPECT_FALSE(host::EqualData(*State().Find(id), *settings.Find(id)));
        State().Set(id, *settings.Find(id));
    }
    EXPECT_TRUE(Everything() == before);
    ASSERT_TRUE(Undo().Redo());
    EXPECT_TRUE(Everything() == after);
}

class UndonePresets : public WithPresets {
  protected:
    UndonePresets() {
        for (const char *name : {"1_One", "2_Two", "3_Three"}) Users(name);
    }
    void SetUp() override {
        Start();
        Choose(kCategory, kUser);
        Choose(kPreset, 0);
        scene().document->Undo().Flush();
    }
    host::UndoStack &Undo() { return scene().document->Undo(); }
};

TEST_F(UndonePresets, ThatWereDeletedAreNotChosenAgainNorIsAnotherOneDeletedInTheirPlace) {
    Press(kDelete);
    ASSERT_EQ(PresetNames(), (std::vector<std::string>{"Two", "Three"}));
    ASSERT_TRUE(Undo().Undo());
    EXPECT_EQ(State().Whole(kPreset), kCustom) << "its file is gone";
    Press(kDelete);
    EXPECT_EQ(NamesIn(UserFolder()), (std::vector<std::string>{"2_Two", "3_Three"}));
    ASSERT_TRUE(Undo().Undo());
    ASSERT_TRUE(Undo().Redo());
    EXPECT_EQ(State().Whole(kPreset), kCustom);
}

TEST_F(UndonePresets, AreLookedUpWhereTheirFileIsNow) {
    Choose(kPreset, 2);
    Press(6042);
    ASSERT_EQ(State().Whole(kPreset), kCustom);
    // Another tag's Delete moves what stands behind it.
    Scene other(*running_);
    ASSERT_TRUE(host::EditParameter(other.tag, host::MakeId(kCategory), host::Data(kUser)));
    ASSERT_TRUE(host::EditParameter(other.tag, host::MakeId(kPreset), host::Data(0)));
    ASSERT_TRUE(host::PressButton(other.tag, host::MakeId(kDelete)));
    ASSERT_TRUE(Undo().Undo());
    EXPECT_EQ(PresetNames(), (std::vector<std::string>{"Two", "Three"}));
    EXPECT_EQ(State().Whole(kPreset), 1) << "\"Three\"";
    Press(kDelete);
    EXPECT_EQ(NamesIn(UserFolder()), std::vector<std::string>{"2_Two"});
}

TEST_F(UndonePresets, LieInTheFolderThatIsShown) {
    const std::string old = State().Text(kFolderText), chosen = host::PathText(folder_.Path() / "other");
    std::filesystem::create_directories(folder_.Path() / "other");
    Dialogs().AnswerText(chosen);
    Press(kChooseFolder);
    ASSERT_EQ(State().Text(kFolderText), chosen);
    ASSERT_TRUE(Undo().Undo());
    EXPECT_EQ(State().Text(kFolderText), chosen) << "saves go there";
    ASSERT_TRUE(Undo().Redo());
    EXPECT_EQ(State().Text(kFolderText), chosen);
}

TEST_F(WithPresets, ABakeAndItsUnBakeAreTakenBackOneAfterTheOther) {
    Start();
    scene().document->SetRange(0, 20);
    Animate(scene().camera, host::MakeId(500), 30, {{2, 40}, {9, 50}});
    scene().Show(0);
    const auto tracks = [this] { return scene().camera->Tracks().size(); };
    for (const std::int32_t bake : {6046, 6175}) {
        scene().document->Undo().Flush();
        Press(bake);
        Press(6047);
        ASSERT_EQ(tracks(), 1u);
        ASSERT_TRUE(scene().document->Undo().Undo());
        EXPECT_EQ(tracks(), 8u);
        EXPECT_EQ(State().Whole(kBaked), 1);
        ASSERT_TRUE(scene().document->Undo().Undo());
        ASSERT_EQ(tracks(), 1u);
        EXPECT_EQ(State().Whole(kBaked, 0), 0);
        EXPECT_EQ(scene().camera->Tracks()[0]->ValueAt(host::MakeTime(9, 30)), 50) << "the keys of before";
        EXPECT_FALSE(scene().document->Undo().Undo());
    }
}

INSTANTIATE_TEST_SUITE_P(Panel, EveryButton,
                         testing::Values(Button{6172, "Help", false}, Button{6042, "ZeroPos"}, Button{6043, "ZeroRot"},
                                         Button{6174, "ZeroInitials"}, Button{6004, "RandomizeSeeds"},
                                         Button{6041, "ImFeelingLucky"}, Button{6058, "CreateFocusObject"},
                                         Button{6069, "CreateTargetObject"}, Button{6184, "CoffeeCup"},
                                         Button{6185, "Human", false}, Button{6186, "Car"}, Button{6187, "House"},
                                         Button{6188, "Skyscraper"}, Button{6046, "QuickBake"},
                                         Button{6175, "BruteForceBake"}, Button{6003, "Save"},
                                         Button{6005, "Delete", true, true, kPreset},
                                         Button{6171, "ExportCurrent", false}, Button{10033, "ExportAll", false},
                                         Button{6176, "PresetPath", true, false, kFolderText},
                                         Button{6182, "ResetPath"}, Button{6047, "UnBake", false}),
                         Name);

}  // namespace
