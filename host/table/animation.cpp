#include "host/table/internal.h"
#include "host/table/nodes.h"

namespace host {
namespace {

HostAtom *CreateTrack(HostAtom *node, const TableDescID *id) {
    return Guarded<HostAtom *>(
        nullptr, [=]() -> HostAtom * { return id != nullptr ? Track::Create(AsNode(node), *id).release() : nullptr; });
}
void TrackId(const HostAtom *atom, TableDescID *out) {
    if (out == nullptr) return;
    const Track *track = AsTrack(atom);
    *out = track != nullptr ? track->Id() : TableDescID{};
}
HostAtom *TrackObject(const HostAtom *atom) {
    const Track *track = AsTrack(atom);
    return track != nullptr ? track->Main() : nullptr;
}
// A track has one curve from the beginning.
HostAtom *TrackCurve(HostAtom *atom, std::int32_t type, std::int32_t) {
    constexpr std::int32_t kValueCurve = 1;
    const Track *track = AsTrack(atom);
    return track != nullptr && type == kValueCurve ? track->GetCurve() : nullptr;
}
std::int32_t TrackCategory(const HostAtom *atom) {
    const Track *track = AsTrack(atom);
    return track != nullptr ? track->Category() : 0;
}
double TrackValue(HostAtom *atom, HostAtom *, const TableTime *time, std::int32_t) {
    const Track *track = AsTrack(atom);
    return track != nullptr && time != nullptr ? track->ValueAt(*time) : 0;
}
std::int32_t TrackLoop(const HostAtom *atom, std::int32_t after) {
    const Track *track = AsTrack(atom);
    if (track == nullptr) return kLoopOff;
    return after != 0 ? track->after : track->before;
}
void SetTrackLoop(HostAtom *atom, std::int32_t after, std::int32_t loop) {
    Track *track = AsTrack(atom);
    if (track == nullptr || loop < kLoopOff || loop > kLoopOscillate) return;
    (after != 0 ? track->after : track->before) = loop;
}
std::int32_t FillKey(HostAtom *atom, HostAtom *, HostAtom *node, HostAtom *key) {
    return Guarded(0, [=] {
        const Track *track = AsTrack(atom);
        return track != nullptr && track->FillKey(AsNode(node), AsKey(key)) ? 1 : 0;
    });
}

std::int32_t KeyCount(const HostAtom *atom) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr ? curve->KeyCount() : 0;
}
HostAtom *KeyAt(HostAtom *atom, std::int32_t index) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr ? curve->KeyAt(index) : nullptr;
}
HostAtom *FindKey(HostAtom *atom, const TableTime *time, std::int32_t *out_index, std::int32_t match) {
    const Curve *curve = AsCurve(atom);
    if (curve == nullptr || time == nullptr) {
        if (out_index != nullptr) *out_index = -1;
        return nullptr;
    }
    return curve->FindKey(*time, out_index, match);
}
HostAtom *AddKey(HostAtom *atom, const TableTime *time, std::int32_t *out_index) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        if (out_index != nullptr) *out_index = -1;
        Curve *curve = AsCurve(atom);
        return curve != nullptr && time != nullptr ? curve->AddKey(*time, out_index) : nullptr;
    });
}
std::int32_t InsertKey(HostAtom *atom, HostAtom *key) {
    return Guarded(0, [=] {
        Curve *curve = AsCurve(atom);
        return curve != nullptr && curve->InsertKey(AsKey(key)) ? 1 : 0;
    });
}
std::int32_t DeleteKey(HostAtom *atom, std::int32_t index) {
    Curve *curve = AsCurve(atom);
    return curve != nullptr && curve->DeleteKey(index);
}
void FlushKeys(HostAtom *atom) {
    if (Curve *curve = AsCurve(atom)) curve->Flush();
}
double CurveValue(const HostAtom *atom, const TableTime *time, std::int32_t) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr && time != nullptr ? curve->ValueAt(*time) : 0;
}
HostAtom *CurveTrack(const HostAtom *atom) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr ? curve->GetTrack() : nullptr;
}

HostAtom *CreateKey() {
    return Guarded<HostAtom *>(nullptr, []() -> HostAtom * { return new Key; });
}
void KeyTime(const HostAtom *atom, TableTime *out) {
    if (out == nullptr) return;
    const Key *key = AsKey(atom);
    *out = key != nullptr ? key->GetTime() : TableTime{0, 1};
}
double KeyValue(const HostAtom *atom) {
    const Key *key = AsKey(atom);
    return key != nullptr ? key->GetValue() : 0;
}
// A key knows its curve: the one that callers name adds nothing.
void SetKeyTime(HostAtom *atom, HostAtom *, const TableTime *time) {
    Guarded([=] {
        Key *key = AsKey(atom);
        if (key != nullptr && time != nullptr) key->SetTime(*time);
    });
}
void SetKeyValue(HostAtom *atom, HostAtom *, double value) {
    if (Key *key = AsKey(atom)) key->SetValue(value);
}
void KeyTangent(const HostAtom *atom, std::int32_t side, TableTime *out_time, double *out_value) {
    const Key *key = AsKey(atom);
    const Key::Tangent tangent = key == nullptr ? Key::Tangent() : side == 0 ? key->left : key->right;
    if (out_time != nullptr) *out_time = tangent.time;
    if (out_value != nullptr) *out_value = tangent.value;
}
void SetKeyTangent(HostAtom *atom, HostAtom *, std::int32_t side, const TableTime *time, double value) {
    Key *key = AsKey(atom);
    if (key == nullptr || time == nullptr) return;
    (side == 0 ? key->left : key->right) = {*time, value};
}
std::int32_t KeyInterpolation(const HostAtom *atom) {
    const Key *key = AsKey(atom);
    return key != nullptr ? key->GetInterpolation() : 0;
}
void SetKeyInterpolation(HostAtom *atom, HostAtom *, std::int32_t interpolation) {
    if (Key *key = AsKey(atom)) key->SetInterpolation(interpolation);
}
const TableData *KeyData(const HostAtom *atom) {
    const Key *key = AsKey(atom);
    return key != nullptr ? &key->data : nullptr;
}
void SetKeyData(HostAtom *atom, HostAtom *, const TableData *data) {
    Guarded([=] {
        Key *key = AsKey(atom);
        if (key != nullptr && data != nullptr) key->data = Data(*data);
    });
}
HostAtom *KeyCurve(const HostAtom *atom) {
    const Key *key = AsKey(atom);
    return key != nullptr ? key->GetCurve() : nullptr;
}

const AnimationTable kEntries = {CreateTrack,
                                 TrackId,
                                 TrackObject,
                                 TrackCurve,
                                 TrackCategory,
                                 TrackValue,
                                 TrackLoop,
                                 SetTrackLoop,
                                 FillKey,
                                 KeyCount,
                                 KeyAt,
                                 FindKey,
                                 AddKey,
                                 InsertKey,
                                 DeleteKey,
                                 FlushKeys,
                                 CurveValue,
                                 CurveTrack,
                                 CreateKey,
                                 KeyTime,
                                 KeyValue,
                                 SetKeyTime,
                                 SetKeyValue,
                                 KeyTangent,
                                 SetKeyTangent,
                                 KeyInterpolation,
                                 SetKeyInterpolation,
                                 KeyData,
                                 SetKeyData,
                                 KeyCurve};

}  // namespace

const AnimationTable *AnimationEntries() { return &kEntries; }

}  // namespace host
