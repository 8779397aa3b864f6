#include "c4d_file.h"
#include "platform/glue/handles.h"

namespace {

const FileTable *Table() { return host_table->file; }

// Whole numbers up to 32 bits cross the border as int32_t.
template <class Whole>
Bool ReadWhole(HyperFile *file, HYPERFILEVALUE type, Whole *value) {
    int32_t read = 0;
    if (!value || !Table()->read_value(ToHost(file), type, &read)) return FALSE;
    *value = static_cast<Whole>(read);
    return TRUE;
}

Bool WriteWhole(HyperFile *file, HYPERFILEVALUE type, int32_t value) {
    return Table()->write_value(ToHost(file), type, &value);
}

Bool Read(HyperFile *file, HYPERFILEVALUE type, void *value) {
    return value && Table()->read_value(ToHost(file), type, value);
}

Bool Write(HyperFile *file, HYPERFILEVALUE type, const void *value) {
    return Table()->write_value(ToHost(file), type, value);
}

}  // namespace

HyperFile *HyperFile::Alloc() { return FromHost(Table()->create_hyperfile()); }

void HyperFile::Free(HyperFile *&file) {
    if (file) Table()->release_hyperfile(ToHost(file));
    file = NULL;
}

Bool HyperFile::Open(LONG ident, const Filename &name, FILEOPEN mode, FILEDIALOG error_dialog) {
    return Table()->open_hyperfile(ToHost(this), ident, ToTable(&name), mode, error_dialog);
}

Bool HyperFile::Close() { return Table()->close_hyperfile(ToHost(this)); }

Bool HyperFile::ReadChar(CHAR *value) { return ReadWhole(this, HYPERFILEVALUE_CHAR, value); }
Bool HyperFile::ReadUChar(UCHAR *value) { return ReadWhole(this, HYPERFILEVALUE_UCHAR, value); }
Bool HyperFile::ReadWord(SWORD *value) { return ReadWhole(this, HYPERFILEVALUE_WORD, value); }
Bool HyperFile::ReadUWord(UWORD *value) { return ReadWhole(this, HYPERFILEVALUE_UWORD, value); }
Bool HyperFile::ReadLong(LONG *value) { return ReadWhole(this, HYPERFILEVALUE_LONG, value); }
Bool HyperFile::ReadULong(ULONG *value) { return ReadWhole(this, HYPERFILEVALUE_ULONG, value); }
Bool HyperFile::ReadLLong(LLONG *value) { return Read(this, HYPERFILEVALUE_LLONG, value); }
Bool HyperFile::ReadReal(Real *value) { return Read(this, HYPERFILEVALUE_REAL, value); }
Bool HyperFile::ReadLReal(LReal *value) { return Read(this, HYPERFILEVALUE_LREAL, value); }
Bool HyperFile::ReadBool(Bool *value) { return ReadWhole(this, HYPERFILEVALUE_BOOL, value); }
Bool HyperFile::ReadTime(BaseTime *value) { return Read(this, HYPERFILEVALUE_TIME, value); }
Bool HyperFile::ReadVector(Vector *value) { return Read(this, HYPERFILEVALUE_VECTOR, value); }
Bool HyperFile::ReadMatrix(Matrix *value) { return Read(this, HYPERFILEVALUE_MATRIX, value); }
Bool HyperFile::ReadString(String *value) { return Read(this, HYPERFILEVALUE_STRING, value); }
Bool HyperFile::ReadFilename(Filename *value) { return Read(this, HYPERFILEVALUE_FILENAME, value); }

Bool HyperFile::ReadContainer(BaseContainer *value, Bool flush) {
    if (!value) return FALSE;
    if (flush) value->FlushAll();
    BaseContainer read;
    if (!Table()->read_value(ToHost(this), HYPERFILEVALUE_CONTAINER, ToTable(&read))) return FALSE;
    if (flush)
        *value = read;
    else
        value->MergeContainer(read);
    return TRUE;
}

Bool HyperFile::ReadGeData(GeData *value) { return value && Table()->read_data(ToHost(this), ToTable(value)); }

Bool HyperFile::ReadMemory(void **memory, VLONG *bytes) {
    int64_t size = 0;
    void *read = NULL;
    if (!memory || !Table()->read_memory(ToHost(this), &read, &size)) return FALSE;
    *memory = read;
    if (bytes) *bytes = size;
    return TRUE;
}

Bool HyperFile::WriteChar(CHAR value) { return WriteWhole(this, HYPERFILEVALUE_CHAR, value); }
Bool HyperFile::WriteUChar(UCHAR value) { return WriteWhole(this, HYPERFILEVALUE_UCHAR, value); }
Bool HyperFile::WriteWord(SWORD value) { return WriteWhole(this, HYPERFILEVALUE_WORD, value); }
Bool HyperFile::WriteUWord(UWORD value) { return WriteWhole(this, HYPERFILEVALUE_UWORD, value); }
Bool HyperFile::WriteLong(LONG value) { return WriteWhole(this, HYPERFILEVALUE_LONG, value); }
Bool HyperFile::WriteULong(ULONG value) { return WriteWhole(this, HYPERFILEVALUE_ULONG, static_cast<int32_t>(value)); }
Bool HyperFile::WriteLLong(LLONG value) { return Write(this, HYPERFILEVALUE_LLONG, &value); }
Bool HyperFile::WriteReal(Real value) { return Write(this, HYPERFILEVALUE_REAL, &value); }
Bool HyperFile::WriteLReal(LReal value) { return Write(this, HYPERFILEVALUE_LREAL, &value); }
Bool HyperFile::WriteBool(Bool value) { return WriteWhole(this, HYPERFILEVALUE_BOOL, value); }
Bool HyperFile::WriteTime(const BaseTime &value) { return Write(this, HYPERFILEVALUE_TIME, &value); }
Bool HyperFile::WriteVector(const Vector &value) { return Write(this, HYPERFILEVALUE_VECTOR, &value); }
Bool HyperFile::WriteMatrix(const Matrix &value) { return Write(this, HYPERFILEVALUE_MATRIX, &value); }
Bool HyperFile::WriteString(const String &value) { return Write(this, HYPERFILEVALUE_STRING, &value); }
Bool HyperFile::WriteFilename(const Filename &value) { return Write(this, HYPERFILEVALUE_FILENAME, &value); }
Bool HyperFile::WriteContainer(const BaseContainer &value) { return Write(this, HYPERFILEVALUE_CONTAINER, &value); }
Bool HyperFile::WriteGeData(const GeData &value) { return Table()->write_data(ToHost(this), ToTable(&value)); }

Bool HyperFile::WriteMemory(const void *memory, VLONG bytes) {
    return Table()->write_memory(ToHost(this), memory, bytes);
}

Bool HyperFile::WriteChunkStart(LONG id, LONG level) { return Table()->write_chunk_start(ToHost(this), id, level); }
Bool HyperFile::WriteChunkEnd() { return Table()->write_chunk_end(ToHost(this)); }

Bool HyperFile::ReadChunkStart(LONG *id, LONG *level) {
    int32_t read_id = 0, read_level = 0;
    if (!Table()->read_chunk_start(ToHost(this), &read_id, &read_level)) return FALSE;
    if (id) *id = read_id;
    if (level) *level = read_level;
    return TRUE;
}

Bool HyperFile::ReadChunkEnd() { return Table()->read_chunk_end(ToHost(this)); }

FILEERROR HyperFile::GetError() const { return static_cast<FILEERROR>(Table()->hyperfile_error(ToHost(this))); }
