// Camera file formats: one row each in a table.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tremolux/formats/camera_move.h"

namespace tremolux {

// What a format does not store and somebody must know.
struct FormatOptions {
    double length_unit = 1;           // scene units (centimetres) in one length of a .chan file
    int width = 1920, height = 1080;  // of the picture in pixels: makes the vertical field of view
    bool only_positions = false;      // a moving point is wanted: a table may lack the angles
};

struct MoveFormat {
    const char *name;
    const char *extension;  // in lower case, with the dot
    // Throws a Failure that names the place. `file` is the name for messages.
    CameraMove (*read)(const std::string &file, std::string_view bytes, const FormatOptions &options);
    std::string (*write)(const CameraMove &move, const FormatOptions &options);
};

const std::vector<MoveFormat> &MoveFormats();
// By the extension, in whatever case; throws a Failure that lists the known ones.
const MoveFormat &FormatOf(const std::filesystem::path &file);
CameraMove ReadMove(const std::filesystem::path &file, const FormatOptions &options);

}  // namespace tremolux
