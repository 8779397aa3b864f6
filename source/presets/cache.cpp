#include "presets/cache.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>

#include "presets/presetfile.h"
#include "tag/ids.h"

namespace {

constexpr std::size_t kMostFiles = 50000;

Bool SameTime(const LocalFileTime &a, const LocalFileTime &b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

LONG SecondOfDay(const LocalFileTime &time) { return (time.hour * 60 + time.minute) * 60 + time.second; }

// Whether what changes from now on gets another time. File times count seconds, or two of them, and their clock may lag
// behind or run ahead a little. Two times of day are enough to tell: on another day it only means reading once more.
Bool IsLongPast(const LocalFileTime &changed) {
    constexpr LONG kDay = 24 * 60 * 60, kClocksApart = 5;
    LocalFileTime now = LocalFileTime();
    GeGetCurrentTime(&now);
    const LONG since = std::abs(SecondOfDay(now) - SecondOfDay(changed));
    return since > kClocksApart && since < kDay - kClocksApart;
}

struct FileState {
    LLONG size;
    LocalFileTime changed;
};

struct CachedFile {
    FileState state;
    // FALSE: the file may change unseen, or could not be read, perhaps for being in use.
    Bool is_certain;
    Bool is_preset;
    BaseContainer preset;
};

typedef std::map<String, CachedFile> CachedFiles;

// Held for moments, and over every use of `files`: what is in it is copied in and out, and files are read outside of
// it.
std::mutex lock;
CachedFiles *files = NULL;

Bool FindCached(const String &path, const FileState &state, CachedFile *found) {
    const std::lock_guard<std::mutex> hold(lock);
    if (!files) return FALSE;
    const CachedFiles::const_iterator place = files->find(path);
    if (place == files->end() || !place->second.is_certain) return FALSE;
    if (place->second.state.size != state.size || !SameTime(place->second.state.changed, state.changed)) return FALSE;
    *found = place->second;
    return TRUE;
}

void KeepCached(const String &path, const CachedFile &file) {
    const std::lock_guard<std::mutex> hold(lock);
    if (!files) files = new CachedFiles;
    if (files->size() >= kMostFiles) files->clear();
    (*files)[path] = file;
}

CachedFile ReadThroughCache(const Filename &path, const FileState &state) {
    CachedFile file;
    if (FindCached(path.GetString(), state, &file)) return file;
    const Bool is_long_past = IsLongPast(state.changed);
    file.state = state;
    file.is_preset = state.size <= kLargestPresetFile && ReadPresetFile(path, &file.preset);
    file.is_certain = file.is_preset && is_long_past;
    // The others are read again each time.
    if (file.is_certain) KeepCached(path.GetString(), file);
    return file;
}

Bool IsHidden(BrowseFiles *browse, const String &name) { return browse->IsHidden() || name[0] == '.'; }

FileState StateOf(BrowseFiles *browse) {
    FileState state = FileState();
    state.size = browse->GetSize();
    browse->GetFileTime(GE_FILETIME_MODIFIED, &state.changed);
    return state;
}

// Every entry but hidden ones of a folder that can be named, until `visit(browse, name)` is FALSE.
template <class Visit>
void ForEachIn(const Filename &folder, Visit visit) {
    AutoAlloc<BrowseFiles> browse;
    if (!browse || !folder.Content()) return;
    browse->Init(folder, 0);
    while (browse->GetNext()) {
        const Filename name = browse->GetFilename();
        if (!IsHidden(browse, name.GetString()) && !visit(browse, name)) return;
    }
}

// The entry that is browsed, where it is a preset.
void AddPreset(BrowseFiles *browse, PresetPath record, std::vector<PresetPath> *list) {
    const CachedFile file = ReadThroughCache(record.path, StateOf(browse));
    if (!file.is_preset) return;
    record.contents = file.preset;
    list->push_back(record);
}

Bool HasRoom(const std::vector<PresetPath> &list) { return (LONG)list.size() < kLongestList; }

}  // namespace

std::vector<PresetPath> FoldersIn(const Filename &folder) {
    std::vector<PresetPath> found;
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &name) {
        if (browse->IsDir()) found.push_back(PresetPath(folder, name, name.GetString()));
        return HasRoom(found);
    });
    return found;
}

std::vector<Filename> FilesIn(const Filename &folder) {
    std::vector<Filename> found;
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &name) {
        if (!browse->IsDir()) found.push_back(name);
        return TRUE;
    });
    return found;
}

std::vector<PresetPath> PresetsIn(const Filename &folder, const String &category, Bool stop_at_folder) {
    std::vector<PresetPath> found;
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &name) {
        if (browse->IsDir()) return !stop_at_folder;
        AddPreset(browse, PresetPath(folder, name, category), &found);
        return (bool)HasRoom(found);
    });
    return found;
}

std::vector<PresetPath> PresetsNamed(const Filename &folder, const String &name) {
    const String wanted = name.ToLower();
    std::vector<PresetPath> found;
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &file) {
        if (browse->IsDir() || DisplayName(file.GetString()).ToLower() != wanted) return TRUE;
        AddPreset(browse, PresetPath(folder, file, String()), &found);
        return TRUE;
    });
    return found;
}

Bool ReadAgain(const PresetPath &record, BaseContainer *preset) {
    for (const PresetPath &present : PresetsIn(record.path.GetDirectory(), record.category, FALSE)) {
        if (present.full_path != record.full_path) continue;
        *preset = present.contents;
        return TRUE;
    }
    return FALSE;
}

FolderStamp::FolderStamp(const Filename &folder) : folder_(folder), changed_(LocalFileTime()) {
    exists_ = GeGetFileTime(folder, GE_FILETIME_MODIFIED, &changed_);
    is_certain_ = !exists_ || IsLongPast(changed_);
}

Bool FolderStamp::operator==(const FolderStamp &other) const {
    return is_certain_ && other.is_certain_ && exists_ == other.exists_ && SameTime(changed_, other.changed_) &&
           folder_ == other.folder_;
}

void ForgetPresets() {
    const std::lock_guard<std::mutex> hold(lock);
    delete files;
    files = NULL;
}
