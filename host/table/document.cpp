#include "host/animation/passes.h"
#include "host/animation/priority_list.h"
#include "host/application.h"
#include "host/table/internal.h"
#include "host/table/nodes.h"
#include "host/value/text.h"

namespace host {
namespace {

HostAtom *Create() {
    return Guarded<HostAtom *>(nullptr, []() -> HostAtom * { return new Document; });
}
TableContainer *Settings(HostAtom *atom, std::int32_t type) {
    return Guarded<TableContainer *>(nullptr, [=]() -> TableContainer * {
        Document *document = AsDocument(atom);
        return document != nullptr ? &document->Settings(type) : nullptr;
    });
}

HostAtom *FirstObject(const HostAtom *atom) {
    const Document *document = AsDocument(atom);
    return document != nullptr ? document->FirstObject() : nullptr;
}
void InsertObject(HostAtom *atom, HostAtom *object, HostAtom *parent, HostAtom *predecessor, std::int32_t check_names) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document == nullptr) return;
        document->InsertObject(AsObject(object), AsObject(parent), AsObject(predecessor), check_names != 0);
    });
}
HostAtom *SearchObject(HostAtom *atom, const TableString *name) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        const Document *document = AsDocument(atom);
        return document != nullptr ? document->FindObject(ToUtf8(name)) : nullptr;
    });
}

HostAtom *ActiveObject(HostAtom *atom) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        const Document *document = AsDocument(atom);
        return document != nullptr ? document->ActiveObject() : nullptr;
    });
}
HostAtom *ActiveTag(HostAtom *atom) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        const Document *document = AsDocument(atom);
        return document != nullptr ? document->ActiveTag() : nullptr;
    });
}

// Without the flag for children, an object below a selected one stays out.
bool HasActiveParent(const Object *object) {
    for (const Object *parent = object->Parent(); parent != nullptr; parent = parent->Parent()) {
        if ((parent->Bits() & kBitActive) != 0) return true;
    }
    return false;
}

void ActiveObjects(const HostAtom *atom, HostAtomArray *out, std::int32_t flags) {
    constexpr std::int32_t kWithChildren = 1;
    Guarded([=] {
        if (out == nullptr) return;
        out->atoms.clear();
        const Document *document = AsDocument(atom);
        if (document == nullptr) return;
        for (Object *object : document->ActiveObjects()) {
            if ((flags & kWithChildren) != 0 || !HasActiveParent(object)) out->atoms.push_back(object);
        }
    });
}
void SetActiveObject(HostAtom *atom, HostAtom *object, std::int32_t mode) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document != nullptr && (object == nullptr || AsObject(object) != nullptr)) {
            document->SetActiveObject(AsObject(object), mode);
        }
    });
}
void SetActiveTag(HostAtom *atom, HostAtom *tag, std::int32_t mode) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document != nullptr && (tag == nullptr || AsTag(tag) != nullptr)) document->SetActiveTag(AsTag(tag), mode);
    });
}

// 0: there is no such time.
std::int32_t SettingOf(std::int32_t which) {
    switch (which) {
        case TABLE_DOCUMENT_TIME:
            return kDocumentTime;
        case TABLE_DOCUMENT_MIN:
            return kDocumentMinTime;
        case TABLE_DOCUMENT_MAX:
            return kDocumentMaxTime;
        case TABLE_DOCUMENT_LOOP_MIN:
            return kDocumentLoopMinTime;
        case TABLE_DOCUMENT_LOOP_MAX:
            return kDocumentLoopMaxTime;
        default:
            return 0;
    }
}
void GetTime(const HostAtom *atom, std::int32_t which, TableTime *out) {
    if (out == nullptr) return;
    const Document *document = AsDocument(atom);
    const std::int32_t setting = SettingOf(which);
    *out = document != nullptr && setting != 0 ? document->Settings().GetTime(setting) : TableTime{0, 1};
}
void SetTime(HostAtom *atom, std::int32_t which, const TableTime *time) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        const std::int32_t setting = SettingOf(which);
        if (document != nullptr && setting != 0 && time != nullptr) document->Settings().Set(setting, Data(*time));
    });
}
std::int32_t Fps(const HostAtom *atom) {
    const Document *document = AsDocument(atom);
    return document != nullptr ? document->Fps() : 0;
}
void SetFps(HostAtom *atom, std::int32_t fps) {
    Guarded([=] {
        if (Document *document = AsDocument(atom)) document->SetFps(fps);
    });
}

std::int32_t StartUndo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().Start() ? 1 : 0;
    });
}
std::int32_t EndUndo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().End() ? 1 : 0;
    });
}
std::int32_t AddUndo(HostAtom *atom, std::int32_t type, HostAtom *node) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().Add(type, AsNode(node)) ? 1 : 0;
    });
}

// An update follows, as after everything that a user does.
void QueueUpdate() {
    if (Application *application = Application::Current()) application->QueueEvent(0);
}
std::int32_t Undo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        if (document == nullptr || !document->Undo().Undo()) return 0;
        QueueUpdate();
        return 1;
    });
}
std::int32_t Redo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        if (document == nullptr || !document->Undo().Redo()) return 0;
        QueueUpdate();
        return 1;
    });
}
void FlushUndo(HostAtom *atom) {
    Guarded([=] {
        if (Document *document = AsDocument(atom)) document->Undo().Flush();
    });
}

std::int32_t RunPasses(HostAtom *atom, HostThread *, std::int32_t animation, std::int32_t expressions,
                       std::int32_t caches, std::int32_t flags) {
    return Guarded(0, [=] {
        return ExecutePasses(AsDocument(atom), animation != 0, expressions != 0, caches != 0, flags) ? 1 : 0;
    });
}
void AnimateObject(HostAtom *atom, HostAtom *node, const TableTime *time, std::int32_t) {
    Guarded([=] {
        if (AsDocument(atom) != nullptr && time != nullptr) Animate(AsNode(node), *time);
    });
}

HostView *ActiveView(HostAtom *atom) {
    Document *document = AsDocument(atom);
    return document != nullptr ? document->ActiveView() : nullptr;
}
std::int32_t Changed(const HostAtom *atom) {
    const Document *document = AsDocument(atom);
    return document != nullptr && document->Changed();
}
void SetChanged(HostAtom *atom) {
    if (Document *document = AsDocument(atom)) document->SetChanged();
}

HostAtom *ActiveDocument() {
    const Application *application = Application::Current();
    return application != nullptr ? application->ActiveDocument() : nullptr;
}
void InsertDocument(HostAtom *atom) {
    Guarded([=] {
        Application *application = Application::Current();
        if (application != nullptr && AsDocument(atom) != nullptr) application->InsertDocument(AsDocument(atom));
    });
}
void SetActiveDocument(HostAtom *atom) {
    Guarded([=] {
        Application *application = Application::Current();
        if (application != nullptr && AsDocument(atom) != nullptr) application->SetActiveDocument(AsDocument(atom));
    });
}
void KillDocument(HostAtom *atom) {
    // Also frees a document that the application does not show.
    if (AsDocument(atom) != nullptr) ListEntries()->release(atom);
}
void SetDocumentTime(HostAtom *atom, const TableTime *time) {
    Guarded([=] {
        Application *application = Application::Current();
        if (application == nullptr || AsDocument(atom) == nullptr || time == nullptr) return;
        application->SetDocumentTime(AsDocument(atom), *time);
    });
}

View *AsView(HostView *view) { return static_cast<View *>(view); }

// Whatever document the camera is in: a link to one that was deleted counts as none.
std::int32_t ViewHasCamera(HostView *view) { return view != nullptr && AsView(view)->HasCamera(); }
HostAtom *ViewSceneCamera(HostView *view, const HostAtom *document) {
    return view != nullptr ? AsView(view)->SceneCamera(AsDocument(document)) : nullptr;
}
void ViewSetSceneCamera(HostView *view, HostAtom *object, std::int32_t) {
    Guarded([=] {
        if (view != nullptr) AsView(view)->SetSceneCamera(AsObject(object));
    });
}
HostAtom *ViewEditorCamera(HostView *view) { return view != nullptr ? AsView(view)->EditorCamera() : nullptr; }

std::int32_t PriorityListAdd(HostPriorityList *list, HostAtom *node, std::int32_t priority, std::int32_t flags) {
    return Guarded(0, [=] { return list != nullptr && list->Add(AsNode(node), priority, flags) ? 1 : 0; });
}

const DocumentTable kEntries = {
    Create,        Settings,        FirstObject,        InsertObject,      SearchObject,   ActiveObject,
    ActiveTag,     ActiveObjects,   SetActiveObject,    SetActiveTag,      GetTime,        SetTime,
    Fps,           SetFps,          StartUndo,          EndUndo,           AddUndo,        Undo,
    Redo,          FlushUndo,       RunPasses,          AnimateObject,     ActiveView,     Changed,
    SetChanged,    ActiveDocument,  InsertDocument,     SetActiveDocument, KillDocument,   SetDocumentTime,
    ViewHasCamera, ViewSceneCamera, ViewSetSceneCamera, ViewEditorCamera,  PriorityListAdd};

}  // namespace

const DocumentTable *DocumentEntries() { return &kEntries; }

}  // namespace host
