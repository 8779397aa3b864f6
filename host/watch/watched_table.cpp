#include "host/watch/watched_table.h"

#include "host/table/internal.h"
#include "host/watch/watched_call.h"

namespace host {

template <>
const GeneralTable &Unwatched() {
    return *GeneralEntries();
}
template <>
const MathTable &Unwatched() {
    return *MathEntries();
}
template <>
const DataTable &Unwatched() {
    return *DataEntries();
}
template <>
const ContainerTable &Unwatched() {
    return *ContainerEntries();
}
template <>
const LinkTable &Unwatched() {
    return *LinkEntries();
}
template <>
const CustomDataTable &Unwatched() {
    return *CustomDataEntries();
}
template <>
const AtomTable &Unwatched() {
    return *AtomEntries();
}
template <>
const ListTable &Unwatched() {
    return *ListEntries();
}
template <>
const ObjectTable &Unwatched() {
    return *ObjectEntries();
}
template <>
const DocumentTable &Unwatched() {
    return *DocumentEntries();
}
template <>
const AnimationTable &Unwatched() {
    return *AnimationEntries();
}
template <>
const DescriptionTable &Unwatched() {
    return *DescriptionEntries();
}
template <>
const FileTable &Unwatched() {
    return *FileEntries();
}
template <>
const BitmapTable &Unwatched() {
    return *BitmapEntries();
}

namespace {

// Puts the judge in front of an entry of the table that is being made.
#define WATCH(group, member, arguments, rules)                                                       \
    {                                                                                                \
        struct Here {                                                                                \
            static constexpr WatchedEntry Entry() { return {#group "." #member, arguments, rules}; } \
        };                                                                                           \
        table.member = WatchedCall<Here, &Table::member>::Call;                                      \
    }

GeneralTable WatchedGeneral() {
    using Table = GeneralTable;
    Table table{};
    WATCH(general, allocate, "-", kMayFail);
    WATCH(general, allocate_uncleared, "-", kMayFail);
    WATCH(general, reallocate, "--", kMayFail);
    WATCH(general, release, "-", kFreely);
    WATCH(general, register_tag, "p", kMayFail | kEdits);
    WATCH(general, register_command, "p", kMayFail | kEdits);
    WATCH(general, register_description, "-p", kMayFail | kEdits);
    WATCH(general, host_version, "", kFreely);
    WATCH(general, version_type, "", kFreely);
    WATCH(general, operating_system, "", kFreely);
    WATCH(general, is_main_thread, "", kFreely);
    WATCH(general, milliseconds, "", kFreely);
    WATCH(general, print, "p", kFreely);
    WATCH(general, message_box, "p-", kEdits | kMainOnly);
    WATCH(general, question, "p", kMayFail | kEdits | kMainOnly);
    WATCH(general, rename, "p", kMayFail | kEdits | kMainOnly);
    WATCH(general, select_file, "--p-p", kMayFail | kEdits | kMainOnly);
    WATCH(general, open_web_page, "p", kMayFail | kEdits);
    WATCH(general, show_in_finder, "p-", kMayFail | kEdits);
    WATCH(general, execute_file, "p", kMayFail | kEdits);
    WATCH(general, status_bar, "-", kFreely);
    WATCH(general, status_text, "p", kFreely);
    WATCH(general, status_spin, "", kFreely);
    WATCH(general, status_clear, "", kFreely);
    WATCH(general, input_state, "--p", kMayFail);
    WATCH(general, stop_all_threads, "", kEdits | kMainOnly);
    WATCH(general, event_add, "-", kEdits);
    WATCH(general, special_event_add, "---", kEdits);
    WATCH(general, draw_views, "--", kEdits);
    WATCH(general, call_command, "-", kEdits);
    WATCH(general, world_plugin_data, "-", kFreely);
    WATCH(general, set_world_plugin_data, "-p-", kMayFail);
    WATCH(general, path, "-p", kFreely);
    WATCH(general, load_resource, "p", kMayFail);
    WATCH(general, resource_string, "p-p", kFreely);
    return table;
}

MathTable WatchedMath() {
    using Table = MathTable;
    Table table{};
    WATCH(math, noise3, "p", kFreely);
    WATCH(math, noise4, "p-", kFreely);
    WATCH(math, matrix_to_hpb, "p-p", kFreely);
    WATCH(math, hpb_to_matrix, "p-p", kFreely);
    WATCH(math, optimal_angle, "pp-p", kFreely);
    WATCH(math, parse, "pp", kFreely);
    return table;
}

DataTable WatchedData() {
    using Table = DataTable;
    Table table{};
    WATCH(data, copy, "pp-", kFreely);
    WATCH(data, release, "p", kFreely);
    WATCH(data, equal, "pp", kFreely);
    WATCH(data, set_default, "p-", kMayFail);
    WATCH(data, set_link, "pN", kFreely);
    return table;
}

ContainerTable WatchedContainer() {
    using Table = ContainerTable;
    Table table{};
    WATCH(container, copy, "pp-", kFreely);
    WATCH(container, flush, "p", kFreely);
    WATCH(container, release, "p", kFreely);
    WATCH(container, count, "p", kFreely);
    WATCH(container, find, "p-", kFreely);
    WATCH(container, live, "p-", kMayFail);
    WATCH(container, index_of, "p-", kFreely);
    WATCH(container, id_at, "p-", kFreely);
    WATCH(container, live_at, "p-", kMayFail);
    WATCH(container, set, "p-p", kMayFail);
    WATCH(container, set_real, "p--", kFreely);
    WATCH(container, set_vector, "p-p", kFreely);
    WATCH(container, append, "p-p", kMayFail);
    WATCH(container, remove, "p-", kFreely);
    WATCH(container, remove_at, "p-", kFreely);
    WATCH(container, sort, "p", kFreely);
    WATCH(container, equal, "pp", kFreely);
    WATCH(container, get_parameter, "ppp", kMayFail);
    WATCH(container, set_parameter, "ppp", kMayFail);
    return table;
}

LinkTable WatchedLink() {
    using Table = LinkTable;
    Table table{};
    WATCH(link, create, "", kMayFail);
    WATCH(link, release, "-", kFreely);
    WATCH(link, clone, "p-", kMayFail);
    WATCH(link, resolve, "pD-", kMayFail);
    WATCH(link, resolve_anywhere, "p", kMayFail);
    WATCH(link, set, "pN", kFreely);
    WATCH(link, create_translation, "", kMayFail);
    WATCH(link, release_translation, "-", kFreely);
    WATCH(link, init_translation, "pD", kMayFail);
    WATCH(link, translate, "p-", kFreely);
    return table;
}

CustomDataTable WatchedCustomData() {
    using Table = CustomDataTable;
    Table table{};
    WATCH(custom, create, "-", kMayFail);
    WATCH(custom, release, "-", kFreely);
    WATCH(custom, type_of, "p", kFreely);
    WATCH(custom, default_settings, "-p", kFreely);
    WATCH(custom, spline_knot_count, "p", kFreely);
    WATCH(custom, spline_knot, "p-", kMayFail);
    WATCH(custom, spline_insert_knot, "p---", kFreely);
    WATCH(custom, spline_delete_knot, "p-", kFreely);
    WATCH(custom, spline_delete_all, "p", kFreely);
    WATCH(custom, spline_point, "p-p", kFreely);
    WATCH(custom, spline_linear, "p-", kMayFail);
    WATCH(custom, priority_set, "p-p", kMayFail);
    WATCH(custom, priority_get, "p-p", kFreely);
    return table;
}

AtomTable WatchedAtom() {
    using Table = AtomTable;
    Table table{};
    WATCH(atom, type, "n", kFreely);
    WATCH(atom, classification, "n", kFreely);
    WATCH(atom, is_instance_of, "n-", kFreely);
    WATCH(atom, message, "n--", kFreely);
    WATCH(atom, multi_message, "n---", kFreely);
    WATCH(atom, clone, "n--", kMayFail);
    WATCH(atom, copy_to, "nn--", kMayFail | kAcross);
    WATCH(atom, get_description, "np-", kMayFail);
    WATCH(atom, get_parameter, "npp-", kMayFail);
    WATCH(atom, set_parameter, "npp-", kMayFail);
    WATCH(atom, get_enabling, "npp--", kFreely);
    WATCH(atom, dirty, "n-", kFreely);
    WATCH(atom, set_dirty, "n-", kFreely);
    WATCH(atom, create_array, "", kMayFail);
    WATCH(atom, release_array, "-", kFreely);
    WATCH(atom, array_count, "p", kFreely);
    WATCH(atom, array_at, "p-", kFreely);
    WATCH(atom, array_append, "pn", kMayFail);
    WATCH(atom, array_remove, "pn", kFreely);
    WATCH(atom, array_flush, "p", kFreely);
    return table;
}

ListTable WatchedList() {
    using Table = ListTable;
    Table table{};
    WATCH(list, next, "n", kFreely);
    WATCH(list, previous, "n", kFreely);
    WATCH(list, up, "n", kFreely);
    WATCH(list, down, "n", kFreely);
    WATCH(list, down_last, "n", kFreely);
    WATCH(list, insert_before, "nn", kEdits);
    WATCH(list, insert_after, "nn", kEdits);
    WATCH(list, insert_under, "nN", kEdits);
    WATCH(list, insert_under_last, "nN", kEdits);
    WATCH(list, remove, "n", kEdits);
    WATCH(list, document, "n", kFreely);
    WATCH(list, module_object, "n", kFreely);
    WATCH(list, release, "N", kEdits | kGivesUp);
    WATCH(list, main, "n", kFreely);
    WATCH(list, data, "n", kFreely);
    WATCH(list, name, "np", kFreely);
    WATCH(list, set_name, "np", kFreely);
    WATCH(list, bits, "n", kFreely);
    WATCH(list, set_bits, "n-", kFreely);
    WATCH(list, first_track, "n", kFreely);
    WATCH(list, find_track, "np", kFreely);
    WATCH(list, insert_track, "nr", kEdits);
    return table;
}

ObjectTable WatchedObject() {
    using Table = ObjectTable;
    Table table{};
    WATCH(object, create, "-", kMayFail);
    WATCH(object, get_vector, "o-p", kFreely);
    WATCH(object, set_vector, "o-p", kFreely);
    WATCH(object, local_matrix, "op", kFreely);
    WATCH(object, set_local_matrix, "op", kFreely);
    WATCH(object, global_matrix, "op", kFreely);
    WATCH(object, set_global_matrix, "op", kFreely);
    WATCH(object, parent_matrix, "op", kFreely);
    WATCH(object, copy_matrix, "oo", kAcross);
    WATCH(object, rotation_order, "o", kFreely);
    WATCH(object, set_rotation_order, "o-", kFreely);
    WATCH(object, first_tag, "o", kFreely);
    WATCH(object, tag, "o--", kFreely);
    WATCH(object, insert_tag, "otT", kEdits);
    WATCH(object, create_tag, "-", kMayFail);
    WATCH(object, tag_object, "t", kFreely);
    return table;
}

DocumentTable WatchedDocument() {
    using Table = DocumentTable;
    Table table{};
    WATCH(document, create, "", kMayFail);
    WATCH(document, settings, "d-", kMayFail);
    WATCH(document, first_object, "d", kFreely);
    WATCH(document, insert_object, "doOO-", kEdits);
    WATCH(document, search_object, "dp", kFreely);
    WATCH(document, active_object, "d", kFreely);
    WATCH(document, active_tag, "d", kFreely);
    WATCH(document, active_objects, "dp-", kFreely);
    WATCH(document, set_active_object, "dO-", kEdits);
    WATCH(document, set_active_tag, "dT-", kEdits);
    WATCH(document, get_time, "d-p", kFreely);
    WATCH(document, set_time, "d-p", kEdits);
    WATCH(document, fps, "d", kFreely);
    WATCH(document, set_fps, "d-", kEdits);
    WATCH(document, start_undo, "d", kMayFail | kEdits | kMainOnly);
    WATCH(document, end_undo, "d", kEdits | kMainOnly);
    WATCH(document, add_undo, "d-n", kMayFail | kEdits | kMainOnly);
    WATCH(document, undo, "d", kMayFail | kEdits | kMainOnly);
    WATCH(document, redo, "d", kMayFail | kEdits | kMainOnly);
    WATCH(document, flush_undo, "d", kEdits | kMainOnly);
    WATCH(document, execute_passes, "d-----", kMayFail | kEdits);
    WATCH(document, animate_object, "dnp-", kEdits);
    WATCH(document, active_view, "d", kMayFail);
    WATCH(document, changed, "d", kFreely);
    WATCH(document, set_changed, "d", kFreely);
    WATCH(document, active_document, "", kFreely);
    WATCH(document, insert_document, "d", kEdits | kMainOnly);
    WATCH(document, set_active_document, "d", kEdits | kMainOnly);
    WATCH(document, kill_document, "d", kEdits | kMainOnly);
    WATCH(document, set_document_time, "dp", kEdits);
    WATCH(document, view_has_camera, "p", kFreely);
    WATCH(document, view_scene_camera, "pD", kMayFail);
    WATCH(document, view_set_scene_camera, "pO-", kEdits);
    WATCH(document, view_editor_camera, "p", kMayFail);
    WATCH(document, priority_list_add, "pn--", kMayFail);
    return table;
}

AnimationTable WatchedAnimation() {
    using Table = AnimationTable;
    Table table{};
    WATCH(animation, create_track, "np", kMayFail);
    WATCH(animation, track_id, "rp", kFreely);
    WATCH(animation, track_object, "r", kFreely);
    WATCH(animation, track_curve, "r--", kMayFail);
    WATCH(animation, track_category, "r", kFreely);
    WATCH(animation, track_value, "rDp-", kFreely);
    WATCH(animation, track_loop, "r-", kFreely);
    WATCH(animation, set_track_loop, "r--", kFreely);
    WATCH(animation, fill_key, "rDnk", kMayFail);
    WATCH(animation, key_count, "c", kFreely);
    WATCH(animation, key_at, "c-", kFreely);
    WATCH(animation, find_key, "cp--", kFreely);
    WATCH(animation, add_key, "cp-", kMayFail | kEdits);
    WATCH(animation, insert_key, "ck", kMayFail | kEdits);
    WATCH(animation, delete_key, "c-", kEdits);
    WATCH(animation, flush_keys, "c", kEdits);
    WATCH(animation, curve_value, "cp-", kFreely);
    WATCH(animation, curve_track, "c", kFreely);
    WATCH(animation, create_key, "", kMayFail);
    WATCH(animation, key_time, "kp", kFreely);
    WATCH(animation, key_value, "k", kFreely);
    WATCH(animation, set_key_time, "kCp", kEdits);
    WATCH(animation, set_key_value, "kC-", kEdits);
    WATCH(animation, key_tangent, "k---", kFreely);
    WATCH(animation, set_key_tangent, "kC-p-", kEdits);
    WATCH(animation, key_interpolation, "k", kFreely);
    WATCH(animation, set_key_interpolation, "kC-", kEdits);
    WATCH(animation, key_data, "k", kFreely);
    WATCH(animation, set_key_data, "kCp", kEdits);
    WATCH(animation, key_curve, "k", kFreely);
    return table;
}

DescriptionTable WatchedDescription() {
    using Table = DescriptionTable;
    Table table{};
    WATCH(description, create, "", kMayFail);
    WATCH(description, release, "-", kFreely);
    WATCH(description, load, "p-", kMayFail);
    WATCH(description, load_name, "pp", kMayFail);
    WATCH(description, find, "pp", kMayFail);
    WATCH(description, set, "ppp-", kMayFail);
    WATCH(description, count, "p", kFreely);
    WATCH(description, entry, "p-ppp", kFreely);
    WATCH(description, single_id, "p", kFreely);
    WATCH(description, set_single_id, "p-", kFreely);
    return table;
}

FileTable WatchedFile() {
    using Table = FileTable;
    Table table{};
    WATCH(file, exists, "p-", kMayFail);
    WATCH(file, create_folder, "p", kMayFail);
    WATCH(file, remove, "p-", kMayFail);
    WATCH(file, copy, "pp-", kMayFail);
    WATCH(file, rename, "pp", kMayFail);
    WATCH(file, file_time, "p-p", kMayFail);
    WATCH(file, current_time, "p", kFreely);
    WATCH(file, create_browse, "", kMayFail);
    WATCH(file, release_browse, "-", kFreely);
    WATCH(file, browse_init, "pp-", kFreely);
    WATCH(file, browse_next, "p", kFreely);
    WATCH(file, browse_is_folder, "p", kFreely);
    WATCH(file, browse_is_hidden, "p", kFreely);
    WATCH(file, browse_size, "p", kFreely);
    WATCH(file, browse_file_time, "p-p", kFreely);
    WATCH(file, browse_name, "pp", kFreely);
    WATCH(file, create_hyperfile, "", kMayFail);
    WATCH(file, release_hyperfile, "-", kFreely);
    WATCH(file, open_hyperfile, "p-p--", kMayFail);
    WATCH(file, close_hyperfile, "p", kMayFail);
    WATCH(file, write_value, "p-p", kMayFail);
    WATCH(file, read_value, "p-p", kMayFail);
    WATCH(file, write_data, "pp", kMayFail);
    WATCH(file, read_data, "pp", kMayFail);
    WATCH(file, write_memory, "p--", kMayFail);
    WATCH(file, read_memory, "ppp", kMayFail);
    WATCH(file, write_chunk_start, "p--", kMayFail);
    WATCH(file, write_chunk_end, "p", kMayFail);
    WATCH(file, read_chunk_start, "ppp", kMayFail);
    WATCH(file, read_chunk_end, "p", kMayFail);
    WATCH(file, hyperfile_error, "p", kFreely);
    return table;
}

BitmapTable WatchedBitmap() {
    using Table = BitmapTable;
    Table table{};
    WATCH(bitmap, create, "", kMayFail);
    WATCH(bitmap, release, "-", kFreely);
    WATCH(bitmap, load, "pp-", kMayFail);
    WATCH(bitmap, init, "p---", kMayFail);
    WATCH(bitmap, width, "p", kFreely);
    WATCH(bitmap, height, "p", kFreely);
    WATCH(bitmap, depth, "p", kFreely);
    WATCH(bitmap, clone, "p", kMayFail);
    WATCH(bitmap, get_pixel, "p--ppp", kFreely);
    return table;
}

#undef WATCH

}  // namespace

const HostTable *WatchedTable() {
    FollowAtoms();
    static const GeneralTable general = WatchedGeneral();
    static const MathTable math = WatchedMath();
    static const DataTable data = WatchedData();
    static const ContainerTable container = WatchedContainer();
    static const LinkTable link = WatchedLink();
    static const CustomDataTable custom = WatchedCustomData();
    static const AtomTable atom = WatchedAtom();
    static const ListTable list = WatchedList();
    static const ObjectTable object = WatchedObject();
    static const DocumentTable document = WatchedDocument();
    static const AnimationTable animation = WatchedAnimation();
    static const DescriptionTable description = WatchedDescription();
    static const FileTable file = WatchedFile();
    static const BitmapTable bitmap = WatchedBitmap();
    static const HostTable table = {HOST_TABLE_MARK,
                                    HOST_TABLE_LAYOUT,
                                    HOST_TABLE_API_VERSION,
                                    &general,
                                    &math,
                                    &data,
                                    &container,
                                    &link,
                                    &custom,
                                    &atom,
                                    &list,
                                    &object,
                                    &document,
                                    &animation,
                                    &description,
                                    &file,
                                    &bitmap};
    return &table;
}

}  // namespace host
