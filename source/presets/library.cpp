#include "presets/library.h"

#include <memory>

#include "presets/folders.h"
#include "presets/order.h"
#include "presets/presetfile.h"
#include "presets/shuffle.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr LONG kShakeAmounts[] = {kJoltInterval,   kPositionSlow, kPositionMedium, kPositionFast,    kRotationSlow,
                                  kRotationMedium, kRotationFast, kZoomDriftSlow,  kZoomDriftMedium, kZoomDriftFast};

// The library and the folders that it was read from.
struct ReadLibrary {
    PresetLibrary library;
    std::vector<FolderStamp> stamps;
};

ReadLibrary *last_read = NULL;

Bool HasShake(const BaseContainer &preset) {
    for (LONG id : kShakeAmounts) {
        const Real amount = id == kJoltInterval ? preset.GetTime(id).Get() : preset.GetReal(id);
        if (amount != 0.0) return TRUE;
    }
    return FALSE;
}

void AddCategory(const std::vector<PresetPath> &presets, LONG category, PresetLibrary *library) {
    LONG index = 0;
    for (const PresetPath &record : presets) {
        BaseContainer preset = record.contents;
        if (HasShake(preset) && (LONG)library->shaking.size() < kLongestShuffle) {
            preset.SetString(kPresetShakeFile, record.FileName());
            library->shaking.push_back(preset);
        }
        const LONG n = library->count++;
        library->categories.SetLong(n, category);
        library->indices.SetLong(n, index++);
        library->presets.SetContainer(n, preset);
    }
}

std::vector<FolderStamp> StampsOf(const Filename &root, const Filename &user,
                                  const std::vector<PresetPath> &categories) {
    std::vector<FolderStamp> stamps = {FolderStamp(root), FolderStamp(user)};
    for (const PresetPath &category : categories) stamps.push_back(FolderStamp(category.path));
    return stamps;
}

}  // namespace

const PresetLibrary &ReadPresetLibrary(const Filename &root) {
    const Filename user = UserPresetFolder();
    const std::vector<PresetPath> categories = FoldersIn(root);
    const std::vector<FolderStamp> stamps = StampsOf(root, user, categories);
    if (last_read && last_read->stamps == stamps) return last_read->library;

    ForgetPresetLibrary();
    std::unique_ptr<ReadLibrary> read(new ReadLibrary{PresetLibrary(), stamps});
    LONG category = 0;
    for (const PresetPath &folder : categories)
        AddCategory(PresetsIn(folder.path, folder.category, TRUE), category++, &read->library);
    AddCategory(PresetsIn(user, kUserCategory, FALSE), category, &read->library);
    last_read = read.release();
    return last_read->library;
}

void ForgetPresetLibrary() {
    delete last_read;
    last_read = NULL;
}

void TremoluxCamClass::LoadPresetLibrary(BaseContainer *data) {
    if (!data) return;
    const PresetLibrary &library = ReadPresetLibrary(data->GetFilename(kBuiltInPresetFolder));
    shaking_presets_ = Shuffled(library.shaking);
    data->SetLong(kLibraryCount, library.count);
    data->SetContainer(kLibraryCategories, library.categories);
    data->SetContainer(kLibraryIndices, library.indices);
    data->SetContainer(kLibraryPresets, library.presets);
}

void TremoluxCamClass::ScanPresetCategories(const String &, BaseContainer *data) {
    std::vector<PresetPath> categories;
    if (data) categories = FoldersIn(data->GetFilename(kBuiltInPresetFolder));
    SortByName(&categories, [](const PresetPath &category) { return category.FileName(); });
    std::vector<String> folders, names;
    for (const PresetPath &category : categories) {
        folders.push_back(category.FileName());
        names.push_back(DisplayName(category.FileName()));
    }
    sorted_folders_.swap(folders);
    sorted_names_.swap(names);
}
