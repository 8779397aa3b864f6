// Tables of phone apps and trackers, from rows of numbers to the picture's axes.
#pragma once

#include <optional>
#include <string>

#include "library/gyro/gyro_log.h"
#include "library/gyro/rate_table_columns.h"

namespace tremolux {

// What the header may not say.
struct RateTableOptions {
    std::optional<AngleUnit> unit;          // of rates (a second) and angles
    std::optional<Eigen::Matrix3d> axes;  // from the sensor's to the picture's; else by gravity: upright or sideways
};

// Throws a Failure "file:line:column: ...".
GyroLog ReadRateTable(const std::string &file, const SourceText &source, const RateColumns &columns,
                      const RateTableOptions &options);

}  // namespace tremolux
