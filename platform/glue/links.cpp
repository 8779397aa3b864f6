#include "c4d_basedocument.h"
#include "platform/glue/handles.h"

namespace {

const LinkTable *Table() { return host_table->link; }

}  // namespace

BaseLink *BaseLink::Alloc() { return FromHost(Table()->create()); }

void BaseLink::Free(BaseLink *&link) {
    if (link) Table()->release(ToHost(link));
    link = NULL;
}

BaseList2D *BaseLink::GetLink(const BaseDocument *doc, LONG instanceof) const {
    return FromHost<BaseList2D>(Table()->resolve(ToHost(this), ToHost(doc), instanceof));
}

BaseList2D *BaseLink::ForceGetLink() const { return FromHost<BaseList2D>(Table()->resolve_anywhere(ToHost(this))); }

void BaseLink::SetLink(C4DAtomGoal *target) { Table()->set(ToHost(this), ToHost(target)); }

BaseLink *BaseLink::GetClone(COPYFLAGS, AliasTrans *translation) const {
    return FromHost(Table()->clone(ToHost(this), ToHost(translation)));
}

AliasTrans *AliasTrans::Alloc() { return FromHost(Table()->create_translation()); }

void AliasTrans::Free(AliasTrans *&translation) {
    if (translation) Table()->release_translation(ToHost(translation));
    translation = NULL;
}

Bool AliasTrans::Init(BaseDocument *doc) { return Table()->init_translation(ToHost(this), ToHost(doc)); }

void AliasTrans::Translate(Bool connect_oldgoals) { Table()->translate(ToHost(this), connect_oldgoals); }
