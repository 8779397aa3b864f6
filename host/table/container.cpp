#include "host/value/container.h"

#include "host/table/entries.h"
#include "host/table/guard.h"

namespace host {

namespace {

// A TableData that a module owns is read as a Data: the same bytes, only lent.
const Data &AsData(const TableData *raw) { return *static_cast<const Data *>(raw); }

const Container &OrEmpty(const TableContainer *container) {
    static const Container empty;
    return container == nullptr ? empty : AsContainer(container);
}

}  // namespace

void ContainerEntries::copy(TableContainer *destination, const TableContainer *source, HostAliasTrans *translation) {
    if (destination == nullptr) return;
    Guarded([&] { AsContainer(destination).CopyFrom(OrEmpty(source), translation); });
}

void ContainerEntries::flush(TableContainer *container) {
    if (container != nullptr) Guarded([&] { AsContainer(container).Flush(); });
}

void ContainerEntries::release(TableContainer *container) {
    if (container == nullptr) return;
    AsContainer(container).Flush();
}

std::int32_t ContainerEntries::count(const TableContainer *container) { return OrEmpty(container).Count(); }

TableData *ContainerEntries::live(TableContainer *container, std::int32_t id) {
    if (container == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).Live(id); });
}

const TableData *ContainerEntries::find(const TableContainer *container, std::int32_t id) {
    const Data *found = container == nullptr ? nullptr : AsContainer(container).Find(id);
    // A module changes these through what it is told to only read.
    if (found != nullptr && (found->type == kDataContainer || found->type == kDataLink))
        return live(const_cast<TableContainer *>(container), id);
    return found;
}

std::int32_t ContainerEntries::id_at(const TableContainer *container, std::int32_t index) {
    return OrEmpty(container).IdAt(index);
}

TableData *ContainerEntries::live_at(TableContainer *container, std::int32_t index) {
    if (container == nullptr) return nullptr;
    return Guarded<TableData *>(nullptr, [&] { return AsContainer(container).LiveAt(index); });
}

std::int32_t ContainerEntries::set(TableContainer *container, std::int32_t id, const TableData *data) {
    if (container == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        if (data->type == kDataWhole)
            AsContainer(container).SetWhole(id, data->value.whole);
        else
            AsContainer(container).Set(id, AsData(data));
        return 1;
    });
}

void ContainerEntries::set_real(TableContainer *container, std::int32_t id, double value) {
    if (container != nullptr) Guarded([&] { AsContainer(container).SetReal(id, value); });
}

void ContainerEntries::set_vector(TableContainer *container, std::int32_t id, const TableVector *value) {
    if (container != nullptr && value != nullptr) Guarded([&] { AsContainer(container).SetVector(id, *value); });
}

std::int32_t ContainerEntries::remove(TableContainer *container, std::int32_t id) {
    if (container == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return AsContainer(container).Remove(id) ? 1 : 0; });
}

std::int32_t ContainerEntries::equal(const TableContainer *a, const TableContainer *b) {
    return Guarded<std::int32_t>(0, [&] { return OrEmpty(a) == OrEmpty(b) ? 1 : 0; });
}

}  // namespace host
