#pragma once

#include "c4d_basedocument.h"
#include "c4d_nodedata.h"

class TagData : public NodeData {
  public:
    virtual Bool Draw(BaseTag *tag, BaseObject *op, BaseDraw *bd, BaseDrawHelp *bh);
    // `op` carries the tag; `doc` is the evaluated document, which may be a clone. May run off the main thread.
    virtual EXECUTIONRESULT Execute(BaseTag *tag, BaseDocument *doc, BaseObject *op, BaseThread *bt, LONG priority,
                                    EXECUTIONFLAGS flags);
    // FALSE: the tag runs at the priority of its priority field.
    virtual Bool AddToExecution(BaseTag *tag, PriorityList *list);
    virtual Bool GetModifiedObjects(BaseTag *tag, BaseDocument *doc, BaseObject *&op, Bool &pluginownedop,
                                    const Matrix &op_mg, Real lod, LONG flags, BaseThread *thread);
};

// `info` are TAG_ bits. A description name that is not empty is registered first. The host copies the icon.
Bool RegisterTagPlugin(LONG id, const String &str, LONG info, DataAllocator *g, const String &description,
                       BaseBitmap *icon, LONG disklevel);
