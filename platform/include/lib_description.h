// Parameters: their ids, what describes them, and the messages about them.
#pragma once

#include "c4d_baselist.h"

// ---- Data types and components ------------------------------------------------------------------------------------

enum {
    DTYPE_NONE = 0,
    DTYPE_CHILDREN = 0,
    DTYPE_GROUP = 1,
    DTYPE_COLOR = 3,
    DTYPE_SUBCONTAINER = 5,
    DTYPE_MULTIPLEDATA = 6,
    DTYPE_TEXTURE = 7,
    DTYPE_BUTTON = 8,
    DTYPE_DYNAMIC = 10,
    DTYPE_SEPARATOR = 11,
    DTYPE_STATICTEXT = 12,
    DTYPE_POPUP = 13,
    DTYPE_LONG = 15,
    DTYPE_REAL = 19,
    DTYPE_TIME = 22,
    DTYPE_VECTOR = 23,
    DTYPE_MATRIX = 25,
    DTYPE_STRING = 130,
    DTYPE_FILENAME = 131,
    DTYPE_BASELISTLINK = 133,
    DTYPE_BOOL = 400006001,
    DTYPE_NORMAL = 400006005
};

enum { VECTOR_X = 1000, VECTOR_Y = 1001, VECTOR_Z = 1002, COLOR_R = 1000, COLOR_G = 1001, COLOR_B = 1002 };

// ---- Ids ----------------------------------------------------------------------------------------------------------

struct DescLevel {
    LONG id, dtype, creator;

    DescLevel(LONG id_) : id(id_), dtype(0), creator(0) {}
    DescLevel(LONG id_, LONG dtype_, LONG creator_) : id(id_), dtype(dtype_), creator(creator_) {}
};

// The way to a parameter: itself, then the component. At most eight levels; more are dropped.
class DescID {
  public:
    DescID() : depth_(0) {}
    DescID(LONG id1) : depth_(0) { PushId(DescLevel(id1)); }
    DescID(const DescLevel &l1) : depth_(0) { PushId(l1); }
    DescID(const DescLevel &l1, const DescLevel &l2) : depth_(0) {
        PushId(l1);
        PushId(l2);
    }
    DescID(const DescLevel &l1, const DescLevel &l2, const DescLevel &l3) : depth_(0) {
        PushId(l1);
        PushId(l2);
        PushId(l3);
    }

    void PushId(const DescLevel &level);
    LONG GetDepth() const { return depth_; }
    // -1 is the last level; past the end a level of id 0.
    const DescLevel &operator[](LONG position) const;

    // All levels of this id lead `compare`: [903] is part of [903][1000]. Data types and creators count only where
    // both sides give one. `position` (may be NULL) gets the number of levels that agree.
    Bool IsPartOf(const DescID &compare, LONG *position) const;

  private:
    static const LONG kLevels = 8;

    LONG depth_;
    DescLevel levels_[kLevels] = {0, 0, 0, 0, 0, 0, 0, 0};
};

#define ID_USERDATA 700
// Parent that makes a group a tab.
#define DESCID_ROOT DescID(DescLevel(1000491, 0, 0))
#define DESCID_DYNAMICSUB DescLevel(ID_USERDATA, DTYPE_SUBCONTAINER, 0)

// ---- Settings of an entry -----------------------------------------------------------------------------------------

enum {
    DESC_NAME = 1,        // String
    DESC_SHORT_NAME = 2,  // String: label in the panel
    DESC_VERSION = 3,     // LONG
    DESC_CHILDREN = 4,    // BaseContainer
    DESC_MIN = 5,         // as the value, in its stored form, like all limits and steps
    DESC_MAX = 6,
    DESC_MINEX = 7,  // Bool: the limit itself is excluded
    DESC_MAXEX = 8,
    DESC_STEP = 9,
    DESC_ANIMATE = 10,    // DESC_ANIMATE_
    DESC_ASKOBJECT = 11,  // Bool
    DESC_UNIT = 12,       // DESC_UNIT_
    DESC_PARENTGROUP = 13,
    DESC_CYCLE = 14,    // BaseContainer: key = value, String = text
    DESC_HIDE = 15,     // Bool
    DESC_DEFAULT = 16,  // as the value; of a group: 1 = unfolded at first
    DESC_ACCEPT = 17,   // BaseContainer: type numbers as keys
    DESC_SEPARATORLINE = 18,
    DESC_REFUSE = 19,
    DESC_PARENTID = 20,
    DESC_CUSTOMGUI = 21,  // CUSTOMGUI_
    DESC_COLUMNS = 22,    // LONG: columns of a group
    DESC_LAYOUTGROUP = 23,
    DESC_REMOVEABLE = 24,
    DESC_GUIOPEN = 25,
    DESC_EDITABLE = 26,
    DESC_MINSLIDER = 27,  // range of the slider alone
    DESC_MAXSLIDER = 28,
    DESC_GROUPSCALEV = 29,
    DESC_SCALEH = 30,
    DESC_LAYOUTVERSION = 31,
    DESC_ALIGNLEFT = 32,
    DESC_FITH = 33,
    DESC_NEWLINE = 34,
    DESC_TITLEBAR = 35,
    DESC_CYCLEICONS = 36,
    DESC_CYCLESYMBOLS = 37,
    DESC_PARENT_COLLAPSE = 38,
    DESC_FORBID_INLINE_FOLDING = 39,
    DESC_FORBID_SCALING = 40,
    DESC_ANGULAR_XYZ = 41,
    DESC_PARENTMSG = 62,
    DESC_MATEDNOTEXT = 63,
    DESC_COLUMNSMATED = 64,
    DESC_SHADERLINKFLAG = 65,
    DESC_NOGUISWITCH = 66,
    DESC_TEMPDESCID = 998,
    DESC_IDENT = 999  // String: symbolic name
};

enum { DESC_ANIMATE_OFF = 0, DESC_ANIMATE_ON = 1, DESC_ANIMATE_MIX = 2 };
enum { DESC_VERSION_DEMO = 1, DESC_VERSION_XL = 2, DESC_VERSION_ALL = 3 };

// Stored as: number, whole number, fraction, radians, scene units, frames.
#define DESC_UNIT_REAL 1718773089     // frea
#define DESC_UNIT_LONG 1718382183     // flng
#define DESC_UNIT_PERCENT 1718641524  // fpct
#define DESC_UNIT_DEGREE 1717856114   // fdgr
#define DESC_UNIT_METER 1718445428    // fmet
#define DESC_UNIT_TIME 1717989997     // ffrm

enum {
    CUSTOMGUI_SUBDESCRIPTION = 0,
    CUSTOMGUI_BUTTON = 8,
    CUSTOMGUI_SEPARATOR = 11,
    CUSTOMGUI_STATICTEXT = 12,
    CUSTOMGUI_POPUP = 13,
    CUSTOMGUI_LONG = 15,
    CUSTOMGUI_REAL = 19,
    CUSTOMGUI_TIME = 22,
    CUSTOMGUI_VECTOR = 23,
    CUSTOMGUI_MATRIX = 25,
    CUSTOMGUI_STRING = 130,
    CUSTOMGUI_FILENAME = 131,
    CUSTOMGUI_REALSLIDER = 1000489,
    CUSTOMGUI_LONGSLIDER = 1000490,
    CUSTOMGUI_COLOR = 1000492,
    CUSTOMGUI_LINKBOX = 1009415,
    CUSTOMGUI_REALSLIDERONLY = 200000006,
    CUSTOMGUI_STRINGMULTI = 200000007,
    CUSTOMGUI_CYCLE = 200000180,
    CUSTOMGUI_CYCLEBUTTON = 200000255,
    CUSTOMGUI_PROGRESSBAR = 200000265,
    CUSTOMGUI_BOOL = 400006001
};

// ---- The description of a node ------------------------------------------------------------------------------------

class Description {
  public:
    static Description *Alloc();
    static void Free(Description *&description);

    // Replaces what is there by the registered description; FALSE when there is none.
    Bool LoadDescription(LONG id);

    // Adds an entry under the group, or replaces its settings.
    Bool SetParameter(const DescID &id, const BaseContainer &param, const DescID &groupid);

    // All entries in order, groups included. Free the handle in any case.
    void *BrowseInit();
    Bool GetNext(void *handle, const BaseContainer **bc, DescID &id, DescID &groupid);
    void BrowseFree(void *&handle);

    // NULL: everything is wanted; otherwise only that entry and what contains it.
    const DescID *GetSingleDescID();

  private:
    Description();
    ~Description();
};

// ---- Messages -----------------------------------------------------------------------------------------------------

// Before the user's edit.
struct DescriptionInitUndo {
    BaseDocument *doc;
    const DescID *descid;
};

// After the user's edit.
struct DescriptionCheckUpdate {
    BaseDocument *doc;
    LONG drawflags;
    const DescID *descid;
};

// A button was pressed, or a gadget that works like one: read id[0].id.
struct DescriptionCommand {
    DescID id;
    const BaseContainer *msg;
    DescriptionCustomGui *descgui;
};

// After SetParameter.
struct DescriptionPostSetValue {
    const DescID *descid;
};

struct DescriptionValidate {
    LONG flags;
};
