#include "host/files/folders.h"

#include <algorithm>
#include <system_error>

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

}  // namespace

void BrowseFiles::Init(const fs::path &folder) {
    entries_.clear();
    next_ = 0;
    std::error_code error;
    for (fs::directory_iterator i(folder, error), end; !error && i != end; i.increment(error)) {
        std::error_code ignored;
        Entry entry;
        entry.name = PathText(i->path().filename());
        entry.is_folder = i->is_directory(ignored);
        entry.is_hidden = !entry.name.empty() && entry.name[0] == '.';
        const std::uintmax_t size = entry.is_folder ? 0 : i->file_size(ignored);
        entry.size = ignored ? 0 : static_cast<std::int64_t>(size);
        entries_.push_back(std::move(entry));
    }
    std::sort(entries_.begin(), entries_.end(), [](const Entry &a, const Entry &b) {
        const std::string x = Folded(a.name), y = Folded(b.name);
        return x != y ? x < y : a.name < b.name;
    });
}

bool BrowseFiles::Next() {
    if (next_ > entries_.size()) return false;
    return ++next_ <= entries_.size();
}

const BrowseFiles::Entry *BrowseFiles::Current() const {
    return next_ >= 1 && next_ <= entries_.size() ? &entries_[next_ - 1] : nullptr;
}

bool Exists(const fs::path &name, bool is_folder) {
    std::error_code ignored;
    return is_folder ? fs::is_directory(name, ignored) : fs::is_regular_file(name, ignored);
}

bool CreateFolder(const fs::path &name) {
    std::error_code error;
    return fs::create_directory(name, error) && !error;
}

bool RemoveFile(const fs::path &name, std::int32_t flags) {
    std::error_code error;
    if (!fs::is_directory(name, error)) return fs::remove(name, error) && !error;
    if ((flags & kRemoveFolder) == 0) return false;
    if ((flags & kRemoveRecursive) != 0) return fs::remove_all(name, error) > 0 && !error;
    return fs::remove(name, error) && !error;
}

bool CopyFileTo(const fs::path &source, const fs::path &destination, bool overwrite) {
    std::error_code error;
    if (!fs::exists(source, error) || (!overwrite && fs::exists(destination, error))) return false;
    const auto options =
        fs::copy_options::recursive | (overwrite ? fs::copy_options::overwrite_existing : fs::copy_options::none);
    fs::copy(source, destination, options, error);
    return !error;
}

bool RenameFile(const fs::path &source, const fs::path &destination) {
    std::error_code error;
    if (fs::exists(destination, error)) return false;
    fs::rename(source, destination, error);
    return !error;
}

}  // namespace host
