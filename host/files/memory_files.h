// Files that lie in memory, below one folder that is on no disk: what a program brings along with it, and what it keeps
// to itself. Whatever reads and writes files here takes their paths as it takes others. From any thread.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/table.h"

namespace host::memory_files {

struct Entry {
    std::string name;
    bool is_folder = false;
    std::int64_t size = 0;
    TableFileTime modified{};  // no clock's: each change has a later one
};

// The folder that all of them lie below; it is always there.
std::filesystem::path Root();
// Whether the path leads to that folder or below it.
bool Holds(const std::filesystem::path &name);

bool IsFile(const std::filesystem::path &name);
bool IsFolder(const std::filesystem::path &name);
// The entry itself; false when there is none.
bool Find(const std::filesystem::path &name, Entry *entry);
// By name; none for what is no folder.
std::vector<Entry> Inside(const std::filesystem::path &folder);

bool Read(const std::filesystem::path &file, std::string *bytes);
// In place of what was there; false where its folder is not there, or a folder of that name is.
bool Write(const std::filesystem::path &file, std::string_view bytes);
bool MakeFolder(const std::filesystem::path &folder);  // one level; false when something is there already
// The same with all the folders above it, which may be there.
void MakeFolders(const std::filesystem::path &folder);
// With everything inside. false when it is not there, and for the root.
bool Remove(const std::filesystem::path &name);

}  // namespace host::memory_files
