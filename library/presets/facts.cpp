#include "library/presets/facts.h"

#include <nlohmann/json.hpp>

#include "host/files/folders.h"
#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"

namespace tremolux {

std::map<std::string, PresetFacts> ReadPresetFacts(const std::filesystem::path &module_file) {
    const std::filesystem::path file = module_file.parent_path() / "res" / "presets.json";
    std::string bytes, error;
    std::map<std::string, PresetFacts> facts;
    if (!host::Exists(file, false)) return facts;
    if (!host::ReadFile(file, &bytes, &error)) throw Failure(kExitModule, error);
    const nlohmann::json list = nlohmann::json::parse(bytes, nullptr, false);
    for (const nlohmann::json &preset : list) {
        if (!preset.is_object() || !preset.contains("name") || !preset["name"].is_string() ||
            !preset.contains("about") || !preset["about"].is_string())
            throw Failure(kExitModule, host::PathText(file) +
                                           ": found something else than presets, expected the list "
                                           "that comes with the module");
        PresetFacts &fact = facts[preset["name"]];
        fact.about = preset["about"];
        const auto rate = preset.find("frames_per_second");
        if (rate != preset.end() && rate->is_number()) fact.frames_per_second = rate->get<double>();
    }
    return facts;
}

}  // namespace tremolux
