// A module with presets of its own, a user with theirs, and a tag that chooses among them as the panel would.
#pragma once

#include <map>
#include <vector>

#include "tests/tag/scene.h"

namespace tag_test {

constexpr std::int32_t kCategory = 5806, kPreset = 10028, kCustom = 5803, kUser = 5810, kAll = 5809;
constexpr std::int32_t kSave = 6003, kDelete = 6005, kExportOne = 6171, kExportAll = 10033, kChooseFolder = 6176,
                       kResetFolder = 6182, kFolderText = 6178;
constexpr std::int32_t kAppliedPosition = 1040575, kAppliedPath = 1040574, kChanged = 20001, kAppliedName = 30000,
                       kAppliedValue = 30001;
constexpr std::int32_t kPositionSlow = 6024, kRotationSlow = 6028;

using Values = std::map<std::int32_t, host::Data>;

// A preset file's content: its name, and the values with their marks.
host::Container PresetOf(const std::string &name, const Values &values, bool is_default = false);
// A file as a host would write it.
void WritePresetFile(const std::filesystem::path &file, const host::Container &preset);
// Its content; empty with a failure when it opens not.
host::Container ReadPresetFile(const std::filesystem::path &file);
bool IsPresetFile(const std::filesystem::path &file);
std::vector<std::string> NamesIn(const std::filesystem::path &folder);

class WithPresets : public testing::Test {
  protected:
    WithPresets();
    // Starts the module and makes a tag, which is evaluated once.
    void Start();
    void StartWithoutEvaluation();
    void TearDown() override;

    void BuiltIn(const std::string &category, const std::string &file, const Values &values = {});
    void Users(const std::string &file, const Values &values = {}, bool is_default = false);
    std::filesystem::path Root() const { return module_.parent_path() / "res" / "Presets"; }
    std::filesystem::path Imports() const { return module_.parent_path() / "Imports"; }
    std::filesystem::path UserRoot() const { return running_->UserFolder() / "plugins" / "TremoluxCam"; }
    std::filesystem::path UserFolder() const { return UserRoot() / "User"; }

    // As a user would: the number of undo steps grows by one.
    void Choose(std::int32_t cycle, std::int32_t value);
    void Type(std::int32_t id, const host::Data &value);
    void Press(std::int32_t button, bool control = false);

    Scene &scene() { return *scene_; }
    host::Container &State() { return scene_->State(); }
    host::Dialogs &Dialogs() { return running_->App().dialogs; }
    std::vector<std::string> Asked();  // the texts of the dialogs that were shown
    // The panel's entries, with their values.
    std::vector<std::pair<std::int32_t, std::string>> Entries(std::int32_t cycle);
    // Those of the files alone.
    std::vector<std::string> PresetNames();
    void ExpectNoPreset();

    TemporaryFolder folder_;
    std::filesystem::path module_;
    std::unique_ptr<RunningHost> running_;
    std::unique_ptr<Scene> scene_;
};

}  // namespace tag_test
