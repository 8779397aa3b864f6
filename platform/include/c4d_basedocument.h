// Scenes: objects, time, selection, undo and evaluation.
#pragma once

#include "c4d_basedraw.h"

class BaseDocument : public BaseList2D {
  public:
    // Live.
    BaseContainer *GetSettingsInstance(LONG type);

    BaseObject *GetFirstObject();
    // The document owns the object. It goes after `pred`, else under `parent` as its first child, else to the top of
    // the scene. checknames makes its name unique.
    void InsertObject(BaseObject *object, BaseObject *parent, BaseObject *pred, Bool checknames = FALSE);
    BaseObject *GetActiveObject();
    // SELECTION_; NULL with SELECTION_NEW deselects all.
    void SetActiveObject(BaseObject *object, LONG mode = SELECTION_NEW);
    void SetActiveTag(BaseTag *tag, LONG mode = SELECTION_NEW);

    BaseTime GetTime() const;
    // No evaluation.
    void SetTime(const BaseTime &time);
    LONG GetFps() const;
    BaseTime GetMinTime() const;
    BaseTime GetMaxTime() const;

    // One step of the user's undo list. UNDOTYPE_NEW is added after the insertion, everything else before the change.
    Bool StartUndo();
    Bool EndUndo();
    Bool AddUndo(UNDOTYPE type, void *data);

    // NULL in a document without views.
    BaseDraw *GetActiveBaseDraw();

    // Evaluates the scene at the document's time. `thread` is NULL on the main thread.
    Bool ExecutePasses(BaseThread *thread, Bool animation, Bool expressions, Bool caches, BUILDFLAGS flags);

  private:
    BaseDocument();
    ~BaseDocument();
};
