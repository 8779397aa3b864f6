#include "host/value/data.h"

#include "host/table/entries.h"
#include "host/table/guard.h"

namespace host {

namespace {

constexpr TableData kNil = {kDataNil, {0}};

}  // namespace

void DataEntries::copy(TableData *destination, const TableData *source, HostAliasTrans *translation) {
    if (destination == nullptr) return;
    // Made apart first: `destination` is raw memory, and a failed copy must leave a value there that can be released.
    TableData copy = kNil;
    if (source != nullptr) Guarded([&] { CopyData(&copy, *source, translation); });
    *destination = copy;
}

void DataEntries::release(TableData *data) {
    if (data != nullptr) ReleaseData(data);
}

std::int32_t DataEntries::equal(const TableData *a, const TableData *b) {
    if (a == nullptr || b == nullptr) return a == b ? 1 : 0;
    return Guarded<std::int32_t>(0, [&] { return EqualData(*a, *b) ? 1 : 0; });
}

void DataEntries::set_link(TableData *data, HostAtom *target) {
    if (data == nullptr) return;
    Guarded([&] {
        Data link = Data::LinkTo(target);
        std::swap<TableData>(*data, link);
    });
}

}  // namespace host
