#include "tremolux/words/presets_json.h"

#include <algorithm>

#include "tremolux/words/json_text.h"

namespace tremolux {

std::string PresetListJson(const std::vector<CatalogEntry> &catalog, const std::map<std::string, PresetFacts> &facts,
                           const std::vector<std::string> &left_out) {
    nlohmann::ordered_json presets = nlohmann::ordered_json::array();
    for (const CatalogEntry &entry : catalog) {
        const auto fact = facts.find(entry.name);
        const bool is_known = fact != facts.end() && entry.category != "User";
        presets.push_back(
            {{"category", entry.category},
             {"name", entry.name},
             {"about", is_known ? nlohmann::ordered_json(fact->second.about) : nlohmann::ordered_json()}});
    }
    return JsonText({{"presets", presets}, {"left_out", left_out}});
}

std::string PresetJson(const std::string &preset, const std::vector<ShownValue> &values) {
    nlohmann::ordered_json settings = nlohmann::ordered_json::array();
    for (const ShownValue &value : values)
        settings.push_back({{"id", value.id}, {"label", value.label}, {"value", value.value}});
    return JsonText({{"preset", preset}, {"settings", settings}});
}

std::string PresetDifferenceJson(const std::vector<std::string> &presets, const std::vector<ShownValue> &a,
                                 const std::vector<ShownValue> &b) {
    nlohmann::ordered_json settings = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i].value != b[i].value)
            settings.push_back({{"id", a[i].id}, {"label", a[i].label}, {"values", {a[i].value, b[i].value}}});
    return JsonText({{"presets", presets}, {"settings", settings}});
}

}  // namespace tremolux
