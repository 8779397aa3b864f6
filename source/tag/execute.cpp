// What happens each time the scene is evaluated: set-up, restart, plain step or jump.
#include "ddoc.h"
#include "lib_description.h"
#include "obase.h"
#include "ocamera.h"
#include "presets/folders.h"
#include "tag/guarded.h"
#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr LONG kUseColorAlways = 2;

Vector CameraColor() { return Vector(1.0, 0.41667, 0.0); }

// Brings the tag's camera to where the input camera is, so that a restart has nothing of the old motion in it.
void CopyInput(BaseObject *input, BaseObject *camera) {
    if (input->GetType() != Ocamera) return;
    camera->SetMg(input->GetMg());
    WriteLens(camera, CAMERA_FOCUS, ReadLens(input, CAMERA_FOCUS));
    WriteLens(camera, CAMERAOBJECT_TARGETDISTANCE, ReadLens(input, CAMERAOBJECT_TARGETDISTANCE));
}

}  // namespace

EXECUTIONRESULT TremoluxCamClass::Execute(BaseTag *tag, BaseDocument *doc, BaseObject *op, BaseThread *, LONG,
                                          EXECUTIONFLAGS) {
    if (!doc || !op || op->GetType() != Ocamera || !tag) return EXECUTIONRESULT_OK;
    BaseContainer *data = tag->GetDataInstance();
    if (!data || data->GetBool(kBaked)) return EXECUTIONRESULT_OK;
    const Bool is_done = Guarded<Bool>(FALSE, [&] {
        ShowFrame(tag, data, op, doc);
        return TRUE;
    });
    // What a frame left half done is counted anew from the start.
    if (!is_done) data->SetReal(kLastFrame, kNoFrame);
    return EXECUTIONRESULT_OK;
}

void TremoluxCamClass::ShowFrame(BaseTag *tag, BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    const Real rate = (Real)doc->GetFps();
    MotionState &state = ReadMotion(data);
    state.memory.start_frame = (Real)FrameOfTime(doc->GetMinTime(), rate);
    state.Write(MotionPart::kTimeline, data);
    const engine::Time time = TimeOf(doc->GetTime());
    const Real frame = (Real)engine::FrameOfTime(time, rate);

    const BaseContainer *settings = doc->GetSettingsInstance(DOCUMENTSETTINGS_DOCUMENT);
    if (!settings || settings->GetIndexId(0) == NOTOK) return;

    if (data->GetBool(kFirstRun) || data->GetBool(kRecheckPreset)) {
        SetUp(tag, data, camera, doc);
        return;
    }

    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (!input) return;
    if (FollowsCamera(input, camera)) {
        data->SetLink(kInputCamera, NULL);
        return;
    }

    switch (engine::AdvanceTo(frame, engine::Seconds(time) * settings->GetReal(DOCUMENT_FPS), state.memory.start_frame,
                              state.memory.last_frame)) {
        case engine::Advance::kNothing:
            return;
        case engine::Advance::kRestart:
            Restart(data, camera, input, doc);
            break;
        case engine::Advance::kJump:
            Jump(frame, data, camera, doc);
            break;
        case engine::Advance::kStep:
            EvaluateFrame(data, camera);
            break;
    }
    ReadMotion(data);
    state.memory.last_frame = frame;
    state.memory.is_catching_up = false;
    state.Write(MotionPart::kTimeline, data);
}

void TremoluxCamClass::Restart(BaseContainer *data, BaseObject *camera, BaseObject *input, BaseDocument *doc) {
    CopyInput(input, camera);
    ResetSimulation(data, camera, doc);
    ReadMotion(data).memory.last_frame = kNoFrame;
    motion_.Write(MotionPart::kTimeline, data);
    EvaluateFrame(data, camera);
}

// The clocks keep their run-up through the reset, so that the shake goes on as if the frame had been played to. A jolt
// in flight does not survive.
void TremoluxCamClass::Jump(Real frame, BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    MotionState &state = ReadMotion(data);
    engine::DropJolts(&state.memory.jolts);
    state.Write(MotionPart::kJolts, data);
    SimulateToFrame(frame, data, camera);
    const engine::Clocks run_up = ReadMotion(data).memory.clocks;
    ResetSimulation(data, camera, doc);
    ReadMotion(data);
    state.memory.clocks = run_up;
    state.memory.is_catching_up = true;
    state.memory.last_frame = kNoFrame;
    state.Write(MotionPart::kClocks, data);
    state.Write(MotionPart::kTimeline, data);
    EvaluateFrame(data, camera);
}

void TremoluxCamClass::SetUp(BaseTag *, BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    // It moves files, so it waits for a set-up on the main thread; a clone for rendering is set up on another.
    if (GeIsMainThread()) ImportPresets();
    LoadPresetLibrary(data);
    ScanPresetCategories(String(), data);
    if (data->GetBool(kFirstRun)) {
        data->SetString(kUserPresetFolder, UserPresetFolder().GetString());
        data->SetLong(kCategory, 0);
        CollectCategoryPresets(data);
        data->SetLong(kRememberedCategory, sorted_names_.empty() ? -1 : 0);
        data->SetLong(kRememberedPreset, presets_.empty() ? kPresetCustom : 0);
        if (ResolveObject(*data, kInputCamera, doc) != camera) ApplyFirstPreset(data);
    }
    camera->SetParameter(DescLevel(ID_BASEOBJECT_USECOLOR), GeData(kUseColorAlways), DESCFLAGS_SET_0);
    camera->SetParameter(DescLevel(ID_BASEOBJECT_COLOR), GeData(CameraColor()), DESCFLAGS_SET_0);
    if (data->GetBool(kRecheckPreset)) CheckRememberedPreset(data);

    data->SetBool(kFirstRun, FALSE);
    data->SetBool(kRecheckPreset, FALSE);
    ResetSimulation(data, camera, doc);
    data->SetReal(kLastFrame, kNoFrame);
    ParseCustomTrigger(data);
    ParseCustomTriggerTwin(data);
}

// A new tag is the first preset of the first category.
void TremoluxCamClass::ApplyFirstPreset(BaseContainer *data) {
    if (presets_.empty()) {
        CopyPreset(BaseContainer(), data);
        SelectNoPreset(data);
        return;
    }
    const BaseContainer preset = presets_[0].contents;
    if (!preset.GetString(kPresetName).Content()) {
        CopyPreset(preset, data);
        data->SetBool(kSettingsChanged, TRUE);
        SelectNoPreset(data);
        return;
    }
    data->SetLong(kPreset, 0);
    ApplyPreset(data, preset);
    data->SetReal(kOverallScale, 1.0);
}
