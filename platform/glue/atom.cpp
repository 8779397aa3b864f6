#include "c4d_baselist.h"
#include "platform/glue/handles.h"

namespace {

const AtomTable *Table() { return host_table->atom; }

}  // namespace

LONG C4DAtom::GetType() const { return Table()->type(ToHost(this)); }

Bool C4DAtom::IsInstanceOf(LONG id) const { return Table()->is_instance_of(ToHost(this), id); }

Bool C4DAtom::Message(LONG type, void *data) { return Table()->message(ToHost(this), type, data); }

Bool C4DAtom::GetDescription(Description *description, DESCFLAGS_DESC flags) {
    return Table()->get_description(ToHost(this), ToHost(description), flags);
}

Bool C4DAtom::GetParameter(const DescID &id, GeData &data, DESCFLAGS_GET flags) {
    return Table()->get_parameter(ToHost(this), ToTable(&id), ToTable(&data), flags);
}

Bool C4DAtom::SetParameter(const DescID &id, const GeData &data, DESCFLAGS_SET flags) {
    return Table()->set_parameter(ToHost(this), ToTable(&id), ToTable(&data), flags);
}

void C4DAtom::SetDirty(DIRTYFLAGS flags) { Table()->set_dirty(ToHost(this), flags); }
