#include "library/presets/chosen_preset.h"

#include <algorithm>

#include "host/files/folders.h"
#include "library/presets/catalog.h"
#include "library/presets/mix.h"
#include "library/presets/pair.h"

namespace tremolux {

std::optional<ChosenPreset> OpenPresetFile(const std::string &text, host::Tag *tag) {
    const std::filesystem::path file = std::filesystem::u8path(text);
    if (!host::Exists(file, false)) return std::nullopt;
    const std::vector<CatalogEntry> catalog = ReadCatalog(tag);
    if (std::any_of(catalog.begin(), catalog.end(), [&](const CatalogEntry &entry) { return entry.name == text; }))
        return std::nullopt;
    const host::Container preset = ReadPresetFile(file);
    ApplyPresetValues(preset, tag);
    return ChosenPreset{NameOfPreset(preset), SecondOf(preset)};
}

ChosenPreset ChooseNamedPreset(const std::string &text, const std::string &place, const std::filesystem::path &module_file,
                               host::Tag *tag) {
    if (std::optional<ChosenPreset> opened = OpenPresetFile(text, tag)) return *opened;
    const CatalogEntry entry = FindPreset(ReadCatalog(tag), text, place);
    ChoosePreset(entry, tag);
    return {entry.name, SecondOfEntry(entry, module_file, *tag),
            RateOf({{entry, 1}}, ReadPresetFacts(module_file))};
}

}  // namespace tremolux
