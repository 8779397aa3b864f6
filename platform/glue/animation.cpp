// Tracks, curves and keys.
#include "c4d_canimation.h"
#include "platform/glue/handles.h"

namespace {

const AnimationTable *Table() { return host_table->animation; }

enum Side { kLeft = 0, kRight = 1 };
enum { kBefore = 0, kAfter = 1 };

BaseTime TangentTime(const CKey *key, Side side) {
    BaseTime time;
    double value = 0.0;
    Table()->key_tangent(ToHost(key), side, ToTable(&time), &value);
    return time;
}

Real TangentValue(const CKey *key, Side side) {
    BaseTime time;
    double value = 0.0;
    Table()->key_tangent(ToHost(key), side, ToTable(&time), &value);
    return value;
}

void SetTangent(CKey *key, CCurve *curve, Side side, const BaseTime &time, Real value) {
    Table()->set_key_tangent(ToHost(key), ToHost(curve), side, ToTable(&time), value);
}

// The table counts in int32_t, which on Windows is another type than LONG.
CKey *KeyWithIndex(HostAtom *key, int32_t found, LONG *index) {
    if (index) *index = found;
    return FromHost<CKey>(key);
}

}  // namespace

CTrack *CTrack::Alloc(BaseList2D *node, const DescID &id) {
    return FromHost<CTrack>(Table()->create_track(ToHost(node), ToTable(&id)));
}

void CTrack::Free(CTrack *&track) {
    if (track) host_table->list->release(ToHost(track));
    track = NULL;
}

CTrack *CTrack::GetNext() const { return FromHost<CTrack>(host_table->list->next(ToHost(this))); }
CTrack *CTrack::GetPred() const { return FromHost<CTrack>(host_table->list->previous(ToHost(this))); }
BaseList2D *CTrack::GetObject() const { return FromHost<BaseList2D>(Table()->track_object(ToHost(this))); }

const DescID CTrack::GetDescriptionID() const {
    DescID id;
    Table()->track_id(ToHost(this), ToTable(&id));
    return id;
}

CCurve *CTrack::GetCurve(CCURVE type, Bool create) {
    return FromHost<CCurve>(Table()->track_curve(ToHost(this), type, create));
}

LONG CTrack::GetTrackCategory() const { return Table()->track_category(ToHost(this)); }

Real CTrack::GetValue(BaseDocument *doc, const BaseTime &time, LONG fps) {
    return Table()->track_value(ToHost(this), ToHost(doc), ToTable(&time), fps);
}

CLOOP CTrack::GetBefore() const { return static_cast<CLOOP>(Table()->track_loop(ToHost(this), kBefore)); }
CLOOP CTrack::GetAfter() const { return static_cast<CLOOP>(Table()->track_loop(ToHost(this), kAfter)); }
void CTrack::SetBefore(CLOOP loop) { Table()->set_track_loop(ToHost(this), kBefore, loop); }
void CTrack::SetAfter(CLOOP loop) { Table()->set_track_loop(ToHost(this), kAfter, loop); }

Bool CTrack::FillKey(BaseDocument *doc, BaseList2D *node, CKey *key) {
    return Table()->fill_key(ToHost(this), ToHost(doc), ToHost(node), ToHost(key));
}

LONG CCurve::GetKeyCount() const { return Table()->key_count(ToHost(this)); }

CKey *CCurve::GetKey(LONG index) { return FromHost<CKey>(Table()->key_at(ToHost(this), index)); }

const CKey *CCurve::GetKey(LONG index) const { return FromHost<CKey>(Table()->key_at(ToHost(this), index)); }

CKey *CCurve::FindKey(const BaseTime &time, LONG *index, FINDANIM match) {
    int32_t found = NOTOK;
    HostAtom *key = Table()->find_key(ToHost(this), ToTable(&time), &found, match);
    return KeyWithIndex(key, found, index);
}

CKey *CCurve::AddKey(const BaseTime &time, LONG *index) {
    int32_t found = NOTOK;
    HostAtom *key = Table()->add_key(ToHost(this), ToTable(&time), &found);
    return KeyWithIndex(key, found, index);
}

Bool CCurve::InsertKey(CKey *key) { return Table()->insert_key(ToHost(this), ToHost(key)); }
Bool CCurve::DelKey(LONG index) { return Table()->delete_key(ToHost(this), index); }
void CCurve::FlushKeys() { Table()->flush_keys(ToHost(this)); }

Real CCurve::GetValue(const BaseTime &time, LONG fps) const {
    return Table()->curve_value(ToHost(this), ToTable(&time), fps);
}

CTrack *CCurve::GetTrack() { return FromHost<CTrack>(Table()->curve_track(ToHost(this))); }

CKey *CKey::Alloc() { return FromHost<CKey>(Table()->create_key()); }

void CKey::Free(CKey *&key) {
    if (key) host_table->list->release(ToHost(key));
    key = NULL;
}

CKey *CKey::GetClone(AliasTrans *translation) const {
    return FromHost<CKey>(host_table->atom->clone(ToHost(this), COPYFLAGS_0, ToHost(translation)));
}

BaseTime CKey::GetTime() const {
    BaseTime time;
    Table()->key_time(ToHost(this), ToTable(&time));
    return time;
}

Real CKey::GetValue() const { return Table()->key_value(ToHost(this)); }
BaseTime CKey::GetTimeLeft() const { return TangentTime(this, kLeft); }
BaseTime CKey::GetTimeRight() const { return TangentTime(this, kRight); }
Real CKey::GetValueLeft() const { return TangentValue(this, kLeft); }
Real CKey::GetValueRight() const { return TangentValue(this, kRight); }

CINTERPOLATION CKey::GetInterpolation() const {
    return static_cast<CINTERPOLATION>(Table()->key_interpolation(ToHost(this)));
}

void CKey::SetTime(CCurve *curve, const BaseTime &time) {
    Table()->set_key_time(ToHost(this), ToHost(curve), ToTable(&time));
}

void CKey::SetValue(CCurve *curve, Real value) { Table()->set_key_value(ToHost(this), ToHost(curve), value); }

void CKey::SetTimeLeft(CCurve *curve, const BaseTime &time) {
    SetTangent(this, curve, kLeft, time, TangentValue(this, kLeft));
}
void CKey::SetTimeRight(CCurve *curve, const BaseTime &time) {
    SetTangent(this, curve, kRight, time, TangentValue(this, kRight));
}
void CKey::SetValueLeft(CCurve *curve, Real value) { SetTangent(this, curve, kLeft, TangentTime(this, kLeft), value); }
void CKey::SetValueRight(CCurve *curve, Real value) {
    SetTangent(this, curve, kRight, TangentTime(this, kRight), value);
}

void CKey::SetInterpolation(CCurve *curve, CINTERPOLATION interpolation) {
    Table()->set_key_interpolation(ToHost(this), ToHost(curve), interpolation);
}

const GeData &CKey::GetGeData() const {
    static const GeData none;
    const GeData *data = FromTable(Table()->key_data(ToHost(this)));
    return data ? *data : none;
}

void CKey::SetGeData(CCurve *curve, const GeData &data) {
    Table()->set_key_data(ToHost(this), ToHost(curve), ToTable(&data));
}

CTrack *CKey::GetTrack() {
    CCurve *curve = GetCurve();
    return curve ? curve->GetTrack() : NULL;
}

CCurve *CKey::GetCurve() { return FromHost<CCurve>(Table()->key_curve(ToHost(this))); }
