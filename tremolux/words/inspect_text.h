// What is in a camera file, for a person or for a program to read.
#pragma once

#include <string>

#include "library/formats/format.h"

namespace tremolux {

struct InspectedFile {
    std::string name;
    std::string kind;  // the format's extension
    CameraMove move;
};

// Several lines, one for each fact.
std::string InspectText(const InspectedFile &file);
// The same as one JSON object.
std::string InspectJson(const InspectedFile &file);

}  // namespace tremolux
