// The lists of categories and presets, choosing from them, and noticing that the settings are a preset no more.
#include <algorithm>

#include "presets/browsing.h"
#include "presets/folders.h"
#include "presets/leftout.h"
#include "presets/library.h"
#include "presets/presetvalues.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

BaseContainer TremoluxCamClass::CategoryEntries() const {
    BaseContainer entries;
    for (std::size_t i = 0; i < sorted_names_.size(); i++) entries.SetString((LONG)i, sorted_names_[i]);
    entries.SetString(kCategoryUser, "User");
    entries.SetString(kCategoryAll, "All");
    return entries;
}

BaseContainer TremoluxCamClass::PresetEntries(BaseContainer *data) {
    BaseContainer entries;
    LONG position = 0;
    for (const PresetPath &record : PresetList(data)) entries.SetString(position++, record.Name());
    entries.SetString(kPresetBlankA, "");
    entries.SetString(kPresetBlankB, "");
    entries.SetString(kPresetCustom, "Custom");
    return entries;
}

std::vector<PresetPath> TremoluxCamClass::PresetsOf(LONG category) const {
    std::vector<PresetPath> found;
    const auto collect = [&](const Filename &folder, const String &name) {
        for (const PresetPath &record : PresetsIn(folder, name, FALSE)) {
            if ((LONG)found.size() >= kLongestList) return TellLeftOut(record.path, PresetFault::kBehindLongestList);
            found.push_back(record);
        }
    };
    for (std::size_t i = 0; i < sorted_folders_.size(); i++)
        if (category == kCategoryAll || category == (LONG)i)
            collect(InFolder(BuiltInPresetFolder(), Filename(sorted_folders_[i])), sorted_folders_[i]);
    if (category == kCategoryAll || category == kCategoryUser) collect(UserPresetFolder(), kUserCategory);
    SortByName(&found, [](const PresetPath &record) { return record.FileName(); });
    return found;
}

void TremoluxCamClass::CollectCategoryPresets(BaseContainer *data) {
    presets_.clear();
    is_collected_ = FALSE;
    if (!data) return;
    const LONG category = data->GetLong(kCategory);
    presets_ = PresetsOf(category);
    is_collected_ = TRUE;
    collected_category_ = category;
}

const std::vector<PresetPath> &TremoluxCamClass::PresetList(BaseContainer *data) {
    if (!is_collected_ || collected_category_ != data->GetLong(kCategory)) CollectCategoryPresets(data);
    return presets_;
}

const PresetPath *TremoluxCamClass::ListedPreset(BaseContainer *data) {
    const std::vector<PresetPath> &list = PresetList(data);
    const LONG position = data->GetLong(kPreset);
    return position >= 0 && position < (LONG)list.size() ? &list[position] : NULL;
}

const PresetPath *TremoluxCamClass::ChosenPreset(BaseContainer *data) {
    const PresetPath *listed = ListedPreset(data);
    return listed && listed->Key() == data->GetString(kAppliedPresetPath) ? listed : NULL;
}

void TremoluxCamClass::CopyPresetParameter(const BaseContainer &preset, LONG id, BaseContainer *data) {
    if (CopyPresetValue(preset, id, data)) return;
    const ParameterInfo *parameter = FindParameter(id);
    if (!parameter) return;
    if (parameter->reset.given)
        ResetParameter(id, data);
    else
        WriteDefault(*parameter, data);
}

void TremoluxCamClass::CopyPreset(const BaseContainer &preset, BaseContainer *data) {
    for (LONG id = kFirstPresetId; id <= kLastPresetId; id++)
        if (IsPresetParameter(id)) CopyPresetParameter(preset, id, data);
}

void TremoluxCamClass::ApplyPreset(BaseContainer *data, BaseContainer preset) {
    if (!data) return;
    data->SetLong(kAppliedPresetPosition, kPresetCustom);
    data->SetString(kAppliedPresetPath, String());
    const LONG position = data->GetLong(kPreset);
    if (position == kPresetCustom) return;

    CopyPreset(preset, data);
    ParseCustomTrigger(data);
    ParseCustomTriggerTwin(data);
    RememberPreset(position, preset, data);
}

void TremoluxCamClass::RememberPreset(LONG position, const BaseContainer &preset, BaseContainer *data) {
    data->SetLong(kPreset, position);
    data->SetLong(kRememberedPreset, position);
    data->SetLong(kAppliedPresetPosition, position);
    const PresetPath *record = ListedPreset(data);
    data->SetString(kAppliedPresetPath, record ? record->Key() : String());
    data->SetString(kAppliedPresetName, record ? record->Name() : preset.GetString(kPresetName));
    data->SetReal(kAppliedPresetValue, (Real)position);
    data->SetBool(kSettingsChanged, FALSE);

    BaseContainer references;
    LONG n = 0;
    for (const PresetPath &listed : presets_) references.SetContainer(n++, listed.contents);
    data->SetContainer(kReferencePresets, references);
    data->SetContainer(kReferencePreset, preset);
}

void TremoluxCamClass::SelectNoPreset(BaseContainer *data) {
    data->SetLong(kPreset, kPresetCustom);
    data->SetLong(kRememberedPreset, kPresetCustom);
    data->SetLong(kAppliedPresetPosition, kPresetCustom);
    data->SetString(kAppliedPresetPath, String());
    data->SetString(kAppliedPresetName, String());
    data->SetReal(kAppliedPresetValue, (Real)kPresetCustom);
}

void TremoluxCamClass::ChoosePreset(BaseContainer *data) {
    const PresetPath *record = ListedPreset(data);
    const LONG position = data->GetLong(kPreset);
    if (record && ReadAgain(*record, &presets_[position].contents))
        ApplyPreset(data, presets_[position].contents);
    else if (position == kPresetCustom)
        ApplyPreset(data, BaseContainer());
    else
        FindRememberedPreset(data);
    data->SetLong(kRememberedPreset, data->GetLong(kPreset));
}

// Nothing is applied: the list shows the preset that the settings still are, where the category has it.
void TremoluxCamClass::ChooseCategory(BaseContainer *data) {
    data->SetLong(kRememberedCategory, data->GetLong(kCategory));
    FindRememberedPreset(data);
}

void TremoluxCamClass::FindRememberedPreset(BaseContainer *data) {
    CollectCategoryPresets(data);
    const String key = data->GetString(kAppliedPresetPath);
    const BaseContainer preset = data->GetContainer(kReferencePreset);
    data->SetLong(kPreset, kPresetCustom);
    if (!key.Content() || data->GetBool(kSettingsChanged)) return;
    for (std::size_t i = 0; i < presets_.size(); i++) {
        if (presets_[i].Key() != key || presets_[i].contents != preset) continue;
        RememberPreset((LONG)i, preset, data);
        return;
    }
}

// Undo puts old positions back, but no files.
void TremoluxCamClass::CorrectSelection(BaseContainer *data) {
    if (data->GetLong(kPreset) == kPresetCustom) return;
    CollectCategoryPresets(data);
    if (!ChosenPreset(data)) FindRememberedPreset(data);
}

void TremoluxCamClass::ReloadPresets(BaseContainer *data) {
    ForgetPresetLibrary();
    LoadPresetLibrary(data);
    ScanPresetCategories(String(), data);
    CollectCategoryPresets(data);
}

void TremoluxCamClass::NoticeEdit(LONG id, BaseContainer *data) {
    if (!IsPresetParameter(id) || !FindParameter(id)) return;
    if (!data->GetBool(kSettingsChanged)) {
        const BaseContainer applied = data->GetContainer(kReferencePreset);
        if (applied.GetIndexId(0) == NOTOK) return;
        const BaseContainer *references = data->GetContainerInstance(kReferencePresets);
        const BaseContainer *listed = references ? references->GetContainerInstance(data->GetLong(kPreset)) : NULL;
        BaseContainer expected;
        CopyPresetParameter(listed ? *listed : applied, id, &expected);
        if (expected.GetData(id) == data->GetData(id)) return;
        data->SetBool(kSettingsChanged, TRUE);
        data->SetString(kAppliedPresetName, String());
    }
    data->SetLong(kPreset, kPresetCustom);
}

// The applied preset is still there when its file has kept its name and its place in the list. In the list of another
// category it has no place: then its own tells.
void TremoluxCamClass::CheckRememberedPreset(BaseContainer *data) {
    CollectCategoryPresets(data);
    const LONG position = data->GetLong(kAppliedPresetPosition);
    if (position == kPresetCustom) {
        data->SetLong(kPreset, kPresetCustom);
        return;
    }
    const String key = data->GetString(kAppliedPresetPath), name = data->GetString(kAppliedPresetName);
    const auto is_its_file = [&](const PresetPath &record) { return record.Key() == key; };
    const auto is_remembered = [&](const PresetPath &record) {
        return is_its_file(record) && (!name.Content() || record.Name() == name);
    };
    if (std::any_of(presets_.begin(), presets_.end(), is_its_file)) {
        if (position >= 0 && position < (LONG)presets_.size() && is_remembered(presets_[position])) return;
    } else {
        const std::vector<PresetPath> all = PresetsOf(kCategoryAll);
        data->SetLong(kPreset, kPresetCustom);
        if (std::any_of(all.begin(), all.end(), is_remembered)) return;
    }
    data->SetBool(kSettingsChanged, TRUE);
    SelectNoPreset(data);
}
