// What the module tells the undo list of its changes, in the host's kinds of entries.
#include "host/scene/messages.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;

using Kinds = std::vector<std::int32_t>;

class UndoKinds : public WithPresets {
  protected:
    UndoKinds() { BuiltIn("1_A", "1_Shaky", {{kPositionSlow, host::Data(0.2)}}); }
    void SetUp() override {
        Start();
        scene().document->SetRange(0, 3);
        scene().Show(0);
    }
    // Those of the module alone, in the step that the host has open for a button.
    Kinds KindsOf(std::int32_t button) {
        host::UndoStack &undo = scene().document->Undo();
        undo.Flush();
        undo.Start();
        TableDescriptionCommand press{};
        press.id = host::MakeId(button);
        EXPECT_TRUE(scene().tag->SendMessage(host::kMessageCommand, &press));
        undo.End();
        EXPECT_LE(undo.Steps(), 1u) << button;
        return undo.LastStepTypes();
    }
};

TEST_F(UndoKinds, OfAModifiedTagAreChanges) {
    for (const std::int32_t button : {6042, 6043, 6174, 6004, 6041, 6184, 6185, 6186, 6187, 6188})
        EXPECT_EQ(KindsOf(button), Kinds{host::kUndoChange}) << button;
}

TEST_F(UndoKinds, OfButtonsThatWorkOnFilesOrOpenAPageAreChangesOfTheTagToo) {
    for (const std::int32_t button : {kSave, kDelete, kExportOne, kExportAll, kChooseFolder, 6172})
        EXPECT_EQ(KindsOf(button), Kinds{host::kUndoChange}) << button;
}

TEST_F(UndoKinds, OfACreatedNullAreNew) {
    for (const std::int32_t button : {6058, 6069})
        EXPECT_EQ(KindsOf(button), (Kinds{host::kUndoChange, host::kUndoNew})) << button;
}

TEST_F(UndoKinds, OfABakeAreChangesOfTagAndCamera) {
    for (const std::int32_t button : {6046, 6047, 6175, 6047})
        EXPECT_EQ(KindsOf(button), (Kinds{host::kUndoChange, host::kUndoChange})) << button;
}

TEST_F(UndoKinds, OfANewInputCameraAreChangesAndASmallOneAtTheEnd) {
    const Kinds kinds = KindsOf(kInput);
    ASSERT_GE(kinds.size(), 3u);
    EXPECT_EQ(kinds.back(), host::kUndoChangeSmall) << "only its name may change";
    for (std::size_t i = 0; i + 1 < kinds.size(); ++i) EXPECT_EQ(kinds[i], host::kUndoChange) << i;
}

TEST_F(UndoKinds, OfTheCommandsTagAndCameraAreNew) {
    constexpr std::int32_t kApply = 1039960;
    scene().document->SetActiveObject(scene().input);
    scene().document->Undo().Flush();
    running_->App().CallCommand(kApply);
    // What follows is the host's own: who is selected and looked through.
    Kinds kinds = scene().document->Undo().LastStepTypes();
    ASSERT_GE(kinds.size(), 2u);
    kinds.resize(2);
    EXPECT_EQ(kinds, (Kinds{host::kUndoNew, host::kUndoNew}));
}

}  // namespace
