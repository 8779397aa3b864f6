// The tag's panel as data: what a user interface draws.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/scene/tag.h"
#include "library/parameters/parameter.h"

namespace tremolux {

enum class PanelEntryKind { kGroup, kSeparator, kParameter };

struct PanelEntry {
    PanelEntryKind kind = PanelEntryKind::kParameter;
    std::int32_t id = 0, group = 0;  // the group that it stands in; 0: a tab
    std::string title;               // of a group or a separator, may be empty; of a parameter its label
    std::int32_t columns = 1;        // of a group: cells in one row
    bool is_open = false;            // a group: unfolded at first
    bool has_line = false;           // a separator
};

// With the parameters that are given, in the order in which a panel is built, without empty tabs. Throws a Failure when the
// tag does not describe itself.
std::vector<PanelEntry> DescribedPanel(const host::Tag &tag, const std::vector<Parameter> &parameters);

// Where a parameter stands: the title of its tab, and that of the innermost titled group in it, else empty.
struct PanelPlace {
    std::int32_t group = 0;
    std::string tab, section;
};
PanelPlace FindPlace(const std::vector<PanelEntry> &panel, std::int32_t parameter);

}  // namespace tremolux
