#include "host/value/descid.h"

#include <algorithm>

namespace host {

namespace {

std::int32_t Depth(const TableDescID &id) { return std::clamp(id.depth, 0, TABLE_DESC_LEVELS); }

bool SameLeadingLevels(const TableDescID &a, const TableDescID &b, std::int32_t count) {
    return std::equal(a.level, a.level + count, b.level,
                      [](const TableDescLevel &x, const TableDescLevel &y) { return x.id == y.id; });
}

}  // namespace

TableDescID MakeId(std::int32_t first) {
    TableDescID id{};
    id.depth = 1;
    id.level[0].id = first;
    return id;
}

TableDescID MakeId(std::int32_t first, std::int32_t second) {
    TableDescID id = MakeId(first);
    id.depth = 2;
    id.level[1].id = second;
    return id;
}

TableDescID WithoutEmptyLevels(const TableDescID &id) {
    TableDescID trimmed = id;
    trimmed.depth = Depth(id);
    while (trimmed.depth > 1 && trimmed.level[trimmed.depth - 1].id == 0) --trimmed.depth;
    return trimmed;
}

std::int32_t LevelId(const TableDescID &id, std::int32_t level) {
    return level >= 0 && level < Depth(id) ? id.level[level].id : 0;
}

bool SameId(const TableDescID &a, const TableDescID &b) {
    const TableDescID x = WithoutEmptyLevels(a), y = WithoutEmptyLevels(b);
    return x.depth == y.depth && SameLeadingLevels(x, y, x.depth);
}

}  // namespace host
