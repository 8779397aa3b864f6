// The motion as keys on the tag's camera, and back.
#include <optional>

#include "ddoc.h"
#include "ocamera.h"
#include "tag/alone.h"
#include "tag/bakerecord.h"
#include "tag/curvefeeder.h"
#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/step.h"
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

// The camera's keys as they are now, for the user's undo list: in the step that the host has open, else in one of its
// own.
class KeptKeys {
  public:
    KeptKeys(BaseTag *tag, BaseObject *camera, BaseDocument *doc) {
        StopAllThreads();
        are_kept_ = doc->AddUndo(UNDOTYPE_CHANGE, camera);
        if (are_kept_) return;
        own_step_.emplace(tag);
        are_kept_ = own_step_->Add(UNDOTYPE_CHANGE, camera);
    }
    // FALSE without memory for them.
    Bool AreKept() const { return are_kept_; }

  private:
    std::optional<UndoStep> own_step_;
    Bool are_kept_;
};

// Playback begins anew on every frame before 0; a bake has done so for its first one already.
Bool BeginsAnew(LONG frame, LONG first) { return frame < 0 && frame != first; }

// Whether the tag sits on a camera in a document, and follows something.
Bool CanBake(BaseTag *tag, const BaseContainer &data) {
    BaseDocument *doc = tag->GetDocument();
    BaseObject *camera = tag->GetObject();
    return doc && camera && camera->GetType() == Ocamera && ResolveObject(data, kInputCamera, doc);
}

LONG FirstFrame(BaseDocument *doc) { return FrameOfTime(doc->GetMinTime(), doc->GetFps()); }
LONG LastFrame(BaseDocument *doc) { return FrameOfTime(doc->GetMaxTime(), doc->GetFps()); }

constexpr BakedIndex kPositionFirst[kBakedChannelCount] = {
    kBakedX, kBakedY, kBakedZ, kBakedH, kBakedP, kBakedB, kBakedFocusDistance, kBakedFocalLength};
constexpr BakedIndex kLensFirst[kBakedChannelCount] = {
    kBakedFocusDistance, kBakedFocalLength, kBakedX, kBakedY, kBakedZ, kBakedH, kBakedP, kBakedB};

}  // namespace

void TremoluxCamClass::QuickBake(BaseContainer data, BaseObject *camera, BaseTag *tag) {
    BaseDocument *doc = tag ? tag->GetDocument() : NULL;
    BaseObject *input = doc && camera ? ResolveObject(data, kInputCamera, doc) : NULL;
    if (!input || input->GetType() != Ocamera) return;
    const LONG rate = doc->GetFps(), first = FirstFrame(doc), last = LastFrame(doc);
    const ParameterCurves parameters(tag);
    const MovingObject moving_input(input);
    BaseObject *target = ResolveAim(data, kTargetObject, camera), *focus = ResolveAim(data, kFocusObject, camera);
    const MovingObject moving_target(target), moving_focus(focus);
    const Real focal_length = ReadLens(input, CAMERA_FOCUS);
    const Matrix from_global = !(camera->GetUpMg() * FrozenMatrix(camera));
    const Bool is_global = from_global == Matrix();

    CCurve *curves[kBakedChannelCount];
    if (!MakeCurves(camera, kPositionFirst, curves)) return;
    ReadMotion(&data);
    const Alone alone(&is_alone_);
    Vector previous;
    for (LLONG counted = first; counted <= last; counted++) {
        const LONG frame = (LONG)counted;
        ShowProgress(frame, last);
        const Bool are_there = ResolveObject(data, kInputCamera, doc) == input &&
                               ResolveAim(data, kTargetObject, camera) == target &&
                               ResolveAim(data, kFocusObject, camera) == focus;
        if (!are_there) break;
        const BaseTime time = TimeOfFrame(frame, rate);
        motion_.WriteSettings(&data, [&](BaseContainer *bake) { return parameters.Read(doc, time, bake); });
        SceneInput scene;
        scene.focus = focus;
        engine::FrameInput &in = scene.frame;
        in.frame = (Real)frame;
        in.frames_per_second = (Real)rate;
        moving_input.Read(doc, time, &in.position, &in.angles);
        in.focal_length = focal_length;
        in.focus_distance = moving_input.FocusDistance(doc, time);
        in.has_target = target != NULL;
        in.has_focus_object = focus != NULL;
        moving_target.Read(doc, time, &in.target, NULL);
        moving_focus.Read(doc, time, &in.focus_object, NULL);

        if (BeginsAnew(frame, first)) RestMotion(&in, &data);
        engine::FrameMotion motion;
        if (!ComputeFrame(scene, &data, &motion)) continue;
        Vector position = ToHost(motion.position), angles = ToHost(motion.angles);
        if (!is_global) {
            Matrix global = HPBToMatrix(angles, ROTATIONORDER_HPB);
            global.off = position;
            const Matrix relative = from_global * global;
            position = relative.off;
            angles = AnglesOf(relative);
        }
        // The camera would turn once round between two keys that are whole turns apart.
        angles = GetOptimalAngle(previous, angles, ROTATIONORDER_HPB);
        const Real values[] = {
            position.x,         position.y, position.z, angles.x, angles.y, angles.z, motion.focus_distance,
            motion.focal_length};
        for (LONG i = 0; i < kBakedChannelCount; i++) AddKey(curves[i], time, values[i]);
        previous = angles;
    }
    StatusClear();
    camera->Message(MSG_CHANGE);
}

Bool TremoluxCamClass::BeginBake(BaseTag *tag, BaseContainer *data) {
    BaseDocument *doc = tag->GetDocument();
    BaseObject *camera = tag->GetObject();
    data->SetContainer(kPreBakeRecord, TakePreBakeAnimation(camera, doc->GetFps()));
    Evaluate(doc, 0);
    if (FirstFrame(doc) != 0) Evaluate(doc, FirstFrame(doc));
    // A tag that sleeps does not follow the document's range.
    data->SetReal(kStartFrame, (Real)FirstFrame(doc));
    ResetSimulation(data, camera, doc);
    if (!ResolveObject(*data, kInputCamera, doc)) return FALSE;
    data->SetBool(kBaked, TRUE);
    return TRUE;
}

void TremoluxCamClass::StartQuickBake(BaseTag *tag, BaseContainer *data) {
    if (!CanBake(tag, *data)) return;
    BaseDocument *doc = tag->GetDocument();
    const KeptKeys kept(tag, tag->GetObject(), doc);
    if (!kept.AreKept() || !BeginBake(tag, data)) return;
    QuickBake(*data, tag->GetObject(), tag);
    for (LONG frame : {1, 0}) {
        doc->SetTime(TimeOfFrame(frame, doc->GetFps()));
        EventAdd();
    }
}

void TremoluxCamClass::BruteForceBake(BaseTag *tag, BaseContainer *data) {
    if (!CanBake(tag, *data)) return;
    BaseDocument *doc = tag->GetDocument();
    BaseObject *camera = tag->GetObject();
    const BaseTime before = doc->GetTime();
    const KeptKeys kept(tag, camera, doc);
    if (!kept.AreKept() || !BeginBake(tag, data)) return;
    const LONG rate = doc->GetFps(), first = FirstFrame(doc), last = LastFrame(doc);
    CCurve *curves[kBakedChannelCount];
    if (!MakeCurves(camera, kLensFirst, curves)) return;

    Vector previous;
    data->SetReal(kLastFrame, kNoFrame);
    for (LLONG counted = first; counted <= last; counted++) {
        const LONG frame = (LONG)counted;
        if (!ResolveObject(*data, kInputCamera, doc)) return;
        ShowProgress(frame, last);
        Evaluate(doc, frame);
        BaseObject *input = ResolveObject(*data, kInputCamera, doc);
        if (input && BeginsAnew(frame, first))
            Restart(data, camera, input, doc);
        else
            EvaluateFrame(data, camera);
        ReadMotion(data).memory.last_frame = (Real)frame;
        motion_.Write(MotionPart::kTimeline, data);

        const BaseTime time = TimeOfFrame(frame, rate);
        AddKey(curves[kBakedFocusDistance], time, ReadLens(camera, CAMERAOBJECT_TARGETDISTANCE));
        AddKey(curves[kBakedFocalLength], time, ReadLens(camera, CAMERA_FOCUS));
        const Matrix relative = !FrozenMatrix(camera) * camera->GetMl();
        const Vector position = relative.off;
        const Vector angles = GetOptimalAngle(previous, AnglesOf(relative), ROTATIONORDER_HPB);
        const Real values[] = {position.x, position.y, position.z, angles.x, angles.y, angles.z};
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
    const KeptKeys kept(tag, camera, doc);
    if (!kept.AreKept()) return;
    for (CTrack *track = camera->GetFirstCTrack(); track; track = camera->GetFirstCTrack()) CTrack::Free(track);
    data->SetBool(kBaked, FALSE);
    RestorePreBakeAnimation(record, camera, doc->GetFps());
    data->SetReal(kLastFrame, kNoFrame);
    camera->Message(MSG_CHANGE);
    EventAdd();
}
