#include "c4d_file.h"
#include "platform/glue/handles.h"

namespace {

const FileTable *Table() { return host_table->file; }

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

Bool HyperFile::ReadContainer(BaseContainer *value, Bool flush) {
    if (!value) return FALSE;
    if (flush) value->FlushAll();
    BaseContainer read;
    if (!Table()->read_container(ToHost(this), ToTable(&read))) return FALSE;
    if (flush)
        *value = read;
    else
        value->MergeContainer(read);
    return TRUE;
}

Bool HyperFile::WriteContainer(const BaseContainer &value) {
    return Table()->write_container(ToHost(this), ToTable(&value));
}
