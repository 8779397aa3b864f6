#include "c4d_file.h"
#include "platform/glue/handles.h"

BrowseFiles *BrowseFiles::Alloc() { return FromHost(host_table->file->create_browse()); }

void BrowseFiles::Free(BrowseFiles *&browse) {
    if (browse) host_table->file->release_browse(ToHost(browse));
    browse = NULL;
}

void BrowseFiles::Init(const Filename &folder, LONG flags) {
    host_table->file->browse_init(ToHost(this), ToTable(&folder), flags);
}

Bool BrowseFiles::GetNext() { return host_table->file->browse_next(ToHost(this)); }
Bool BrowseFiles::IsDir() { return host_table->file->browse_is_folder(ToHost(this)); }
Bool BrowseFiles::IsHidden() { return host_table->file->browse_is_hidden(ToHost(this)); }
LLONG BrowseFiles::GetSize() { return host_table->file->browse_size(ToHost(this)); }

void BrowseFiles::GetFileTime(LONG mode, LocalFileTime *out) {
    if (out) host_table->file->browse_file_time(ToHost(this), mode, ToTable(out));
}

Filename BrowseFiles::GetFilename() {
    Filename name;
    host_table->file->browse_name(ToHost(this), ToTable(&name));
    return name;
}
