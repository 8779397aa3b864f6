#include "lib_description.h"
#include "presets/folders.h"
#include "tag/guarded.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// After loading, the remembered preset may be gone, and the built-in folder is this machine's.
void AfterLoading(BaseContainer *data) {
    data->SetBool(kRecheckPreset, TRUE);
    data->SetFilename(kBuiltInPresetFolder, BuiltInPresetFolder());
}

LONG FirstLevel(const DescID *id) { return id ? (*id)[0].id : 0; }

}  // namespace

Bool TremoluxCamClass::Message(GeListNode *node, LONG type, void *message) {
    if (!node) return TRUE;
    return Guarded<Bool>(FALSE, [&] { return Answer((BaseTag *)node, type, message); });
}

Bool TremoluxCamClass::Answer(BaseTag *tag, LONG type, void *message) {
    BaseContainer *data = tag->GetDataInstance();
    if (!data) return FALSE;
    // An undo may put another content there whose count of changes happens to be the same.
    motion_.Forget();
    if (type == MSG_EDIT) ToggleViewCamera(tag, data);
    if (!message) return TRUE;
    switch (type) {
        case MSG_GETCUSTOMICON:
            return ShowIcon((GetCustomIconData *)message, tag, *data);
        case MSG_DRAGANDDROP:
            TakeDrop((DragAndDrop *)message, tag, data);
            break;
        case MSG_DOCUMENTINFO:
            DocumentChanged(((const DocumentInfoData *)message)->type, data);
            break;
        case MSG_DESCRIPTION_POSTSETPARAMETER:
            ParameterChanged(FirstLevel(((const DescriptionPostSetValue *)message)->descid), tag, data);
            break;
        case MSG_DESCRIPTION_COMMAND:
            PressButton(((const DescriptionCommand *)message)->id[0].id, tag, data);
            break;
        default:
            break;
    }
    return TRUE;
}

void TremoluxCamClass::DocumentChanged(LONG type, BaseContainer *data) {
    if (type == MSG_DOCUMENTINFO_TYPE_LOAD) AfterLoading(data);
    if (type != MSG_DOCUMENTINFO_TYPE_UNDO && type != MSG_DOCUMENTINFO_TYPE_REDO) return;
    if (data->GetBool(kFirstRun)) return;
    ShowUserPresetFolder(data);
    CorrectSelection(data);
}

void TremoluxCamClass::ParameterChanged(LONG id, BaseTag *tag, BaseContainer *data) {
    switch (id) {
        case kInputCamera:
            SetUpInputCamera(tag, data);
            set_up_input_ = ResolveObject(*data, kInputCamera, tag->GetDocument());
            break;
        case kUserPresetFolder:
            TypeUserPresetFolder(data);
            break;
        case kCategory:
            ChooseCategory(data);
            break;
        case kPreset:
            ChoosePreset(data);
            break;
        case kCustomTrigger:
            ParseCustomTrigger(data);
            break;
        case kCustomTriggerTwin:
            ParseCustomTriggerTwin(data);
            break;
        default:
            NoticeEdit(id, data);
            break;
    }
}
