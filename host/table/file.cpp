#include <cstring>

#include "host/files/folders.h"
#include "host/files/hyperfile.h"
#include "host/services/platform.h"
#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/memory.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr std::int32_t kCopyOverwrite = 1;

BrowseFiles *AsBrowse(HostBrowseFiles *browse) { return static_cast<BrowseFiles *>(browse); }
HyperFile *AsFile(HostHyperFile *file) { return static_cast<HyperFile *>(file); }

// A Bool of what `body` answers; 0 for a null handle.
template <typename Handle, typename Body>
std::int32_t Answer(Handle *handle, Body &&body) {
    if (handle == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return body() ? 1 : 0; });
}

std::int32_t ExistsEntry(const TableFilename *name, std::int32_t is_folder) {
    return Answer(name, [&] { return Exists(ToPath(name), is_folder != 0); });
}
std::int32_t CreateFolderEntry(const TableFilename *name) {
    return Answer(name, [&] { return CreateFolder(ToPath(name)); });
}
std::int32_t RemoveEntry(const TableFilename *name, std::int32_t flags) {
    return Answer(name, [&] { return RemoveFile(ToPath(name), flags); });
}
std::int32_t CopyEntry(const TableFilename *source, const TableFilename *destination, std::int32_t flags) {
    return Answer(source, [&] {
        return destination != nullptr && CopyFileTo(ToPath(source), ToPath(destination), (flags & kCopyOverwrite) != 0);
    });
}
std::int32_t RenameEntry(const TableFilename *source, const TableFilename *destination) {
    return Answer(source, [&] { return destination != nullptr && RenameFile(ToPath(source), ToPath(destination)); });
}

std::int32_t FileTimeEntry(const TableFilename *name, std::int32_t mode, TableFileTime *out) {
    return Answer(name, [&] {
        return out != nullptr && mode >= 0 && mode <= static_cast<std::int32_t>(FileTimeKind::kAccessed) &&
               GetFileTime(ToPath(name), static_cast<FileTimeKind>(mode), out);
    });
}
void CurrentTimeEntry(TableFileTime *out) {
    if (out != nullptr) *out = CurrentTime();
}

HostBrowseFiles *CreateBrowse() {
    return Guarded<HostBrowseFiles *>(nullptr, [] { return new BrowseFiles; });
}
void ReleaseBrowse(HostBrowseFiles *browse) { delete browse; }
void BrowseInit(HostBrowseFiles *browse, const TableFilename *folder, std::int32_t) {
    if (browse != nullptr) Guarded([&] { AsBrowse(browse)->Init(ToPath(folder)); });
}
std::int32_t BrowseNext(HostBrowseFiles *browse) {
    return Answer(browse, [&] { return AsBrowse(browse)->Next(); });
}
const BrowseFiles::Entry *EntryOf(HostBrowseFiles *browse) {
    return browse == nullptr ? nullptr : AsBrowse(browse)->Current();
}
std::int32_t BrowseIsFolder(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry != nullptr && entry->is_folder ? 1 : 0;
}
std::int32_t BrowseIsHidden(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry != nullptr && entry->is_hidden ? 1 : 0;
}
std::int64_t BrowseSize(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry == nullptr ? 0 : entry->size;
}
void BrowseFileTime(HostBrowseFiles *browse, std::int32_t mode, TableFileTime *out) {
    const auto *entry = EntryOf(browse);
    if (out == nullptr) return;
    *out = entry != nullptr && mode == static_cast<std::int32_t>(FileTimeKind::kModified) ? entry->modified
                                                                                          : TableFileTime{};
}
void BrowseName(HostBrowseFiles *browse, TableFilename *out) {
    if (out == nullptr) return;
    const auto *entry = EntryOf(browse);
    Guarded([&] { Assign(&out->path, entry == nullptr ? std::string() : entry->name); });
}

HostHyperFile *CreateHyperFile() {
    return Guarded<HostHyperFile *>(nullptr, [] { return new HyperFile; });
}
void ReleaseHyperFile(HostHyperFile *file) {
    Guarded([&] { delete file; });
}
std::int32_t OpenHyperFile(HostHyperFile *file, std::int32_t ident, const TableFilename *name, std::int32_t mode,
                           std::int32_t) {
    if (mode != static_cast<std::int32_t>(FileMode::kRead) && mode != static_cast<std::int32_t>(FileMode::kWrite))
        return 0;
    return Answer(file, [&] { return AsFile(file)->Open(ident, ToPath(name), static_cast<FileMode>(mode)); });
}
std::int32_t CloseHyperFile(HostHyperFile *file) {
    return Answer(file, [&] { return AsFile(file)->Close(); });
}
std::int32_t WriteValue(HostHyperFile *file, std::int32_t type, const void *value) {
    return Answer(file, [&] { return AsFile(file)->Write(type, value); });
}
std::int32_t ReadValue(HostHyperFile *file, std::int32_t type, void *value) {
    return Answer(file, [&] { return AsFile(file)->Read(type, value); });
}
std::int32_t WriteDataEntry(HostHyperFile *file, const TableData *data) {
    return Answer(file, [&] { return data != nullptr && AsFile(file)->WriteData(*data); });
}
std::int32_t ReadDataEntry(HostHyperFile *file, TableData *out) {
    return Answer(file, [&] { return out != nullptr && AsFile(file)->ReadData(static_cast<Data *>(out)); });
}
std::int32_t WriteMemory(HostHyperFile *file, const void *memory, std::int64_t bytes) {
    return Answer(file, [&] { return AsFile(file)->WriteMemory(memory, bytes); });
}
std::int32_t ReadMemory(HostHyperFile *file, void **out_memory, std::int64_t *out_bytes) {
    return Answer(file, [&] {
        std::string bytes;
        if (out_memory == nullptr || out_bytes == nullptr || !AsFile(file)->ReadMemory(&bytes)) return false;
        const auto size = static_cast<std::int64_t>(bytes.size());
        void *memory = AllocateUncleared(size > 0 ? size : 1);
        if (memory == nullptr) return false;
        std::memcpy(memory, bytes.data(), bytes.size());
        *out_memory = memory;
        *out_bytes = size;
        return true;
    });
}
std::int32_t WriteChunkStart(HostHyperFile *file, std::int32_t id, std::int32_t level) {
    return Answer(file, [&] { return AsFile(file)->WriteChunkStart(id, level); });
}
std::int32_t WriteChunkEnd(HostHyperFile *file) {
    return Answer(file, [&] { return AsFile(file)->WriteChunkEnd(); });
}
std::int32_t ReadChunkStart(HostHyperFile *file, std::int32_t *id, std::int32_t *level) {
    return Answer(file, [&] { return id != nullptr && level != nullptr && AsFile(file)->ReadChunkStart(id, level); });
}
std::int32_t ReadChunkEnd(HostHyperFile *file) {
    return Answer(file, [&] { return AsFile(file)->ReadChunkEnd(); });
}
std::int32_t HyperFileError(const HostHyperFile *file) {
    return file == nullptr ? kFileOk : static_cast<const HyperFile *>(file)->Error();
}

}  // namespace

const FileTable *FileEntries() {
    static const FileTable table = {ExistsEntry,   CreateFolderEntry, RemoveEntry,      CopyEntry,      RenameEntry,
                                    FileTimeEntry, CurrentTimeEntry,  CreateBrowse,     ReleaseBrowse,  BrowseInit,
                                    BrowseNext,    BrowseIsFolder,    BrowseIsHidden,   BrowseSize,     BrowseFileTime,
                                    BrowseName,    CreateHyperFile,   ReleaseHyperFile, OpenHyperFile,  CloseHyperFile,
                                    WriteValue,    ReadValue,         WriteDataEntry,   ReadDataEntry,  WriteMemory,
                                    ReadMemory,    WriteChunkStart,   WriteChunkEnd,    ReadChunkStart, ReadChunkEnd,
                                    HyperFileError};
    return &table;
}

}  // namespace host
