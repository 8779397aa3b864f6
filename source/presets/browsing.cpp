#include "presets/browsing.h"

#include "presets/cache.h"
#include "presets/leftout.h"
#include "tag/ids.h"

namespace {

Bool IsHidden(BrowseFiles *browse, const String &name) { return browse->IsHidden() || name[0] == '.'; }

FileStamp StampOf(BrowseFiles *browse) {
    FileStamp stamp = FileStamp();
    stamp.size = browse->GetSize();
    browse->GetFileTime(GE_FILETIME_MODIFIED, &stamp.changed);
    return stamp;
}

// Every entry of a folder that can be named, until `visit(browse, name)` is FALSE.
template <class Visit>
void ForEachIn(const Filename &folder, Visit visit) {
    AutoAlloc<BrowseFiles> browse;
    if (!browse || !folder.Content()) return;
    browse->Init(folder, 0);
    while (browse->GetNext()) {
        const Filename name = browse->GetFilename();
        if (!visit(browse, name)) return;
    }
}

// But hidden ones.
template <class Visit>
void ForEachShownIn(const Filename &folder, Visit visit) {
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &name) -> Bool {
        return IsHidden(browse, name.GetString()) || visit(browse, name);
    });
}

Bool IsPreset(BrowseFiles *browse, const Filename &file) {
    BaseContainer preset;
    return ReadPresetFileOnce(file, StampOf(browse), &preset) == PresetFault::kNone;
}

// The entry that is browsed, where it is a preset.
void AddPreset(BrowseFiles *browse, PresetPath record, std::vector<PresetPath> *list) {
    const PresetFault fault = ReadPresetFileOnce(record.path, StampOf(browse), &record.contents);
    if (fault == PresetFault::kNone)
        list->push_back(record);
    else
        TellLeftOut(record.path, fault);
}

Bool HasRoom(const std::vector<PresetPath> &list) { return (LONG)list.size() < kLongestList; }

}  // namespace

std::vector<PresetPath> FoldersIn(const Filename &folder) {
    std::vector<PresetPath> found;
    ForEachShownIn(folder, [&](BrowseFiles *browse, const Filename &name) {
        if (browse->IsDir()) found.push_back(PresetPath(folder, name, name.GetString()));
        return HasRoom(found);
    });
    return found;
}

std::vector<Filename> FilesIn(const Filename &folder) {
    std::vector<Filename> found;
    ForEachShownIn(folder, [&](BrowseFiles *browse, const Filename &name) {
        if (!browse->IsDir()) found.push_back(name);
        return TRUE;
    });
    return found;
}

std::vector<PresetPath> PresetsIn(const Filename &folder, const String &category, Bool stop_at_folder) {
    std::vector<PresetPath> found;
    Bool is_behind_folder = FALSE;
    ForEachIn(folder, [&](BrowseFiles *browse, const Filename &name) -> Bool {
        const Bool is_hidden = IsHidden(browse, name.GetString());
        if (browse->IsDir()) {
            is_behind_folder = is_behind_folder || (stop_at_folder && !is_hidden);
            return TRUE;
        }
        const PresetPath record(folder, name, category);
        const PresetFault fault = is_hidden          ? PresetFault::kHidden
                                  : is_behind_folder ? PresetFault::kBehindFolder
                                  : HasRoom(found)   ? PresetFault::kNone
                                                     : PresetFault::kBehindLongestList;
        if (fault == PresetFault::kNone)
            AddPreset(browse, record, &found);
        else if (!IsUnfinished(name) && IsPreset(browse, record.path))
            TellLeftOut(record.path, fault);
        else
            return TRUE;
        // The first one behind the longest list stands for all of them.
        return fault != PresetFault::kBehindLongestList;
    });
    return found;
}

std::vector<PresetPath> PresetsNamed(const Filename &folder, const String &name) {
    const String wanted = name.ToLower();
    std::vector<PresetPath> found;
    ForEachShownIn(folder, [&](BrowseFiles *browse, const Filename &file) {
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
