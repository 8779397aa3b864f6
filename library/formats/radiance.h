// Camera paths for what renders captured scenes and generates film: poses and lenses as matrices, frame by frame. Written
// only. Right-handed, in FormatOptions::length_unit; Y up, or Z up where FormatOptions says so.
#pragma once

#include <string>

#include "library/formats/format.h"

namespace tremolux {

// transforms.json: camera to world, looking along -Z with +Y up; the lens in pixels of the picture.
std::string WriteTransforms(const CameraMove &move, const FormatOptions &options);
// camera_path.json: the same matrices; the vertical field of view, and the frame rate.
std::string WriteCameraPath(const CameraMove &move, const FormatOptions &options);
// A line with the camera's name, then a line a frame: microseconds, the lens as shares of the picture, and 3 x 4 numbers,
// world to camera, looking along +Z with +Y down.
std::string WritePoseLines(const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
