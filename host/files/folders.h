// Folders: what lies in them, making, copying and removing.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/table.h"

struct HostBrowseFiles {
    virtual ~HostBrowseFiles() = default;
};

namespace host {

using FileTime = TableFileTime;

// The entries of one folder, by name without regard to case; not recursive. Symbolic links are left out: whatever walks
// through folders stays inside them.
class BrowseFiles : public HostBrowseFiles {
  public:
    struct Entry {
        std::string name;
        bool is_folder = false, is_hidden = false;
        std::int64_t size = 0;
        FileTime modified{};
    };
    void Init(const std::filesystem::path &folder);  // a folder that cannot be read has no entries
    bool Next();
    const Entry *Current() const;  // null before the first Next and after the last

  private:
    std::vector<Entry> entries_;
    std::size_t next_ = 0;
};

enum class FileTimeKind : std::int32_t { kCreated = 0, kModified = 1, kAccessed = 2 };
// Of a file or folder; false when there is none.
bool GetFileTime(const std::filesystem::path &name, FileTimeKind kind, FileTime *time);

bool Exists(const std::filesystem::path &name, bool is_folder);
bool CreateFolder(const std::filesystem::path &name);  // one level; false when it is there or cannot be made
enum RemoveFlag : std::int32_t { kRemoveFolder = 1, kRemoveRecursive = 2 };
bool RemoveFile(const std::filesystem::path &name, std::int32_t flags);
// Files and whole folders, each file complete or not at all; symbolic links are not copied. Without `overwrite` an
// existing destination is left alone.
bool CopyFileTo(const std::filesystem::path &source, const std::filesystem::path &destination, bool overwrite);

}  // namespace host
