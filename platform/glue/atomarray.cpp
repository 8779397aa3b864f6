#include "c4d_baselist.h"
#include "platform/glue/handles.h"

namespace {

const AtomTable *Table() { return host_table->atom; }

}  // namespace

AtomArray *AtomArray::Alloc() { return FromHost(Table()->create_array()); }

void AtomArray::Free(AtomArray *&array) {
    if (array) Table()->release_array(ToHost(array));
    array = NULL;
}

LONG AtomArray::GetCount() const { return Table()->array_count(ToHost(this)); }

C4DAtom *AtomArray::GetIndex(LONG index) const { return FromHost<C4DAtom>(Table()->array_at(ToHost(this), index)); }

Bool AtomArray::Append(C4DAtom *atom) { return Table()->array_append(ToHost(this), ToHost(atom)); }

Bool AtomArray::Remove(C4DAtom *atom) { return Table()->array_remove(ToHost(this), ToHost(atom)); }

void AtomArray::Flush() { Table()->array_flush(ToHost(this)); }

Bool AtomArray::CopyTo(AtomArray *destination) const {
    if (!destination) return FALSE;
    if (destination == this) return TRUE;
    destination->Flush();
    const LONG count = GetCount();
    for (LONG i = 0; i < count; ++i)
        if (!destination->Append(GetIndex(i))) return FALSE;
    return TRUE;
}

LONG AtomArray::Find(C4DAtom *atom) const {
    const LONG count = GetCount();
    for (LONG i = 0; i < count; ++i)
        if (GetIndex(i) == atom) return i;
    return NOTOK;
}
