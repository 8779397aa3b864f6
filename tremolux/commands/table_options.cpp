#include "tremolux/commands/table_options.h"

#include "library/failure.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

// Whether the second of two words was typed.
bool SecondOf(const char *option, const std::string &text, const char *first, const char *second) {
    if (text == second) return true;
    if (text.empty() || text == first) return false;
    throw Failure(kExitInput,
                  std::string(option) + ": found " + Quoted(text) + ", expected " + first + " or " + second);
}

bool IsList(const std::string &columns) { return columns.find('=') != std::string::npos; }

}  // namespace

bool TableChoices::IsZUp() const { return SecondOf("--axes", axes, "y-up", "z-up"); }

std::optional<TableLayout> TableChoices::Layout(const std::optional<double> &length_unit,
                                                const std::optional<RotationOrder> &order) const {
    const bool has_list = IsList(columns);
    if (columns.empty() && table.empty() && axes.empty() && handed.empty() && angles.empty() && camera_y.empty())
        return std::nullopt;
    TableLayout layout;
    if (!table.empty()) {
        layout = TableNamed("--table", table);
    } else if (!columns.empty() && !has_list) {
        layout = TableNamed("--columns", columns);
    } else if (columns.empty()) {
        layout = TableNamed("--table", "tremolux");
    }
    if (has_list) AddColumns("--columns", columns, &layout);
    if (has_list && table.empty()) layout.left_handed = layout.columns[kTableH].has_value();
    if (!axes.empty()) {
        layout.z_up = IsZUp();
        layout.left_handed = false;
    }
    if (!handed.empty()) layout.left_handed = SecondOf("--handed", handed, "right", "left");
    if (!angles.empty()) layout.radians = SecondOf("--angles", angles, "deg", "rad");
    if (!camera_y.empty()) layout.camera_y_down = SecondOf("--camera-y", camera_y, "up", "down");
    if (layout.left_handed && (layout.z_up || layout.camera_y_down)) {
        throw Failure(kExitInput,
                      "--handed: found 'left' with --axes z-up or --camera-y down, expected right: a "
                      "left-handed table is y up, and so is its camera");
    }
    if (length_unit) layout.length_unit = *length_unit;
    if (order) layout.order = *order;
    return layout;
}

void AddTableOptions(Command command, TableChoices *choices) {
    command.Add(
        "--columns", &choices->columns,
        "columns of a table of another program: x=TX,y=TY,z=TZ,rx=...,frame=F, by the names in its header line or "
        "their places from 1; of frame, time, x, y, z, h, p, b, rx, ry, rz, qw, qx, qy, qz, fov, vfov, "
        "focal_length, focus_distance; or the name of a known table: " +
            KnownTables());
    command.Add("--axes", &choices->axes, "of .chan files and tables, right-handed: y-up (else) or z-up");
    command.Add("--handed", &choices->handed,
                "of tables: right, or left as the program's own and tables with h, p, b are");
    command.Add("--angles", &choices->angles, "of tables: deg (else) or rad");
    command.Add(
        "--camera-y", &choices->camera_y,
        "of tables: up (else: the camera looks along its -z), or down (along its +z, as computer vision has it)");
}

void AddTableName(Command command, TableChoices *choices) {
    std::string words = "a table that is known by its columns:";
    for (const TablePreset &preset : TablePresets()) words += std::string("\n") + preset.name + ": " + preset.words;
    command.Add("--table", &choices->table, words);
}

}  // namespace tremolux
