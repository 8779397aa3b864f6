// A panel as a page for a browser.
#pragma once

#include <string>
#include <vector>

#include "host/ui/panel.h"

namespace tremolux {

// One self-contained HTML page that draws the panel: tabs, folding groups, controls with their values and ranges. Its
// controls can be tried, but nothing is kept.
std::string PanelPage(const std::vector<host::PanelGroup> &tabs, const std::string &title);

}  // namespace tremolux
