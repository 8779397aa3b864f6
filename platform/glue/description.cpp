#include "lib_description.h"
#include "platform/glue/handles.h"

namespace {

const DescriptionTable *Table() { return host_table->description; }

// What BrowseInit hands out.
struct Browse {
    LONG index;
};

}  // namespace

Description *Description::Alloc() { return FromHost(Table()->create()); }

void Description::Free(Description *&description) {
    if (description) Table()->release(ToHost(description));
    description = NULL;
}

Bool Description::LoadDescription(LONG id) { return Table()->load(ToHost(this), id); }

Bool Description::SetParameter(const DescID &id, const BaseContainer &param, const DescID &groupid) {
    return Table()->set(ToHost(this), ToTable(&id), ToTable(&param), ToTable(&groupid));
}

void *Description::BrowseInit() { return gNew Browse; }

Bool Description::GetNext(void *handle, const BaseContainer **bc, DescID &id, DescID &groupid) {
    Browse *browse = static_cast<Browse *>(handle);
    if (!browse) return FALSE;
    const TableContainer *settings = NULL;
    if (!Table()->entry(ToHost(this), browse->index, &settings, ToTable(&id), ToTable(&groupid))) return FALSE;
    ++browse->index;
    if (bc) *bc = FromTable(settings);
    return TRUE;
}

void Description::BrowseFree(void *&handle) {
    Browse *browse = static_cast<Browse *>(handle);
    gDelete(browse);
    handle = NULL;
}

const DescID *Description::GetSingleDescID() { return FromTable(Table()->single_id(ToHost(this))); }
