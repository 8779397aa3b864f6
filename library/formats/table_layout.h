// Tables of other programs: which column is what, and which way the axes point.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/formats/rotation_order.h"

namespace tremolux {

enum TableField {
    kTableFrame,
    kTableTime,
    kTableX,
    kTableY,
    kTableZ,
    kTableH,  // heading, pitch, bank: of the camera against the world's upright, whatever the axes
    kTableP,
    kTableB,
    kTableRx,  // turns about the world's axes
    kTableRy,
    kTableRz,
    kTableQw,
    kTableQx,
    kTableQy,
    kTableQz,
    kTableFov,  // across the picture
    kTableVfov,
    kTableFocalLength,
    kTableFocusDistance,
    kTableFieldCount
};
const char *NameOf(TableField field);

struct TableColumn {
    // In the header line, in whatever case: the first that is there counts. A number is the column's place, from 1.
    std::vector<std::string> names;
    bool required = true;
    bool turns_sign = false;
};

struct TableLayout {
    std::array<std::optional<TableColumn>, kTableFieldCount> columns;
    // Right-handed: at rest the camera looks along -Z of its world with +Y up, in a Z-up world too. Left-handed: along +Z
    // with +Y up.
    bool left_handed = false, z_up = false;
    bool camera_y_down = false;  // right-handed, but at rest the camera looks along +Z with +Y down
    bool radians = false;
    RotationOrder order = kOrderXyz;
    double length_unit = 1;  // scene units (centimetres)
};

// "x=TX,y=TY,rx=-TILT,focal_length=LENS|FOCAL?": into the layout's columns, over those of the same name. A minus turns the
// sign, bars stand between names of which one must be there, a question mark says that there may be none. Throws a Failure
// that begins with `option`.
void AddColumns(const char *option, std::string_view text, TableLayout *layout);

struct TablePreset {
    const char *name;
    const char *words;    // for the help
    const char *columns;  // as for AddColumns
    bool left_handed, z_up, camera_y_down, radians;
    const char *order;
    double length_unit;
};
const std::vector<TablePreset> &TablePresets();
// "camera, trajectory or blender".
std::string KnownTables();
// Throws a Failure that begins with `option`.
TableLayout TableNamed(const char *option, std::string_view name);

}  // namespace tremolux
