#include "host/table/entries.h"
#include "host/table/nodes.h"

namespace host {

HostAtom *AnimationEntries::create_track(HostAtom *node, const TableDescID *id) {
    return Guarded<HostAtom *>(
        nullptr, [=]() -> HostAtom * { return id != nullptr ? Track::Create(AsNode(node), *id).release() : nullptr; });
}

void AnimationEntries::track_id(const HostAtom *atom, TableDescID *out) {
    if (out == nullptr) return;
    const Track *track = AsTrack(atom);
    *out = track != nullptr ? track->Id() : TableDescID{};
}

// A track has one curve from the beginning.
HostAtom *AnimationEntries::track_curve(HostAtom *atom, std::int32_t type, std::int32_t) {
    constexpr std::int32_t kValueCurve = 1;
    const Track *track = AsTrack(atom);
    return track != nullptr && type == kValueCurve ? track->GetCurve() : nullptr;
}

double AnimationEntries::track_value(HostAtom *atom, HostAtom *, const TableTime *time, std::int32_t) {
    const Track *track = AsTrack(atom);
    return track != nullptr && time != nullptr ? track->ValueAt(*time) : 0;
}

std::int32_t AnimationEntries::key_count(const HostAtom *atom) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr ? curve->KeyCount() : 0;
}

HostAtom *AnimationEntries::key_at(HostAtom *atom, std::int32_t index) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr ? curve->KeyAt(index) : nullptr;
}

HostAtom *AnimationEntries::add_key(HostAtom *atom, const TableTime *time, std::int32_t *out_index) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        if (out_index != nullptr) *out_index = -1;
        Curve *curve = AsCurve(atom);
        return curve != nullptr && time != nullptr ? curve->AddKey(*time, out_index) : nullptr;
    });
}

double AnimationEntries::curve_value(const HostAtom *atom, const TableTime *time, std::int32_t) {
    const Curve *curve = AsCurve(atom);
    return curve != nullptr && time != nullptr ? curve->ValueAt(*time) : 0;
}

void AnimationEntries::key_time(const HostAtom *atom, TableTime *out) {
    if (out == nullptr) return;
    const Key *key = AsKey(atom);
    *out = key != nullptr ? key->GetTime() : TableTime{0, 1};
}

void AnimationEntries::set_key_value(HostAtom *atom, HostAtom *, double value) {
    if (Key *key = AsKey(atom)) key->SetValue(value);
}

}  // namespace host
