// Tables of phone apps and trackers: which column is what, by the words of the header line.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "library/formats/source_text.h"

namespace tremolux {

enum class AngleUnit { kRadians, kDegrees };

struct TimeColumn {
    std::size_t place;
    std::optional<double> seconds;  // of one unit, where the name says it
};

template <std::size_t kCount>
struct ColumnGroup {
    std::array<std::size_t, kCount> places;
    std::optional<AngleUnit> unit;  // where a name says it
};

struct RateColumns {
    std::size_t line = 0;  // index of the header line
    char separator = ',';
    TimeColumn time{};
    std::optional<ColumnGroup<3>> rates;          // x, y, z
    std::optional<ColumnGroup<3>> accelerations;  // x, y, z
    std::optional<ColumnGroup<4>> quaternions;    // w, x, y, z
    std::optional<ColumnGroup<3>> angles;         // yaw, pitch, roll
    bool are_plain_names = false;                 // rates of columns that are named x, y and z alone
};

// Nothing where the first line, remarks aside, does not name a time and, behind it, rates, quaternions or angles; or where
// it names frames: that is another table.
std::optional<RateColumns> FindRateColumns(const SourceText &source);

}  // namespace tremolux
