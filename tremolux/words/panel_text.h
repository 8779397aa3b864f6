// A panel as text for a terminal.
#pragma once

#include <string>
#include <vector>

#include "host/ui/panel.h"

namespace tremolux {

// Tab by tab, a row of the panel in each line, values with their units; what does not answer is marked "(disabled)".
std::string PanelText(const std::vector<host::PanelGroup> &tabs);

// The same as one JSON object.
std::string PanelJson(const std::vector<host::PanelGroup> &tabs);

}  // namespace tremolux
