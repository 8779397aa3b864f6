#include "engine/frame.h"

#include <cmath>

#include "ddoc.h"
#include "engine/clocks.h"
#include "engine/curves.h"
#include "engine/filter.h"
#include "engine/rotation.h"
#include "lib_description.h"
#include "ocamera.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr Real kWholeFrameTolerance = 1e-6;
// The scene's size against the slider: 15 % of it.
constexpr Real kScaleShare = 0.15;
constexpr Real kSlowPositionShare = 2.0;
constexpr Real kJoltTimeScale = 1.25;
constexpr Real kFalloffShare = 0.1;

Vector ReadSoundVector(const BaseContainer &data, LONG key) {
    const Vector v = data.GetVector(key);
    return IsFinite(v) ? v : Vector();
}

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
    BaseObject *guide = camera ? ResolveObject(data, link, camera->GetDocument()) : NULL;
    return guide && !FollowsCamera(guide, camera) ? guide : NULL;
}

Bool HasTarget(BaseTag *tag, const BaseContainer &data) {
    return ResolveGuide(data, kTargetObject, tag->GetObject()) != NULL;
}

FrameInput ReadScene(const BaseContainer &data, BaseObject *input, BaseObject *camera) {
    FrameInput scene;
    const Matrix matrix = input->GetMg();
    scene.position = matrix.off;
    scene.angles = AnglesOf(matrix);
    scene.focal_length = ReadLens(input, CAMERA_FOCUS);
    scene.focus_distance = ReadLens(input, CAMERAOBJECT_TARGETDISTANCE);
    scene.target = ResolveGuide(data, kTargetObject, camera);
    if (scene.target) scene.target_position = scene.target->GetMg().off;
    scene.focus = ResolveGuide(data, kFocusObject, camera);
    if (scene.focus) scene.focus_position = scene.focus->GetMg().off;
    return scene;
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

    const Real frames_per_second = settings->GetReal(DOCUMENT_FPS);
    const Real frame = ExactFrame(doc->GetTime(), frames_per_second);
    if (frame == data->GetReal(kLastFrame)) return;
    FrameInput in = ReadScene(*data, input, camera);
    in.frame = frame;
    in.frames_per_second = frames_per_second;

    FrameMotion motion;
    if (!ComputeFrame(in, data, &motion)) return;
    const Vector reference = frame == 0.0 ? Vector() : ReadSoundVector(*data, kPreviousRotation);
    const Vector angles = GetOptimalAngle(reference, motion.angles, ROTATIONORDER_HPB);

    Matrix output = HPBToMatrix(angles, ROTATIONORDER_HPB);
    output.off = motion.position;
    output.Normalize();
    WriteLens(camera, CAMERA_FOCUS, motion.focal_length);
    WriteLens(camera, CAMERAOBJECT_TARGETDISTANCE, motion.focus_distance);
    camera->SetMg(output);
    data->SetVector(kPreviousRotation, angles);
}

Bool TremoluxCamClass::ComputeFrame(const FrameInput &in, BaseContainer *data, FrameMotion *motion) {
    RefreshTriggers(data);

    const Curve warp_curve(kSpeedWarpCurve);
    if (!warp_curve) return FALSE;
    Clocks clocks = ReadClocks(*data);
    AdvanceClocks(&clocks, ReadClockRates(*data), in.frame, warp_curve);
    WriteClocks(clocks, data);

    // Made before any layer runs, so that a host without memory ends the frame with nothing half moved.
    const Curve ease_curve(kLayerEaseCurve);
    if (!ease_curve) return FALSE;

    const auto real = [data](LONG id) { return ReadReal(*data, id); };
    const auto flag = [data](LONG id) { return (LONG)data->GetBool(id); };
    const LONG seed = ReadTruncated(*data, kSeed);
    const Real time_offset = real(kTimeOffset), speed = real(kShakeSpeed);
    const Real position_intensity = real(kPositionIntensity), rotation_intensity = real(kRotationIntensity);
    const Real scale = kScaleShare * real(kOverallScale);
    const Real frame = in.frame, frames_per_second = in.frames_per_second;

    const Real focal_length =
        EvaluateZoom(data, time_offset, (Real)seed, flag(kUseZoom), real(kZoomSpeed), real(kZoomDriftSlow),
                     real(kZoomDriftMedium), real(kZoomDriftFast), speed, real(kZoomDriftSmooth), real(kZoomSmooth),
                     real(kZoomOvershoot), real(kZoomOvershootFade), in.focal_length, frame, clocks.zoom_drift,
                     clocks.zoom, FrameOfTime(data->GetTime(kZoomHiddenTime), frames_per_second), real(kZoomHidden1),
                     real(kZoomHidden2), real(kZoomHidden3), real(kZoomHidden4));

    Vector position =
        EvaluatePosition(data, in.position, real(kInitialPositionSmooth), time_offset,
                         kSlowPositionShare * real(kPositionSlow), real(kPositionMedium), real(kPositionFast), frame,
                         real(kInitialPositionOvershoot), real(kPositionOvershootFade), real(kShakeSmooth), (Real)seed,
                         flag(kUsePositionX), flag(kUsePositionY), flag(kUsePositionZ), position_intensity, scale,
                         real(kRatioX), real(kRatioY), real(kRatioZ), speed, clocks.shake);

    Vector angles =
        EvaluateRotation(data, in.target ? flag(kUseTarget) : 0, in.target_position, position, real(kTargetSmooth),
                         time_offset, real(kTargetOvershoot), real(kTargetOvershootFade), in.angles,
                         real(kInitialRotationSmooth), real(kInitialRotationOvershoot), real(kRotationOvershootFade),
                         (Real)seed, flag(kUseRotationH), flag(kUseRotationP), flag(kUseRotationB), rotation_intensity,
                         scale, real(kRatioH), real(kRatioP), real(kRatioB), speed, clocks.shake, real(kShakeSmooth),
                         real(kRotationSlow), real(kRotationMedium), real(kRotationFast), frame);

    const Real focus_distance = EvaluateFocus(
        data, in.focus_distance, in.focus, real(kFocusSmoothing), real(kFocusOvershoot), real(kFocusOvershootFade),
        in.focus_position, position, real(kFocusDriftSmooth), flag(kUseFocus), time_offset, real(kFocusDriftSlow),
        real(kFocusDriftMedium), real(kFocusDriftFast), seed, real(kFocusSpeed), speed, frame);

    EvaluateJolts(data, kJoltTimeScale, (Real)seed, FrameOfTime(data->GetTime(kJoltInterval), frames_per_second),
                  frames_per_second, Truncate(clocks.jolt), time_offset, real(kJoltPositionIntensity),
                  real(kJoltRotationIntensity), real(kJoltSmooth), flag(kUseJolt), scale, position_intensity, speed,
                  real(kRatioX), real(kRatioY), real(kRatioZ), real(kRatioH), real(kRatioP), real(kRatioB),
                  rotation_intensity, kFalloffShare * real(kJoltFalloff), Truncate(frame), 1);

    position += data->GetVector(kJoltPositionOffset);
    angles += data->GetVector(kJoltRotationOffset);
    if (!IsFinite(position) || !IsFinite(angles) || !IsFinite(focal_length) || !IsFinite(focus_distance)) return FALSE;
    motion->position = position;
    motion->angles = angles;
    motion->focal_length = focal_length;
    motion->focus_distance = focus_distance;
    return TRUE;
}
