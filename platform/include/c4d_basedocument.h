// Scenes: objects, time, selection, undo and evaluation.
#pragma once

#include "c4d_basedraw.h"

class BaseDocument : public BaseList2D {
  public:
    static BaseDocument *Alloc();
    static void Free(BaseDocument *&doc);

    using BaseList2D::GetData;
    using BaseList2D::SetData;
    // A copy of one group of settings; SetData writes over the present entries.
    BaseContainer GetData(DOCUMENTSETTINGS type);
    void SetData(DOCUMENTSETTINGS type, const BaseContainer &data);
    // Live.
    BaseContainer *GetSettingsInstance(LONG type);

    BaseObject *GetFirstObject();
    // The document owns the object. It goes after `pred`, else under `parent` as its first child, else to the top of
    // the scene. checknames makes its name unique.
    void InsertObject(BaseObject *object, BaseObject *parent, BaseObject *pred, Bool checknames = FALSE);
    // First one with that name, in the order of the hierarchy.
    BaseObject *SearchObject(const String &name);
    BaseObject *GetActiveObject();
    BaseTag *GetActiveTag();
    void GetActiveObjects(AtomArray &selection, GETACTIVEOBJECTFLAGS flags) const;
    // SELECTION_; NULL with SELECTION_NEW deselects all.
    void SetActiveObject(BaseObject *object, LONG mode = SELECTION_NEW);
    void SetActiveTag(BaseTag *tag, LONG mode = SELECTION_NEW);

    BaseTime GetTime() const;
    // No evaluation.
    void SetTime(const BaseTime &time);
    LONG GetFps() const;
    void SetFps(LONG fps);
    BaseTime GetMinTime() const;
    BaseTime GetMaxTime() const;
    BaseTime GetLoopMinTime() const;
    BaseTime GetLoopMaxTime() const;
    void SetMinTime(const BaseTime &time);
    void SetMaxTime(const BaseTime &time);
    void SetLoopMinTime(const BaseTime &time);
    void SetLoopMaxTime(const BaseTime &time);

    // One step of the user's undo list. UNDOTYPE_NEW is added after the insertion, everything else before the change.
    Bool StartUndo();
    Bool EndUndo();
    Bool AddUndo(UNDOTYPE type, void *data);
    Bool DoUndo(Bool multiple = FALSE);
    Bool DoRedo();
    void FlushUndoBuffer();

    // NULL in a document without views.
    BaseDraw *GetActiveBaseDraw();

    // Evaluates the scene at the document's time. `thread` is NULL on the main thread.
    Bool ExecutePasses(BaseThread *thread, Bool animation, Bool expressions, Bool caches, BUILDFLAGS flags);
    // The tracks of one node, no expressions.
    void AnimateObject(BaseList2D *node, const BaseTime &time, ANIMATEFLAGS flags);

    Bool GetChanged();
    void SetChanged();
    Filename GetDocumentName();
    Filename GetDocumentPath();
    void SetDocumentName(const Filename &name);
    void SetDocumentPath(const Filename &path);

  private:
    BaseDocument();
    ~BaseDocument();
};

BaseDocument *GetActiveDocument();
void InsertBaseDocument(BaseDocument *doc);
void SetActiveDocument(BaseDocument *doc);
void KillDocument(BaseDocument *&doc);
// Sets the time and evaluates, as the time slider does.
void SetDocumentTime(BaseDocument *doc, const BaseTime &time);

// What AddToExecution fills.
class PriorityList {
  public:
    Bool Add(GeListNode *node, LONG priority, EXECUTIONFLAGS flags);

  private:
    PriorityList();
    ~PriorityList();
};
