#include "c4d_basedocument.h"
#include "ddoc.h"
#include "platform/glue/handles.h"

namespace {

const DocumentTable *Table() { return host_table->document; }

BaseTime GetOneTime(const BaseDocument *doc, LONG which) {
    BaseTime time;
    Table()->get_time(ToHost(doc), which, ToTable(&time));
    return time;
}

void SetOneTime(BaseDocument *doc, LONG which, const BaseTime &time) {
    Table()->set_time(ToHost(doc), which, ToTable(&time));
}

}  // namespace

BaseDocument *BaseDocument::Alloc() { return FromHost<BaseDocument>(Table()->create()); }

void BaseDocument::Free(BaseDocument *&doc) {
    if (doc) host_table->list->release(ToHost(doc));
    doc = NULL;
}

BaseContainer BaseDocument::GetData(DOCUMENTSETTINGS type) {
    const BaseContainer *settings = GetSettingsInstance(type);
    return settings ? *settings : BaseContainer();
}

void BaseDocument::SetData(DOCUMENTSETTINGS type, const BaseContainer &data) {
    BaseContainer *settings = GetSettingsInstance(type);
    if (settings) settings->MergeContainer(data);
}

BaseContainer *BaseDocument::GetSettingsInstance(LONG type) { return FromTable(Table()->settings(ToHost(this), type)); }

BaseObject *BaseDocument::GetFirstObject() { return FromHost<BaseObject>(Table()->first_object(ToHost(this))); }

void BaseDocument::InsertObject(BaseObject *object, BaseObject *parent, BaseObject *pred, Bool checknames) {
    Table()->insert_object(ToHost(this), ToHost(object), ToHost(parent), ToHost(pred), checknames);
}

BaseObject *BaseDocument::SearchObject(const String &name) {
    return FromHost<BaseObject>(Table()->search_object(ToHost(this), ToTable(&name)));
}

BaseObject *BaseDocument::GetActiveObject() { return FromHost<BaseObject>(Table()->active_object(ToHost(this))); }

BaseTag *BaseDocument::GetActiveTag() { return FromHost<BaseTag>(Table()->active_tag(ToHost(this))); }

void BaseDocument::GetActiveObjects(AtomArray &selection, GETACTIVEOBJECTFLAGS flags) const {
    Table()->active_objects(ToHost(this), ToHost(&selection), flags);
}

void BaseDocument::SetActiveObject(BaseObject *object, LONG mode) {
    Table()->set_active_object(ToHost(this), ToHost(object), mode);
}

void BaseDocument::SetActiveTag(BaseTag *tag, LONG mode) { Table()->set_active_tag(ToHost(this), ToHost(tag), mode); }

BaseTime BaseDocument::GetTime() const { return GetOneTime(this, TABLE_DOCUMENT_TIME); }
BaseTime BaseDocument::GetMinTime() const { return GetOneTime(this, TABLE_DOCUMENT_MIN); }
BaseTime BaseDocument::GetMaxTime() const { return GetOneTime(this, TABLE_DOCUMENT_MAX); }
BaseTime BaseDocument::GetLoopMinTime() const { return GetOneTime(this, TABLE_DOCUMENT_LOOP_MIN); }
BaseTime BaseDocument::GetLoopMaxTime() const { return GetOneTime(this, TABLE_DOCUMENT_LOOP_MAX); }
void BaseDocument::SetTime(const BaseTime &time) { SetOneTime(this, TABLE_DOCUMENT_TIME, time); }
void BaseDocument::SetMinTime(const BaseTime &time) { SetOneTime(this, TABLE_DOCUMENT_MIN, time); }
void BaseDocument::SetMaxTime(const BaseTime &time) { SetOneTime(this, TABLE_DOCUMENT_MAX, time); }
void BaseDocument::SetLoopMinTime(const BaseTime &time) { SetOneTime(this, TABLE_DOCUMENT_LOOP_MIN, time); }
void BaseDocument::SetLoopMaxTime(const BaseTime &time) { SetOneTime(this, TABLE_DOCUMENT_LOOP_MAX, time); }

LONG BaseDocument::GetFps() const { return Table()->fps(ToHost(this)); }
void BaseDocument::SetFps(LONG fps) { Table()->set_fps(ToHost(this), fps); }

Bool BaseDocument::StartUndo() { return Table()->start_undo(ToHost(this)); }
Bool BaseDocument::EndUndo() { return Table()->end_undo(ToHost(this)); }

Bool BaseDocument::AddUndo(UNDOTYPE type, void *data) {
    return Table()->add_undo(ToHost(this), type, static_cast<HostAtom *>(data));
}

// One step at a time: several at once is only the host's own speed-up of repeated calls.
Bool BaseDocument::DoUndo(Bool) { return Table()->undo(ToHost(this)); }
Bool BaseDocument::DoRedo() { return Table()->redo(ToHost(this)); }
void BaseDocument::FlushUndoBuffer() { Table()->flush_undo(ToHost(this)); }

BaseDraw *BaseDocument::GetActiveBaseDraw() { return FromHost(Table()->active_view(ToHost(this))); }

Bool BaseDocument::ExecutePasses(BaseThread *thread, Bool animation, Bool expressions, Bool caches, BUILDFLAGS flags) {
    return Table()->execute_passes(ToHost(this), ToHost(thread), animation, expressions, caches, flags);
}

void BaseDocument::AnimateObject(BaseList2D *node, const BaseTime &time, ANIMATEFLAGS flags) {
    Table()->animate_object(ToHost(this), ToHost(node), ToTable(&time), flags);
}

Bool BaseDocument::GetChanged() { return Table()->changed(ToHost(this)); }
void BaseDocument::SetChanged() { Table()->set_changed(ToHost(this)); }

Filename BaseDocument::GetDocumentName() { return GetData(DOCUMENTSETTINGS_DOCUMENT).GetFilename(DOCUMENT_NAME); }
Filename BaseDocument::GetDocumentPath() { return GetData(DOCUMENTSETTINGS_DOCUMENT).GetFilename(DOCUMENT_PATH); }

void BaseDocument::SetDocumentName(const Filename &name) {
    BaseContainer *settings = GetSettingsInstance(DOCUMENTSETTINGS_DOCUMENT);
    if (settings) settings->SetFilename(DOCUMENT_NAME, name);
}

void BaseDocument::SetDocumentPath(const Filename &path) {
    BaseContainer *settings = GetSettingsInstance(DOCUMENTSETTINGS_DOCUMENT);
    if (settings) settings->SetFilename(DOCUMENT_PATH, path);
}

BaseDocument *GetActiveDocument() { return FromHost<BaseDocument>(Table()->active_document()); }
void InsertBaseDocument(BaseDocument *doc) { Table()->insert_document(ToHost(doc)); }
void SetActiveDocument(BaseDocument *doc) { Table()->set_active_document(ToHost(doc)); }

void KillDocument(BaseDocument *&doc) {
    if (doc) Table()->kill_document(ToHost(doc));
    doc = NULL;
}

void SetDocumentTime(BaseDocument *doc, const BaseTime &time) {
    Table()->set_document_time(ToHost(doc), ToTable(&time));
}

Bool PriorityList::Add(GeListNode *node, LONG priority, EXECUTIONFLAGS flags) {
    return Table()->priority_list_add(ToHost(this), ToHost(node), priority, flags);
}
