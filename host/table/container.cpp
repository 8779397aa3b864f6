#include "host/value/container.h"

#include "host/table/guard.h"
#include "host/table/internal.h"

namespace host {

namespace {

// A TableData that a module owns is read as a Data: the same bytes, only lent.
const Data &AsData(const TableData *raw) { return *static_cast<const Data *>(raw); }

const Container &OrEmpty(const TableContainer *container) {
    static const Container empty;
    return container == nullptr ? empty : AsContainer(container);
}

void Copy(TableContainer *destination, const TableContainer *source, HostAliasTrans *translation) {
    if (destination == nullptr) return;
    Guarded([&] { AsContainer(destination).CopyFrom(OrEmpty(source), translation); });
}

void Flush(TableContainer *container) {
    if (container != nullptr) Guarded([&] { AsContainer(container).Flush(); });
}

void ReleaseEntry(TableContainer *container) {
    if (container == nullptr) return;
    delete container->body;
    container->body = nullptr;
}

std::uint32_t Dirty(const TableContainer *container) { return OrEmpty(container).Dirty(); }

std::int32_t Count(const TableContainer *container) { return OrEmpty(container).Count(); }

TableData *Find(const TableContainer *container, std::int32_t id) { return OrEmpty(container).Find(id); }

std::int32_t IndexOf(const TableContainer *container, std::int32_t id) {
    return Guarded<std::int32_t>(-1, [&] { return OrEmpty(container).IndexOf(id); });
}

std::int32_t IdAt(const TableContainer *container, std::int32_t index) { return OrEmpty(container).IdAt(index); }

TableData *DataAt(const TableContainer *container, std::int32_t index) { return OrEmpty(container).DataAt(index); }

TableData *Set(TableContainer *container, std::int32_t id, const TableData *data) {
    if (container == nullptr || data == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).Set(id, AsData(data)); });
}

void SetReal(TableContainer *container, std::int32_t id, double value) {
    if (container != nullptr) Guarded([&] { AsContainer(container).SetReal(id, value); });
}

void SetVector(TableContainer *container, std::int32_t id, const TableVector *value) {
    if (container != nullptr && value != nullptr) Guarded([&] { AsContainer(container).SetVector(id, *value); });
}

TableData *Append(TableContainer *container, std::int32_t id, const TableData *data) {
    if (container == nullptr || data == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).Append(id, AsData(data)); });
}

std::int32_t Remove(TableContainer *container, std::int32_t id) {
    if (container == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return AsContainer(container).Remove(id) ? 1 : 0; });
}

std::int32_t RemoveAt(TableContainer *container, std::int32_t index) {
    if (container == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return AsContainer(container).RemoveAt(index) ? 1 : 0; });
}

void Sort(TableContainer *container) {
    if (container != nullptr) Guarded([&] { AsContainer(container).Sort(); });
}

std::int32_t Equal(const TableContainer *a, const TableContainer *b) {
    return Guarded<std::int32_t>(0, [&] { return OrEmpty(a) == OrEmpty(b) ? 1 : 0; });
}

std::int32_t GetParameter(const TableContainer *container, const TableDescID *id, TableData *out) {
    if (container == nullptr || id == nullptr || out == nullptr) return 0;
    return Guarded<std::int32_t>(
        0, [&] { return AsContainer(container).GetParameter(*id, static_cast<Data *>(out)) ? 1 : 0; });
}

std::int32_t SetParameter(TableContainer *container, const TableDescID *id, const TableData *data) {
    if (container == nullptr || id == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return AsContainer(container).SetParameter(*id, AsData(data)) ? 1 : 0; });
}

}  // namespace

const ContainerTable *ContainerEntries() {
    static const ContainerTable table = {Copy,     Flush,  ReleaseEntry, Dirty,        Count,       Find,   IndexOf,
                                         IdAt,     DataAt, Set,          SetReal,      SetVector,   Append, Remove,
                                         RemoveAt, Sort,   Equal,        GetParameter, SetParameter};
    return &table;
}

}  // namespace host
