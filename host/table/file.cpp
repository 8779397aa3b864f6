#include "host/files/folders.h"
#include "host/files/hyperfile.h"
#include "host/services/platform.h"
#include "host/table/entries.h"
#include "host/table/guard.h"
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

const BrowseFiles::Entry *EntryOf(HostBrowseFiles *browse) {
    return browse == nullptr ? nullptr : AsBrowse(browse)->Current();
}

}  // namespace

std::int32_t FileEntries::exists(const TableFilename *name, std::int32_t is_folder) {
    return Answer(name, [&] { return Exists(ToPath(name), is_folder != 0); });
}

std::int32_t FileEntries::create_folder(const TableFilename *name) {
    return Answer(name, [&] { return CreateFolder(ToPath(name)); });
}

std::int32_t FileEntries::remove(const TableFilename *name, std::int32_t flags) {
    return Answer(name, [&] { return RemoveFile(ToPath(name), flags); });
}

std::int32_t FileEntries::copy(const TableFilename *source, const TableFilename *destination, std::int32_t flags) {
    return Answer(source, [&] {
        return destination != nullptr && CopyFileTo(ToPath(source), ToPath(destination), (flags & kCopyOverwrite) != 0);
    });
}

std::int32_t FileEntries::file_time(const TableFilename *name, std::int32_t mode, TableFileTime *out) {
    return Answer(name, [&] {
        return out != nullptr && mode >= 0 && mode <= static_cast<std::int32_t>(FileTimeKind::kAccessed) &&
               GetFileTime(ToPath(name), static_cast<FileTimeKind>(mode), out);
    });
}

void FileEntries::current_time(TableFileTime *out) {
    if (out != nullptr) *out = CurrentTime();
}

HostBrowseFiles *FileEntries::create_browse() {
    return Guarded<HostBrowseFiles *>(nullptr, [] { return new BrowseFiles; });
}

void FileEntries::release_browse(HostBrowseFiles *browse) { delete browse; }

void FileEntries::browse_init(HostBrowseFiles *browse, const TableFilename *folder, std::int32_t) {
    if (browse != nullptr) Guarded([&] { AsBrowse(browse)->Init(ToPath(folder)); });
}

std::int32_t FileEntries::browse_next(HostBrowseFiles *browse) {
    return Answer(browse, [&] { return AsBrowse(browse)->Next(); });
}

std::int32_t FileEntries::browse_is_folder(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry != nullptr && entry->is_folder ? 1 : 0;
}

std::int32_t FileEntries::browse_is_hidden(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry != nullptr && entry->is_hidden ? 1 : 0;
}

std::int64_t FileEntries::browse_size(HostBrowseFiles *browse) {
    const auto *entry = EntryOf(browse);
    return entry == nullptr ? 0 : entry->size;
}

void FileEntries::browse_file_time(HostBrowseFiles *browse, std::int32_t mode, TableFileTime *out) {
    const auto *entry = EntryOf(browse);
    if (out == nullptr) return;
    *out = entry != nullptr && mode == static_cast<std::int32_t>(FileTimeKind::kModified) ? entry->modified
                                                                                          : TableFileTime{};
}

void FileEntries::browse_name(HostBrowseFiles *browse, TableFilename *out) {
    if (out == nullptr) return;
    const auto *entry = EntryOf(browse);
    Guarded([&] { Assign(&out->path, entry == nullptr ? std::string() : entry->name); });
}

HostHyperFile *FileEntries::create_hyperfile() {
    return Guarded<HostHyperFile *>(nullptr, [] { return new HyperFile; });
}

void FileEntries::release_hyperfile(HostHyperFile *file) {
    Guarded([&] { delete file; });
}

std::int32_t FileEntries::open_hyperfile(HostHyperFile *file, std::int32_t ident, const TableFilename *name,
                                         std::int32_t mode, std::int32_t) {
    if (mode != static_cast<std::int32_t>(FileMode::kRead) && mode != static_cast<std::int32_t>(FileMode::kWrite))
        return 0;
    return Answer(file, [&] { return AsFile(file)->Open(ident, ToPath(name), static_cast<FileMode>(mode)); });
}

std::int32_t FileEntries::close_hyperfile(HostHyperFile *file) {
    return Answer(file, [&] { return AsFile(file)->Close(); });
}

std::int32_t FileEntries::write_container(HostHyperFile *file, const TableContainer *container) {
    return Answer(file, [&] { return container != nullptr && AsFile(file)->WriteContainer(AsContainer(container)); });
}

std::int32_t FileEntries::read_container(HostHyperFile *file, TableContainer *out) {
    return Answer(file, [&] { return out != nullptr && AsFile(file)->ReadContainer(&AsContainer(out)); });
}

}  // namespace host
