#include "library/presets/catalog.h"

#include <algorithm>

#include "generated/module_ids.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/parameters/nearest.h"
#include "library/parameters/parameter.h"

namespace tremolux {
namespace {

constexpr std::size_t kShownCandidates = 5;

std::string PathOf(const CatalogEntry &entry) { return entry.category + "/" + entry.name; }

template <typename Matches>
std::vector<const CatalogEntry *> Matching(const std::vector<CatalogEntry> &catalog, Matches matches) {
    std::vector<const CatalogEntry *> found;
    for (const CatalogEntry &entry : catalog)
        if (matches(entry)) found.push_back(&entry);
    return found;
}

// Whatever the order, the case and what stands between the words.
bool HasEveryWord(const std::string &path, std::string_view wanted) {
    const std::vector<std::string> words = WordsOf(wanted);
    const std::string folded = Folded(path);
    return !words.empty() && std::all_of(words.begin(), words.end(), [&](const std::string &word) {
        return folded.find(word) != std::string::npos;
    });
}

void SortByDistance(std::string_view wanted, std::vector<const CatalogEntry *> *entries) {
    std::stable_sort(entries->begin(), entries->end(), [&](const CatalogEntry *a, const CatalogEntry *b) {
        return NameDistance(wanted, PathOf(*a)) < NameDistance(wanted, PathOf(*b));
    });
}

std::vector<std::string> Paths(const std::vector<CatalogEntry> &catalog) {
    std::vector<std::string> paths;
    paths.reserve(catalog.size());
    for (const CatalogEntry &entry : catalog) paths.push_back(PathOf(entry));
    return paths;
}

std::string List(const std::vector<const CatalogEntry *> &entries) {
    std::string list;
    for (std::size_t i = 0; i < std::min(entries.size(), kShownCandidates); ++i)
        list += (i == 0 ? "'" : ", '") + PathOf(*entries[i]) + "'";
    return list + (entries.size() > kShownCandidates ? ", ..." : "");
}

}  // namespace

std::vector<std::pair<std::int32_t, std::string>> ListEntries(const host::Tag &tag, std::int32_t list) {
    for (const Parameter &parameter : DescribedParameters(tag))
        if (parameter.id == list) return parameter.choices;
    return {};
}

void ChooseEntry(host::Tag *tag, std::int32_t list, std::int32_t value) {
    host::EditParameter(tag, host::MakeId(list), host::Data(value));
}

std::vector<CatalogEntry> ReadCatalog(host::Tag *tag) {
    const host::Container before = tag->Data();
    std::vector<CatalogEntry> catalog;
    for (const auto &[category, label] : ListEntries(*tag, ids::kCategory)) {
        if (category == ids::kCategoryAll) continue;
        ChooseEntry(tag, ids::kCategory, category);
        for (const auto &[preset, name] : ListEntries(*tag, ids::kPreset))
            if (preset < ids::kLongestList) catalog.push_back({category, preset, label, name});
    }
    tag->Data() = before;
    return catalog;
}

const CatalogEntry &FindPreset(const std::vector<CatalogEntry> &catalog, std::string_view text,
                               const std::string &place) {
    const std::string wanted = Folded(text);
    const auto by_path = [&](const CatalogEntry &entry) { return Folded(PathOf(entry)) == wanted; };
    const auto by_name = [&](const CatalogEntry &entry) { return Folded(entry.name) == wanted; };
    const auto by_part = [&](const CatalogEntry &entry) { return Folded(entry.name).find(wanted) != std::string::npos; };
    const auto by_words = [&](const CatalogEntry &entry) { return HasEveryWord(PathOf(entry), text); };
    std::vector<const CatalogEntry *> found = Matching(catalog, by_path);
    if (found.empty()) found = Matching(catalog, by_name);
    if (found.empty() && !wanted.empty()) found = Matching(catalog, by_part);
    if (found.empty()) found = Matching(catalog, by_words);
    if (found.size() == 1) return *found.front();
    if (found.empty())
        throw Failure(kExitInput, place + ": found no preset " + Quoted(text) + ", expected CATEGORY/NAME or a name" +
                                      (catalog.empty() ? "; there are none" : DidYouMean(text, Paths(catalog))));
    SortByDistance(text, &found);
    throw Failure(kExitInput, place + ": found " + std::to_string(found.size()) + " presets " + Quoted(text) +
                                  ", expected one of them: " + List(found));
}

void ChoosePreset(const CatalogEntry &entry, host::Tag *tag) {
    ChooseEntry(tag, ids::kCategory, entry.category_value);
    ChooseEntry(tag, ids::kPreset, entry.preset_value);
    if (tag->Data().Whole(ids::kPreset, -1) != entry.preset_value)
        throw Failure(kExitModule, "the module does not apply the preset '" + PathOf(entry) + "'");
}

}  // namespace tremolux
