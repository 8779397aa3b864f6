// Putting the motion back to its start, and catching up with the clocks after a jump.
#include "engine/operations.h"
#include "engine/runup.h"
#include "lib_description.h"
#include "obase.h"
#include "ocamera.h"
#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// Only kept clean for scenes that hold them.
constexpr LONG kUnusedReals[] = {10058, 10027, 10041, 10040, 5010, 10065};

void ClearUnused(BaseContainer *data) {
    for (LONG id : kUnusedReals) data->SetReal(id, 0.0);
    data->SetContainer(kWorkContainer, BaseContainer());
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

// Values of what drives the clocks, over time: from their tracks where the tag has them.
class AnimatedClockSettings : public engine::ClockSettingsOverTime {
  public:
    AnimatedClockSettings(const engine::Settings &settings, BaseTag *tag, BaseDocument *doc)
        : present_(settings), settings_(engine::ClockSettingsOf(settings)), doc_(doc), fps_(doc->GetFps()) {
        FindTrack(tag, kShakeSpeed, &speed_);
        FindTrack(tag, kSpeedVariation, &variation_);
        FindTrack(tag, kFocusSpeed, &focus_);
        FindTrack(tag, kZoomSpeed, &zoom_);
        FindTrack(tag, kSeed, &seed_);
    }

    bool AreAnimated() const override { return speed_ || variation_ || focus_ || zoom_ || seed_; }

    const engine::ClockSettings &At(std::int32_t frame) override {
        if (!AreAnimated()) return settings_;
        const BaseTime time((Real)frame, (Real)fps_);
        Read(speed_, time, kShakeSpeed, &present_.speed);
        Read(variation_, time, kSpeedVariation, &present_.speed_variation);
        Read(focus_, time, kFocusSpeed, &present_.focus_rate);
        Read(zoom_, time, kZoomSpeed, &present_.zoom_rate);
        Read(seed_, time, kSeed, &present_.seed);
        settings_ = engine::ClockSettingsOf(present_);
        return settings_;
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

    engine::Settings present_;
    engine::ClockSettings settings_;
    BaseDocument *doc_;
    LONG fps_;
    CTrack *speed_, *variation_, *focus_, *zoom_, *seed_;
};

constexpr engine::Channel kMovingChannels[] = {engine::Channel::kTarget, engine::Channel::kPosition,
                                               engine::Channel::kRotation, engine::Channel::kZoom};
constexpr engine::Channel kChannels[] = {engine::Channel::kTarget,   engine::Channel::kPosition,
                                         engine::Channel::kRotation, engine::Channel::kZoom,
                                         engine::Channel::kSpare,    engine::Channel::kFocus};

}  // namespace

void TremoluxCamClass::RestMotion(const engine::FrameInput *start, BaseContainer *data) {
    MotionState &state = ReadMotion(data);
    state.WriteBeside(data, ClearUnused);
    if (start)
        engine::RestMotion(state.settings, *start, HostMaths(), &state.memory);
    else
        engine::ClearAllMotion(&state.memory);
    state.WriteAllParts(data);
    for (engine::Channel channel : kChannels) state.WriteWholeSpring(channel, data);
}

void TremoluxCamClass::ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    if (!data || !camera) return;
    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (!input) {
        RestMotion(NULL, data);
        return;
    }
    AdoptFocusObject(data, camera, doc);
    const SceneInput scene = ReadScene(*data, input, camera);
    RestMotion(&scene.frame, data);
}

void TremoluxCamClass::SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera) {
    if (!data || !camera) return;
    MotionState &state = ReadMotion(data);
    state.WriteBeside(data, ClearUnused);
    engine::ClearMotion(&state.memory);
    state.memory.last_frame = -1.0;
    state.WriteAllParts(data);
    BaseDocument *doc = camera->GetDocument();
    if (!doc) return;
    if (BaseObject *input = ResolveObject(*data, kInputCamera, doc)) {
        engine::RestMovingSprings(state.settings, ReadScene(*data, input, camera).frame, HostMaths(), &state.memory);
        for (engine::Channel channel : kMovingChannels) state.WriteWholeSpring(channel, data);
    }
    const engine::OwnedCurve warp_curve(HostMaths(), engine::kSpeedWarpCurve);
    if (!warp_curve.Get()) return;
    AnimatedClockSettings settings(state.settings, (BaseTag *)Get(), doc);
    state.memory.clocks = engine::RunUp(FrameOfTime(doc->GetMinTime(), (Real)doc->GetFps()), engine::Truncate(frame),
                                        warp_curve.Get(), &settings, &operations_, &run_up_);
    state.Write(MotionPart::kClocks, data);
}
