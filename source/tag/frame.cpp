// One frame of motion, from the scene or from curves to the camera or to keys.
#include "engine/frame.h"

#include "ddoc.h"
#include "lib_description.h"
#include "ocamera.h"
#include "tag/alone.h"
#include "tag/hostmaths.h"
#include "tag/ids.h"
#include "tag/scene.h"
#include "tag/tremoluxcam.h"

void TremoluxCamClass::EvaluateFrame(BaseContainer *data, BaseObject *camera) {
    if (!data || !camera) return;
    BaseDocument *doc = camera->GetDocument();
    if (!doc) return;
    BaseObject *input = ResolveObject(*data, kInputCamera, doc);
    if (!input || input->GetType() != Ocamera) return;
    const BaseContainer *settings = doc->GetSettingsInstance(DOCUMENTSETTINGS_DOCUMENT);
    if (!settings || settings->GetIndexId(0) == NOTOK) return;

    const Real frames_per_second = settings->GetReal(DOCUMENT_FPS);
    const Real frame = engine::ExactFrame(TimeOf(doc->GetTime()), frames_per_second);
    if (frame == ReadMotion(data).memory.last_frame) return;
    SceneInput scene = ReadScene(*data, input, camera);
    scene.frame.frame = frame;
    scene.frame.frames_per_second = frames_per_second;

    engine::FrameMotion motion;
    if (!ComputeFrame(scene, data, &motion)) return;
    const Vector angles = ToHost(engine::ContinueAngles(frame, motion.angles, HostMaths(), &ReadMotion(data).memory));
    motion_.Write(MotionPart::kPreviousAngles, data);
    Matrix output = HPBToMatrix(angles, ROTATIONORDER_HPB);
    output.off = ToHost(motion.position);
    output.Normalize();
    WriteLens(camera, CAMERA_FOCUS, motion.focal_length);
    WriteLens(camera, CAMERAOBJECT_TARGETDISTANCE, motion.focus_distance);
    camera->SetMg(output);
}

Bool TremoluxCamClass::ComputeFrame(const SceneInput &scene, BaseContainer *data, engine::FrameMotion *motion) {
    MotionState &state = ReadMotion(data);
    const Alone alone(&is_alone_);
    RefreshTriggers(data);
    ReadMotion(data);
    operations_.HandOn(scene.focus, scene.frame.frames_per_second);
    return engine::StepFrame(state.settings, scene.frame, &operations_, &state.memory, motion);
}
