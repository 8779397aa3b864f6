// Saving and deleting the user's presets, and the folder that they lie in.
#include "presets/cache.h"
#include "presets/filenames.h"
#include "presets/folders.h"
#include "tag/keyboard.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// What the user's folder holds under a name.
struct NameCheck {
    LONG files;        // in the folder, whatever they are
    Filename present;  // the last one of that name; empty: none
};

NameCheck LookForName(const Filename &folder, const String &file_name) {
    NameCheck check = {0, Filename()};
    const String wanted = file_name.ToLower();
    for (const Filename &file : FilesIn(folder)) {
        check.files++;
        if (DisplayName(file.GetString()).ToLower() == wanted) check.present = InFolder(folder, file);
    }
    return check;
}

// A name that no file has; counted up where a file of that number and name was left by somebody else.
Filename NewFile(const Filename &folder, LONG number, const String &name) {
    for (;; number++) {
        Filename file = InFolder(folder, Filename(String("0") + LongToString(number) + String("_") + name));
        if (!GeFExist(file) && !GeFExist(file, TRUE)) return file;
    }
}

// FALSE when the user does not want it replaced, or must not.
Bool MayReplace(const Filename &file, Bool as_default) {
    BaseContainer old;
    ReadPresetFile(file, &old);
    const Bool is_default = old.GetBool(kPresetIsDefault);
    if (is_default && !as_default) {
        MessageDialog(String("Preset name has already been used, choose another."));
        return FALSE;
    }
    return QuestionDialog(String(is_default ? "Override existing default preset?" : "Override existing preset?"));
}

}  // namespace

void TremoluxCamClass::SaveUserPreset(BaseContainer *data) {
    String name;
    if (!RenameDialog(&name)) return;
    const Filename folder = UserPresetFolder();
    const String file_name = FileNameOf(name);
    if (!file_name.Content() || !folder.Content()) return;
    const Bool as_default = IsControlKeyHeld() && QuestionDialog(String("Saving as a default preset"));

    const NameCheck check = LookForName(folder, file_name);
    if (check.present.Content() && !MayReplace(check.present, as_default)) return;
    const Filename file = check.present.Content() ? check.present : NewFile(folder, check.files, file_name);
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
    const Bool is_users = folder == UserPresetFolder();
    const Bool is_built_in = folder.GetDirectory() == BuiltInPresetFolder();
    if (!is_users && !(is_built_in && IsControlKeyHeld())) return;

    if (GeFExist(record->path)) GeFKill(record->path);
    SelectNoPreset(data);
    ReloadPresets(data);
}

void TremoluxCamClass::UseUserPresetFolder(const Filename &folder, BaseContainer *data) {
    RememberUserPresetFolder(folder);
    data->SetString(kUserPresetFolder, folder.GetString());
    ReloadPresets(data);
}

void TremoluxCamClass::SetUserPresetFolder(BaseContainer *data) {
    Filename folder;
    if (!folder.FileSelect(FILESELECTTYPE_ANYTHING, FILESELECT_DIRECTORY, String("Select your User Preset folder")))
        return;
    if (!GeFExist(folder, TRUE)) return;
    ExistingFolder(InFolder(folder, Filename("Exports")));
    SelectNoPreset(data);
    UseUserPresetFolder(folder, data);
}

void TremoluxCamClass::ResetUserPresetFolder(BaseContainer *data) {
    SelectNoPreset(data);
    UseUserPresetFolder(DefaultUserPresetFolder(), data);
}

void TremoluxCamClass::TypeUserPresetFolder(BaseContainer *data) {
    const Filename folder(data->GetString(kUserPresetFolder));
    if (!folder.Content() || !GeFExist(folder, TRUE)) {
        data->SetString(kUserPresetFolder, UserPresetFolder().GetString());
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
