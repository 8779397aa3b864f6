// What a shake added, alone, as files: one writer for each kind.
#pragma once

#include <filesystem>
#include <string>

#include "library/formats/format.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// ".csv, .json, .chan, .usda, .usd or .py".
std::string KnownAddedExtensions();
// Throws a Failure for a file of another extension.
void CheckAddedFormat(const std::filesystem::path &file);
// Both moves have the same frames. `camera` is the camera in Blender that a .py puts the shake on; empty: the scene's active one.
// Throws a Failure for a file of another extension.
std::string AddedText(const std::filesystem::path &file, const CameraMove &input, const CameraMove &output,
                      const std::string &camera, const FormatOptions &options);

}  // namespace tremolux
