// What a layer says of the whole stage: units, axes, rate and range.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/formats/format.h"
#include "library/formats/usd/layer.h"

namespace tremolux {

struct UsdStage {
    double metres_per_unit = 0.01;
    bool is_z_up = false;
    FrameRate rate;
    double codes_per_frame = 1;
    std::optional<double> start, end;  // time codes

    double UnitsToScene(double units) const;  // centimetres
    double CodeOf(double frame) const { return frame * codes_per_frame; }
};

// Throws a Failure.
UsdStage UsdStageOf(const SourceText &source, const UsdLayer &layer, const FormatOptions &options,
              std::vector<std::string> *notes);

}  // namespace tremolux
