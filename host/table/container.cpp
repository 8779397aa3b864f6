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
    AsContainer(container).Flush();
}

std::int32_t Count(const TableContainer *container) { return OrEmpty(container).Count(); }

TableData *Live(TableContainer *container, std::int32_t id) {
    if (container == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).Live(id); });
}

const TableData *Find(const TableContainer *container, std::int32_t id) {
    const Data *found = container == nullptr ? nullptr : AsContainer(container).Find(id);
    // A module changes these through what it is told to only read.
    if (found != nullptr && (found->type == kDataContainer || found->type == kDataLink))
        return Live(const_cast<TableContainer *>(container), id);
    return found;
}

std::int32_t IndexOf(const TableContainer *container, std::int32_t id) {
    return Guarded<std::int32_t>(-1, [&] { return OrEmpty(container).IndexOf(id); });
}

std::int32_t IdAt(const TableContainer *container, std::int32_t index) { return OrEmpty(container).IdAt(index); }

TableData *LiveAt(TableContainer *container, std::int32_t index) {
    if (container == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).LiveAt(index); });
}

std::int32_t Set(TableContainer *container, std::int32_t id, const TableData *data) {
    if (container == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        if (data->type == kDataWhole)
            AsContainer(container).SetWhole(id, data->value.whole);
        else
            AsContainer(container).Set(id, AsData(data));
        return 1;
    });
}

void SetReal(TableContainer *container, std::int32_t id, double value) {
    if (container != nullptr) Guarded([&] { AsContainer(container).SetReal(id, value); });
}

void SetVector(TableContainer *container, std::int32_t id, const TableVector *value) {
    if (container != nullptr && value != nullptr) Guarded([&] { AsContainer(container).SetVector(id, *value); });
}

std::int32_t Append(TableContainer *container, std::int32_t id, const TableData *data) {
    if (container == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        AsContainer(container).Append(id, AsData(data));
        return 1;
    });
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
    static const ContainerTable table = {Copy,     Flush,  ReleaseEntry, Count,        Find,        Live,   IndexOf,
                                         IdAt,     LiveAt, Set,          SetReal,      SetVector,   Append, Remove,
                                         RemoveAt, Sort,   Equal,        GetParameter, SetParameter};
    return &table;
}

}  // namespace host
