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
// Grows with every change of any struct below: a module refuses every table but the one that it was built for.
#define HOST_TABLE_LAYOUT 3
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
    int32_t reserved;
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
    int32_t id, info, disk_level, reserved;
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
    int32_t reserved;
    const TableDescID *id;
} TableDescriptionCheckUpdate;
typedef struct TableDescriptionCommand {
    TableDescID id;
    int32_t reserved;
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
    int32_t host_version, file_format, gui_allowed, reserved;
} TableDocumentImported;
typedef struct TableDocumentInfo {
    int32_t type, file_format;
    HostAtom *document;
    TableFilename filename;
    HostAtom *node;
    int32_t gui_allowed;
    int32_t reserved;
    void *data;
} TableDocumentInfo;
typedef struct TableIconData {
    HostBitmap *bitmap;
    int32_t x, y, w, h, flags, reserved;
} TableIconData;
typedef struct TableGetCustomIcon {
    TableIconData *icon;
    int32_t filled;
    int32_t reserved;
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
    int32_t reserved;
} TableDragAndDrop;

// ---- The sub-tables -----------------------------------------------------------------------------------------------

typedef struct GeneralTable {
    void *(*allocate)(int64_t bytes);  // cleared; NULL when out of memory or bytes < 0
    void *(*allocate_uncleared)(int64_t bytes);
    void *(*reallocate)(void *old, int64_t bytes);  // new bytes are not cleared
    void (*release)(void *memory);                  // NULL is fine

    int32_t (*register_tag)(const TagRegistration *registration);
    int32_t (*register_command)(const CommandRegistration *registration);
    int32_t (*register_description)(int32_t id, const TableString *name);

    int32_t (*host_version)(void);  // release times 1000 plus the update
    int32_t (*version_type)(void);
    int32_t (*operating_system)(void);
    int32_t (*is_main_thread)(void);
    double (*milliseconds)(void);  // since the host started

    void (*print)(const TableString *line);                          // one line in the console
    int32_t (*message_box)(const TableString *text, int32_t flags);  // GEMB_; answers GEMB_R_
    int32_t (*question)(const TableString *text);
    int32_t (*rename)(TableString *in_out_text);  // TRUE: the text was changed
    int32_t (*select_file)(int32_t file_type, int32_t mode, const TableString *title, const TableString *suffix,
                           TableFilename *in_out_name);
    int32_t (*open_web_page)(const TableString *address);
    int32_t (*show_in_finder)(const TableFilename *name, int32_t open);
    int32_t (*execute_file)(const TableFilename *name);
    void (*status_bar)(int32_t percent);
    void (*status_text)(const TableString *text);
    void (*status_spin)(void);
    void (*status_clear)(void);
    int32_t (*input_state)(int32_t device, int32_t channel, TableContainer *out_state);

    void (*stop_all_threads)(void);
    void (*event_add)(int32_t flags);
    void (*special_event_add)(int32_t id, uint64_t p1, uint64_t p2);
    int32_t (*draw_views)(int32_t flags, HostView *view);
    void (*call_command)(int32_t id);

    TableContainer *(*world_plugin_data)(int32_t id);  // NULL until something was set; live
    int32_t (*set_world_plugin_data)(int32_t id, const TableContainer *data, int32_t add);

    void (*path)(int32_t which, TableFilename *out);        // a C4D_PATH_ number; 0 = the application's folder
    int32_t (*load_resource)(const TableFilename *folder);  // FALSE: the folder is no usable resource folder
    void (*resource_string)(const TableFilename *folder, int32_t id, TableString *out);
} GeneralTable;

typedef struct MathTable {
    double (*noise3)(const TableVector *point);  // signed, [-1, 1]
    double (*noise4)(const TableVector *point, double time);
    void (*matrix_to_hpb)(const TableMatrix *matrix, int32_t order, TableVector *out);
    void (*hpb_to_matrix)(const TableVector *hpb, int32_t order, TableMatrix *out);
    void (*optimal_angle)(const TableVector *old_hpb, const TableVector *new_hpb, int32_t order, TableVector *out);
    // Value of an arithmetic expression ("1+2" is 3); FALSE when the text is none.
    int32_t (*parse)(const TableString *text, double *out);
} MathTable;

typedef struct DataTable {
    void (*copy)(TableData *destination, const TableData *source, HostAliasTrans *translation);  // destination: raw
    void (*release)(TableData *data);                                                            // leaves DA_NIL
    int32_t (*equal)(const TableData *a, const TableData *b);
    int32_t (*set_default)(TableData *data, int32_t type);  // FALSE for an unknown type; data must be valid
    void (*set_link)(TableData *data, HostAtom *target);    // makes it an alias link; data must be valid
} DataTable;

typedef struct ContainerTable {
    void (*copy)(TableContainer *destination, const TableContainer *source,
                 HostAliasTrans *translation);   // dest: valid
    void (*flush)(TableContainer *container);    // removes all entries; own id and dirty counter stay
    void (*release)(TableContainer *container);  // frees the body and leaves `body` NULL: the destructor's call
    int32_t (*count)(const TableContainer *container);
    // The first with that id, or NULL. To be read; a container or link in it may be changed.
    const TableData *(*find)(const TableContainer *container, int32_t id);
    TableData *(*live)(TableContainer *container, int32_t id);                     // the same, to be changed
    int32_t (*index_of)(const TableContainer *container, int32_t id);              // or -1
    int32_t (*id_at)(const TableContainer *container, int32_t index);              // or -1
    TableData *(*live_at)(TableContainer *container, int32_t index);               // or NULL; to be changed
    int32_t (*set)(TableContainer *container, int32_t id, const TableData *data);  // replaces or appends
    // The two commonest writes without a detour over a value; same effect as `set`.
    void (*set_real)(TableContainer *container, int32_t id, double value);
    void (*set_vector)(TableContainer *container, int32_t id, const TableVector *value);
    int32_t (*append)(TableContainer *container, int32_t id, const TableData *data);
    int32_t (*remove)(TableContainer *container, int32_t id);
    int32_t (*remove_at)(TableContainer *container, int32_t index);
    void (*sort)(TableContainer *container);
    int32_t (*equal)(const TableContainer *a, const TableContainer *b);
    int32_t (*get_parameter)(const TableContainer *container, const TableDescID *id, TableData *out);
    int32_t (*set_parameter)(TableContainer *container, const TableDescID *id, const TableData *data);
} ContainerTable;

typedef struct LinkTable {
    HostLink *(*create)(void);
    void (*release)(HostLink *link);
    HostLink *(*clone)(const HostLink *link, HostAliasTrans *translation);
    HostAtom *(*resolve)(const HostLink *link, const HostAtom *document, int32_t instance_of);  // 0: any type
    HostAtom *(*resolve_anywhere)(const HostLink *link);
    void (*set)(HostLink *link, HostAtom *target);
    HostAliasTrans *(*create_translation)(void);
    void (*release_translation)(HostAliasTrans *translation);
    int32_t (*init_translation)(HostAliasTrans *translation, HostAtom *document);
    void (*translate)(HostAliasTrans *translation, int32_t connect_old_goals);
} LinkTable;

typedef struct CustomDataTable {
    HostCustomData *(*create)(int32_t type);  // NULL for an unknown type, or when out of memory
    void (*release)(HostCustomData *data);
    int32_t (*type_of)(const HostCustomData *data);
    void (*default_settings)(int32_t data_type, TableContainer *out);  // GetCustomDataTypeDefault

    int32_t (*spline_knot_count)(const HostCustomData *spline);
    TableSplineKnot *(*spline_knot)(const HostCustomData *spline, int32_t index);  // live until a knot comes or goes
    int32_t (*spline_insert_knot)(HostCustomData *spline, double x, double y, int32_t flags);
    int32_t (*spline_delete_knot)(HostCustomData *spline, int32_t index);
    void (*spline_delete_all)(HostCustomData *spline);
    void (*spline_point)(const HostCustomData *spline, double x, TableVector *out);
    int32_t (*spline_linear)(HostCustomData *spline, int32_t points);  // knots on the straight line 0..1

    int32_t (*priority_set)(HostCustomData *priority, int32_t value_id, const TableData *value);
    void (*priority_get)(const HostCustomData *priority, int32_t value_id, TableData *out);
} CustomDataTable;

typedef struct AtomTable {
    int32_t (*type)(const HostAtom *atom);
    int32_t (*classification)(const HostAtom *atom);  // Obase, Tbase, CTbase, ...
    int32_t (*is_instance_of)(const HostAtom *atom, int32_t type);
    int32_t (*message)(HostAtom *atom, int32_t type, void *data);
    int32_t (*multi_message)(HostAtom *atom, int32_t route, int32_t type, void *data);
    HostAtom *(*clone)(HostAtom *atom, int32_t flags, HostAliasTrans *translation);
    int32_t (*copy_to)(HostAtom *atom, HostAtom *destination, int32_t flags, HostAliasTrans *translation);
    int32_t (*get_description)(HostAtom *atom, HostDescription *description, int32_t flags);
    int32_t (*get_parameter)(HostAtom *atom, const TableDescID *id, TableData *out, int32_t flags);
    int32_t (*set_parameter)(HostAtom *atom, const TableDescID *id, const TableData *data, int32_t flags);
    int32_t (*get_enabling)(HostAtom *atom, const TableDescID *id, const TableData *data, int32_t flags,
                            const TableContainer *settings);
    uint32_t (*dirty)(const HostAtom *atom, int32_t flags);
    void (*set_dirty)(HostAtom *atom, int32_t flags);

    HostAtomArray *(*create_array)(void);
    void (*release_array)(HostAtomArray *array);
    int32_t (*array_count)(const HostAtomArray *array);
    HostAtom *(*array_at)(const HostAtomArray *array, int32_t index);
    int32_t (*array_append)(HostAtomArray *array, HostAtom *atom);
    int32_t (*array_remove)(HostAtomArray *array, HostAtom *atom);
    void (*array_flush)(HostAtomArray *array);
} AtomTable;

typedef struct ListTable {
    HostAtom *(*next)(const HostAtom *node);
    HostAtom *(*previous)(const HostAtom *node);
    HostAtom *(*up)(const HostAtom *node);
    HostAtom *(*down)(const HostAtom *node);
    HostAtom *(*down_last)(const HostAtom *node);
    void (*insert_before)(HostAtom *node, HostAtom *sibling);
    void (*insert_after)(HostAtom *node, HostAtom *sibling);
    void (*insert_under)(HostAtom *node, HostAtom *parent);  // as its first child
    void (*insert_under_last)(HostAtom *node, HostAtom *parent);
    void (*remove)(HostAtom *node);  // the caller owns it afterwards
    HostAtom *(*document)(const HostAtom *node);
    ModuleObject *(*module_object)(const HostAtom *node);  // the NodeData of a plug-in node
    void (*release)(HostAtom *node);                       // removes it first where it is in a list

    HostAtom *(*main)(const HostAtom *node);  // what a tag, track, curve or key belongs to
    TableContainer *(*data)(HostAtom *node);  // the live container
    void (*name)(const HostAtom *node, TableString *out);
    void (*set_name)(HostAtom *node, const TableString *name);
    int32_t (*bits)(const HostAtom *node);
    void (*set_bits)(HostAtom *node, int32_t bits);
    HostAtom *(*first_track)(HostAtom *node);
    HostAtom *(*find_track)(HostAtom *node, const TableDescID *id);
    void (*insert_track)(HostAtom *node, HostAtom *track);  // the node owns it afterwards
} ListTable;

// Which of an object's vectors `get_vector` and `set_vector` mean.
enum {
    TABLE_ABS_POSITION,
    TABLE_ABS_SCALE,
    TABLE_ABS_ROTATION,
    TABLE_FROZEN_POSITION,
    TABLE_FROZEN_SCALE,
    TABLE_FROZEN_ROTATION,
    TABLE_REL_POSITION,
    TABLE_REL_SCALE,
    TABLE_REL_ROTATION
};

typedef struct ObjectTable {
    HostAtom *(*create)(int32_t type);  // NULL for an unknown type
    void (*get_vector)(const HostAtom *object, int32_t which, TableVector *out);
    void (*set_vector)(HostAtom *object, int32_t which, const TableVector *value);
    void (*local_matrix)(const HostAtom *object, TableMatrix *out);
    void (*set_local_matrix)(HostAtom *object, const TableMatrix *matrix);
    void (*global_matrix)(const HostAtom *object, TableMatrix *out);
    void (*set_global_matrix)(HostAtom *object, const TableMatrix *matrix);
    void (*parent_matrix)(const HostAtom *object, TableMatrix *out);
    void (*copy_matrix)(const HostAtom *object, HostAtom *destination);
    int32_t (*rotation_order)(const HostAtom *object);
    void (*set_rotation_order)(HostAtom *object, int32_t order);
    HostAtom *(*first_tag)(const HostAtom *object);
    HostAtom *(*tag)(const HostAtom *object, int32_t type, int32_t number);
    void (*insert_tag)(HostAtom *object, HostAtom *tag, HostAtom *predecessor);  // NULL: first of all
    HostAtom *(*create_tag)(int32_t type);  // free; NULL when the type is unknown or its Init failed
    HostAtom *(*tag_object)(const HostAtom *tag);
} ObjectTable;

// Which of a document's times `get_time` and `set_time` mean.
enum { TABLE_DOCUMENT_TIME, TABLE_DOCUMENT_MIN, TABLE_DOCUMENT_MAX, TABLE_DOCUMENT_LOOP_MIN, TABLE_DOCUMENT_LOOP_MAX };

typedef struct DocumentTable {
    HostAtom *(*create)(void);
    TableContainer *(*settings)(HostAtom *document, int32_t type);  // live
    HostAtom *(*first_object)(const HostAtom *document);
    void (*insert_object)(HostAtom *document, HostAtom *object, HostAtom *parent, HostAtom *predecessor,
                          int32_t check_names);
    HostAtom *(*search_object)(HostAtom *document, const TableString *name);
    HostAtom *(*active_object)(HostAtom *document);
    HostAtom *(*active_tag)(HostAtom *document);
    void (*active_objects)(const HostAtom *document, HostAtomArray *out, int32_t flags);
    void (*set_active_object)(HostAtom *document, HostAtom *object, int32_t mode);
    void (*set_active_tag)(HostAtom *document, HostAtom *tag, int32_t mode);
    void (*get_time)(const HostAtom *document, int32_t which, TableTime *out);
    void (*set_time)(HostAtom *document, int32_t which, const TableTime *time);  // no evaluation
    int32_t (*fps)(const HostAtom *document);
    void (*set_fps)(HostAtom *document, int32_t fps);
    int32_t (*start_undo)(HostAtom *document);
    int32_t (*end_undo)(HostAtom *document);
    int32_t (*add_undo)(HostAtom *document, int32_t type, HostAtom *node);
    int32_t (*undo)(HostAtom *document);
    int32_t (*redo)(HostAtom *document);
    void (*flush_undo)(HostAtom *document);
    int32_t (*execute_passes)(HostAtom *document, HostThread *thread, int32_t animation, int32_t expressions,
                              int32_t caches, int32_t flags);
    void (*animate_object)(HostAtom *document, HostAtom *node, const TableTime *time, int32_t flags);
    HostView *(*active_view)(HostAtom *document);  // NULL in a document without views
    int32_t (*changed)(const HostAtom *document);
    void (*set_changed)(HostAtom *document);

    HostAtom *(*active_document)(void);
    void (*insert_document)(HostAtom *document);
    void (*set_active_document)(HostAtom *document);
    void (*kill_document)(HostAtom *document);
    void (*set_document_time)(HostAtom *document, const TableTime *time);  // and evaluates, like the time slider

    int32_t (*view_has_camera)(HostView *view);
    HostAtom *(*view_scene_camera)(HostView *view, const HostAtom *document);
    void (*view_set_scene_camera)(HostView *view, HostAtom *object, int32_t animate);
    HostAtom *(*view_editor_camera)(HostView *view);

    int32_t (*priority_list_add)(HostPriorityList *list, HostAtom *node, int32_t priority, int32_t flags);
} DocumentTable;

typedef struct AnimationTable {
    HostAtom *(*create_track)(HostAtom *node, const TableDescID *id);  // free; NULL when it cannot be animated
    void (*track_id)(const HostAtom *track, TableDescID *out);
    HostAtom *(*track_object)(const HostAtom *track);
    HostAtom *(*track_curve)(HostAtom *track, int32_t type, int32_t create);
    int32_t (*track_category)(const HostAtom *track);
    double (*track_value)(HostAtom *track, HostAtom *document, const TableTime *time, int32_t fps);
    int32_t (*track_loop)(const HostAtom *track, int32_t after);
    void (*set_track_loop)(HostAtom *track, int32_t after, int32_t loop);
    int32_t (*fill_key)(HostAtom *track, HostAtom *document, HostAtom *node, HostAtom *key);

    int32_t (*key_count)(const HostAtom *curve);
    HostAtom *(*key_at)(HostAtom *curve, int32_t index);
    HostAtom *(*find_key)(HostAtom *curve, const TableTime *time, int32_t *out_index, int32_t match);
    HostAtom *(*add_key)(HostAtom *curve, const TableTime *time, int32_t *out_index);
    int32_t (*insert_key)(HostAtom *curve, HostAtom *key);  // takes the key over
    int32_t (*delete_key)(HostAtom *curve, int32_t index);
    void (*flush_keys)(HostAtom *curve);
    double (*curve_value)(const HostAtom *curve, const TableTime *time, int32_t fps);
    HostAtom *(*curve_track)(const HostAtom *curve);

    HostAtom *(*create_key)(void);
    void (*key_time)(const HostAtom *key, TableTime *out);
    double (*key_value)(const HostAtom *key);
    void (*set_key_time)(HostAtom *key, HostAtom *curve, const TableTime *time);
    void (*set_key_value)(HostAtom *key, HostAtom *curve, double value);
    // Tangents relative to the key; side 0 left, 1 right.
    void (*key_tangent)(const HostAtom *key, int32_t side, TableTime *out_time, double *out_value);
    void (*set_key_tangent)(HostAtom *key, HostAtom *curve, int32_t side, const TableTime *time, double value);
    int32_t (*key_interpolation)(const HostAtom *key);
    void (*set_key_interpolation)(HostAtom *key, HostAtom *curve, int32_t interpolation);
    const TableData *(*key_data)(const HostAtom *key);
    void (*set_key_data)(HostAtom *key, HostAtom *curve, const TableData *data);
    HostAtom *(*key_curve)(const HostAtom *key);
} AnimationTable;

typedef struct DescriptionTable {
    HostDescription *(*create)(void);
    void (*release)(HostDescription *description);
    int32_t (*load)(HostDescription *description, int32_t id);  // replaces what is there
    int32_t (*load_name)(HostDescription *description, const TableString *name);
    TableContainer *(*find)(HostDescription *description, const TableDescID *id);  // NULL when absent; live
    int32_t (*set)(HostDescription *description, const TableDescID *id, const TableContainer *settings,
                   const TableDescID *group);
    int32_t (*count)(const HostDescription *description);
    int32_t (*entry)(const HostDescription *description, int32_t index, const TableContainer **out_settings,
                     TableDescID *out_id, TableDescID *out_group);
    const TableDescID *(*single_id)(const HostDescription *description);  // NULL: everything is wanted
    void (*set_single_id)(HostDescription *description, const TableDescID *id);
} DescriptionTable;

typedef struct TableFileTime {
    uint16_t year, month, day, hour, minute, second;  // local
} TableFileTime;

typedef struct FileTable {
    int32_t (*exists)(const TableFilename *name, int32_t is_folder);
    int32_t (*create_folder)(const TableFilename *name);                                            // one level
    int32_t (*remove)(const TableFilename *name, int32_t flags);                                    // GE_FKILL_
    int32_t (*copy)(const TableFilename *source, const TableFilename *destination, int32_t flags);  // GE_FCOPY_
    int32_t (*rename)(const TableFilename *source, const TableFilename *destination);
    int32_t (*file_time)(const TableFilename *name, int32_t mode, TableFileTime *out);  // GE_FILETIME_; folders too
    void (*current_time)(TableFileTime *out);

    HostBrowseFiles *(*create_browse)(void);
    void (*release_browse)(HostBrowseFiles *browse);
    void (*browse_init)(HostBrowseFiles *browse, const TableFilename *folder, int32_t flags);
    int32_t (*browse_next)(HostBrowseFiles *browse);
    int32_t (*browse_is_folder)(HostBrowseFiles *browse);
    int32_t (*browse_is_hidden)(HostBrowseFiles *browse);
    int64_t (*browse_size)(HostBrowseFiles *browse);
    void (*browse_file_time)(HostBrowseFiles *browse, int32_t mode, TableFileTime *out);  // as of `browse_init`
    void (*browse_name)(HostBrowseFiles *browse, TableFilename *out);                     // the name alone

    HostHyperFile *(*create_hyperfile)(void);
    void (*release_hyperfile)(HostHyperFile *file);  // closes
    int32_t (*open_hyperfile)(HostHyperFile *file, int32_t ident, const TableFilename *name, int32_t mode,
                              int32_t error_dialog);
    int32_t (*close_hyperfile)(HostHyperFile *file);
    // A value of the given HYPERFILEVALUE_ type. `value` points to int32_t (CHAR to ULONG, BOOL), int64_t (LLONG),
    // double (REAL, LREAL, SREAL), TableTime, TableVector, TableMatrix, TableString, TableFilename, TableContainer.
    int32_t (*write_value)(HostHyperFile *file, int32_t type, const void *value);
    int32_t (*read_value)(HostHyperFile *file, int32_t type, void *out_value);
    int32_t (*write_data)(HostHyperFile *file, const TableData *data);
    int32_t (*read_data)(HostHyperFile *file, TableData *out);
    int32_t (*write_memory)(HostHyperFile *file, const void *memory, int64_t bytes);
    int32_t (*read_memory)(HostHyperFile *file, void **out_memory, int64_t *out_bytes);
    int32_t (*write_chunk_start)(HostHyperFile *file, int32_t id, int32_t level);
    int32_t (*write_chunk_end)(HostHyperFile *file);
    int32_t (*read_chunk_start)(HostHyperFile *file, int32_t *out_id, int32_t *out_level);
    int32_t (*read_chunk_end)(HostHyperFile *file);
    int32_t (*hyperfile_error)(const HostHyperFile *file);
} FileTable;

typedef struct BitmapTable {
    HostBitmap *(*create)(void);
    void (*release)(HostBitmap *bitmap);
    int32_t (*load)(HostBitmap *bitmap, const TableFilename *name, int32_t frame);      // IMAGERESULT_
    int32_t (*init)(HostBitmap *bitmap, int32_t width, int32_t height, int32_t depth);  // IMAGERESULT_
    int32_t (*width)(const HostBitmap *bitmap);
    int32_t (*height)(const HostBitmap *bitmap);
    int32_t (*depth)(const HostBitmap *bitmap);
    HostBitmap *(*clone)(const HostBitmap *bitmap);
    void (*get_pixel)(const HostBitmap *bitmap, int32_t x, int32_t y, uint16_t *out_r, uint16_t *out_g,
                      uint16_t *out_b);
} BitmapTable;

// The table itself. The mark and the two numbers stand first and never move: they are read before anything else is
// trusted. No part is NULL.
typedef struct HostTable {
    uint8_t mark[HOST_TABLE_MARK_BYTES];  // HOST_TABLE_MARK
    int32_t layout;                       // HOST_TABLE_LAYOUT
    int32_t api_version;                  // HOST_TABLE_API_VERSION
    const GeneralTable *general;
    const MathTable *math;
    const DataTable *data;
    const ContainerTable *container;
    const LinkTable *link;
    const CustomDataTable *custom;
    const AtomTable *atom;
    const ListTable *list;
    const ObjectTable *object;
    const DocumentTable *document;
    const AnimationTable *animation;
    const DescriptionTable *description;
    const FileTable *file;
    const BitmapTable *bitmap;
} HostTable;

// The one entry of a module. Actions and results: C4DPL_ numbers of the plug-in interface.
typedef int32_t (*ModuleMain)(int32_t action, void *p1, void *p2, void *p3);

#ifdef __cplusplus
}
#endif
