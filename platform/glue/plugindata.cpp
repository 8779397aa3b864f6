// The answers of the plug-in base classes: those of a plug-in that handles nothing itself.
#include "c4d_commanddata.h"
#include "c4d_tagdata.h"
#include "lib_description.h"

BaseData::BaseData() {}
BaseData::~BaseData() {}

void BaseData::Destructor() {
    BaseData *self = this;
    gDelete(self);
}

NodeData::NodeData() : private_link(NULL) {}
Bool NodeData::Init(GeListNode *) { return TRUE; }
void NodeData::Free(GeListNode *) {}
Bool NodeData::Read(GeListNode *, HyperFile *, LONG) { return TRUE; }
Bool NodeData::Write(GeListNode *, HyperFile *) { return TRUE; }
Bool NodeData::CopyTo(NodeData *, GeListNode *, GeListNode *, COPYFLAGS, AliasTrans *) { return TRUE; }
Bool NodeData::Message(GeListNode *, LONG, void *) { return TRUE; }
void NodeData::GetBubbleHelp(GeListNode *, String &) {}
BaseDocument *NodeData::GetDocument(GeListNode *) { return NULL; }
LONG NodeData::GetBranchInfo(GeListNode *, BranchInfo *, LONG, GETBRANCHINFO) { return 0; }
Bool NodeData::IsInstanceOf(const GeListNode *, LONG) const { return FALSE; }
Bool NodeData::GetDDescription(GeListNode *, Description *, DESCFLAGS_DESC &) { return FALSE; }
Bool NodeData::GetDParameter(GeListNode *, const DescID &, GeData &, DESCFLAGS_GET &) { return TRUE; }
Bool NodeData::SetDParameter(GeListNode *, const DescID &, const GeData &, DESCFLAGS_SET &) { return TRUE; }
Bool NodeData::GetDEnabling(GeListNode *, const DescID &, const GeData &, DESCFLAGS_ENABLE, const BaseContainer *) {
    return TRUE;
}
Bool NodeData::TranslateDescID(GeListNode *, const DescID &, DescID &, C4DAtom *&) { return FALSE; }
Bool NodeData::IsDocumentRelated(const GeListNode *, Bool &) const { return FALSE; }

Bool TagData::Draw(BaseTag *, BaseObject *, BaseDraw *, BaseDrawHelp *) { return TRUE; }
EXECUTIONRESULT TagData::Execute(BaseTag *, BaseDocument *, BaseObject *, BaseThread *, LONG, EXECUTIONFLAGS) {
    return EXECUTIONRESULT_OK;
}
Bool TagData::AddToExecution(BaseTag *, PriorityList *) { return FALSE; }
Bool TagData::GetModifiedObjects(BaseTag *, BaseDocument *, BaseObject *&, Bool &, const Matrix &, Real, LONG,
                                 BaseThread *) {
    return TRUE;
}

Bool CommandData::Execute(BaseDocument *) { return TRUE; }
Bool CommandData::ExecuteSubID(BaseDocument *, LONG) { return FALSE; }
Bool CommandData::ExecuteOptionID(BaseDocument *, LONG, LONG) { return FALSE; }
LONG CommandData::GetState(BaseDocument *) { return CMD_ENABLED; }
Bool CommandData::GetSubContainer(BaseDocument *, BaseContainer &) { return FALSE; }
Bool CommandData::RestoreLayout(void *) { return TRUE; }
Bool CommandData::Message(LONG, void *) { return TRUE; }
String CommandData::GetScriptName() { return String(); }
