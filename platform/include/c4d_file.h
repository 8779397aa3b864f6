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
Bool GeFRename(const Filename &source, const Filename &destination);
// Of a file or folder.
Bool GeGetFileTime(const Filename &name, LONG mode, LocalFileTime *out);
void GeGetCurrentTime(LocalFileTime *out);
// Opens with the program that the system has for it.
Bool GeExecuteFile(const Filename &name);
// In the system's file manager; open TRUE opens a folder.
Bool ShowInFinder(const Filename &name, Bool open);

// Folder of the module's file.
const Filename GeGetPluginPath();
// Folder of the application, and the user's writable folder.
const Filename GeGetStartupPath();
const Filename GeGetStartupWritePath();
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

    Bool ReadChar(CHAR *value);
    Bool ReadUChar(UCHAR *value);
    Bool ReadWord(SWORD *value);
    Bool ReadUWord(UWORD *value);
    Bool ReadLong(LONG *value);
    Bool ReadULong(ULONG *value);
    Bool ReadLLong(LLONG *value);
    Bool ReadReal(Real *value);
    Bool ReadLReal(LReal *value);
    Bool ReadBool(Bool *value);
    Bool ReadTime(BaseTime *value);
    Bool ReadVector(Vector *value);
    Bool ReadMatrix(Matrix *value);
    Bool ReadString(String *value);
    Bool ReadFilename(Filename *value);
    // flush: empties the container first; otherwise the entries are written over those it has.
    Bool ReadContainer(BaseContainer *value, Bool flush);
    Bool ReadGeData(GeData *value);
    // Free the memory with GeFree.
    Bool ReadMemory(void **memory, VLONG *bytes);

    Bool WriteChar(CHAR value);
    Bool WriteUChar(UCHAR value);
    Bool WriteWord(SWORD value);
    Bool WriteUWord(UWORD value);
    Bool WriteLong(LONG value);
    Bool WriteULong(ULONG value);
    Bool WriteLLong(LLONG value);
    Bool WriteReal(Real value);
    Bool WriteLReal(LReal value);
    Bool WriteBool(Bool value);
    Bool WriteTime(const BaseTime &value);
    Bool WriteVector(const Vector &value);
    Bool WriteMatrix(const Matrix &value);
    Bool WriteString(const String &value);
    Bool WriteFilename(const Filename &value);
    Bool WriteContainer(const BaseContainer &value);
    Bool WriteGeData(const GeData &value);
    Bool WriteMemory(const void *memory, VLONG bytes);

    Bool WriteChunkStart(LONG id, LONG level);
    Bool WriteChunkEnd();
    Bool ReadChunkStart(LONG *id, LONG *level);
    Bool ReadChunkEnd();

    FILEERROR GetError() const;

  private:
    HyperFile();
    ~HyperFile();
};
