// Saving and deleting the user's presets, and the folder that they lie in.
#include "presets/browsing.h"
#include "presets/filenames.h"
#include "presets/folders.h"
#include "presets/paths.h"
#include "tag/keyboard.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// FALSE when the user does not want the last of them replaced, or must not take their name.
Bool MayReplace(const std::vector<PresetPath> &same, Bool as_default) {
    for (const PresetPath &preset : same) {
        if (as_default || !preset.contents.GetBool(kPresetIsDefault)) continue;
        MessageDialog(String("Preset name has already been used, choose another."));
        return FALSE;
    }
    const Bool is_default = same.back().contents.GetBool(kPresetIsDefault);
    return QuestionDialog(String(is_default ? "Override existing default preset?" : "Override existing preset?"));
}

}  // namespace

void TremoluxCamClass::SaveUserPreset(BaseContainer *data) {
    // As the button is pressed: nobody holds the key while typing a name.
    const Bool with_control = IsControlKeyHeld();
    String name;
    if (!RenameDialog(&name)) return;
    const Filename folder = UserPresetFolder();
    const String file_name = FileNameOf(name);
    if (!file_name.Content() || !folder.Content()) return;
    const Bool as_default = with_control && QuestionDialog(String("Saving as a default preset"));

    const std::vector<PresetPath> same = PresetsNamed(folder, file_name);
    if (!same.empty() && !MayReplace(same, as_default)) return;
    const Filename file = same.empty() ? NewFileIn(folder, file_name) : same.back().path;
    const BaseContainer preset = MakePreset(name, as_default, *data);
    if (preset.GetIndexId(0) == NOTOK || !WritePresetFile(file, preset)) return;

    if (!as_default) {
        data->SetLong(kCategory, kCategoryUser);
        data->SetLong(kRememberedCategory, kCategoryUser);
    }
    ReloadPresets(data);
    for (std::size_t i = 0; i < presets_.size(); i++) {
        if (presets_[i].path != file) continue;
        RememberPreset((LONG)i, preset, data);
        return;
    }
    FindRememberedPreset(data);
}

void TremoluxCamClass::DeleteUserPreset(BaseContainer *data) {
    const PresetPath *record = ChosenPreset(data);
    if (!record) return;
    const Filename folder = record->path.GetDirectory();
    const Bool is_users = IsSameFolder(folder, UserPresetFolder());
    const Bool is_built_in = IsSameFolder(folder.GetDirectory(), BuiltInPresetFolder());
    if (!is_users && !(is_built_in && IsControlKeyHeld())) return;

    if (GeFExist(record->path)) GeFKill(record->path);
    SelectNoPreset(data);
    ReloadPresets(data);
}

void TremoluxCamClass::ShowUserPresetFolder(BaseContainer *data) {
    const String folder = UserPresetFolder().GetString();
    if (data->GetString(kUserPresetFolder) != folder) data->SetString(kUserPresetFolder, folder);
}

void TremoluxCamClass::UseUserPresetFolder(const Filename &folder, BaseContainer *data) {
    RememberUserPresetFolder(folder);
    ShowUserPresetFolder(data);
    ReloadPresets(data);
}

void TremoluxCamClass::SetUserPresetFolder(BaseContainer *data) {
    Filename chosen;
    if (!chosen.FileSelect(FILESELECTTYPE_ANYTHING, FILESELECT_DIRECTORY, String("Select your User Preset folder")))
        return;
    const Filename folder = NormalFolder(chosen);
    if (!folder.Content()) return;
    ExistingFolder(InFolder(folder, Filename("Exports")));
    SelectNoPreset(data);
    UseUserPresetFolder(folder, data);
}

void TremoluxCamClass::ResetUserPresetFolder(BaseContainer *data) {
    SelectNoPreset(data);
    UseUserPresetFolder(DefaultUserPresetFolder(), data);
}

void TremoluxCamClass::TypeUserPresetFolder(BaseContainer *data) {
    const Filename folder = NormalFolder(Filename(data->GetString(kUserPresetFolder)));
    if (!folder.Content()) {
        ShowUserPresetFolder(data);
        return;
    }
    const Bool was_chosen = ChosenPreset(data) != NULL;
    const LONG position = data->GetLong(kPreset);
    SelectNoPreset(data);
    UseUserPresetFolder(folder, data);
    if (!was_chosen || position >= (LONG)presets_.size()) return;
    data->SetLong(kPreset, position);
    ApplyPreset(data, presets_[position].contents);
}
