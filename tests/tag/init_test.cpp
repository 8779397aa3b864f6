// What a new tag holds.
#include <limits>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "host/value/custom.h"
#include "host/value/text.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;

class NewTag : public WithModule {
  protected:
    void SetUp() override {
        WithModule::SetUp();
        document_ = running_.App().NewDocument();
        camera_ = host::Object::Create(host::kTypeCamera).release();
        document_->InsertObject(camera_);
        tag_ = camera_->MakeTag(kTag);
        ASSERT_NE(tag_, nullptr);
    }
    void TearDown() override { running_.App().KillDocument(document_); }
    std::int32_t Init(HostAtom *node) { return tag_->Registration().node.init(tag_->Plugin(), node); }
    void ExpectReal(std::int32_t id, double value) {
        const host::Data *data = tag_->Data().Find(id);
        ASSERT_NE(data, nullptr) << id;
        EXPECT_EQ(data->type, host::kDataReal) << id;
        EXPECT_DOUBLE_EQ(data->Real(), value) << id;
    }
    void ExpectWhole(std::int32_t id, std::int32_t value) {
        const host::Data *data = tag_->Data().Find(id);
        ASSERT_NE(data, nullptr) << id;
        EXPECT_EQ(data->type, host::kDataWhole) << id;
        EXPECT_EQ(data->Whole(), value) << id;
    }

    host::Document *document_ = nullptr;
    host::Object *camera_ = nullptr;
    host::Tag *tag_ = nullptr;
};

TEST_F(NewTag, HoldsTheDeclaredDefaultOfEveryReal) {
    for (const std::int32_t id : {6155, 6153, 6156, 6034, 6158, 6170, 6161, 6071, 6162, 6053, 6165, 6064, 6063, 6059})
        ExpectReal(id, 0.25);
    for (const std::int32_t id : {6154, 6035, 6072, 6054, 6163}) ExpectReal(id, 0.5);
    for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030, 6134, 6135, 6136, 6128, 6129, 6130, 6151})
        ExpectReal(id, 0);
    for (const std::int32_t id : {6020, 6021, 6022, 6138, 6132, 6152, 6076, 6077, 6078, 6100, 6101, 6102})
        ExpectReal(id, 1);
    ExpectReal(6037, 0.05);
    ExpectReal(6144, 0.15);
    ExpectReal(6140, 0.1);
    ExpectReal(6142, 12345);
    EXPECT_EQ(tag_->Data().Find(6149), nullptr) << "the variation declares none";
}

TEST_F(NewTag, HasEveryToggleOnAndNoChoiceInTheCycles) {
    for (const std::int32_t id : {6010, 6011, 6012, 6013, 6014, 6015, 6016, 6017, 6018, 6145}) ExpectWhole(id, 1);
    ExpectWhole(5806, 0);
    ExpectWhole(10028, 0);
}

TEST_F(NewTag, StoresTheOverallScaleAndTheSeedAsReals) {
    ExpectReal(6022, 1);
    ExpectReal(6142, 12345);
}

TEST_F(NewTag, HoldsEveryDefaultThatItsPanelDeclares) {
    host::Description description;
    ASSERT_TRUE(host::BuildDescription(tag_, nullptr, 0, &description));
    int compared = 0;
    for (const host::Description::Entry &entry : description.entries) {
        const std::int32_t id = host::LevelId(entry.id, 0);
        const host::Data *declared = entry.settings.Find(host::kDescDefault);
        // A group's default says whether it is open.
        if (entry.id.level[0].dtype == host::kDescribedGroup) continue;
        if (id == 6149) continue;  // declares none of its own
        if (!declared || id < 5800 || id > 10040) continue;
        if (declared->type != host::kDataReal && declared->type != host::kDataWhole) continue;
        const host::Data *held = tag_->Data().Find(id);
        ASSERT_NE(held, nullptr) << id;
        EXPECT_EQ(held->Real(), declared->Real()) << id;
        ++compared;
    }
    EXPECT_GE(compared, 50) << "the panel declares the defaults of all reals and toggles";
}

TEST_F(NewTag, IsMarkedForItsSetUp) { ExpectWhole(kFirstRun, 1); }

TEST_F(NewTag, RunsAtPriorityOneHundredAndElevenAmongTheExpressions) {
    host::Data value;
    ASSERT_TRUE(tag_->GetParameter(host::MakeId(host::kParamPriority), &value));
    ASSERT_EQ(value.type, host::kDataPriority);
    EXPECT_EQ(static_cast<const host::Priority *>(value.value.custom)->Get(host::Priority::kPriority), 111);
    EXPECT_EQ(tag_->ExecutionPriority(), 3000 + 111);
}

TEST_F(NewTag, KnowsTheFolderOfTheBuiltInPresets) {
    const fs::path stored = host::PathFromText(tag_->Data().Text(5026));
    EXPECT_EQ(stored.lexically_normal(), (ModuleFile().parent_path() / "res" / "Presets").lexically_normal());
    EXPECT_EQ(tag_->Data().Find(5026)->type, host::kDataFilename);
}

TEST_F(NewTag, MakesTheUsersPresetFolders) {
    const fs::path folder = running_.UserFolder() / "plugins" / "TremoluxCam";
    EXPECT_TRUE(fs::is_directory(folder / "User"));
    EXPECT_TRUE(fs::is_directory(folder / "Exports"));
}

TEST_F(NewTag, RemembersTheUsersPresetFolderInTheHostsSettings) {
    const host::Container *settings = running_.App().WorldPluginData(kTag);
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(host::PathFromText(settings->Text(5037)).lexically_normal(),
              (running_.UserFolder() / "plugins" / "TremoluxCam" / "User").lexically_normal());
}

TEST_F(NewTag, KeepsAFolderThatTheUserHasChosen) {
    const fs::path chosen = running_.UserFolder() / "mine";
    fs::create_directories(chosen);
    host::Container settings;
    settings.Set(5037, host::Data::Filename(host::PathText(chosen)));
    ASSERT_TRUE(running_.App().SetWorldPluginData(kTag, settings, true));
    EXPECT_EQ(Init(tag_), 1);
    EXPECT_EQ(host::PathFromText(running_.App().WorldPluginData(kTag)->Text(5037)), chosen);
}

TEST_F(NewTag, GoesBackToTheDefaultWhenTheChosenFolderIsGone) {
    host::Container settings;
    settings.Set(5037, host::Data::Filename(host::PathText(running_.UserFolder() / "gone")));
    ASSERT_TRUE(running_.App().SetWorldPluginData(kTag, settings, true));
    EXPECT_EQ(Init(tag_), 1);
    EXPECT_EQ(host::PathFromText(running_.App().WorldPluginData(kTag)->Text(5037)).lexically_normal(),
              (running_.UserFolder() / "plugins" / "TremoluxCam" / "User").lexically_normal());
}

TEST_F(NewTag, KeepsWhatItHoldsWhenItIsInitialisedAgain) {
    tag_->Data().SetReal(6152, 3);
    tag_->Data().Set(6010, 0);
    tag_->Data().SetReal(6149, 0.75);
    tag_->Data().Remove(6020);
    tag_->Data().Remove(6011);
    EXPECT_EQ(Init(tag_), 1);
    ExpectReal(6152, 3);
    ExpectWhole(6010, 0);
    ExpectReal(6149, 0.75);
    ExpectReal(6020, 1);
    ExpectWhole(6011, 1);
}

TEST_F(NewTag, WritesTheBuiltInFolderEachTimeSoThatASceneCanMove) {
    tag_->Data().Set(5026, host::Data::Filename("elsewhere"));
    EXPECT_EQ(Init(tag_), 1);
    EXPECT_EQ(host::PathFromText(tag_->Data().Text(5026)).lexically_normal(),
              (ModuleFile().parent_path() / "res" / "Presets").lexically_normal());
}

TEST_F(NewTag, IsContentWithoutANode) {
    const host::Container before = tag_->Data();
    EXPECT_EQ(Init(nullptr), 1);
    EXPECT_TRUE(tag_->Data() == before);
}

TEST_F(NewTag, HasTheNameOfItsRegistration) { EXPECT_EQ(tag_->Name(), "TremoluxCam"); }

TEST_F(NewTag, ShowsItsLabelsWithTheirTrailingBlanks) {
    host::Description description;
    ASSERT_TRUE(host::BuildDescription(tag_, nullptr, 0, &description));
    const std::pair<std::int32_t, const char *> labels[] = {{6001, "Input Camera"},
                                                            {6014, "Rot P "},
                                                            {6016, "Zoom "},
                                                            {6017, "Focus "},
                                                            {6152, "Shake Speed"},
                                                            {6102, "B"},
                                                            {6041, "I'm Feeling Lucky"},
                                                            {6181, "Custom Trigger"}};
    for (const auto &[id, label] : labels) {
        const host::Description::Entry *entry = description.Find(host::MakeId(id));
        ASSERT_NE(entry, nullptr) << id;
        EXPECT_EQ(entry->settings.Text(host::kDescName), label);
    }
}

}  // namespace
