#include "c4d_basedraw.h"
#include "platform/glue/handles.h"

BaseObject *BaseDraw::GetSceneCamera(const BaseDocument *doc) {
    return FromHost<BaseObject>(host_table->document->view_scene_camera(ToHost(this), ToHost(doc)));
}

void BaseDraw::SetSceneCamera(BaseObject *camera, Bool animate) {
    host_table->document->view_set_scene_camera(ToHost(this), ToHost(camera), animate);
}
