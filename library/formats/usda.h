// USD's text files: the camera of a stage, with all that moves it, and a layer or stage with the camera alone.
#pragma once

#include "library/formats/format.h"

namespace tremolux {

// Text, or a package (.usdz) with a text in it; binary files are refused.
CameraMove ReadUsda(const std::string &file, std::string_view bytes, const FormatOptions &options);
std::string WriteUsda(const CameraMove &move, const FormatOptions &options);
// A layer over the stage that the camera is from: an op behind those that place it, with a right-handed matrix for each frame (its
// offset in scene units), and the move's lens.
std::string WriteUsdaAddedOp(const CameraMove &move, const std::vector<host::Matrix> &matrices, const FormatOptions &options);

}  // namespace tremolux
