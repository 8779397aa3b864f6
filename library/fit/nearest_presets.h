// Which presets move most like a recording.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "library/fit/fit.h"
#include "library/presets/catalog.h"

namespace tremolux {

struct NearPreset {
    CatalogEntry preset;
    double distance;  // DistanceOf its takes
    ShakeLevels levels;
};

// Every preset of the panel, the nearest first: each played as long as a part of the recording, with several seeds, the built-in
// ones carried to the recording's rate. In the running host. `progress` hears shares of the whole, 0 to 1, and may throw.
// Throws a Failure.
std::vector<NearPreset> NearestPresets(const RecordedShake &recorded, const std::filesystem::path &module_file,
                                       const std::function<void(double)> &progress);

}  // namespace tremolux
