#include "c4d_filename.h"
#include "platform/glue/handles.h"
#include "platform/glue/letters.h"

namespace {

#ifdef _WIN32
const UWORD kSeparator = '\\';
Bool IsSeparator(UWORD unit) { return unit == '\\' || unit == '/'; }
#else
const UWORD kSeparator = '/';
Bool IsSeparator(UWORD unit) { return unit == '/'; }
#endif

// Length of the part that is never taken off: "/", and on Windows "C:\".
LONG RootLength(const String &path) {
    if (IsSeparator(path[0])) return 1;
#ifdef _WIN32
    if (path[1] == ':') return IsSeparator(path[2]) ? 3 : 2;
#endif
    return 0;
}

// Length without separators at the end.
LONG TrimmedLength(const String &path, LONG length) {
    const LONG root = RootLength(path);
    while (length > root && IsSeparator(path[length - 1])) --length;
    return length;
}

}  // namespace

// Where the last component begins.
LONG Filename::FilePosition() const {
    const String &path = path_;
    const LONG root = RootLength(path);
    LONG position = TrimmedLength(path, path.GetLength());
    while (position > root && !IsSeparator(path[position - 1])) --position;
    return position;
}

// The first or the last dot that begins a suffix, or NOTOK.
LONG Filename::SuffixPosition(Bool first) const {
    const String &path = path_;
    LONG found = NOTOK;
    const LONG end = TrimmedLength(path, path.GetLength());
    for (LONG i = FilePosition() + 1; i < end; ++i) {
        if (path[i] != '.') continue;
        found = i;
        if (first) break;
    }
    return found;
}

const Filename Filename::GetDirectory() const { return Filename(path_.Left(TrimmedLength(path_, FilePosition()))); }

void Filename::SetDirectory(const Filename &folder) { *this = folder + GetFile(); }

String Filename::GetFileString() const {
    const LONG position = FilePosition();
    return path_.SubStr(position, TrimmedLength(path_, path_.GetLength()) - position);
}

const Filename Filename::GetFile() const { return Filename(GetFileString()); }

void Filename::SetFile(const Filename &file) { *this = GetDirectory() + file; }

String Filename::GetSuffix() const {
    const LONG dot = SuffixPosition(FALSE);
    return dot == NOTOK ? String() : path_.SubStr(dot + 1, TrimmedLength(path_, path_.GetLength()) - dot - 1);
}

void Filename::SetSuffix(const String &suffix) {
    if (!GetFileString().Content()) return;
    ClearSuffix();
    if (suffix.Content()) path_ += "." + suffix;
}

void Filename::ClearSuffix() {
    const LONG dot = SuffixPosition(FALSE);
    path_ = path_.Left(dot == NOTOK ? TrimmedLength(path_, path_.GetLength()) : dot);
}

void Filename::ClearSuffixComplete() {
    const LONG dot = SuffixPosition(TRUE);
    path_ = path_.Left(dot == NOTOK ? TrimmedLength(path_, path_.GetLength()) : dot);
}

Bool Filename::CheckSuffix(const String &suffix) const { return GetSuffix().LexCompare(suffix) == 0; }

const Filename &Filename::operator+=(const Filename &file) {
    if (!file.Content()) return *this;
    if (!Content()) return *this = file;
    LONG start = 0;
    while (IsSeparator(file.path_[start])) ++start;
    const LONG kept = TrimmedLength(path_, path_.GetLength()), added = file.path_.GetLength() - start;
    const LONG separators = IsSeparator(path_[kept - 1]) ? 0 : 1;
    String whole = path_.Left(kept);
    whole += String(separators, kSeparator);
    whole += file.path_.SubStr(start, added);
    // A piece of a path leads elsewhere: without memory for all of it there is none.
    path_ = whole.GetLength() == kept + separators + added ? whole : String();
    return *this;
}

Bool Filename::operator==(const Filename &other) const {
#ifdef _WIN32
    const String &a = path_, &b = other.path_;
    if (a.GetLength() != b.GetLength()) return FALSE;
    for (LONG i = 0; i < a.GetLength(); ++i) {
        const Bool both_separate = IsSeparator(a[i]) && IsSeparator(b[i]);
        if (!both_separate && LowerLetter(a[i]) != LowerLetter(b[i])) return FALSE;
    }
    return TRUE;
#else
    return path_ == other.path_;
#endif
}

Bool Filename::FileSelect(FILESELECTTYPE type, FILESELECT flags, const String &title, const String &force_suffix) {
    return host_table->general->select_file(type, flags, ToTable(&title), ToTable(&force_suffix), ToTable(this));
}
