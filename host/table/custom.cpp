#include "host/value/custom.h"

#include "host/table/entries.h"
#include "host/table/guard.h"
#include "host/value/container.h"

namespace host {

namespace {

// The handle as the type that an entry is for; null when it is none.
template <typename Custom>
Custom *As(HostCustomData *data, std::int32_t type) {
    return data != nullptr && data->Type() == type ? static_cast<Custom *>(data) : nullptr;
}

Spline *AsSpline(const HostCustomData *data) { return As<Spline>(const_cast<HostCustomData *>(data), kDataSpline); }

Priority *AsPriority(const HostCustomData *data) {
    return As<Priority>(const_cast<HostCustomData *>(data), kDataPriority);
}

}  // namespace

HostCustomData *CustomDataEntries::create(std::int32_t type) {
    return Guarded<HostCustomData *>(nullptr, [&] { return CreateCustomData(type); });
}

void CustomDataEntries::release(HostCustomData *data) { delete data; }

void CustomDataEntries::default_settings(std::int32_t data_type, TableContainer *out) {
    if (out != nullptr) Guarded([&] { AsContainer(out) = DefaultSettings(data_type); });
}

TableSplineKnot *CustomDataEntries::spline_knot(const HostCustomData *data, std::int32_t index) {
    Spline *found = AsSpline(data);
    if (found == nullptr || index < 0) return nullptr;
    const auto place = static_cast<std::size_t>(index);
    return place < found->knots.size() ? &found->knots[place] : nullptr;
}

std::int32_t CustomDataEntries::spline_insert_knot(HostCustomData *data, double x, double y, std::int32_t flags) {
    Spline *spline = AsSpline(data);
    if (spline == nullptr) return -1;
    return Guarded<std::int32_t>(-1, [&] { return spline->Insert(x, y, flags); });
}

void CustomDataEntries::spline_point(const HostCustomData *data, double x, TableVector *out) {
    if (out == nullptr) return;
    const Spline *spline = AsSpline(data);
    *out = {x, spline == nullptr ? 0 : spline->ValueAt(x), 0};
}

std::int32_t CustomDataEntries::priority_set(HostCustomData *data, std::int32_t value_id, const TableData *value) {
    Priority *priority = AsPriority(data);
    return priority != nullptr && value != nullptr && priority->Set(value_id, *value) ? 1 : 0;
}

}  // namespace host
