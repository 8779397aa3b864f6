// Tracks, curves and keys.
#include "c4d_canimation.h"
#include "platform/glue/handles.h"

namespace {

const AnimationTable *Table() { return host_table->animation; }

}  // namespace

CTrack *CTrack::Alloc(BaseList2D *node, const DescID &id) {
    return FromHost<CTrack>(Table()->create_track(ToHost(node), ToTable(&id)));
}

void CTrack::Free(CTrack *&track) {
    if (track) host_table->list->release(ToHost(track));
    track = NULL;
}

CTrack *CTrack::GetNext() const { return FromHost<CTrack>(host_table->list->next(ToHost(this))); }

const DescID CTrack::GetDescriptionID() const {
    DescID id;
    Table()->track_id(ToHost(this), ToTable(&id));
    return id;
}

CCurve *CTrack::GetCurve(CCURVE type, Bool create) {
    return FromHost<CCurve>(Table()->track_curve(ToHost(this), type, create));
}

Real CTrack::GetValue(BaseDocument *doc, const BaseTime &time, LONG fps) {
    return Table()->track_value(ToHost(this), ToHost(doc), ToTable(&time), fps);
}

LONG CCurve::GetKeyCount() const { return Table()->key_count(ToHost(this)); }

CKey *CCurve::GetKey(LONG index) { return FromHost<CKey>(Table()->key_at(ToHost(this), index)); }

const CKey *CCurve::GetKey(LONG index) const { return FromHost<CKey>(Table()->key_at(ToHost(this), index)); }

CKey *CCurve::AddKey(const BaseTime &time, LONG *index) {
    // The table counts in int32_t, which on Windows is another type than LONG.
    int32_t found = NOTOK;
    HostAtom *key = Table()->add_key(ToHost(this), ToTable(&time), &found);
    if (index) *index = found;
    return FromHost<CKey>(key);
}

Real CCurve::GetValue(const BaseTime &time, LONG fps) const {
    return Table()->curve_value(ToHost(this), ToTable(&time), fps);
}

BaseTime CKey::GetTime() const {
    BaseTime time;
    Table()->key_time(ToHost(this), ToTable(&time));
    return time;
}

void CKey::SetValue(CCurve *curve, Real value) { Table()->set_key_value(ToHost(this), ToHost(curve), value); }
