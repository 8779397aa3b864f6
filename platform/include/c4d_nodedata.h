#pragma once

#include "c4d_basedata.h"
#include "c4d_baselist.h"

// The plug-in side of a node. The answers of this class are those of a node that handles nothing itself.
class NodeData : public BaseData {
  public:
    NodeData();

    // NULL in the constructor, set before Init.
    GeListNode *Get() const { return private_link; }

    // FALSE: the node is not made. A node's defaults are written here.
    virtual Bool Init(GeListNode *node);
    virtual void Free(GeListNode *node);
    virtual Bool Read(GeListNode *node, HyperFile *hf, LONG level);
    virtual Bool Write(GeListNode *node, HyperFile *hf);
    virtual Bool CopyTo(NodeData *dest, GeListNode *snode, GeListNode *dnode, COPYFLAGS flags, AliasTrans *trn);
    // Often called; unknown messages are answered TRUE. `data` may be NULL.
    virtual Bool Message(GeListNode *node, LONG type, void *data);
    virtual void GetBubbleHelp(GeListNode *node, String &str);
    virtual BaseDocument *GetDocument(GeListNode *node);
    virtual LONG GetBranchInfo(GeListNode *node, BranchInfo *info, LONG max, GETBRANCHINFO flags);
    virtual Bool IsInstanceOf(const GeListNode *node, LONG type) const;
    // FALSE: not handled, the host loads the registered description.
    virtual Bool GetDDescription(GeListNode *node, Description *description, DESCFLAGS_DESC &flags);
    // "Handled" is said by DESCFLAGS_GET_PARAM_GET and DESCFLAGS_SET_PARAM_SET, not by the answer.
    virtual Bool GetDParameter(GeListNode *node, const DescID &id, GeData &t_data, DESCFLAGS_GET &flags);
    virtual Bool SetDParameter(GeListNode *node, const DescID &id, const GeData &t_data, DESCFLAGS_SET &flags);
    virtual Bool GetDEnabling(GeListNode *node, const DescID &id, const GeData &t_data, DESCFLAGS_ENABLE flags,
                              const BaseContainer *itemdesc);
    virtual Bool TranslateDescID(GeListNode *node, const DescID &id, DescID &res_id, C4DAtom *&res_at);
    virtual Bool IsDocumentRelated(const GeListNode *node, Bool &docrelated) const;

  protected:
    GeListNode *private_link;

    friend struct NodeThunks;
};

// Makes the plug-in object of a new node, with gNew.
typedef NodeData *DataAllocator(void);
