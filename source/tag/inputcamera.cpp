// A camera becomes the tag's input: chosen in the panel, dropped onto the tag, looked through in turn.
#include "tag/inputcamera.h"

#include "lib_description.h"
#include "obase.h"
#include "obaselist.h"
#include "ocamera.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/step.h"
#include "tag/tremoluxcam.h"

const CHAR *const kInputCameraName = "TC Input Cam";

namespace {

const CHAR *const kUnnamedCamera = "Camera";

constexpr LONG kOwnParameters[] = {ID_BASELIST_NAME, ID_BASEOBJECT_VISIBILITY_EDITOR, ID_BASEOBJECT_VISIBILITY_RENDER,
                                   ID_BASEOBJECT_USECOLOR, ID_BASEOBJECT_COLOR};

Bool IsOwn(LONG id) {
    for (LONG own : kOwnParameters)
        if (own == id) return TRUE;
    return FALSE;
}

Bool IsMouseDown() {
    BaseContainer state;
    return GetInputState(BFM_INPUT_MOUSE, BFM_INPUT_MOUSELEFT, state) && state.GetLong(BFM_INPUT_VALUE);
}

// The one object that is dragged; NULL for anything else.
BaseObject *DraggedObject(const DragAndDrop &drag) {
    if (drag.type != DRAGTYPE_ATOMARRAY || !drag.data) return NULL;
    const AtomArray *list = (const AtomArray *)drag.data;
    C4DAtom *atom = list->GetCount() == 1 ? list->GetIndex(0) : NULL;
    return atom && atom->IsInstanceOf(Obase) ? (BaseObject *)atom : NULL;
}

}  // namespace

void NameInputCamera(BaseObject *input) {
    if (input->GetName() == kUnnamedCamera) input->SetName(kInputCameraName);
}

Bool CopyCamera(BaseObject *from, BaseObject *to) {
    AutoAlloc<Description> description;
    if (!description || !from->GetDescription(description, DESCFLAGS_DESC_0)) return FALSE;
    void *handle = description->BrowseInit();
    if (!handle) return FALSE;
    const BaseContainer *settings;
    DescID id, group;
    while (description->GetNext(handle, &settings, id, group)) {
        GeData value;
        if (!IsOwn(id[0].id) && from->GetParameter(id, value, DESCFLAGS_GET_0))
            to->SetParameter(id, value, DESCFLAGS_SET_0);
    }
    description->BrowseFree(handle);
    return TRUE;
}

void TremoluxCamClass::SetUpInputCamera(BaseTag *tag, BaseContainer *data) {
    BaseObject *camera = tag->GetObject();
    BaseObject *input = ResolveObject(*data, kInputCamera, tag->GetDocument());
    if (!camera || camera->GetType() != Ocamera) return;
    if (!input || input->GetType() != Ocamera || input == camera) return;
    UndoStep step(tag);
    step.Add(UNDOTYPE_CHANGE, camera);
    step.Add(UNDOTYPE_CHANGE_SMALL, input);
    NameInputCamera(input);
    CopyCamera(input, camera);
}

void TremoluxCamClass::TakeDrop(DragAndDrop *drag, BaseTag *tag, BaseContainer *data) {
    BaseObject *object = DraggedObject(*drag);
    if (!object || object == tag->GetObject()) return;
    drag->flags |= DRAGANDDROP_FLAG_ACCEPT;
    if (IsMouseDown()) return;
    UndoStep step(tag);
    if (object->GetType() != Ocamera) return;
    data->SetLink(kInputCamera, object);
    SetUpInputCamera(tag, data);
    EventAdd();
}

void TremoluxCamClass::ToggleViewCamera(BaseTag *tag, BaseContainer *data) {
    BaseDocument *doc = tag->GetDocument();
    BaseDraw *view = doc ? doc->GetActiveBaseDraw() : NULL;
    BaseObject *camera = tag->GetObject();
    BaseObject *input = doc ? ResolveObject(*data, kInputCamera, doc) : NULL;
    if (!view || !camera || !input) return;
    if (view->GetSceneCamera(doc) == input) {
        view->SetSceneCamera(camera);
        doc->SetActiveObject(camera);
        doc->SetActiveTag(tag);
    } else {
        doc->SetActiveObject(input);
        view->SetSceneCamera(input);
    }
    EventAdd();
}
