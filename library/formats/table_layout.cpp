#include "library/formats/table_layout.h"

#include <algorithm>
#include <iterator>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr const char *kFieldNames[kTableFieldCount] = {"frame", "time", "x",            "y",             "z",  "h",  "p",
                                                  "b",     "rx",   "ry",           "rz",            "qw", "qx", "qy",
                                                  "qz",    "fov",  "vfov",         "focal_length",  "focus_distance"};
constexpr std::size_t kMostNames = 1000;  // a list that is longer is something else

[[noreturn]] void Refuse(const char *option, std::string_view found, const std::string &expected) {
    throw Failure(kExitInput, std::string(option) + ": found " + Quoted(found) + ", expected " + expected);
}

std::vector<std::string_view> Parts(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(Trimmed(text.substr(0, end)));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::string List(const std::vector<std::string> &names) {
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i)
        list += (i == 0 ? "" : i + 1 < names.size() ? ", " : " or ") + names[i];
    return list;
}

TableField FieldNamed(const char *option, std::string_view name) {
    const auto found = std::find(std::begin(kFieldNames), std::end(kFieldNames), name);
    if (found == std::end(kFieldNames)) Refuse(option, name, List({std::begin(kFieldNames), std::end(kFieldNames)}));
    return static_cast<TableField>(found - std::begin(kFieldNames));
}

TableColumn ColumnOf(const char *option, std::string_view whole, std::string_view text) {
    TableColumn column;
    if (!text.empty() && text.back() == '?') {
        column.required = false;
        text.remove_suffix(1);
    }
    if (!text.empty() && text.front() == '-') {
        column.turns_sign = true;
        text.remove_prefix(1);
    }
    for (const std::string_view name : Parts(text, '|')) {
        if (name.empty() || column.names.size() == kMostNames) Refuse(option, whole, "NAME=COLUMN, as in x=TX");
        column.names.emplace_back(name);
    }
    return column;
}

}  // namespace

const char *NameOf(TableField field) { return kFieldNames[field]; }

void AddColumns(const char *option, std::string_view text, TableLayout *layout) {
    bool seen[kTableFieldCount] = {};
    for (const std::string_view part : Parts(text, ',')) {
        const std::size_t middle = part.find('=');
        if (middle == std::string_view::npos) Refuse(option, part, "NAME=COLUMN, as in x=TX");
        const TableField field = FieldNamed(option, Trimmed(part.substr(0, middle)));
        if (seen[field]) Refuse(option, part, "each name once");
        seen[field] = true;
        layout->columns[field] = ColumnOf(option, part, Trimmed(part.substr(middle + 1)));
    }
}

const std::vector<TablePreset> &TablePresets() {
    static const std::vector<TablePreset> presets = {
        {"tremolux", "this program's own: left-handed, y up, centimetres, heading, pitch and bank in degrees",
         "frame=frame,x=x,y=y,z=z,h=h,p=p,b=b,focal_length=focal_length?,focus_distance=focus_distance?", true, false,
         false, false, "zxy", 1},
        {"trajectory",
         "no header, time tx ty tz qx qy qz qw by their places: z up, metres, a camera that looks along +z with y down",
         "time=1,x=2,y=3,z=4,qx=5,qy=6,qz=7,qw=8", false, true, true, false, "xyz", 100},
        {"blender",
         "frame, location_x, _y, _z, rotation_x, _y, _z or rotation_w to _z, perhaps lens: z up, metres, radians",
         "frame=frame,x=location_x|loc_x|x,y=location_y|loc_y|y,z=location_z|loc_z|z,"
         "rx=rotation_euler_x|rotation_x|rot_x|rx?,ry=rotation_euler_y|rotation_y|rot_y|ry?,"
         "rz=rotation_euler_z|rotation_z|rot_z|rz?,qw=rotation_quaternion_w|rotation_w|qw?,"
         "qx=rotation_quaternion_x|rotation_x|qx?,qy=rotation_quaternion_y|rotation_y|qy?,"
         "qz=rotation_quaternion_z|rotation_z|qz?,focal_length=lens|focal_length?,"
         "focus_distance=focus_distance|dof_distance?",
         false, true, false, true, "xyz", 100},
        {"maya", "frame, translateX, Y, Z, rotateX, Y, Z, perhaps focalLength: y up, centimetres, degrees",
         "frame=frame|time,x=translatex|tx,y=translatey|ty,z=translatez|tz,rx=rotatex|rx,ry=rotatey|ry,rz=rotatez|rz,"
         "focal_length=focallength|focal_length?,focus_distance=focusdistance|focus_distance?",
         false, false, false, false, "xyz", 1},
        {"unity",
         "frame or time, position_x, _y, _z, rotation_x, _y, _z or _w too, perhaps fov: left-handed, y up, metres, degrees",
         "frame=frame?,time=time|timestamp?,x=position_x|pos_x|x,y=position_y|pos_y|y,z=position_z|pos_z|z,"
         "rx=euler_x|rotation_x|rot_x|rx?,ry=euler_y|rotation_y|rot_y|ry?,rz=euler_z|rotation_z|rot_z|rz?,"
         "qw=rotation_w|rot_w|qw?,qx=rotation_x|rot_x|qx?,qy=rotation_y|rot_y|qy?,qz=rotation_z|rot_z|qz?,"
         "vfov=field_of_view|fov|vfov?,focal_length=focal_length?,focus_distance=focus_distance?",
         true, false, false, false, "zxy", 100}};
    return presets;
}

std::string KnownTables() {
    std::vector<std::string> names;
    for (const TablePreset &preset : TablePresets()) names.emplace_back(preset.name);
    return List(names);
}

TableLayout TableNamed(const char *option, std::string_view name) {
    for (const TablePreset &preset : TablePresets()) {
        if (name != preset.name) continue;
        TableLayout layout;
        layout.left_handed = preset.left_handed;
        layout.z_up = preset.z_up;
        layout.camera_y_down = preset.camera_y_down;
        layout.radians = preset.radians;
        layout.order = *RotationOrderNamed(preset.order);
        layout.length_unit = preset.length_unit;
        AddColumns(option, preset.columns, &layout);
        return layout;
    }
    Refuse(option, name, KnownTables());
}

}  // namespace tremolux
