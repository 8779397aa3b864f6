#include "library/gyro/gyro_formats.h"

#include "host/value/text.h"
#include "library/gyro/gpmf_log.h"
#include "library/gyro/gyro_move.h"

namespace tremolux {

CameraMove ReadFilm(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    MemorySource source(file, bytes);
    return MoveOfGyro(file, ReadFilmLog(file, &source), options);
}

CameraMove ReadFilmFile(const std::filesystem::path &file, const FormatOptions &options) {
    const std::string name = host::PathText(file);
    FileSource source(file);
    return MoveOfGyro(name, ReadFilmLog(name, &source), options);
}

CameraMove ReadPayloads(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    return MoveOfGyro(file, ReadPayloadLog(file, bytes), options);
}

}  // namespace tremolux
