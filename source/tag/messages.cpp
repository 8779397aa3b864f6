#include "lib_description.h"
#include "presets/folders.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// After loading, the remembered preset may be gone, and the built-in folder is this machine's.
void AfterLoading(BaseContainer *data) {
    data->SetBool(kRecheckPreset, TRUE);
    data->SetFilename(kBuiltInPresetFolder, BuiltInPresetFolder());
}

}  // namespace

Bool TremoluxCamClass::Message(GeListNode *node, LONG type, void *message) {
    if (!node) return TRUE;
    BaseContainer *data = ((BaseTag *)node)->GetDataInstance();
    if (!data) return FALSE;
    if (type == MSG_DOCUMENTINFO && message) {
        if (((const DocumentInfoData *)message)->type == MSG_DOCUMENTINFO_TYPE_LOAD) AfterLoading(data);
    } else if (type == MSG_DESCRIPTION_POSTSETPARAMETER && message) {
        const DescID *changed = ((const DescriptionPostSetValue *)message)->descid;
        const LONG id = changed ? (*changed)[0].id : 0;
        if (id == kCustomTrigger) ParseCustomTrigger(data);
        if (id == kCustomTriggerTwin) ParseCustomTriggerTwin(data);
    }
    return TRUE;
}
