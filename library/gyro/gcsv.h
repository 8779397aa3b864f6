// Text logs of a rate sensor beside a camera: a few keys, then a table of counts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "library/gyro/gyro_log.h"

namespace tremolux {

// Unknown keys, blank lines and a last row that was cut off are passed over; what changes the meaning is refused.
// `axes`, where they are known, are taken instead of the file's: from the sensor's to the picture's.
GyroLog ReadGcsv(const std::string &file, std::string_view bytes, const std::optional<Eigen::Matrix3d> &axes = {});

}  // namespace tremolux
