// A camera as scene description text (.usda).
#pragma once

#include <string>
#include <string_view>

#include "library/formats/format.h"

namespace tremolux {

CameraMove ReadUsda(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteUsda(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
