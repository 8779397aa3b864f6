// What all pages of the program share.
#pragma once

#include <string>

namespace tremolux {

// Text as it stands between tags and in quoted attributes.
std::string EscapedHtml(const std::string &text);
// Everything up to the body's first tag: the title, the colours, light and dark, as variables, and `style`, which uses
// them.
std::string HtmlHead(const std::string &title, const char *style);

}  // namespace tremolux
