// The panel as a table: tabs, groups, separators and parameters in the order in which they are built.
#pragma once

#include "c4d.h"
#include "tag/parameters.h"

enum class PanelKind { kGroup, kSeparator, kParameter, kHidden };

constexpr LONG kPanelRoot = 0;  // parent of the tabs

struct PanelElement {
    PanelKind kind;
    LONG id, parent;
    const CHAR *title;        // of a group or a separator; NULL: none
    LONG columns;             // of a group: cells in one row
    Bool open, scaled;        // a group: unfolded at first; stretched to the panel's width
    Bool line;                // of a separator
    ParameterInfo parameter;  // of a parameter, shown or hidden
};

const PanelElement *Panel(LONG *count);
