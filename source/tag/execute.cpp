// What happens each time the scene is evaluated: set-up, restart, plain step or jump.
#include <cmath>

#include "ddoc.h"
#include "engine/frame.h"
#include "lib_description.h"
#include "obase.h"
#include "ocamera.h"
#include "presets/folders.h"
#include "tag/guarded.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr Real kSameFrame = 0.000001;
constexpr Real kPlainStep = 0.001;
constexpr LONG kUseColorAlways = 2;

Vector CameraColor() { return Vector(1.0, 0.41667, 0.0); }

// Brings the tag's camera to where the input camera is, so that a restart has nothing of the old motion in it.
void CopyInput(BaseObject *input, BaseObject *camera) {
    if (input->GetType() != Ocamera) return;
    camera->SetMg(input->GetMg());
    WriteLens(camera, CAMERA_FOCUS, ReadLens(input, CAMERA_FOCUS));
    WriteLens(camera, CAMERAOBJECT_TARGETDISTANCE, ReadLens(input, CAMERAOBJECT_TARGETDISTANCE));
}

// A jolt in flight does not survive a jump.
void DropJolts(BaseContainer *data) {
    for (LONG id : {kJoltRotationPrevious, kJoltRotationEnvelope, kJoltPositionTarget, kJoltRotationTarget,
                    kJoltPositionPrevious, kJoltPositionEnvelope, kJoltRotationCarry, kJoltPositionCarry})
        data->SetReal(id, 0.0);
    data->SetVector(kJoltRotationFilterValue, Vector());
    data->SetVector(kJoltPositionFilterValue, Vector());
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
    const LONG start_frame = FrameOfTime(doc->GetMinTime(), rate);
    data->SetReal(kStartFrame, (Real)start_frame);
    const BaseTime time = doc->GetTime();
    const Real frame = (Real)FrameOfTime(time, rate);

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

    const Real seconds = time.GetDenominator() == 0.0 ? 0.0 : time.GetNumerator() / time.GetDenominator();
    const Real last_frame = data->GetReal(kLastFrame);
    if (frame == (Real)start_frame || seconds * settings->GetReal(DOCUMENT_FPS) < 0.0) {
        Restart(data, camera, input, doc);
    } else if (!(std::abs(frame - last_frame) < kSameFrame)) {
        if (std::abs(frame - last_frame - 1.0) <= kPlainStep)
            EvaluateFrame(data, camera);
        else
            Jump(frame, data, camera, doc);
        data->SetBool(kCatchingUp, FALSE);
    } else {
        return;
    }
    data->SetReal(kLastFrame, frame);
}

void TremoluxCamClass::Restart(BaseContainer *data, BaseObject *camera, BaseObject *input, BaseDocument *doc) {
    CopyInput(input, camera);
    ResetSimulation(data, camera, doc);
    data->SetReal(kLastFrame, kNoFrame);
    EvaluateFrame(data, camera);
}

// The clocks keep their run-up through the reset, so that the shake goes on as if the frame had been played to.
void TremoluxCamClass::Jump(Real frame, BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
    DropJolts(data);
    SimulateToFrame(frame, data, camera);
    const Clocks run_up = ReadClocks(*data);
    ResetSimulation(data, camera, doc);
    WriteClocks(run_up, data);
    data->SetBool(kCatchingUp, TRUE);
    data->SetReal(kLastFrame, kNoFrame);
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
