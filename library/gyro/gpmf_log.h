// The payloads of an action camera as one recording, on the picture's axes.
#pragma once

#include <string>
#include <string_view>

#include "library/gyro/byte_source.h"
#include "library/gyro/gyro_log.h"

namespace tremolux {

// By the film's index; the pictures are not read. Throws a Failure for a film without motion.
GyroLog ReadFilmLog(const std::string &file, ByteSource *source);
// One payload or several, without a film around them: each lasts a second, unless their own clock says more.
GyroLog ReadPayloadLog(const std::string &file, std::string_view bytes);

}  // namespace tremolux
