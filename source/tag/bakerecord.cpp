#include "tag/bakerecord.h"

#include "obase.h"
#include "ocamera.h"
#include "tag/scene.h"

const BakedChannel kBakedChannels[kBakedChannelCount] = {
    {ID_BASEOBJECT_REL_POSITION, VECTOR_X}, {ID_BASEOBJECT_REL_POSITION, VECTOR_Y},
    {ID_BASEOBJECT_REL_POSITION, VECTOR_Z}, {ID_BASEOBJECT_REL_ROTATION, VECTOR_X},
    {ID_BASEOBJECT_REL_ROTATION, VECTOR_Y}, {ID_BASEOBJECT_REL_ROTATION, VECTOR_Z},
    {CAMERAOBJECT_TARGETDISTANCE, 0},       {CAMERA_FOCUS, 0}};

namespace {

// Keys of one track's record.
constexpr LONG kLastKeyFrame = 10029, kParameter = 10030, kComponent = 10031;
// Behind a frame: that it has a key; and where its value stands when the frame itself is one of the keys above.
constexpr LONG kKeyMark = 10000000, kMovedValue = 20000000;

LONG ValueKey(LONG frame) { return frame >= kLastKeyFrame && frame <= kComponent ? frame + kMovedValue : frame; }

Bool IsBaked(LONG parameter) {
    for (const BakedChannel &channel : kBakedChannels)
        if (channel.parameter == parameter) return TRUE;
    return FALSE;
}

BaseContainer RecordOf(CTrack *track, CCurve *curve, LONG frames_per_second) {
    BaseContainer record;
    LONG last = 0;
    for (LONG i = 0; i < curve->GetKeyCount(); i++) {
        last = LMax(last, FrameOfTime(curve->GetKey(i)->GetTime(), frames_per_second));
        if (last >= kKeyMark) break;
        record.SetReal(ValueKey(last), curve->GetValue(TimeOfFrame(last, frames_per_second), frames_per_second));
        record.SetLong(last + kKeyMark, 1);
    }
    const DescID id = track->GetDescriptionID();
    record.SetLong(kParameter, id[0].id);
    record.SetLong(kComponent, id.GetDepth() > 1 ? id[1].id : 0);
    record.SetLong(kLastKeyFrame, LMin(last, kKeyMark - 1));
    return record;
}

// As many keys as the record really holds, whatever it says of itself.
void RestoreKeys(const BaseContainer &record, CCurve *curve, LONG frames_per_second) {
    const LONG last = record.GetLong(kLastKeyFrame);
    for (LONG i = 0; record.GetIndexId(i) != NOTOK; i++) {
        const LONG id = record.GetIndexId(i), frame = id - kKeyMark;
        if (id < kKeyMark || id >= kMovedValue || record.GetLong(id) != 1 || frame > last) continue;
        CKey *key = curve->AddKey(TimeOfFrame(frame, frames_per_second));
        if (key) key->SetValue(curve, record.GetReal(ValueKey(frame)));
    }
}

}  // namespace

DescID ChannelId(const BakedChannel &channel) {
    return channel.component ? DescID(DescLevel(channel.parameter), DescLevel(channel.component))
                             : DescID(DescLevel(channel.parameter));
}

BaseTime TimeOfFrame(LONG frame, LONG frames_per_second) { return BaseTime((Real)frame, (Real)frames_per_second); }

BaseContainer TakePreBakeAnimation(BaseObject *camera, LONG frames_per_second) {
    BaseContainer record;
    LONG index = 0;
    CTrack *next;
    for (CTrack *track = camera->GetFirstCTrack(); track; track = next) {
        next = track->GetNext();
        if (!IsBaked(track->GetDescriptionID()[0].id)) continue;
        CCurve *curve = track->GetCurve();
        if (!curve) continue;
        record.SetContainer(index++, RecordOf(track, curve, frames_per_second));
        CTrack::Free(track);
    }
    return record;
}

void RestorePreBakeAnimation(const BaseContainer &record, BaseObject *camera, LONG frames_per_second) {
    for (LONG index = 0;; index++) {
        const BaseContainer *saved = record.GetContainerInstance(index);
        const LONG parameter = saved ? saved->GetLong(kParameter) : 0;
        if (parameter == 0) return;
        CTrack *track = CTrack::Alloc(camera, DescID(DescLevel(parameter), DescLevel(saved->GetLong(kComponent))));
        if (!track) continue;
        camera->InsertTrackSorted(track);
        if (CCurve *curve = track->GetCurve()) RestoreKeys(*saved, curve, frames_per_second);
    }
}

CCurve *MakeBakedCurve(BaseObject *camera, const BakedChannel &channel) {
    CTrack *track = CTrack::Alloc(camera, ChannelId(channel));
    if (!track) return NULL;
    camera->InsertTrackSorted(track);
    return track->GetCurve();
}
