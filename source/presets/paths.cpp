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

Bool IsThere(const Filename &name) { return name.Content() && (GeFExist(name) || GeFExist(name, TRUE)); }

}  // namespace

Bool IsSamePlace(const Filename &a, const Filename &b) {
    // What the host finds is a path that the system can take.
    return IsThere(a) && IsThere(b) && (a == b || AreEquivalent(PathOf(a), PathOf(b)));
}

Filename NormalFolder(const Filename &folder) {
    if (!folder.Content() || !GeFExist(folder, TRUE)) return Filename();
    const fs::path typed = PathOf(folder);
    if (!typed.is_absolute()) return Filename();
    fs::path normal = typed.lexically_normal();
    if (!normal.has_filename() && normal.has_relative_path()) normal = normal.parent_path();
    // What ".." after a link leads to is not what the text says.
    if (!AreEquivalent(typed, normal)) {
        std::error_code error;
        normal = fs::canonical(typed, error);
        if (error) return Filename();
    }
    return FilenameOf(normal);
}
