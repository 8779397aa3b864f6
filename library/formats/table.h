// Tables of other programs.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

// A row a frame, or at any rising times; blank lines and those that start with # are passed over.
CameraMove ReadTable(const std::string &file, std::string_view bytes, const TableLayout &layout,
                     const FormatOptions &options);

}  // namespace tremolux
