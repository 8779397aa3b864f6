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

}  // namespace

BaseContainer *BaseDocument::GetSettingsInstance(LONG type) { return FromTable(Table()->settings(ToHost(this), type)); }

BaseObject *BaseDocument::GetFirstObject() { return FromHost<BaseObject>(Table()->first_object(ToHost(this))); }

void BaseDocument::InsertObject(BaseObject *object, BaseObject *parent, BaseObject *pred, Bool checknames) {
    Table()->insert_object(ToHost(this), ToHost(object), ToHost(parent), ToHost(pred), checknames);
}

BaseObject *BaseDocument::GetActiveObject() { return FromHost<BaseObject>(Table()->active_object(ToHost(this))); }

void BaseDocument::SetActiveObject(BaseObject *object, LONG mode) {
    Table()->set_active_object(ToHost(this), ToHost(object), mode);
}

void BaseDocument::SetActiveTag(BaseTag *tag, LONG mode) { Table()->set_active_tag(ToHost(this), ToHost(tag), mode); }

BaseTime BaseDocument::GetTime() const { return GetOneTime(this, TABLE_DOCUMENT_TIME); }
BaseTime BaseDocument::GetMinTime() const { return GetOneTime(this, TABLE_DOCUMENT_MIN); }
BaseTime BaseDocument::GetMaxTime() const { return GetOneTime(this, TABLE_DOCUMENT_MAX); }
void BaseDocument::SetTime(const BaseTime &time) { Table()->set_time(ToHost(this), ToTable(&time)); }

LONG BaseDocument::GetFps() const { return Table()->fps(ToHost(this)); }

Bool BaseDocument::StartUndo() { return Table()->start_undo(ToHost(this)); }
Bool BaseDocument::EndUndo() { return Table()->end_undo(ToHost(this)); }

Bool BaseDocument::AddUndo(UNDOTYPE type, void *data) {
    return Table()->add_undo(ToHost(this), type, static_cast<HostAtom *>(data));
}

BaseDraw *BaseDocument::GetActiveBaseDraw() { return FromHost(Table()->active_view(ToHost(this))); }

Bool BaseDocument::ExecutePasses(BaseThread *thread, Bool animation, Bool expressions, Bool caches, BUILDFLAGS flags) {
    return Table()->execute_passes(ToHost(this), ToHost(thread), animation, expressions, caches, flags);
}
