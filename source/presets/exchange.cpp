// Presets that come from others and go to others.
#include <algorithm>

#include "presets/browsing.h"
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

// The preset that an import takes the place of: the one under its file's name, else of those that are displayed alike
// the first in the order of a list. None of those that came before it in the same scan: they are news, too.
const PresetPath *ReplacedPreset(const std::vector<PresetPath> &same, const Filename &own,
                                 const std::vector<Filename> &imported) {
    const PresetPath *first = NULL;
    for (const PresetPath &preset : same) {
        if (std::find(imported.begin(), imported.end(), preset.path) != imported.end()) continue;
        if (preset.path == own) return &preset;
        if (!first) first = &preset;
    }
    return first;
}

// The imported file is gone from where it was only when it has its place here. One that nobody may delete would come
// back over whatever the user saves under its name: it takes no place.
void ImportFile(const PresetPath &record, const Filename &to, std::vector<Filename> *imported) {
    std::vector<PresetPath> same = PresetsNamed(to, DisplayName(record.FileName()));
    SortByName(&same, [](const PresetPath &preset) { return preset.FileName(); });
    const Filename own = ListedIn(to, record.FileName());
    const PresetPath *replaced = ReplacedPreset(same, own, *imported);
    const Bool is_over_it = replaced && replaced->path == own;
    const Bool is_taken = !is_over_it && (GeFExist(own) || GeFExist(own, TRUE));
    const Filename target = is_taken ? NewFileIn(to, DisplayName(record.FileName())) : own;

    if (!CopyPresetFile(record.path, target)) return;
    if (replaced && !is_over_it) GeFKill(replaced->path);
    GeFKill(record.path);
    if (replaced && GeFExist(record.path)) {
        if (WritePresetFile(replaced->path, replaced->contents) && !is_over_it) GeFKill(target);
        return;
    }
    // On a file system that knows one file under several names it may have gone with the others.
    if (!GeFExist(target)) WritePresetFile(target, record.contents);
    imported->push_back(target);
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
    std::vector<Filename> imported;
    for (const PresetPath &folder : FoldersIn(ImportFolder())) {
        const std::vector<PresetPath> presets = PresetsIn(folder.path, folder.category, FALSE);
        if (presets.empty()) continue;
        // What the user keeps there is no import.
        if (IsSameFolder(folder.path, UserPresetFolder())) continue;
        const Filename to = folder.FileName() == kUserCategory ? UserPresetFolder() : CategoryFolder(folder.FileName());
        if (!GeFExist(to, TRUE) || IsSameFolder(folder.path, to)) continue;
        for (const PresetPath &record : presets) ImportFile(record, to, &imported);
    }
    if (!imported.empty()) ForgetPresetLibrary();
}
