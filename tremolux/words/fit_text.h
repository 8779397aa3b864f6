// What a fit found, for people and for programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/fit/nearest_presets.h"

namespace tremolux {

struct FitReport {
    std::string recording, preset;  // files
    RecordedShake recorded;
    ShakeLevels wanted;
    std::optional<NearPreset> before;  // the nearest preset; none: there are no presets
    ShakeLevels after, after_seed;     // of several seeds, and of the preset's own
    std::vector<double> halves;        // fitted to the first half and judged by the second, and the other way round
    std::vector<std::string> settings, second_settings;  // LABEL=VALUE; the second camera's, where there is one
};

std::string FitText(const FitReport &report);
std::string FitJson(const FitReport &report);

// "Category/Name" and the distance, a line each.
std::string NearestText(const std::vector<NearPreset> &near);
std::string NearestJson(const std::string &recording, const std::vector<NearPreset> &near);

}  // namespace tremolux
