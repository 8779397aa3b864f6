// Putting the motion back to its start, and catching up with the clocks after a jump.
#include "engine/simulation.h"

#include <cmath>

#include "engine/clocks.h"
#include "engine/curves.h"
#include "engine/overshoot.h"
#include "engine/rotation.h"
#include "lib_description.h"
#include "ocamera.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// Nobody animates longer; a document that claims to must not hold up its user.
constexpr LONG kMaxRunUpFrames = 10000000;

// Besides the clocks: what goes back to 0. Some entries are only kept clean for scenes that hold them.
constexpr LONG kClearedReals[] = {10058,
                                  10027,
                                  10041,
                                  10040,
                                  kLastFrame,
                                  kJoltPositionTarget,
                                  kJoltRotationTarget,
                                  kZoomCarry,
                                  kZoomValue,
                                  5010,
                                  kFocusCarry,
                                  kFocusValue,
                                  kFocusDriftValue,
                                  kZoomDriftCarry,
                                  kZoomDriftValue,
                                  kJoltRotationCarry,
                                  kJoltPositionCarry,
                                  10065,
                                  kJoltRotationPrevious,
                                  kJoltPositionPrevious,
                                  kJoltPositionEnvelope,
                                  kJoltRotationEnvelope};
constexpr LONG kClearedVectors[] = {kJoltRotationOffset,      kJoltPositionOffset,      kJoltRotationFilterCarry,
                                    kPositionCarry,           kPositionValue,           kRotationCarry,
                                    kRotationValue,           kPositionShakeCarry,      kPositionShakeValue,
                                    kRotationShakeCarry,      kRotationShakeValue,      kJoltRotationFilterValue,
                                    kJoltPositionFilterValue, kJoltPositionFilterCarry, kPreviousRotation};

void ClearSimulation(BaseContainer *data) {
    WriteClocks(Clocks(), data);
    for (LONG id : kClearedReals) data->SetReal(id, 0.0);
    for (LONG id : kClearedVectors) data->SetVector(id, Vector());
    data->SetBool(kCatchingUp, FALSE);
    data->SetContainer(kWorkContainer, BaseContainer());
}

// Where the channels of the motion start: on the input camera.
struct Seeds {
    Vector position, angles;
    Real focal_length, focus_distance;
};

Seeds SeedsOf(const FrameInput &start, const BaseContainer &data) {
    Seeds seeds = {start.position, start.angles, start.focal_length, start.focus_distance};
    if (start.target && data.GetBool(kUseTarget)) AimAngles(start.position, start.target_position, &seeds.angles);
    if (start.focus) seeds.focus_distance = Len(start.focus_position - start.position);
    return seeds;
}

void ClearAll(BaseContainer *data) {
    ClearSimulation(data);
    data->SetReal(kFocusDriftCarry, 0.0);
    RestOvershoot(kOvershootSpare, Vector(), data);
}

void SeedMovingOvershoot(const Seeds &seeds, BaseContainer *data) {
    RestOvershoot(kOvershootTarget, seeds.angles, data);
    RestOvershoot(kOvershootPosition, seeds.position, data);
    RestOvershoot(kOvershootRotation, seeds.angles, data);
    RestOvershoot(kOvershootZoom, Vector(seeds.focal_length, 0.0, 0.0), data);
}

void SeedAll(const FrameInput &start, BaseContainer *data) {
    const Seeds seeds = SeedsOf(start, *data);
    data->SetVector(kPositionValue, seeds.position);
    data->SetVector(kRotationValue, seeds.angles);
    data->SetReal(kZoomValue, seeds.focal_length);
    data->SetReal(kFocusValue, seeds.focus_distance);
    SeedMovingOvershoot(seeds, data);
    RestOvershoot(kOvershootFocus, Vector(seeds.focus_distance, 0.0, 0.0), data);
}

// A focus object that the camera links by itself becomes the tag's: two masters would fight over the distance.
void AdoptFocusObject(BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    GeData link;
    if (!camera->GetParameter(DescLevel(CAMERAOBJECT_TARGETOBJECT), link, DESCFLAGS_GET_0)) return;
    BaseList2D *focus = link.GetLink(doc, Obase);
    if (!focus) return;
    data->SetLink(kFocusObject, focus);
    camera->SetParameter(DescLevel(CAMERAOBJECT_TARGETOBJECT), GeData((BaseList2D *)NULL), DESCFLAGS_SET_0);
}

// Values of the clock's rates over time: from their tracks where the tag has them.
class AnimatedRates {
  public:
    AnimatedRates(const BaseContainer &data, BaseTag *tag, BaseDocument *doc)
        : rates_(ReadClockRates(data)), doc_(doc), fps_(doc->GetFps()) {
        FindTrack(tag, kShakeSpeed, &speed_);
        FindTrack(tag, kSpeedVariation, &variation_);
        FindTrack(tag, kFocusSpeed, &focus_);
        FindTrack(tag, kZoomSpeed, &zoom_);
        FindTrack(tag, kSeed, &seed_);
        animated_ = speed_ || variation_ || focus_ || zoom_ || seed_;
    }

    Bool AreAnimated() const { return animated_; }

    const ClockRates &At(LONG frame) {
        if (!animated_) return rates_;
        const BaseTime time((Real)frame, (Real)fps_);
        Read(speed_, time, kShakeSpeed, &rates_.speed);
        Read(variation_, time, kSpeedVariation, &rates_.variation);
        Read(focus_, time, kFocusSpeed, &rates_.focus_rate);
        Read(zoom_, time, kZoomSpeed, &rates_.zoom_rate);
        Real seed = (Real)rates_.seed;
        Read(seed_, time, kSeed, &seed);
        rates_.seed = Truncate(seed);
        return rates_;
    }

  private:
    // A track without keys writes nothing during playback either.
    static void FindTrack(BaseTag *tag, LONG id, CTrack **track) {
        *track = tag ? tag->FindCTrack(DescLevel(id, DTYPE_REAL, 0)) : NULL;
        if (!*track) return;
        CCurve *curve = (*track)->GetCurve(CCURVE_CURVE, FALSE);
        if (!curve || curve->GetKeyCount() == 0) *track = NULL;
    }

    void Read(CTrack *track, const BaseTime &time, LONG id, Real *value) const {
        if (!track) return;
        BaseContainer animated;  // read back as playback reads it: a value that is not finite is the default
        animated.SetReal(id, track->GetValue(doc_, time, fps_));
        *value = ReadReal(animated, id);
    }

    ClockRates rates_;
    BaseDocument *doc_;
    LONG fps_;
    CTrack *speed_, *variation_, *focus_, *zoom_, *seed_;
    Bool animated_;
};

}  // namespace

void RestSimulation(const FrameInput &start, BaseContainer *data) {
    ClearAll(data);
    SeedAll(start, data);
}

void TremoluxCamClass::ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    if (!data || !camera) return;
    ClearAll(data);
    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (!input) return;
    AdoptFocusObject(data, camera, doc);
    SeedAll(ReadScene(*data, input, camera), data);
}

void TremoluxCamClass::SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera) {
    if (!data || !camera) return;
    ClearSimulation(data);
    data->SetReal(kLastFrame, -1.0);
    BaseDocument *doc = camera->GetDocument();
    if (!doc) return;
    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (input) SeedMovingOvershoot(SeedsOf(ReadScene(*data, input, camera), *data), data);

    const Curve warp_curve(kSpeedWarpCurve);
    if (!warp_curve) return;
    // Playback restarts on every negative frame, so its clocks count from the last of them.
    const LONG start = LMax(FrameOfTime(doc->GetMinTime(), (Real)doc->GetFps()), -1);
    const LONG end = Truncate(frame);
    const LONG first = (LLONG)end - start > kMaxRunUpFrames ? end - kMaxRunUpFrames : start;
    Clocks clocks = Clocks();
    AnimatedRates rates(*data, (BaseTag *)Get(), doc);
    LONG f = first;
    if (!rates.AreAnimated()) {
        run_up_.Expect(rates.At(first), first);
        clocks = run_up_.Before(end, &f);
    }
    for (; f < end; f++) {
        if (!rates.AreAnimated()) run_up_.Remember(f, clocks);
        AdvanceClocks(&clocks, rates.At(f), (Real)f, warp_curve);
    }
    WriteClocks(clocks, data);
}
