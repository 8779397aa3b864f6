#include "host/files/folders.h"

#include <algorithm>
#include <system_error>

#include "host/files/faults.h"
#include "host/files/memory_files.h"
#include "host/files/safe_write.h"
#include "host/services/platform.h"
#include "host/value/text.h"

namespace fs = std::filesystem;

namespace host {

namespace {

std::string Folded(const std::string &name) {
    std::string folded = name;
    for (char &c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

// Links are removed, not followed.
bool RemoveTree(const fs::path &name) {
    std::error_code error;
    bool is_empty = true;
    if (fs::is_directory(fs::symlink_status(name, error)))
        for (const fs::path &inside : NamesIn(name)) is_empty = RemoveTree(name / inside) && is_empty;
    return is_empty && fs::remove(name, error) && !error;
}

// Anything of that name, a link that leads nowhere, too.
bool IsThere(const fs::path &name) {
    if (memory_files::Holds(name)) return Exists(name, false) || Exists(name, true);
    std::error_code ignored;
    return fs::exists(fs::symlink_status(name, ignored));
}

}  // namespace

void BrowseFiles::Init(const fs::path &folder) {
    entries_.clear();
    next_ = 0;
    if (NextFileUse() != FileFault::kNone) return;
    struct Named {
        std::string folded;
        Entry entry;
    };
    std::vector<Named> found;
    for (const memory_files::Entry &inside : memory_files::Inside(folder)) {
        const bool is_hidden = inside.name[0] == '.';
        found.push_back(
            {Folded(inside.name), {inside.name, inside.is_folder, is_hidden, inside.size, inside.modified}});
    }
    for (const fs::path &name : NamesIn(folder)) {
        std::error_code ignored;
        if (fs::is_symlink(folder / name, ignored)) continue;
        Entry entry;
        entry.name = PathText(name);
        entry.is_folder = fs::is_directory(folder / name, ignored);
        entry.is_hidden = !entry.name.empty() && entry.name[0] == '.';
        const FileInfo info = GetFileInfo(folder / name);
        entry.size = entry.is_folder ? 0 : info.size;
        entry.modified = info.modified;
        found.push_back({Folded(entry.name), std::move(entry)});
    }
    std::sort(found.begin(), found.end(), [](const Named &a, const Named &b) {
        return a.folded != b.folded ? a.folded < b.folded : a.entry.name < b.entry.name;
    });
    entries_.reserve(found.size());
    for (Named &named : found) entries_.push_back(std::move(named.entry));
}

bool BrowseFiles::Next() {
    if (next_ > entries_.size()) return false;
    return ++next_ <= entries_.size();
}

const BrowseFiles::Entry *BrowseFiles::Current() const {
    return next_ >= 1 && next_ <= entries_.size() ? &entries_[next_ - 1] : nullptr;
}

bool GetFileTime(const fs::path &name, FileTimeKind kind, FileTime *time) {
    if (memory_files::Holds(name)) {
        memory_files::Entry entry;
        const bool exists = memory_files::Find(name, &entry);
        *time = entry.modified;
        return exists;
    }
    const FileInfo info = GetFileInfo(name);
    *time = kind == FileTimeKind::kCreated    ? info.created
            : kind == FileTimeKind::kModified ? info.modified
                                              : info.accessed;
    return info.exists;
}

bool Exists(const fs::path &name, bool is_folder) {
    if (memory_files::Holds(name)) return is_folder ? memory_files::IsFolder(name) : memory_files::IsFile(name);
    std::error_code ignored;
    return is_folder ? fs::is_directory(name, ignored) : fs::is_regular_file(name, ignored);
}

bool CreateFolder(const fs::path &name) {
    if (NextFileUse() != FileFault::kNone) return false;
    if (memory_files::Holds(name)) return memory_files::MakeFolder(name);
    std::error_code error;
    return fs::create_directory(name, error) && !error;
}

bool RemoveFile(const fs::path &name, std::int32_t flags) {
    if (NextFileUse() != FileFault::kNone || IsProtectedFromRemoval(name)) return false;
    if (memory_files::Holds(name)) {
        const bool is_bare = memory_files::Inside(name).empty(), is_folder = memory_files::IsFolder(name);
        if (is_folder && ((flags & kRemoveFolder) == 0 || (!is_bare && (flags & kRemoveRecursive) == 0))) return false;
        return memory_files::Remove(name);
    }
    std::error_code error;
    if (!fs::is_directory(fs::symlink_status(name, error))) return fs::remove(name, error) && !error;
    if ((flags & kRemoveFolder) == 0) return false;
    if ((flags & kRemoveRecursive) != 0) return RemoveTree(name);
    return fs::remove(name, error) && !error;
}

bool CopyFileTo(const fs::path &source, const fs::path &destination, bool overwrite) {
    if (!overwrite && IsThere(destination)) return false;
    std::error_code ignored;
    if (fs::is_symlink(fs::symlink_status(source, ignored))) return false;
    if (Exists(source, false)) {
        std::string bytes, reason;
        return ReadFile(source, &bytes, &reason) && WriteFileSafely(destination, bytes, &reason);
    }
    if (!Exists(source, true) || (!Exists(destination, true) && !CreateFolder(destination))) return false;
    bool complete = true;
    BrowseFiles browse;
    browse.Init(source);
    while (browse.Next()) {
        const fs::path name = PathFromText(browse.Current()->name);
        complete = CopyFileTo(source / name, destination / name, overwrite) && complete;
    }
    return complete;
}

}  // namespace host
