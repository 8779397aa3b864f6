#include "library/gyro/gyro_formats.h"

#include "host/value/text.h"
#include "library/gyro/gcsv.h"
#include "library/gyro/gpmf_log.h"
#include "library/gyro/gyro_move.h"
#include "library/gyro/rate_table.h"
#include "library/gyro/sensor_axes.h"

namespace tremolux {
namespace {

// Nothing where nobody said them.
std::optional<Eigen::Matrix3d> AxesOf(const FormatOptions &options) { return AxesOfLetters(options.sensor_axes); }

}  // namespace

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

CameraMove ReadGcsvMove(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    return MoveOfGyro(file, ReadGcsv(file, bytes, AxesOf(options)), options);
}

std::optional<CameraMove> ReadSensorTable(const std::string &file, const SourceText &source,
                                          const FormatOptions &options) {
    const std::optional<RateColumns> columns = FindRateColumns(source);
    if (!columns) return std::nullopt;
    RateTableOptions table;
    if (options.rates_in_degrees) table.unit = *options.rates_in_degrees ? AngleUnit::kDegrees : AngleUnit::kRadians;
    table.axes = AxesOf(options);
    return MoveOfGyro(file, ReadRateTable(file, source, *columns, table), options);
}

}  // namespace tremolux
