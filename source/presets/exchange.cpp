// Presets that come from others and go to others.
#include "presets/cache.h"
#include "presets/filenames.h"
#include "presets/folders.h"
#include "presets/library.h"
#include "presets/paths.h"
#include "tag/keyboard.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

void ExportFiles(const Filename &from, const String &category) {
    const Filename to = ExistingFolder(InFolder(ExportFolder(), Filename(category)));
    for (const Filename &file : FilesIn(from)) CopyPresetFile(InFolder(from, file), InFolder(to, file));
}

// Where an imported file goes: its own name, but for a file there that is no preset.
Filename ImportTarget(const PresetPath &record, const Filename &to, const std::vector<PresetPath> &presets) {
    const Filename own = InFolder(to, Filename(record.FileName()));
    if (!GeFExist(own) && !GeFExist(own, TRUE)) return own;
    for (const PresetPath &preset : presets)
        if (IsSamePlace(preset.path, own)) return own;
    return NewFileIn(to, DisplayName(record.FileName()));
}

// The imported file takes the place of the preset of its name, of several the first in the order of a list; it is gone
// from where it was only after that.
Bool ImportFile(const PresetPath &record, const Filename &to) {
    std::vector<PresetPath> same = PresetsNamed(to, DisplayName(record.FileName()));
    SortByName(&same, [](const PresetPath &preset) { return preset.FileName(); });
    const Filename target = ImportTarget(record, to, same);
    if (!CopyPresetFile(record.path, target)) return FALSE;
    if (!same.empty() && !IsSamePlace(same[0].path, target)) GeFKill(same[0].path);
    GeFKill(record.path);
    // On a file system that knows one file under several names it may have gone with the others.
    if (!GeFExist(target)) WritePresetFile(target, record.contents);
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
    const Bool as_built_in = category == kCategoryAll && IsControlKeyHeld();
    if (record->category == kUserCategory && !as_built_in) ShowInFinder(exports, TRUE);
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
        // What the user keeps there is no import.
        if (IsSamePlace(folder.path, UserPresetFolder())) continue;
        const Filename to = folder.FileName() == kUserCategory ? UserPresetFolder() : CategoryFolder(folder.FileName());
        if (!GeFExist(to, TRUE) || IsSamePlace(folder.path, to)) continue;
        for (const PresetPath &record : presets) is_changed = ImportFile(record, to) || is_changed;
    }
    if (is_changed) ForgetPresetLibrary();
}
