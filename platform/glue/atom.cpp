#include "c4d_baselist.h"
#include "platform/glue/handles.h"

namespace {

const AtomTable *Table() { return host_table->atom; }

}  // namespace

LONG C4DAtom::GetType() const { return Table()->type(ToHost(this)); }

LONG C4DAtom::GetClassification() const { return Table()->classification(ToHost(this)); }

Bool C4DAtom::IsInstanceOf(LONG id) const { return Table()->is_instance_of(ToHost(this), id); }

Bool C4DAtom::Message(LONG type, void *data) { return Table()->message(ToHost(this), type, data); }

Bool C4DAtom::MultiMessage(MULTIMSG_ROUTE flags, LONG type, void *data) {
    return Table()->multi_message(ToHost(this), flags, type, data);
}

C4DAtom *C4DAtom::GetClone(COPYFLAGS flags, AliasTrans *translation) {
    return FromHost<C4DAtom>(Table()->clone(ToHost(this), flags, ToHost(translation)));
}

Bool C4DAtom::CopyTo(C4DAtom *destination, COPYFLAGS flags, AliasTrans *translation) {
    return Table()->copy_to(ToHost(this), ToHost(destination), flags, ToHost(translation));
}

Bool C4DAtom::GetDescription(Description *description, DESCFLAGS_DESC flags) {
    return Table()->get_description(ToHost(this), ToHost(description), flags);
}

Bool C4DAtom::GetParameter(const DescID &id, GeData &data, DESCFLAGS_GET flags) {
    return Table()->get_parameter(ToHost(this), ToTable(&id), ToTable(&data), flags);
}

Bool C4DAtom::SetParameter(const DescID &id, const GeData &data, DESCFLAGS_SET flags) {
    return Table()->set_parameter(ToHost(this), ToTable(&id), ToTable(&data), flags);
}

Bool C4DAtom::GetEnabling(const DescID &id, const GeData &data, DESCFLAGS_ENABLE flags, const BaseContainer *itemdesc) {
    return Table()->get_enabling(ToHost(this), ToTable(&id), ToTable(&data), flags, ToTable(itemdesc));
}

ULONG C4DAtom::GetDirty(DIRTYFLAGS flags) const { return Table()->dirty(ToHost(this), flags); }

void C4DAtom::SetDirty(DIRTYFLAGS flags) { Table()->set_dirty(ToHost(this), flags); }
