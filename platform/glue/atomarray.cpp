#include "c4d_baselist.h"
#include "platform/glue/handles.h"

namespace {

const AtomTable *Table() { return host_table->atom; }

}  // namespace

LONG AtomArray::GetCount() const { return Table()->array_count(ToHost(this)); }

C4DAtom *AtomArray::GetIndex(LONG index) const { return FromHost<C4DAtom>(Table()->array_at(ToHost(this), index)); }
