#include "c4d_basedraw.h"
#include "platform/glue/handles.h"

Bool BaseDraw::HasCameraLink() { return host_table->document->view_has_camera(ToHost(this)); }

BaseObject *BaseDraw::GetSceneCamera(const BaseDocument *doc) {
    return FromHost<BaseObject>(host_table->document->view_scene_camera(ToHost(this), ToHost(doc)));
}

void BaseDraw::SetSceneCamera(BaseObject *camera, Bool animate) {
    host_table->document->view_set_scene_camera(ToHost(this), ToHost(camera), animate);
}

BaseObject *BaseDraw::GetEditorCamera() {
    return FromHost<BaseObject>(host_table->document->view_editor_camera(ToHost(this)));
}
