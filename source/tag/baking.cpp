// The motion as keys on the tag's camera, and back.
#include "ddoc.h"
#include "engine/frame.h"
#include "ge_autoptr.h"
#include "ocamera.h"
#include "tag/bakerecord.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

void Evaluate(BaseDocument *doc, LONG frame) {
    doc->SetTime(TimeOfFrame(frame, doc->GetFps()));
    EventAdd();
    doc->ExecutePasses(NULL, TRUE, TRUE, TRUE, BUILDFLAGS_0);
}

void ShowProgress(LONG frame, LONG last) {
    const Real percent = last ? 100.0 * frame / last : 100.0;
    StatusSetBar((LONG)FMax(0.0, FMin(100.0, percent)));
}

void AddKey(CCurve *curve, const BaseTime &time, Real value) {
    if (CKey *key = curve->AddKey(time)) key->SetValue(curve, value);
}

// One curve a channel, made in the order given; FALSE when one cannot be made.
Bool MakeCurves(BaseObject *camera, const BakedIndex (&order)[kBakedChannelCount], CCurve **curves) {
    for (BakedIndex index : order) {
        curves[index] = MakeBakedCurve(camera, kBakedChannels[index]);
        if (!curves[index]) return FALSE;
    }
    return TRUE;
}

constexpr BakedIndex kLensFirst[kBakedChannelCount] = {
    kBakedFocusDistance, kBakedFocalLength, kBakedX, kBakedY, kBakedZ, kBakedH, kBakedP, kBakedB};

}  // namespace

void TremoluxCamClass::QuickBake(BaseContainer *, BaseObject *) {}

void TremoluxCamClass::BruteForceBake(BaseTag *tag, BaseContainer *data) {
    BaseDocument *doc = tag->GetDocument();
    BaseObject *camera = tag->GetObject();
    if (!doc || !camera || !ResolveObject(*data, kInputCamera, doc)) return;
    const BaseTime before = doc->GetTime();
    const LONG rate = doc->GetFps();
    data->SetContainer(kPreBakeRecord, TakePreBakeAnimation(camera, rate));

    const LONG first = FrameOfTime(doc->GetMinTime(), rate), last = FrameOfTime(doc->GetMaxTime(), rate);
    Evaluate(doc, 0);
    if (first != 0) Evaluate(doc, first);
    ResetSimulation(data, camera, doc);
    if (!ResolveObject(*data, kInputCamera, doc)) return;
    data->SetBool(kBaked, TRUE);
    CCurve *curves[kBakedChannelCount];
    if (!MakeCurves(camera, kLensFirst, curves)) return;

    Vector previous;
    data->SetReal(kLastFrame, kNoFrame);
    for (LONG frame = first; frame <= last; frame++) {
        if (!ResolveObject(*data, kInputCamera, doc)) return;
        ShowProgress(frame, last);
        Evaluate(doc, frame);
        EvaluateFrame(data, camera);
        data->SetReal(kLastFrame, (Real)frame);

        const BaseTime time = TimeOfFrame(frame, rate);
        AddKey(curves[kBakedFocusDistance], time, ReadLens(camera, CAMERAOBJECT_TARGETDISTANCE));
        AddKey(curves[kBakedFocalLength], time, ReadLens(camera, CAMERA_FOCUS));
        const Matrix local = camera->GetMl();
        const Vector angles = GetOptimalAngle(previous, MatrixToHPB(local, ROTATIONORDER_HPB), ROTATIONORDER_HPB);
        const Real values[] = {local.off.x, local.off.y, local.off.z, angles.x, angles.y, angles.z};
        for (LONG i = kBakedX; i <= kBakedB; i++) AddKey(curves[i], time, values[i]);
        previous = angles;
        camera->Message(MSG_CHANGE);
        EventAdd();
    }
    StatusClear();
    doc->SetTime(before);
    EventAdd();
}

void TremoluxCamClass::UnBake(BaseTag *tag, BaseContainer *data) {
    BaseDocument *doc = tag->GetDocument();
    BaseObject *camera = tag->GetObject();
    const BaseContainer *stored = data->GetContainerInstance(kPreBakeRecord);
    if (!doc || !camera || !stored) return;
    const BaseContainer record = *stored;
    for (CTrack *track = camera->GetFirstCTrack(); track; track = camera->GetFirstCTrack()) CTrack::Free(track);
    data->SetBool(kBaked, FALSE);
    RestorePreBakeAnimation(record, camera, doc->GetFps());
    data->SetReal(kLastFrame, kNoFrame);
    camera->Message(MSG_CHANGE);
    EventAdd();
}
