// Presets that come from others and go to others.
#include "presets/cache.h"
#include "presets/folders.h"
#include "presets/library.h"
#include "tag/keyboard.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

void ExportFiles(const Filename &from, const String &category) {
    const Filename to = ExistingFolder(InFolder(ExportFolder(), Filename(category)));
    for (const Filename &file : FilesIn(from)) CopyPresetFile(InFolder(from, file), InFolder(to, file));
}

// The file of the same display name; of several the first in the order of a list.
Filename SameName(const Filename &folder, const String &file_name) {
    const String wanted = DisplayName(file_name).ToLower();
    std::vector<Filename> same;
    for (const Filename &file : FilesIn(folder))
        if (DisplayName(file.GetString()).ToLower() == wanted) same.push_back(file);
    SortByName(&same, [](const Filename &file) { return file.GetString(); });
    return same.empty() ? Filename() : InFolder(folder, same[0]);
}

// The imported file takes the old one's place under its own name; it is gone from where it was only after that.
Bool ImportFile(const PresetPath &record, const Filename &to) {
    const Filename old = SameName(to, record.FileName());
    const Filename target = InFolder(to, Filename(record.FileName()));
    if (!CopyPresetFile(record.path, target)) return FALSE;
    if (old.Content() && old != target) GeFKill(old);
    GeFKill(record.path);
    return TRUE;
}

// The folder of the built-in category that is displayed under the same name, made where there is none.
Filename CategoryFolder(const String &name) {
    const Filename root = BuiltInPresetFolder();
    std::vector<PresetPath> categories = FoldersIn(root);
    SortByName(&categories, [](const PresetPath &category) { return category.FileName(); });
    for (const PresetPath &category : categories)
        if (DisplayName(category.FileName()).ToLower() == DisplayName(name).ToLower()) return category.path;
    ExistingFolder(root);
    return ExistingFolder(InFolder(root, Filename(name)));
}

}  // namespace

void TremoluxCamClass::ExportCurrentPreset(BaseContainer *data) {
    const LONG category = data->GetLong(kCategory);
    if (category != kCategoryUser && category != kCategoryAll) return;
    const PresetPath *record = ChosenPreset(data);
    if (!record) {
        if (category == kCategoryAll) MessageDialog(String("No user preset selected."));
        return;
    }
    const Filename exports = ExportFolder();
    const Filename to = ExistingFolder(InFolder(exports, Filename(record->category)));
    CopyPresetFile(record->path, InFolder(to, Filename(record->FileName())));
    ShowInFinder(exports, TRUE);
}

void TremoluxCamClass::ExportAllPresets() {
    if (IsControlKeyHeld())
        for (const String &category : sorted_folders_)
            ExportFiles(InFolder(BuiltInPresetFolder(), Filename(category)), category);
    ExportFiles(UserPresetFolder(), kUserCategory);
}

void TremoluxCamClass::ImportPresets() {
    Bool is_changed = FALSE;
    for (const PresetPath &folder : FoldersIn(ImportFolder())) {
        const std::vector<PresetPath> presets = PresetsIn(folder.path, folder.category, FALSE);
        if (presets.empty()) continue;
        const Filename to = folder.FileName() == kUserCategory ? UserPresetFolder() : CategoryFolder(folder.FileName());
        if (!GeFExist(to, TRUE)) continue;
        for (const PresetPath &record : presets) is_changed = ImportFile(record, to) || is_changed;
    }
    if (is_changed) ForgetPresetLibrary();
}
