#include "c4d_basedocument.h"
#include "platform/glue/handles.h"

namespace {

const LinkTable *Table() { return host_table->link; }

}  // namespace

BaseList2D *BaseLink::GetLink(const BaseDocument *doc, LONG instanceof) const {
    return FromHost<BaseList2D>(Table()->resolve(ToHost(this), ToHost(doc), instanceof));
}
