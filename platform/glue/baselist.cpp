// A node's place in its list, its container, name and tracks.
#include "c4d_basedocument.h"
#include "c4d_baselist.h"
#include "c4d_canimation.h"
#include "platform/glue/handles.h"

namespace {

const ListTable *Table() { return host_table->list; }

}  // namespace

GeListNode *GeListNode::GetNext() { return FromHost<GeListNode>(Table()->next(ToHost(this))); }
GeListNode *GeListNode::GetPred() { return FromHost<GeListNode>(Table()->previous(ToHost(this))); }
GeListNode *GeListNode::GetUp() { return FromHost<GeListNode>(Table()->up(ToHost(this))); }
GeListNode *GeListNode::GetDown() { return FromHost<GeListNode>(Table()->down(ToHost(this))); }
GeListNode *GeListNode::GetDownLast() { return FromHost<GeListNode>(Table()->down_last(ToHost(this))); }

void GeListNode::InsertBefore(GeListNode *node) { Table()->insert_before(ToHost(this), ToHost(node)); }
void GeListNode::InsertAfter(GeListNode *node) { Table()->insert_after(ToHost(this), ToHost(node)); }
void GeListNode::InsertUnder(GeListNode *node) { Table()->insert_under(ToHost(this), ToHost(node)); }
void GeListNode::InsertUnderLast(GeListNode *node) { Table()->insert_under_last(ToHost(this), ToHost(node)); }
void GeListNode::Remove() { Table()->remove(ToHost(this)); }

BaseDocument *GeListNode::GetDocument() { return FromHost<BaseDocument>(Table()->document(ToHost(this))); }

NodeData *GeListNode::GetNodeData(LONG index) const {
    if (index != 0) return NULL;
    // The host keeps what the allocator's thunk gave it: the object as a BaseData.
    return static_cast<NodeData *>(static_cast<BaseData *>(Table()->module_object(ToHost(this))));
}

void BaseList2D::Free(BaseList2D *&node) {
    if (node) Table()->release(ToHost(node));
    node = NULL;
}

LONG BaseList2D::GetAllBits() const { return Table()->bits(ToHost(this)); }

void BaseList2D::SetAllBits(LONG bits) { Table()->set_bits(ToHost(this), bits); }

BaseContainer BaseList2D::GetData() {
    const BaseContainer *data = GetDataInstance();
    return data ? *data : BaseContainer();
}

void BaseList2D::SetData(const BaseContainer &data, Bool add) {
    BaseContainer *own = GetDataInstance();
    if (!own) return;
    if (add)
        own->MergeContainer(data);
    else
        *own = data;
}

BaseContainer *BaseList2D::GetDataInstance() { return FromTable(Table()->data(ToHost(this))); }

String BaseList2D::GetName() {
    String name;
    Table()->name(ToHost(this), ToTable(&name));
    return name;
}

void BaseList2D::SetName(const String &name) { Table()->set_name(ToHost(this), ToTable(&name)); }

BaseList2D *BaseList2D::GetMain() const { return FromHost<BaseList2D>(Table()->main(ToHost(this))); }

CTrack *BaseList2D::GetFirstCTrack() { return FromHost<CTrack>(Table()->first_track(ToHost(this))); }

CTrack *BaseList2D::FindCTrack(const DescID &id) {
    return FromHost<CTrack>(Table()->find_track(ToHost(this), ToTable(&id)));
}

void BaseList2D::InsertTrackSorted(CTrack *track) { Table()->insert_track(ToHost(this), ToHost(track)); }
