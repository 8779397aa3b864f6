#include "host/description/description.h"

#include "host/table/entries.h"
#include "host/table/guard.h"

namespace host {

namespace {

Description *As(HostDescription *raw) { return static_cast<Description *>(raw); }

const Description *As(const HostDescription *raw) { return static_cast<const Description *>(raw); }

}  // namespace

HostDescription *DescriptionEntries::create() {
    return Guarded<HostDescription *>(nullptr, [] { return new Description; });
}

void DescriptionEntries::release(HostDescription *description) { delete description; }

std::int32_t DescriptionEntries::load(HostDescription *description, std::int32_t id) {
    if (description == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return As(description)->Load(id) ? 1 : 0; });
}

std::int32_t DescriptionEntries::set(HostDescription *description, const TableDescID *id,
                                     const TableContainer *settings, const TableDescID *group) {
    if (description == nullptr || id == nullptr || settings == nullptr || group == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return As(description)->Set(*id, AsContainer(settings), *group) ? 1 : 0; });
}

std::int32_t DescriptionEntries::entry(const HostDescription *description, std::int32_t index,
                                       const TableContainer **out_settings, TableDescID *out_id,
                                       TableDescID *out_group) {
    if (description == nullptr || index < 0) return 0;
    const std::deque<Description::Entry> &entries = As(description)->entries;
    const auto place = static_cast<std::size_t>(index);
    if (place >= entries.size()) return 0;
    if (out_settings != nullptr) *out_settings = &entries[place].settings;
    if (out_id != nullptr) *out_id = entries[place].id;
    if (out_group != nullptr) *out_group = entries[place].group;
    return 1;
}

const TableDescID *DescriptionEntries::single_id(const HostDescription *description) {
    return description != nullptr && As(description)->has_single_id ? &As(description)->single_id : nullptr;
}

}  // namespace host
