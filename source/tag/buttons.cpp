// What the panel's buttons do.
#include "lib_description.h"
#include "tag/parameters.h"
#include "tag/tremoluxcam.h"

void TremoluxCamClass::PressButton(LONG id, BaseTag *tag, BaseContainer *data) {
    if (BaseDocument *doc = tag->GetDocument()) doc->AddUndo(UNDOTYPE_CHANGE, tag);
    switch (id) {
        case kSavePreset:
            SaveUserPreset(data);
            break;
        case kDeletePreset:
            DeleteUserPreset(data);
            break;
        case kChoosePresetFolder:
            SetUserPresetFolder(data);
            break;
        case kResetPresetFolder:
            ResetUserPresetFolder(data);
            break;
        case kExportCurrent:
            ExportCurrentPreset(data);
            break;
        case kExportAll:
            ExportAllPresets();
            break;
        default:
            return;
    }
    // The lists that the panel shows may be others now.
    tag->Message(MSG_CHANGE);
    tag->SetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_DESCRIPTION);
    EventAdd();
}
