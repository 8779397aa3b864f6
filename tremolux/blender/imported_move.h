// What Blender has read of a file, as a camera move.
#pragma once

#include <string>
#include <string_view>

#include "library/moves/camera_move.h"

namespace tremolux {

struct ImportedMove {
    CameraMove move;
    int width = 0, height = 0;  // of the picture in pixels; 0 where the file says none
};

// Of the import script's result; `file` stands in messages. Throws a Failure.
ImportedMove ReadImported(const std::string &file, std::string_view result);

}  // namespace tremolux
