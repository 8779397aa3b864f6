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

const Filename Filename::GetDirectory() const { return Filename(path_.Left(TrimmedLength(path_, FilePosition()))); }

String Filename::GetFileString() const {
    const LONG position = FilePosition();
    return path_.SubStr(position, TrimmedLength(path_, path_.GetLength()) - position);
}

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
