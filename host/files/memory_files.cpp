#include "host/files/memory_files.h"

#include <map>
#include <mutex>

namespace host::memory_files {
namespace {

namespace fs = std::filesystem;

constexpr const char *kRoot = "/files in memory";

struct Content {
    bool is_folder = true;
    std::string bytes;
    std::int64_t change = 0;  // the number of its last change
};

struct Store {
    std::mutex lock;
    std::map<std::string, Content> content{{kRoot, {}}};  // by their whole path
    std::int64_t changes = 0;

    const Content *At(const std::string &key) const {
        const auto place = content.find(key);
        return place == content.end() ? nullptr : &place->second;
    }
    bool HasFolder(const std::string &key) const {
        const Content *found = At(key);
        return found != nullptr && found->is_folder;
    }
    void Put(const std::string &key, bool is_folder, std::string_view bytes) {
        content[key] = {is_folder, std::string(bytes), ++changes};
    }
};

Store &TheStore() {
    static Store store;
    return store;
}

// With one spelling for each place.
std::string KeyOf(const fs::path &name) {
    std::string key = name.lexically_normal().generic_u8string();
    while (key.size() > 1 && key.back() == '/') key.pop_back();
    return key;
}

std::string FolderOf(const std::string &key) { return key.substr(0, key.rfind('/')); }

TableFileTime TimeOf(std::int64_t change) {
    constexpr std::int64_t kMinute = 60, kHour = 60 * kMinute, kDay = 24 * kHour, kDays = 28, kMonths = 12;
    const std::int64_t day = change / kDay, month = day / kDays;
    const auto part = [](std::int64_t number) { return static_cast<std::uint16_t>(number); };
    return {part(2000 + month / kMonths), part(1 + month % kMonths),      part(1 + day % kDays),
            part(change % kDay / kHour),  part(change % kHour / kMinute), part(change % kMinute)};
}

Entry EntryOf(const std::string &key, const Content &content) {
    return {key.substr(key.rfind('/') + 1), content.is_folder, static_cast<std::int64_t>(content.bytes.size()),
            TimeOf(content.change)};
}

}  // namespace

fs::path Root() { return fs::u8path(kRoot); }

bool Holds(const fs::path &name) {
    const std::string key = KeyOf(name), root = kRoot;
    return key.compare(0, root.size(), root) == 0 && (key.size() == root.size() || key[root.size()] == '/');
}

bool IsFile(const fs::path &name) {
    Entry entry;
    return Find(name, &entry) && !entry.is_folder;
}

bool IsFolder(const fs::path &name) {
    Entry entry;
    return Find(name, &entry) && entry.is_folder;
}

bool Find(const fs::path &name, Entry *entry) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const std::string key = KeyOf(name);
    const Content *content = store.At(key);
    if (content != nullptr) *entry = EntryOf(key, *content);
    return content != nullptr;
}

std::vector<Entry> Inside(const fs::path &folder) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const std::string key = KeyOf(folder);
    std::vector<Entry> entries;
    for (const auto &[name, content] : store.content)
        if (name.size() > key.size() && FolderOf(name) == key) entries.push_back(EntryOf(name, content));
    return entries;
}

bool Read(const fs::path &file, std::string *bytes) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const Content *content = store.At(KeyOf(file));
    if (content == nullptr || content->is_folder) return false;
    *bytes = content->bytes;
    return true;
}

bool Write(const fs::path &file, std::string_view bytes) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const std::string key = KeyOf(file);
    if (!store.HasFolder(FolderOf(key)) || store.HasFolder(key)) return false;
    store.Put(key, false, bytes);
    return true;
}

bool MakeFolder(const fs::path &folder) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const std::string key = KeyOf(folder);
    if (!store.HasFolder(FolderOf(key)) || store.At(key) != nullptr) return false;
    store.Put(key, true, {});
    return true;
}

void MakeFolders(const fs::path &folder) {
    if (!Holds(folder) || IsFolder(folder)) return;
    MakeFolders(folder.parent_path());
    MakeFolder(folder);
}

bool Remove(const fs::path &name) {
    Store &store = TheStore();
    const std::lock_guard<std::mutex> hold(store.lock);
    const std::string key = KeyOf(name), below = key + "/";
    if (key == kRoot || store.content.erase(key) == 0) return false;
    for (auto place = store.content.lower_bound(below);
         place != store.content.end() && place->first.compare(0, below.size(), below) == 0;)
        place = store.content.erase(place);
    return true;
}

}  // namespace host::memory_files
