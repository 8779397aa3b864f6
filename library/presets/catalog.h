// The presets that a tag's panel offers, by category.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

struct CatalogEntry {
    std::int32_t category_value = 0, preset_value = 0;  // of the panel's two lists
    std::string category, name;
};

// One of the panel's two lists, ids::kCategory or ids::kPreset, as it is now: value and label of each entry.
std::vector<std::pair<std::int32_t, std::string>> ListEntries(const host::Tag &tag, std::int32_t list);
// As if the user chose the entry.
void ChooseEntry(host::Tag *tag, std::int32_t list, std::int32_t value);

// Every category in the order of the panel, the user's last. Looks through the tag's lists, which choose nothing by
// that: afterwards the tag is as it was.
std::vector<CatalogEntry> ReadCatalog(host::Tag *tag);

// By "Category/Name" or by the name alone, whatever the case; a part of the name, or words of both in any order, are enough
// where only one preset has them. Throws a Failure that names the candidates, nearest first, or names that are near; `place`
// is where the text was typed.
const CatalogEntry &FindPreset(const std::vector<CatalogEntry> &catalog, std::string_view text,
                               const std::string &place);

// As if the user chose both lists' entries. Throws a Failure when the module does not take it.
void ChoosePreset(const CatalogEntry &entry, host::Tag *tag);

}  // namespace tremolux
