#include "tag/cameraloader.h"

#include "lib_description.h"
#include "obase.h"
#include "tag/inputcamera.h"
#include "tag/parameters.h"
#include "tag/tremoluxcam.h"
#include "version.h"

namespace {

constexpr Real kModuleVersion = TREMOLUX_VERSION;
constexpr int kVersionNumbers[] = {TREMOLUX_VERSION_NUMBERS};
static_assert(kVersionNumbers[0] + kVersionNumbers[1] / 1000.0 == kModuleVersion,
              "Windows shows another version than the console");
const CHAR *const kName = "TremoluxCam";
const CHAR *const kIconFile = "Tremolux_Cam_Icon.png";

// By the host's version type and operating system; what is not listed stays empty in the banner.
const CHAR *const kVersionTypes[] = {"Prime",
                                     "Bodypaint",
                                     "Studio",
                                     "Visualize",
                                     "Broadcast",
                                     "Benchmark",
                                     "Updater",
                                     "Installer",
                                     "New Client",
                                     "Net Server 3",
                                     "Net Server Unlimited",
                                     "Unknown",
                                     "License Server"};
const CHAR *const kOperatingSystems[] = {"", "Windows", "OS X", "UNIX"};

template <LONG count>
const CHAR *NameOf(const CHAR *const (&names)[count], LONG code) {
    return code >= 0 && code < count ? names[code] : "";
}

String Banner() {
    return String("TremoluxCam V(") + RealToString(kModuleVersion) + "), " + LongToString(GetC4DVersion()) + " " +
           NameOf(kVersionTypes, (LONG)GeGetVersionType()) + ", " + NameOf(kOperatingSystems, (LONG)GeGetCurrentOS());
}

// The menu's command: a second camera with the tag on it, which makes the selected camera hand-held.
class TremoluxCommand : public CommandData {
  public:
    virtual Bool Execute(BaseDocument *doc);
};

Bool IsCamera(BaseObject *object) { return object && object->GetType() == Ocamera; }

// The camera that the host makes when the user wants one; NULL when it makes none.
BaseObject *CreateInputCamera(BaseDocument *doc) {
    BaseObject *before = doc->GetFirstObject();
    CallCommand(Ocamera);
    EventAdd();
    BaseObject *made = doc->GetFirstObject();
    if (made == before || !IsCamera(made)) return NULL;
    made->SetName(kInputCameraName);
    return made;
}

// The user's choice, or a new one where that is wanted; NULL for a tag without input.
BaseObject *ChooseInputCamera(BaseDocument *doc) {
    BaseObject *selected = doc->GetActiveObject();
    if (IsCamera(selected)) return selected;
    const GEMB_R answer = GeOutString(String("No camera selected, create a camera?"), GEMB_YESNO);
    return answer == GEMB_R_YES ? CreateInputCamera(doc) : NULL;
}

Bool TremoluxCommand::Execute(BaseDocument *doc) {
    if (!doc) return TRUE;
    StopAllThreads();
    doc->StartUndo();
    BaseObject *camera = BaseObject::Alloc(Ocamera);
    if (!camera) {
        doc->EndUndo();
        EventAdd();
        return TRUE;
    }
    BaseObject *input = ChooseInputCamera(doc);
    if (input && !CopyCamera(input, camera)) {
        BaseObject::Free(camera);
        return FALSE;
    }
    if (input) {
        NameInputCamera(input);
        input->SetParameter(DescLevel(ID_BASEOBJECT_USECOLOR), GeData((LONG)0), DESCFLAGS_SET_0);
    }
    doc->InsertObject(camera, NULL, NULL);
    camera->SetName(kName);
    BaseTag *tag = camera->MakeTag(kTremoluxCamId);
    if (tag) doc->AddUndo(UNDOTYPE_NEW, tag);
    doc->AddUndo(UNDOTYPE_NEW, camera);
    if (input) {
        BaseContainer *data = tag ? tag->GetDataInstance() : NULL;
        if (data) data->SetLink(kInputCamera, input);
        input->SetParameter(DescLevel(ID_BASEOBJECT_VISIBILITY_EDITOR), GeData((LONG)OBJECT_OFF), DESCFLAGS_SET_0);
    }
    doc->SetActiveObject(camera);
    if (tag) doc->SetActiveTag(tag);
    if (BaseDraw *view = doc->GetActiveBaseDraw()) view->SetSceneCamera(camera);
    doc->EndUndo();
    EventAdd();
    return TRUE;
}

}  // namespace

Bool RegisterTremoluxCam() {
    AutoAlloc<BaseBitmap> icon;
    if (!icon) return FALSE;
    if (icon->Init(GeGetPluginPath() + Filename("res") + Filename(kIconFile)) != IMAGERESULT_OK) return FALSE;
    GePrint(Banner());
    return RegisterTagPlugin(kTremoluxCamId, kName, TAG_VISIBLE | TAG_EXPRESSION, TremoluxCamClass::Alloc, kName, icon,
                             0);
}

Bool RegisterTremoluxCommand() {
    AutoBitmap icon(kIconFile);
    TremoluxCommand *command = gNew TremoluxCommand;
    if (!command) return FALSE;
    if (RegisterCommandPlugin(kTremoluxCommandId, kName, 0, icon, String(), command)) return TRUE;
    gDelete(command);
    return FALSE;
}
