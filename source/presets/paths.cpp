#include "presets/paths.h"

#include <vector>

#include "presets/browsing.h"
#include "presets/folders.h"

namespace {

typedef std::vector<UWORD> Units;

Bool IsWindows() { return GeGetCurrentOS() == OPERATINGSYSTEM_WIN; }

Bool IsSeparator(UWORD unit) { return unit == '/' || (unit == '\\' && IsWindows()); }

// Length of the part that makes a path absolute: "/", on Windows "C:\" and "\\"; 0 for a path that is not.
LONG RootLength(const String &path) {
    if (!IsWindows()) return path[0] == '/' ? 1 : 0;
    if (IsSeparator(path[0]) && IsSeparator(path[1])) return 2;
    return path[1] == ':' && IsSeparator(path[2]) ? 3 : 0;
}

void Append(const String &text, LONG start, LONG end, Units *units) {
    for (LONG i = start; i < end; i++) units->push_back(text[i]);
}

// Empty where there is no memory for all of it: a piece of a path leads elsewhere.
Filename FilenameOf(const Units &units) {
    String text;
    text.SetUcBlock(&units[0], (LONG)units.size());
    return text.GetLength() == (LONG)units.size() ? Filename(text) : Filename();
}

// What is made in one of two folders is seen in the other when they are one.
Bool ShareTheirContent(const Filename &a, const Filename &b) {
    const Filename name(".tremolux"), mark = InFolder(a, name), seen = InFolder(b, name);
    // One that a crash left behind tells nothing.
    for (const Filename &old : {mark, seen})
        if (GeFExist(old, TRUE)) GeFKill(old, GE_FKILL_DIRECTORY);
    if (!mark.Content() || !seen.Content() || GeFExist(seen, TRUE) || !GeFCreateDir(mark)) return FALSE;
    const Bool is_seen = GeFExist(seen, TRUE);
    GeFKill(mark, GE_FKILL_DIRECTORY);
    return is_seen;
}

}  // namespace

Bool IsSameFolder(const Filename &a, const Filename &b) {
    if (!a.Content() || !b.Content() || !GeFExist(a, TRUE) || !GeFExist(b, TRUE)) return FALSE;
    return a == b || ShareTheirContent(a, b);
}

Filename NormalFolder(const Filename &folder) {
    const String path = folder.GetString();
    const LONG length = path.GetLength(), root = RootLength(path);
    if (root == 0 || !GeFExist(folder, TRUE)) return Filename();
    Units units;
    Append(path, 0, root, &units);
    for (LONG start = root; start < length;) {
        LONG end = start;
        while (end < length && !IsSeparator(path[end])) end++;
        const Bool is_nothing = end == start || (end == start + 1 && path[start] == '.');
        if (!is_nothing) {
            if (!IsSeparator(units.back())) units.push_back(path[root - 1]);
            Append(path, start, end, &units);
        }
        start = end + 1;
    }
    return FilenameOf(units);
}

Filename ListedIn(const Filename &folder, const String &name) {
    Filename alike;
    for (const Filename &file : FilesIn(folder)) {
        if (file.GetString() == name) return InFolder(folder, file);
        if (file.GetString().ToLower() == name.ToLower()) alike = file;
    }
    const Filename own = InFolder(folder, Filename(name));
    return alike.Content() && GeFExist(own) ? InFolder(folder, alike) : own;
}
