#include "presets/library.h"

#include <mutex>

#include "presets/browsing.h"
#include "presets/folders.h"
#include "presets/lucky.h"
#include "presets/order.h"
#include "presets/presetfile.h"
#include "presets/shuffle.h"
#include "presets/stamps.h"
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

// The last one that was read. Held for moments: files are read, and old ones released, outside of it.
std::mutex lock;
std::shared_ptr<const ReadLibrary> last_read;
ULONG times_forgotten = 0;

std::shared_ptr<const ReadLibrary> LastRead(ULONG *forgotten) {
    const std::lock_guard<std::mutex> hold(lock);
    *forgotten = times_forgotten;
    return last_read;
}

// Not where it was forgotten while it was being read: then something may have changed behind it.
void Keep(std::shared_ptr<const ReadLibrary> read, ULONG forgotten) {
    const std::lock_guard<std::mutex> hold(lock);
    if (forgotten == times_forgotten) last_read.swap(read);
}

Bool HasShake(const BaseContainer &preset) {
    for (LONG id : kShakeAmounts) {
        const Real amount = id == kJoltInterval ? preset.GetTime(id).Get() : preset.GetReal(id);
        if (amount != 0.0) return TRUE;
    }
    return FALSE;
}

void AddCategory(const std::vector<PresetPath> &presets, LONG category, Bool is_users, PresetLibrary *library) {
    LONG index = 0;
    for (const PresetPath &record : presets) {
        BaseContainer preset = record.contents;
        if (HasShake(preset) && (LONG)library->shaking.size() < kLongestShuffle) {
            preset.SetString(kPresetShakeFile, record.FileName());
            const String id = is_users ? record.full_path : record.category + String("/") + record.FileName();
            library->shaking.push_back(ShakingPreset{id, preset});
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

std::shared_ptr<const PresetLibrary> ReadPresetLibrary(const Filename &root) {
    const Filename user = UserPresetFolder();
    const std::vector<PresetPath> categories = FoldersIn(root);
    const std::vector<FolderStamp> stamps = StampsOf(root, user, categories);
    ULONG forgotten;
    std::shared_ptr<const ReadLibrary> known = LastRead(&forgotten);
    if (!known || !(known->stamps == stamps)) {
        const auto read = std::make_shared<ReadLibrary>(ReadLibrary{PresetLibrary(), stamps});
        LONG category = 0;
        for (const PresetPath &folder : categories)
            AddCategory(PresetsIn(folder.path, folder.category, TRUE), category++, FALSE, &read->library);
        AddCategory(PresetsIn(user, kUserCategory, FALSE), category, TRUE, &read->library);
        Keep(read, forgotten);
        known = read;
    }
    return std::shared_ptr<const PresetLibrary>(known, &known->library);
}

void ForgetPresetLibrary() {
    std::shared_ptr<const ReadLibrary> old;
    const std::lock_guard<std::mutex> hold(lock);
    last_read.swap(old);
    times_forgotten++;
}

void TremoluxCamClass::LoadPresetLibrary(BaseContainer *data) {
    if (!data) return;
    library_ = ReadPresetLibrary(data->GetFilename(kBuiltInPresetFolder));
    lucky_order_.clear();
    // The random numbers are the buttons', which are pressed on the main thread: what other threads set up in the
    // meantime draws none, and its order is made as the button is pressed.
    if (GeIsMainThread()) lucky_order_ = Shuffled(IdsOf(*library_));
    data->SetLong(kLibraryCount, library_->count);
    data->SetContainer(kLibraryCategories, library_->categories);
    data->SetContainer(kLibraryIndices, library_->indices);
    data->SetContainer(kLibraryPresets, library_->presets);
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
