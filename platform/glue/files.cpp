// Files and folders.
#include "c4d_file.h"
#include "platform/glue/handles.h"

Bool GeFExist(const Filename &name, Bool isdir) { return host_table->file->exists(ToTable(&name), isdir); }

Bool GeFCreateDir(const Filename &name) { return host_table->file->create_folder(ToTable(&name)); }

Bool GeFKill(const Filename &name, LONG flags) { return host_table->file->remove(ToTable(&name), flags); }

Bool GeFCopyFile(const Filename &source, const Filename &destination, LONG flags) {
    return host_table->file->copy(ToTable(&source), ToTable(&destination), flags);
}

Bool GeGetFileTime(const Filename &name, LONG mode, LocalFileTime *out) {
    return out && host_table->file->file_time(ToTable(&name), mode, ToTable(out));
}

void GeGetCurrentTime(LocalFileTime *out) {
    if (out) host_table->file->current_time(ToTable(out));
}

Bool ShowInFinder(const Filename &name, Bool open) { return host_table->general->show_in_finder(ToTable(&name), open); }

const Filename GeGetPluginPath() { return module_file ? module_file->GetDirectory() : Filename(); }

const Filename GeGetC4DPath(LONG which) {
    Filename path;
    host_table->general->path(which, ToTable(&path));
    return path;
}
