#include "engine/frame.h"

#include <cmath>

#include "ddoc.h"
#include "engine/clocks.h"
#include "engine/curves.h"
#include "engine/rotation.h"
#include "lib_description.h"
#include "ocamera.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr Real kWholeFrameTolerance = 1e-6;

Bool IsFinite(const Vector &v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

}  // namespace

LONG FrameOfTime(const BaseTime &time, Real frames_per_second) {
    const Real denominator = std::floor(time.GetDenominator());
    if (denominator == 0.0) return 0;
    return Truncate(std::floor(frames_per_second * time.GetNumerator()) / denominator);
}

Real ExactFrame(const BaseTime &time, Real frames_per_second) {
    const Real seconds = time.GetDenominator() == 0.0 ? 0.0 : time.GetNumerator() / time.GetDenominator();
    const Real frame = seconds * frames_per_second;
    const Real whole = std::round(frame);
    return std::abs(frame - whole) <= kWholeFrameTolerance ? whole : frame;
}

BaseObject *ResolveObject(const BaseContainer &data, LONG link, BaseDocument *doc) {
    return data.GetObjectLink(link, doc);
}

Bool FollowsCamera(BaseObject *object, BaseObject *camera) {
    for (BaseObject *o = object; o; o = o->GetUp())
        if (o == camera) return TRUE;
    return FALSE;
}

BaseObject *ResolveGuide(const BaseContainer &data, LONG link, BaseObject *camera) {
    BaseObject *guide = ResolveObject(data, link, camera->GetDocument());
    return guide && !FollowsCamera(guide, camera) ? guide : NULL;
}

Real ReadLens(BaseObject *camera, LONG parameter) {
    GeData value;
    return camera->GetParameter(DescLevel(parameter), value, DESCFLAGS_GET_0) ? value.GetReal() : 0.0;
}

void WriteLens(BaseObject *camera, LONG parameter, Real value) {
    camera->SetParameter(DescLevel(parameter), GeData(value), DESCFLAGS_SET_0);
}

void TremoluxCamClass::EvaluateFrame(BaseContainer *data, BaseObject *camera) {
    if (!data || !camera) return;
    BaseDocument *doc = camera->GetDocument();
    if (!doc) return;
    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (!input || input->GetType() != Ocamera) return;
    const BaseContainer *settings = doc->GetSettingsInstance(DOCUMENTSETTINGS_DOCUMENT);
    if (!settings || settings->GetIndexId(0) == NOTOK) return;

    const Real frame = ExactFrame(doc->GetTime(), settings->GetReal(DOCUMENT_FPS));
    if (frame == data->GetReal(kLastFrame)) return;

    RefreshTrigger(data, kCustomTrigger, trigger_frames_);
    RefreshTrigger(data, kCustomTriggerTwin, twin_trigger_frames_);

    const Curve warp_curve(kSpeedWarpCurve);
    if (!warp_curve) return;
    Clocks clocks = ReadClocks(*data);
    AdvanceClocks(&clocks, ReadClockRates(*data), frame, warp_curve);
    WriteClocks(clocks, data);

    // Made before any layer runs, so that a host without memory ends the frame with nothing half moved.
    const Curve ease_curve(kLayerEaseCurve);
    if (!ease_curve) return;

    const Matrix input_matrix = input->GetMg();
    const Real focal_length = EvaluateZoom(data, ReadLens(input, CAMERA_FOCUS));
    Vector position = EvaluatePosition(data, input_matrix.off);
    Vector angles = EvaluateRotation(data, AnglesOf(input_matrix));
    const Real focus_distance = EvaluateFocus(data, ReadLens(input, CAMERAOBJECT_TARGETDISTANCE));
    EvaluateJolts(data);
    position += data->GetVector(kJoltPositionOffset);
    angles += data->GetVector(kJoltRotationOffset);
    if (!IsFinite(position) || !IsFinite(angles) || !std::isfinite(focal_length) || !std::isfinite(focus_distance))
        return;

    const Vector reference = frame == 0.0 ? Vector() : data->GetVector(kPreviousRotation);
    angles = GetOptimalAngle(reference, angles, ROTATIONORDER_HPB);

    Matrix output = HPBToMatrix(angles, ROTATIONORDER_HPB);
    output.off = position;
    output.Normalize();
    WriteLens(camera, CAMERA_FOCUS, focal_length);
    WriteLens(camera, CAMERAOBJECT_TARGETDISTANCE, focus_distance);
    camera->SetMg(output);
    data->SetVector(kPreviousRotation, angles);
}
