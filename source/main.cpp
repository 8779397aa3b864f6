// What the host calls when it starts, ends and addresses the module.
#include "c4d.h"
#include "presets/cache.h"
#include "presets/folders.h"
#include "presets/leftout.h"
#include "presets/library.h"
#include "tag/cameraloader.h"

Bool PluginStart(void) {
    UserPresetFolder();  // for tags that other threads make first
    if (!RegisterTremoluxCommand()) return FALSE;
    return RegisterTremoluxCam();
}

void PluginEnd(void) {
    ForgetPresetLibrary();
    ForgetPresets();
    ForgetLeftOut();
    ForgetUserPresetFolder();
}

Bool PluginMessage(LONG id, void *) {
    switch (id) {
        case C4DPL_INIT_SYS:
            return resource.Init();  // without its resource the module must not start
        case C4DMSG_PRIORITY:
            return TRUE;
        default:
            return FALSE;
    }
}
