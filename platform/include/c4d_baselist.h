// What all nodes of a document share: type, messages, parameters, place in a list, container, name and tracks. The
// classes are never made here: a pointer to one is the host's own handle.
#pragma once

#include "c4d_basebitmap.h"
#include "c4d_basecontainer.h"

// ---- Messages -----------------------------------------------------------------------------------------------------

enum {
    MSG_POINTS_CHANGED = 1,
    MSG_POLYGONS_CHANGED = 2,
    MSG_UPDATE = 5,
    MSG_SMALLUPDATE = 6,
    MSG_CHANGE = 7,  // to a node whose data was changed by code
    MSG_BASECONTAINER = 9,
    MSG_MULTI_DOCUMENTCLONED = 11,
    MSG_MULTI_DOCUMENTIMPORTED = 13,  // DocumentImported
    MSG_FILTER = 14,
    MSG_DESCRIPTION_INITUNDO = 16,          // DescriptionInitUndo
    MSG_DESCRIPTION_CHECKUPDATE = 17,       // DescriptionCheckUpdate
    MSG_DESCRIPTION_COMMAND = 18,           // DescriptionCommand
    MSG_DESCRIPTION_POSTSETPARAMETER = 19,  // DescriptionPostSetValue
    MSG_DESCRIPTION_VALIDATE = 20,          // DescriptionValidate
    MSG_EDIT = 21,                          // double click
    MSG_MENUPREPARE = 22,                   // the BaseDocument
    MSG_DESCRIPTION_CHECKDRAGANDDROP = 26,
    MSG_DESCRIPTION_USERINTERACTION_END = 31,
    MSG_MOVE_FINISHED = 32,
    MSG_DOCUMENTINFO = 1001078,   // DocumentInfoData
    MSG_GETCUSTOMICON = 1001090,  // GetCustomIconData
    MSG_MATERIALDRAGANDDROP = 1001069,
    MSG_DRAGANDDROP = 1018756,  // DragAndDrop
    MSG_MOVE_START = 1021543,
    MSG_NOTIFY_EVENT = 1024639,
    MSG_DESCRIPTION_GETINLINEOBJECT = 200000169,
    MSG_ANIMATE = 300001037,
    MSG_DESCRIPTION_POPUP = 300001046
};

struct DocumentImported {
    BaseDocument *doc;
    LONG c4dversion;
    LONG fileformat;
    Bool gui_allowed;
};

// DocumentInfoData::type
enum {
    MSG_DOCUMENTINFO_TYPE_SETACTIVE = 1000,
    MSG_DOCUMENTINFO_TYPE_LOAD = 1001,
    MSG_DOCUMENTINFO_TYPE_MERGE = 1002,
    MSG_DOCUMENTINFO_TYPE_BEFOREMERGE = 1003,
    MSG_DOCUMENTINFO_TYPE_SAVE_BEFORE = 1004,
    MSG_DOCUMENTINFO_TYPE_SAVE_AFTER = 1005,
    MSG_DOCUMENTINFO_TYPE_SAVEPROJECT_BEFORE = 1006,
    MSG_DOCUMENTINFO_TYPE_SAVEPROJECT_AFTER = 1007,
    MSG_DOCUMENTINFO_TYPE_REMOVE = 1008,
    MSG_DOCUMENTINFO_TYPE_TOOL_CHANGED = 1009,
    MSG_DOCUMENTINFO_TYPE_OBJECT_INSERT = 1010,
    MSG_DOCUMENTINFO_TYPE_TAG_INSERT = 1011,
    MSG_DOCUMENTINFO_TYPE_MATERIAL_INSERT = 1012,
    MSG_DOCUMENTINFO_TYPE_UNDO = 1013,
    MSG_DOCUMENTINFO_TYPE_REDO = 1014,
    MSG_DOCUMENTINFO_TYPE_PASTE = 1015,
    MSG_DOCUMENTINFO_TYPE_COPY = 1016
};

// Broadcast to all nodes.
struct DocumentInfoData {
    LONG type;
    LONG fileformat;
    BaseDocument *doc;
    Filename filename;
    BaseList2D *bl;
    Bool gui_allowed;
    void *data;
};

// Answer with dat->bmp and its rectangle, and filled = TRUE. The bitmap stays the node's and must live on.
struct GetCustomIconData {
    IconData *dat;
    Bool filled;
};

// DragAndDrop::flags
enum {
    DRAGANDDROP_FLAG_RECEIVE = 1,
    DRAGANDDROP_FLAG_DROP = 2,
    DRAGANDDROP_FLAG_ACCEPT = 4,
    DRAGANDDROP_FLAG_MSGVALID = 8,
    DRAGANDDROP_FLAG_FORBID = 16,
    DRAGANDDROP_FLAG_SOURCE = 32,
    DRAGANDDROP_FLAG_BEFORE = 64,
    DRAGANDDROP_FLAG_AFTER = 128,
    DRAGANDDROP_FLAG_LEFT = 256,
    DRAGANDDROP_FLAG_RIGHT = 512
};
// DragAndDrop::type
enum {
    DRAGTYPE_FILES = 1,
    DRAGTYPE_ICON = 4,
    DRAGTYPE_MANAGER = 5,
    DRAGTYPE_COMMAND = 6,
    DRAGTYPE_CMDPALETTE = 7,
    DRAGTYPE_DESCID = 113,
    DRAGTYPE_ATOMARRAY = 201,  // data: AtomArray
    DRAGTYPE_FILENAME_IMAGE = 202,
    DRAGTYPE_RGB = 203,
    DRAGTYPE_FILENAME_SCENE = 204,
    DRAGTYPE_FILENAME_OTHER = 205
};

struct DragAndDrop {
    BaseDocument *doc;
    C4DAtom *sender;
    ULONG flags;
    LONG type;
    void *data;
    LONG x, y;
    const BaseContainer *msg;
    LONG result;
};

// ---- Nodes --------------------------------------------------------------------------------------------------------

class C4DAtom {
  public:
    LONG GetType() const;
    // Own type or a base type.
    Bool IsInstanceOf(LONG id) const;

    // Synchronous.
    Bool Message(LONG type, void *data = NULL);

    Bool GetDescription(Description *description, DESCFLAGS_DESC flags);
    Bool GetParameter(const DescID &id, GeData &data, DESCFLAGS_GET flags);
    Bool SetParameter(const DescID &id, const GeData &data, DESCFLAGS_SET flags);

    // Says that it was changed.
    void SetDirty(DIRTYFLAGS flags);

  private:
    C4DAtom();
    ~C4DAtom();

    friend class C4DAtomGoal;
};

// What a link can point to.
class C4DAtomGoal : public C4DAtom {
  private:
    C4DAtomGoal();
    ~C4DAtomGoal();

    friend class GeListNode;
};

class GeListNode : public C4DAtomGoal {
  public:
    // NULL at the top.
    GeListNode *GetUp();

    // NULL for a free node.
    BaseDocument *GetDocument();

  private:
    GeListNode();
    ~GeListNode();

    friend class BaseList2D;
    friend class CKey;
};

class BaseList2D : public GeListNode {
  public:
    // Live: writing sends no message.
    BaseContainer *GetDataInstance();

    String GetName();
    void SetName(const String &name);

    CTrack *GetFirstCTrack();
    CTrack *FindCTrack(const DescID &id);
    // The node owns the track afterwards.
    void InsertTrackSorted(CTrack *track);

  private:
    BaseList2D();
    ~BaseList2D();

    friend class BaseObject;
    friend class BaseTag;
    friend class BaseDocument;
    friend class CTrack;
    friend class CCurve;
};

// Pointers to nodes; owns none of them.
class AtomArray {
  public:
    LONG GetCount() const;
    // NULL out of range.
    C4DAtom *GetIndex(LONG index) const;

  private:
    AtomArray();
    ~AtomArray();
};

// ---- Links --------------------------------------------------------------------------------------------------------

// A weak reference to a node: it never keeps its target alive.
class BaseLink {
  public:
    // The target when it is in `doc` and is an `instanceof`; otherwise NULL.
    BaseList2D *GetLink(const BaseDocument *doc, LONG instanceof = 0) const;

  private:
    BaseLink();
    ~BaseLink();
};
