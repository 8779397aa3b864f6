#include "tag/scene.h"

#include "lib_description.h"
#include "ocamera.h"
#include "tag/hostmaths.h"
#include "tag/ids.h"

LONG FrameOfTime(const BaseTime &time, Real frames_per_second) {
    return engine::FrameOfTime(TimeOf(time), frames_per_second);
}

BaseObject *ResolveObject(const BaseContainer &data, LONG link, BaseDocument *doc) {
    return data.GetObjectLink(link, doc);
}

Bool FollowsCamera(BaseObject *object, BaseObject *camera) {
    for (BaseObject *o = object; o; o = o->GetUp())
        if (o == camera) return TRUE;
    return FALSE;
}

BaseObject *ResolveAim(const BaseContainer &data, LONG link, BaseObject *camera) {
    BaseObject *object = camera ? ResolveObject(data, link, camera->GetDocument()) : NULL;
    return object && !FollowsCamera(object, camera) ? object : NULL;
}

Bool HasTarget(BaseTag *tag, const BaseContainer &data) {
    return ResolveAim(data, kTargetObject, tag->GetObject()) != NULL;
}

SceneInput ReadScene(const BaseContainer &data, BaseObject *input, BaseObject *camera) {
    SceneInput scene;
    const Matrix matrix = input->GetMg();
    scene.frame.position = FromHost(matrix.off);
    scene.frame.angles = FromHost(AnglesOf(matrix));
    scene.frame.focal_length = ReadLens(input, CAMERA_FOCUS);
    scene.frame.focus_distance = ReadLens(input, CAMERAOBJECT_TARGETDISTANCE);
    BaseObject *target = ResolveAim(data, kTargetObject, camera);
    scene.frame.has_target = target != NULL;
    if (target) scene.frame.target = FromHost(target->GetMg().off);
    scene.focus = ResolveAim(data, kFocusObject, camera);
    scene.frame.has_focus_object = scene.focus != NULL;
    if (scene.focus)
        scene.frame.focus_object = scene.focus == target ? scene.frame.target : FromHost(scene.focus->GetMg().off);
    return scene;
}

Real ReadLens(BaseObject *camera, LONG parameter) {
    GeData value;
    return camera->GetParameter(DescLevel(parameter), value, DESCFLAGS_GET_0) ? value.GetReal() : 0.0;
}

void WriteLens(BaseObject *camera, LONG parameter, Real value) {
    camera->SetParameter(DescLevel(parameter), GeData(value), DESCFLAGS_SET_0);
}
