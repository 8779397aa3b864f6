// A path. Folders are separated by '\' on Windows (where '/' is understood too) and by '/' elsewhere.
#pragma once

#include "c4d_string.h"

class Filename {
  public:
    Filename() : reserved_(NULL) {}
    Filename(const CHAR *path) : path_(path), reserved_(NULL) {}
    Filename(const String &path) : path_(path), reserved_(NULL) {}

    Bool Content() const { return path_.Content(); }
    String GetString() const { return path_; }
    void SetString(const String &path) { path_ = path; }

    // All but the last component, without a separator at its end (a root keeps it).
    const Filename GetDirectory() const;
    // The last component.
    String GetFileString() const;

    // Joins with exactly one separator; an empty side gives the other one.
    friend const Filename operator+(const Filename &folder, const Filename &file) {
        Filename joined(folder);
        joined += file;
        return joined;
    }
    const Filename &operator+=(const Filename &file);

    // Without regard to case on Windows.
    Bool operator==(const Filename &other) const;
    Bool operator!=(const Filename &other) const { return !(*this == other); }

    // Asks the user. TRUE: this is the choice; FALSE: cancelled and unchanged. The folder of the present value is
    // proposed as the start.
    Bool FileSelect(FILESELECTTYPE type, FILESELECT flags, const String &title, const String &force_suffix = String());

  private:
    LONG FilePosition() const;

    String path_;
    [[maybe_unused]] void *reserved_;
};
