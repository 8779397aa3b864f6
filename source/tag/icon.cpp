// The tag's icon tells whether its motion is live, in keys, or without a camera to follow.
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

Bool TremoluxCamClass::ShowIcon(GetCustomIconData *icon, BaseTag *tag, const BaseContainer &data) {
    const Bool has_input = ResolveObject(data, kInputCamera, tag->GetDocument()) != NULL;
    const CHAR *const file = !has_input             ? "Tremolux_Cam_Icon_Empty.png"
                             : data.GetBool(kBaked) ? "Tremolux_Cam_Icon_Baked.png"
                                                    : "Tremolux_Cam_Icon.png";
    if (!icon->dat) return FALSE;
    BaseBitmap::Free(icon_);
    icon_ = BaseBitmap::Alloc();
    if (!icon_ || icon_->Init(GeGetPluginPath() + Filename("res") + Filename(file)) != IMAGERESULT_OK) return FALSE;
    *icon->dat = IconData(icon_, 0, 0, icon_->GetBw(), icon_->GetBh());
    icon->filled = TRUE;
    return TRUE;
}
