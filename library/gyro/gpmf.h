// A payload of an action camera's metadata track: keys of four letters with numbers, in devices and their streams.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tremolux {

// The motion of one sensor in one payload.
struct GpmfStream {
    std::string key;                    // "GYRO", "ACCL", "CORI" or "GRAV"
    std::string axes;                   // of the columns, as letters; empty: not said
    std::string wanted_axes;            // that the matrix makes of them
    std::vector<double> matrix;         // 3 x 3, a row after another; empty: none
    std::optional<std::uint64_t> time;  // of the first sample on the camera's clock, microseconds
    std::size_t columns = 0;
    std::vector<double> values;  // in the sensor's unit, a row after another
    std::size_t Rows() const { return columns == 0 ? 0 : values.size() / columns; }
};

struct GpmfDevice {
    std::uint64_t id = 0;
    std::string name;
    std::vector<GpmfStream> streams;
};

// Throws a Failure "file: byte 12: found ..., expected ..." for what is no payload. Streams without motion are passed over.
std::vector<GpmfDevice> ReadGpmf(const std::string &file, std::string_view payload);

}  // namespace tremolux
