#include "host/value/custom.h"

#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/container.h"

namespace host {

namespace {

constexpr std::int32_t kFewestKnots = 2, kMostKnots = 65536;

HostCustomData *Create(std::int32_t type) {
    return Guarded<HostCustomData *>(nullptr, [&] { return CreateCustomData(type); });
}

void ReleaseEntry(HostCustomData *data) { delete data; }

std::int32_t TypeOf(const HostCustomData *data) { return data == nullptr ? 0 : data->Type(); }

void DefaultSettingsEntry(std::int32_t data_type, TableContainer *out) {
    if (out != nullptr) Guarded([&] { AsContainer(out) = DefaultSettings(data_type); });
}

// The handle as the type that an entry is for; null when it is none.
template <typename Custom>
Custom *As(HostCustomData *data, std::int32_t type) {
    return data != nullptr && data->Type() == type ? static_cast<Custom *>(data) : nullptr;
}

Spline *AsSpline(const HostCustomData *data) { return As<Spline>(const_cast<HostCustomData *>(data), kDataSpline); }

Priority *AsPriority(const HostCustomData *data) {
    return As<Priority>(const_cast<HostCustomData *>(data), kDataPriority);
}

std::int32_t KnotCount(const HostCustomData *data) {
    const Spline *spline = AsSpline(data);
    return spline == nullptr ? 0 : static_cast<std::int32_t>(spline->knots.size());
}

TableSplineKnot *Knot(const HostCustomData *data, std::int32_t index) {
    if (index < 0 || index >= KnotCount(data)) return nullptr;
    return &AsSpline(data)->knots[static_cast<std::size_t>(index)];
}

std::int32_t InsertKnot(HostCustomData *data, double x, double y, std::int32_t flags) {
    Spline *spline = AsSpline(data);
    if (spline == nullptr) return -1;
    return Guarded<std::int32_t>(-1, [&] { return spline->Insert(x, y, flags); });
}

std::int32_t DeleteKnot(HostCustomData *data, std::int32_t index) {
    Spline *spline = AsSpline(data);
    return spline != nullptr && spline->Delete(index) ? 1 : 0;
}

void DeleteAll(HostCustomData *data) {
    if (Spline *spline = AsSpline(data); spline != nullptr) spline->knots.clear();
}

void Point(const HostCustomData *data, double x, TableVector *out) {
    if (out == nullptr) return;
    const Spline *spline = AsSpline(data);
    *out = {x, spline == nullptr ? 0 : spline->ValueAt(x), 0};
}

std::int32_t Linear(HostCustomData *data, std::int32_t points) {
    Spline *spline = AsSpline(data);
    if (points < 0) points = kFewestKnots;
    if (spline == nullptr || points < kFewestKnots || points > kMostKnots) return 0;
    return Guarded<std::int32_t>(0, [&] {
        std::vector<TableSplineKnot> knots(static_cast<std::size_t>(points));
        for (std::int32_t i = 0; i < points; ++i) {
            const double place = static_cast<double>(i) / (points - 1);
            knots[static_cast<std::size_t>(i)].position = {place, place, 0};
        }
        spline->knots = std::move(knots);
        return 1;
    });
}

std::int32_t PrioritySet(HostCustomData *data, std::int32_t value_id, const TableData *value) {
    Priority *priority = AsPriority(data);
    return priority != nullptr && value != nullptr && priority->Set(value_id, *value) ? 1 : 0;
}

void PriorityGet(const HostCustomData *data, std::int32_t value_id, TableData *out) {
    if (out == nullptr) return;
    const Priority *priority = AsPriority(data);
    const bool known = priority != nullptr && value_id >= Priority::kMode && value_id <= Priority::kCameraDependent;
    *static_cast<Data *>(out) = known ? Data(priority->Get(value_id)) : Data();
}

}  // namespace

const CustomDataTable *CustomDataEntries() {
    static const CustomDataTable table = {
        Create,    ReleaseEntry, TypeOf, DefaultSettingsEntry, KnotCount,  Knot, InsertKnot, DeleteKnot,
        DeleteAll, Point,        Linear, PrioritySet,          PriorityGet};
    return &table;
}

}  // namespace host
