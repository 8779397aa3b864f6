// The border between a host and a plug-in module: plain C structs of function pointers.
//
// The module links against nothing of the host. The host hands a HostTable to `c4d_main`; every class of
// platform/include is a thin form over these entries. Both sides are compiled apart, so nothing here may depend on
// a compiler's object layout: plain structs, fixed-width numbers, opaque handles.
//
// Conventions that hold for every entry:
//   * An object that crosses the border is created and freed through the table (`general->allocate`), so that either
//     side may release what the other made.
//   * Texts are UTF-16 code units. Angles are radians, lengths scene units, times a fraction of seconds.
//   * A handle argument may be NULL: the entry then answers 0, FALSE, NULL or an empty value, never crashes.
//   * Bool is int32_t, 0 or 1. No entry throws.
//   * "out" strings must hold a valid (possibly empty) string; the entry releases it and puts its own in.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// What a table begins with: bytes that neither chance nor the version number of another interface's table makes.
#define HOST_TABLE_MARK \
    { 0x23, 0x88, 0x18, 0x7e, 0xe9, 0xe0, 0x89, 0x0b, 0x65, 0x5d, 0x2e, 0xab, 0x68, 0xbb, 0x60, 0x38 }
#define HOST_TABLE_MARK_BYTES 16
// Grows with every change of a struct below or of an entry: a module refuses every table but the one that it was built
// for.
#define HOST_TABLE_LAYOUT 4
// How many entries that layout has; table_layout.h holds them to it.
#define HOST_TABLE_ENTRIES 141
// The release of the plug-in interface that the table speaks: what `API_VERSION` is compared with.
#define HOST_TABLE_API_VERSION 14000

// ---- Values -------------------------------------------------------------------------------------------------------

typedef struct TableVector {
    double x, y, z;
} TableVector;
typedef struct TableMatrix {
    TableVector off, v1, v2, v3;
} TableMatrix;
typedef struct TableTime {
    double numerator, denominator;
} TableTime;

// Owns `text`, which general->allocate made; `text` is NULL for the empty string, and holds `length` units plus a 0.
typedef struct TableString {
    int32_t capacity, length;
    uint16_t *text;
    void *reserved;
} TableString;
typedef struct TableFilename {
    TableString path;
    void *reserved;
} TableFilename;

typedef struct HostContainer HostContainer;    // the entries behind a BaseContainer
typedef struct HostLink HostLink;              // an alias link (BaseLink)
typedef struct HostCustomData HostCustomData;  // a custom data type (SplineData, PriorityData)
typedef struct HostAtom HostAtom;              // every node: object, tag, track, curve, key, document, list head
typedef struct HostAtomArray HostAtomArray;
typedef struct HostAliasTrans HostAliasTrans;
typedef struct HostDescription HostDescription;
typedef struct HostHyperFile HostHyperFile;
typedef struct HostBrowseFiles HostBrowseFiles;
typedef struct HostBitmap HostBitmap;
typedef struct HostView HostView;  // BaseDraw
typedef struct HostThread HostThread;
typedef struct HostPriorityList HostPriorityList;

// A BaseContainer is this struct; `body` is made on the first write and may be NULL (an empty container).
typedef struct TableContainer {
    HostContainer *body;
    int32_t id;
    uint32_t dirty;  // grows with every write
} TableContainer;

// A GeData is this struct. `type` is a DA_ code (or a custom type number); whole number, real and the 64-bit number
// lie in the value itself, everything else behind the pointer, owned.
typedef struct TableData {
    int32_t type;
    union {
        int32_t whole;
        int64_t whole64;
        double real;
        void *pointer;  // DA_VOID: not owned
        TableVector *vector;
        TableMatrix *matrix;
        TableTime *time;
        TableString *string;
        TableFilename *filename;
        TableContainer *container;
        HostLink *link;
        HostCustomData *custom;
    } value;
} TableData;

// A parameter's id: up to eight levels, stored in place.
#define TABLE_DESC_LEVELS 8
typedef struct TableDescLevel {
    int32_t id, dtype, creator;
} TableDescLevel;
typedef struct TableDescID {
    int32_t depth;
    TableDescLevel level[TABLE_DESC_LEVELS];
} TableDescID;

typedef struct TableSplineKnot {
    TableVector position;
    int32_t flags, selected;
    TableVector tangent_left, tangent_right;  // relative to `position`
    int32_t interpolation;                    // 0 Bezier, 1 linear, 2 cubic
} TableSplineKnot;

// ---- What a module registers --------------------------------------------------------------------------------------

// The plug-in object of a node (a NodeData of the module) and of a command (a CommandData of the module).
typedef void ModuleObject;

// Calls into a registered node plug-in. `self` is what `allocate` returned.
typedef struct NodeCallbacks {
    ModuleObject *(*allocate)(void *registration);
    void (*destroy)(ModuleObject *self);
    void (*attach)(ModuleObject *self, HostAtom *node);  // after allocation, before `init`
    int32_t (*init)(ModuleObject *self, HostAtom *node);
    void (*free)(ModuleObject *self, HostAtom *node);
    int32_t (*read)(ModuleObject *self, HostAtom *node, HostHyperFile *file, int32_t level);
    int32_t (*write)(ModuleObject *self, HostAtom *node, HostHyperFile *file);
    int32_t (*copy_to)(ModuleObject *self, ModuleObject *destination, HostAtom *source_node, HostAtom *destination_node,
                       int32_t flags, HostAliasTrans *translation);
    int32_t (*message)(ModuleObject *self, HostAtom *node, int32_t type, void *data);
    int32_t (*get_description)(ModuleObject *self, HostAtom *node, HostDescription *description, int32_t *flags);
    int32_t (*get_parameter)(ModuleObject *self, HostAtom *node, const TableDescID *id, TableData *data,
                             int32_t *flags);
    int32_t (*set_parameter)(ModuleObject *self, HostAtom *node, const TableDescID *id, const TableData *data,
                             int32_t *flags);
    int32_t (*get_enabling)(ModuleObject *self, HostAtom *node, const TableDescID *id, const TableData *data,
                            int32_t flags, const TableContainer *settings);
} NodeCallbacks;

typedef struct TagRegistration {
    int32_t id, info, disk_level;
    const TableString *name;
    const TableString *description;  // the description's name; empty: none is registered
    HostBitmap *icon;                // the host keeps a copy; may be NULL
    void *registration;              // handed to `node.allocate`
    NodeCallbacks node;
    int32_t (*execute)(ModuleObject *self, HostAtom *tag, HostAtom *document, HostAtom *object, HostThread *thread,
                       int32_t priority, int32_t flags);
    int32_t (*add_to_execution)(ModuleObject *self, HostAtom *tag, HostPriorityList *list);
} TagRegistration;

typedef struct CommandRegistration {
    int32_t id, info;
    const TableString *name;
    const TableString *help;
    HostBitmap *icon;    // the host keeps a copy; may be NULL
    ModuleObject *self;  // the host's from now on, when the registration succeeds
    void (*destroy)(ModuleObject *self);
    int32_t (*execute)(ModuleObject *self, HostAtom *document);
    int32_t (*get_state)(ModuleObject *self, HostAtom *document);
} CommandRegistration;

// ---- Data of messages ---------------------------------------------------------------------------------------------
// `data` of a node message points to one of these, in the layout that a plug-in author's header declares.

typedef struct TableDescriptionInitUndo {
    HostAtom *document;
    const TableDescID *id;
} TableDescriptionInitUndo;
typedef struct TableDescriptionCheckUpdate {
    HostAtom *document;
    int32_t draw_flags;
    const TableDescID *id;
} TableDescriptionCheckUpdate;
typedef struct TableDescriptionCommand {
    TableDescID id;
    const TableContainer *message;
    void *gui;
} TableDescriptionCommand;
typedef struct TableDescriptionPostSetValue {
    const TableDescID *id;
} TableDescriptionPostSetValue;
typedef struct TableDescriptionValidate {
    int32_t flags;
} TableDescriptionValidate;
typedef struct TableDocumentImported {
    HostAtom *document;
    int32_t host_version, file_format, gui_allowed;
} TableDocumentImported;
typedef struct TableDocumentInfo {
    int32_t type, file_format;
    HostAtom *document;
    TableFilename filename;
    HostAtom *node;
    int32_t gui_allowed;
    void *data;
} TableDocumentInfo;
typedef struct TableIconData {
    HostBitmap *bitmap;
    int32_t x, y, w, h, flags;
} TableIconData;
typedef struct TableGetCustomIcon {
    TableIconData *icon;
    int32_t filled;
} TableGetCustomIcon;
typedef struct TableDragAndDrop {
    HostAtom *document;
    HostAtom *sender;
    uint32_t flags;
    int32_t type;
    void *data;
    int32_t x, y;
    const TableContainer *message;
    int32_t result;
} TableDragAndDrop;

// ---- The sub-tables -----------------------------------------------------------------------------------------------

// Which of an object's vectors `get_vector` means.
enum { TABLE_FROZEN_POSITION, TABLE_FROZEN_ROTATION, TABLE_REL_POSITION, TABLE_REL_ROTATION };

// Which of a document's times `get_time` means.
enum { TABLE_DOCUMENT_TIME, TABLE_DOCUMENT_MIN, TABLE_DOCUMENT_MAX };

typedef struct TableFileTime {
    uint16_t year, month, day, hour, minute, second;  // local
} TableFileTime;

#define TABLE(Name, part) typedef struct Name##Table {
#define ENTRY(answer, name, arguments, letters, rules) answer(*name) arguments;
#define END_TABLE(Name) \
    }                   \
    Name##Table;
#include "platform/table_entries.inc"

// The table itself. The mark and the two numbers stand first and never move: they are read before anything else is
// trusted. No part is NULL.
typedef struct HostTable {
    uint8_t mark[HOST_TABLE_MARK_BYTES];  // HOST_TABLE_MARK
    int32_t layout;                       // HOST_TABLE_LAYOUT
    int32_t api_version;                  // HOST_TABLE_API_VERSION
#define TABLE(Name, part) const Name##Table *part;
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
#include "platform/table_entries.inc"
} HostTable;

// The one entry of a module. Actions and results: C4DPL_ numbers of the plug-in interface.
typedef int32_t (*ModuleMain)(int32_t action, void *p1, void *p2, void *p3);

#ifdef __cplusplus
}
#endif
