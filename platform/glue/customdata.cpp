// Splines and priorities, and the settings that each data type starts from.
#include "c4d_customdatatypeplugin.h"
#include "platform/glue/handles.h"

namespace {

const CustomDataTable *Table() { return host_table->custom; }

}  // namespace

BaseContainer GetCustomDataTypeDefault(LONG type) {
    BaseContainer settings;
    Table()->default_settings(type, ToTable(&settings));
    return settings;
}

SplineData *SplineData::Alloc() { return static_cast<SplineData *>(FromHost(Table()->create(CUSTOMDATATYPE_SPLINE))); }

void SplineData::Free(SplineData *&spline) {
    if (spline) Table()->release(ToHost(spline));
    spline = NULL;
}

CustomSplineKnot *SplineData::GetKnot(LONG index) const { return FromTable(Table()->spline_knot(ToHost(this), index)); }

LONG SplineData::InsertKnot(Real x, Real y, LONG flags) {
    return Table()->spline_insert_knot(ToHost(this), x, y, flags);
}

Vector SplineData::GetPoint(Real r) const {
    Vector point;
    Table()->spline_point(ToHost(this), r, ToTable(&point));
    return point;
}

Bool PriorityData::SetPriorityValue(LONG value_id, const GeData &data) {
    return Table()->priority_set(ToHost(this), value_id, ToTable(&data));
}
