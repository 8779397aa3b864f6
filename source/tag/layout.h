// The panel as a table: tabs, groups, separators and rows in the order in which they are built.
#pragma once

#include "c4d.h"

enum class LayoutKind { kGroup, kSeparator, kParameter };

constexpr LONG kPanelRoot = 0;  // parent of the tabs

struct LayoutElement {
    LayoutKind kind;
    LONG id, parent;
    const CHAR *title;  // of a group or a separator; NULL: none
    LONG columns;       // of a group: cells in one row
    Bool open, scaled;  // a group: unfolded at first; stretched to the panel's width
    Bool line;          // of a separator
};

const LayoutElement *PanelLayout(LONG *count);
