#include "tests/tag/preset_bench.h"

#include <algorithm>

#include "host/description/description.h"
#include "host/files/hyperfile.h"
#include "host/ui/attribute_manager.h"

namespace tag_test {

namespace fs = std::filesystem;

namespace {

constexpr std::int32_t kCode = 0x74656D70;

}  // namespace

host::Container PresetOf(const std::string &name, const Values &values, bool is_default) {
    host::Container preset;
    preset.Set(1002, host::Data(name));
    preset.Set(1040651, host::Data(1.015));
    preset.Set(100, host::Data(is_default ? 1 : 0));
    for (const auto &[id, value] : values) {
        preset.Set(id, value);
        preset.Set(-id, host::Data(1));
    }
    return preset;
}

void WritePresetFile(const fs::path &file, const host::Container &preset) {
    fs::create_directories(file.parent_path());
    host::HyperFile stream;
    ASSERT_TRUE(stream.Open(kCode, file, host::FileMode::kWrite)) << file;
    ASSERT_TRUE(stream.WriteContainer(preset));
    ASSERT_TRUE(stream.Close()) << file;
}

host::Container ReadPresetFile(const fs::path &file) {
    host::Container preset;
    host::HyperFile stream;
    EXPECT_TRUE(stream.Open(kCode, file, host::FileMode::kRead) && stream.ReadContainer(&preset)) << file;
    return preset;
}

bool IsPresetFile(const fs::path &file) {
    host::Container preset;
    host::HyperFile stream;
    return stream.Open(kCode, file, host::FileMode::kRead) && stream.ReadContainer(&preset);
}

std::vector<std::string> NamesIn(const fs::path &folder) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto &entry : fs::directory_iterator(folder, ignored)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

WithPresets::WithPresets() : module_(CopyModule(folder_.Path())) { fs::remove_all(Root()); }

void WithPresets::StartWithoutEvaluation() {
    if (!running_) running_ = std::make_unique<RunningHost>(module_);
    ASSERT_TRUE(running_->Started()) << running_->Error();
    scene_ = std::make_unique<Scene>(*running_);
    ASSERT_NE(scene_->tag, nullptr);
    State().Set(kFirstRun, 1);
}

void WithPresets::Start() {
    StartWithoutEvaluation();
    scene().Evaluate();
}

void WithPresets::TearDown() {
    scene_.reset();
    running_.reset();
}

void WithPresets::BuiltIn(const std::string &category, const std::string &file, const Values &values) {
    WritePresetFile(Root() / category / file, PresetOf(file.substr(file.find('_') + 1), values));
}

void WithPresets::Users(const std::string &file, const Values &values, bool is_default) {
    if (!running_) running_ = std::make_unique<RunningHost>(module_);
    WritePresetFile(UserFolder() / file, PresetOf(file.substr(file.find('_') + 1), values, is_default));
}

void WithPresets::Choose(std::int32_t cycle, std::int32_t value) { Type(cycle, host::Data(value)); }

void WithPresets::Type(std::int32_t id, const host::Data &value) {
    ASSERT_TRUE(host::EditParameter(scene().tag, host::MakeId(id), value)) << id;
}

void WithPresets::Press(std::int32_t button, bool control) {
    running_->App().input.control = control;
    EXPECT_TRUE(host::PressButton(scene().tag, host::MakeId(button))) << button;
    running_->App().input.control = false;
}

std::vector<std::string> WithPresets::Asked() {
    std::vector<std::string> texts;
    for (const host::Dialogs::Shown &shown : Dialogs().All())
        if (shown.kind != host::Dialogs::Kind::kRename) texts.push_back(shown.text);
    return texts;
}

std::vector<std::pair<std::int32_t, std::string>> WithPresets::Entries(std::int32_t cycle) {
    host::Description description;
    EXPECT_TRUE(host::BuildDescription(scene().tag, nullptr, 0, &description));
    std::vector<std::pair<std::int32_t, std::string>> entries;
    const host::Description::Entry *entry = description.Find(host::MakeId(cycle));
    const host::Data *list = entry ? entry->settings.Find(host::kDescCycle) : nullptr;
    if (!list) return entries;
    const host::Container &all = *list->GetContainer();
    for (std::int32_t i = 0; i < all.Count(); ++i) entries.emplace_back(all.IdAt(i), all.DataAt(i)->Text());
    return entries;
}

std::vector<std::string> WithPresets::PresetNames() {
    std::vector<std::string> names;
    for (const auto &[value, name] : Entries(kPreset))
        if (value < 4000) names.push_back(name);
    return names;
}

void WithPresets::ExpectNoPreset() {
    EXPECT_EQ(State().Whole(kPreset), kCustom);
    EXPECT_EQ(State().Whole(kAppliedPosition), kCustom);
    EXPECT_EQ(State().Text(kAppliedPath), "");
    EXPECT_EQ(State().Text(kAppliedName), "");
}

}  // namespace tag_test
