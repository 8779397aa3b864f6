// Parameter ids: paths of levels, compared by their numbers alone (data type and creator are completed by the host).
#pragma once

#include <cstdint>

#include "platform/table.h"

namespace host {

TableDescID MakeId(std::int32_t first);
// Without levels of 0 at its end: they stand for none.
TableDescID WithoutEmptyLevels(const TableDescID &id);
TableDescID MakeId(std::int32_t first, std::int32_t second);
std::int32_t LevelId(const TableDescID &id, std::int32_t level);  // 0 past the end
bool SameId(const TableDescID &a, const TableDescID &b);

constexpr std::int32_t kVectorX = 1000, kVectorY = 1001, kVectorZ = 1002;

}  // namespace host
