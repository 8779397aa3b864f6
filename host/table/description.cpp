#include "host/description/description.h"

#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/text.h"

namespace host {

namespace {

Description *As(HostDescription *raw) { return static_cast<Description *>(raw); }
const Description *As(const HostDescription *raw) { return static_cast<const Description *>(raw); }

HostDescription *Create() {
    return Guarded<HostDescription *>(nullptr, [] { return new Description; });
}

void ReleaseEntry(HostDescription *description) { delete description; }

std::int32_t Load(HostDescription *description, std::int32_t id) {
    if (description == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return As(description)->Load(id) ? 1 : 0; });
}

std::int32_t LoadName(HostDescription *description, const TableString *name) {
    if (description == nullptr || name == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return As(description)->LoadByName(ToUtf8(name)) ? 1 : 0; });
}

TableContainer *Find(HostDescription *description, const TableDescID *id) {
    if (description == nullptr || id == nullptr) return nullptr;
    Description::Entry *entry = As(description)->Find(*id);
    return entry == nullptr ? nullptr : &entry->settings;
}

std::int32_t Set(HostDescription *description, const TableDescID *id, const TableContainer *settings,
                 const TableDescID *group) {
    if (description == nullptr || id == nullptr || settings == nullptr || group == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return As(description)->Set(*id, AsContainer(settings), *group) ? 1 : 0; });
}

std::int32_t Count(const HostDescription *description) {
    return description == nullptr ? 0 : static_cast<std::int32_t>(As(description)->entries.size());
}

std::int32_t EntryAt(const HostDescription *description, std::int32_t index, const TableContainer **out_settings,
                     TableDescID *out_id, TableDescID *out_group) {
    if (index < 0 || index >= Count(description)) return 0;
    const Description::Entry &entry = As(description)->entries[static_cast<std::size_t>(index)];
    if (out_settings != nullptr) *out_settings = &entry.settings;
    if (out_id != nullptr) *out_id = entry.id;
    if (out_group != nullptr) *out_group = entry.group;
    return 1;
}

const TableDescID *SingleId(const HostDescription *description) {
    return description != nullptr && As(description)->has_single_id ? &As(description)->single_id : nullptr;
}

void SetSingleId(HostDescription *description, const TableDescID *id) {
    if (description == nullptr) return;
    As(description)->has_single_id = id != nullptr;
    As(description)->single_id = id == nullptr ? TableDescID{} : *id;
}

}  // namespace

const DescriptionTable *DescriptionEntries() {
    static const DescriptionTable table = {Create, ReleaseEntry, Load,    LoadName, Find,
                                           Set,    Count,        EntryAt, SingleId, SetSingleId};
    return &table;
}

}  // namespace host
