// A node's place in its list, its container, name and tracks.
#include "c4d_basedocument.h"
#include "c4d_baselist.h"
#include "c4d_canimation.h"
#include "platform/glue/handles.h"

namespace {

const ListTable *Table() { return host_table->list; }

}  // namespace

GeListNode *GeListNode::GetUp() { return FromHost<GeListNode>(Table()->up(ToHost(this))); }

BaseDocument *GeListNode::GetDocument() { return FromHost<BaseDocument>(Table()->document(ToHost(this))); }

BaseContainer *BaseList2D::GetDataInstance() { return FromTable(Table()->data(ToHost(this))); }

String BaseList2D::GetName() {
    String name;
    Table()->name(ToHost(this), ToTable(&name));
    return name;
}

void BaseList2D::SetName(const String &name) { Table()->set_name(ToHost(this), ToTable(&name)); }

CTrack *BaseList2D::GetFirstCTrack() { return FromHost<CTrack>(Table()->first_track(ToHost(this))); }

CTrack *BaseList2D::FindCTrack(const DescID &id) {
    return FromHost<CTrack>(Table()->find_track(ToHost(this), ToTable(&id)));
}

void BaseList2D::InsertTrackSorted(CTrack *track) { Table()->insert_track(ToHost(this), ToHost(track)); }
