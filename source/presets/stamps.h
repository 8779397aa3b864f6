// What tells that a file or a folder is as it was.
#pragma once

#include "c4d.h"

// Whether what changes from now on gets another time than this one.
Bool IsLongPast(const LocalFileTime &changed);

struct FileStamp {
    LLONG size;
    LocalFileTime changed;
    Bool operator==(const FileStamp &other) const;
};

// When the files of a folder last came or went. Equal only where nothing has since, however fast one change follows
// another.
class FolderStamp {
  public:
    explicit FolderStamp(const Filename &folder);
    Bool operator==(const FolderStamp &other) const;

  private:
    Filename folder_;
    LocalFileTime changed_;
    Bool exists_, is_certain_;
};
