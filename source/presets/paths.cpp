#include "presets/paths.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const Filename &name) {
    const String text = name.GetString();
    std::u16string units;
    for (LONG i = 0; i < text.GetLength(); i++) units.push_back(text[i]);
    return fs::path(units);
}

Filename FilenameOf(const fs::path &path) {
    const std::u16string units = path.u16string();
    String text((LONG)units.size(), ' ');
    for (LONG i = 0; i < text.GetLength(); i++) text[i] = (UWORD)units[(std::size_t)i];
    return Filename(text);
}

Bool AreEquivalent(const fs::path &a, const fs::path &b) {
    std::error_code error;
    return fs::equivalent(a, b, error) && !error;
}

// Empty for a path that is not absolute, or that leads nowhere.
fs::path Normalised(const fs::path &path) {
    if (!path.is_absolute()) return fs::path();
    fs::path normal = path.lexically_normal();
    if (!normal.has_filename() && normal.has_relative_path()) normal = normal.parent_path();
    // What ".." after a link leads to is not what the text says.
    return AreEquivalent(path, normal) ? normal : fs::canonical(path);
}

Bool IsThere(const Filename &name) { return name.Content() && (GeFExist(name) || GeFExist(name, TRUE)); }

}  // namespace

Bool IsSamePlace(const Filename &a, const Filename &b) {
    if (!IsThere(a) || !IsThere(b)) return FALSE;
    if (a == b) return TRUE;
    try {
        return AreEquivalent(PathOf(a), PathOf(b));
    } catch (const std::system_error &) {
        return FALSE;
    }
}

Filename NormalFolder(const Filename &folder) {
    if (!folder.Content() || !GeFExist(folder, TRUE)) return Filename();
    try {
        return FilenameOf(Normalised(PathOf(folder)));
    } catch (const std::system_error &) {
        return Filename();  // not every name is text
    }
}
