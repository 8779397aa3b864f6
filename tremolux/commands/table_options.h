// The options that say how another program's table is to be read.
#pragma once

#include <optional>
#include <string>

#include "library/formats/table_layout.h"
#include "tremolux/command_line.h"

namespace tremolux {

// As they were typed; empty: not at all.
struct TableChoices {
    std::string columns, table, axes, handed, angles, camera_y;

    bool IsZUp() const;  // throws a Failure
    // Nothing where none of the options above was given: the table is the program's own. Throws a Failure.
    std::optional<TableLayout> Layout(const std::optional<double> &length_unit,
                                      const std::optional<RotationOrder> &order) const;
};

void AddTableOptions(Command command, TableChoices *choices);
// Where the command has no --table of its own.
void AddTableName(Command command, TableChoices *choices);

}  // namespace tremolux
