#include "c4d_basecontainer.h"
#include "platform/glue/handles.h"
#include "platform/glue/numbers.h"

namespace {

const ContainerTable *Table() { return host_table ? host_table->container : NULL; }

// The first entry of that number, or NULL.
const GeData *Find(const BaseContainer *container, LONG id) {
    const ContainerTable *table = Table();
    return table ? FromTable(table->find(ToTable(container), id)) : NULL;
}

// Stores a value without copying it on this side: `value` is only looked at during the call.
void Store(BaseContainer *container, LONG id, LONG type, const void *value) {
    const ContainerTable *table = Table();
    if (!table) return;
    TableData data;
    data.type = type;
    data.value.pointer = const_cast<void *>(value);
    table->set(ToTable(container), id, &data);
}

void Store(BaseContainer *container, LONG id, const GeData &value) {
    if (Table()) Table()->set(ToTable(container), id, ToTable(&value));
}

// R14 hands out values that may be written through from containers that may not.
BaseContainer *Writable(const BaseContainer *container) { return const_cast<BaseContainer *>(container); }

Bool HasType(const GeData *data, LONG type) { return data && data->GetType() == type; }

Bool IsNumber(const GeData *data) {
    return data && (data->GetType() == DA_LONG || data->GetType() == DA_REAL || data->GetType() == DA_LLONG);
}

}  // namespace

BaseContainer::BaseContainer(const BaseContainer &other) : BaseContainer(other.id_) {
    if (other.body_ && Table()) Table()->copy(ToTable(this), ToTable(&other), NULL);
}

BaseContainer::~BaseContainer() {
    if (body_ && Table()) Table()->release(ToTable(this));
}

BaseContainer &BaseContainer::operator=(const BaseContainer &other) {
    if (this != &other) other.CopyTo(this, COPYFLAGS_0, NULL);
    return *this;
}

Bool BaseContainer::CopyTo(BaseContainer *destination, COPYFLAGS, AliasTrans *translation) const {
    if (!destination || !Table()) return FALSE;
    if (destination == this) return TRUE;
    Table()->copy(ToTable(destination), ToTable(this), ToHost(translation));
    destination->id_ = id_;
    return TRUE;
}

void BaseContainer::FlushAll() {
    if (body_ && Table()) Table()->flush(ToTable(this));
}

Bool BaseContainer::RemoveData(LONG id) { return Table() && Table()->remove(ToTable(this), id); }

LONG BaseContainer::GetIndexId(LONG index) const { return Table() ? Table()->id_at(ToTable(this), index) : NOTOK; }

GeData *BaseContainer::GetIndexData(LONG index) const {
    return Table() ? FromTable(Table()->live_at(ToTable(Writable(this)), index)) : NULL;
}

const GeData *BaseContainer::GetDataPointer(LONG id) const { return Find(this, id); }

const GeData &BaseContainer::GetData(LONG id) const {
    static const GeData none;
    const GeData *data = Find(this, id);
    return data ? *data : none;
}

GeData *BaseContainer::SetData(LONG id, const GeData &data) {
    const ContainerTable *table = Table();
    return table && table->set(ToTable(this), id, ToTable(&data)) ? FromTable(table->live(ToTable(this), id)) : NULL;
}

Bool BaseContainer::operator==(const BaseContainer &other) const {
    return Table() ? Table()->equal(ToTable(this), ToTable(&other)) : body_ == other.body_;
}

LONG BaseContainer::GetType(LONG id) const { return GetData(id).GetType(); }

void BaseContainer::MergeContainer(const BaseContainer &source) {
    if (this == &source || !Table()) return;
    const LONG count = Table()->count(ToTable(&source));
    for (LONG i = 0; i < count; ++i) {
        const GeData *data = source.GetIndexData(i);
        if (data) Store(this, source.GetIndexId(i), *data);
    }
}

Bool BaseContainer::GetBool(LONG id, Bool preset) const {
    const GeData *data = Find(this, id);
    // Not by way of GetLong: half of TRUE is still not FALSE.
    if (HasType(data, DA_REAL)) return data->GetReal() != 0.0;
    return IsNumber(data) ? data->GetLLong() != 0 : preset;
}

LONG BaseContainer::GetLong(LONG id, LONG preset) const {
    const GeData *data = Find(this, id);
    return IsNumber(data) ? data->GetLong() : preset;
}

Real BaseContainer::GetReal(LONG id, Real preset) const {
    const GeData *data = Find(this, id);
    return IsNumber(data) ? data->GetReal() : preset;
}

Vector BaseContainer::GetVector(LONG id, const Vector &preset) const {
    const GeData *data = Find(this, id);
    return HasType(data, DA_VECTOR) ? data->GetVector() : preset;
}

String BaseContainer::GetString(LONG id, const String &preset) const {
    const GeData *data = Find(this, id);
    return HasType(data, DA_STRING) ? data->GetString() : preset;
}

Filename BaseContainer::GetFilename(LONG id, const Filename &preset) const {
    const GeData *data = Find(this, id);
    return HasType(data, DA_FILENAME) ? data->GetFilename() : preset;
}

BaseTime BaseContainer::GetTime(LONG id, const BaseTime &preset) const {
    const GeData *data = Find(this, id);
    return HasType(data, DA_TIME) ? data->GetTime() : preset;
}

BaseContainer BaseContainer::GetContainer(LONG id) const {
    const BaseContainer *container = GetContainerInstance(id);
    return container ? *container : BaseContainer();
}

BaseContainer *BaseContainer::GetContainerInstance(LONG id) const {
    const GeData *data = Find(this, id);
    return data ? data->GetContainer() : NULL;
}

BaseLink *BaseContainer::GetBaseLink(LONG id) const {
    const GeData *data = Find(this, id);
    return data ? data->GetBaseLink() : NULL;
}

BaseList2D *BaseContainer::GetLink(LONG id, const BaseDocument *doc, LONG instanceof) const {
    const BaseLink *link = GetBaseLink(id);
    return link ? link->GetLink(doc, instanceof) : NULL;
}

BaseObject *BaseContainer::GetObjectLink(LONG id, const BaseDocument *doc) const {
    return static_cast<BaseObject *>(GetLink(id, doc, Obase));
}

void BaseContainer::SetLong(LONG id, LONG value) { Store(this, id, GeData(value)); }

void BaseContainer::SetReal(LONG id, Real value) {
    if (Table()) Table()->set_real(ToTable(this), id, value);
}

void BaseContainer::SetVector(LONG id, const Vector &value) {
    if (Table()) Table()->set_vector(ToTable(this), id, ToTable(&value));
}

void BaseContainer::SetString(LONG id, const String &value) { Store(this, id, DA_STRING, &value); }

void BaseContainer::SetFilename(LONG id, const Filename &value) { Store(this, id, DA_FILENAME, &value); }

void BaseContainer::SetTime(LONG id, const BaseTime &value) { Store(this, id, DA_TIME, &value); }

void BaseContainer::SetContainer(LONG id, const BaseContainer &value) { Store(this, id, DA_CONTAINER, &value); }

void BaseContainer::SetLink(LONG id, C4DAtomGoal *target) {
    Store(this, id, GeData(static_cast<BaseList2D *>(target)));
}
