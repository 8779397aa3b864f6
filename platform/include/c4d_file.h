// Paths, folders and files.
#pragma once

#include "c4d_basecontainer.h"
#include "c4d_filename.h"
#include "c4d_gedata.h"

// Local, to the second.
struct LocalFileTime {
    UWORD year, month, day, hour, minute, second;
};

enum { GE_FILETIME_CREATED = 0, GE_FILETIME_MODIFIED = 1, GE_FILETIME_ACCESS = 2 };

// ---- Files and folders: FALSE when it could not be done -----------------------------------------------------------

// isdir FALSE: a file of that name; TRUE: a folder.
Bool GeFExist(const Filename &name, Bool isdir = FALSE);
// One level.
Bool GeFCreateDir(const Filename &name);
Bool GeFKill(const Filename &name, LONG flags = 0);
// `destination` is the full name of the copy.
Bool GeFCopyFile(const Filename &source, const Filename &destination, LONG flags);
// Of a file or folder.
Bool GeGetFileTime(const Filename &name, LONG mode, LocalFileTime *out);
void GeGetCurrentTime(LocalFileTime *out);
// In the system's file manager; open TRUE opens a folder.
Bool ShowInFinder(const Filename &name, Bool open);

// Folder of the module's file.
const Filename GeGetPluginPath();
// A C4D_PATH_ folder.
const Filename GeGetC4DPath(LONG which);

// ---- The entries of one folder ------------------------------------------------------------------------------------

class BrowseFiles {
  public:
    static BrowseFiles *Alloc();
    static void Free(BrowseFiles *&browse);

    void Init(const Filename &folder, LONG flags);
    // To the next entry; FALSE at the end. "." and ".." are left out, folders below are not entered.
    Bool GetNext();
    Bool IsDir();
    Bool IsHidden();
    LLONG GetSize();
    void GetFileTime(LONG mode, LocalFileTime *out);
    // The name alone.
    Filename GetFilename();

  private:
    BrowseFiles();
    ~BrowseFiles();
};

// ---- A file of typed values: reading and writing answer FALSE on an error or on another type ----------------------

class HyperFile {
  public:
    static HyperFile *Alloc();
    // Closes it.
    static void Free(HyperFile *&file);

    // Reading fails for a missing file, for one of another kind, and for another ident.
    Bool Open(LONG ident, const Filename &name, FILEOPEN mode, FILEDIALOG error_dialog);
    // FALSE when a write had failed.
    Bool Close();

    // flush: empties the container first; otherwise the entries are written over those it has.
    Bool ReadContainer(BaseContainer *value, Bool flush);
    Bool WriteContainer(const BaseContainer &value);

  private:
    HyperFile();
    ~HyperFile();
};
