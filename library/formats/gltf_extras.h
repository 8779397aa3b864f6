// What glTF has no words for, as the `extras` of a camera that this project writes: the whole move in full precision.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>

#include "library/moves/camera_move.h"

namespace tremolux {

nlohmann::ordered_json GltfExtrasOf(const CameraMove &move);
// Nothing where the extras are another program's, or incomplete.
std::optional<CameraMove> MoveOfGltfExtras(const nlohmann::json &extras);

// Times are those of the frames; where they would be below 0 or not distinct as 32-bit floats, they count from the
// first frame. The frame at 0 seconds.
std::int64_t GltfFrameAtTimeZero(const CameraMove &move);

}  // namespace tremolux
