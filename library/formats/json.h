// Camera moves as JSON that says its units and conventions itself.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

CameraMove ReadJson(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteJson(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
