#include "library/fit/nearest_presets.h"

#include <algorithm>
#include <memory>

#include "generated/module_ids.h"
#include "library/frame_rates/keep_hz.h"
#include "library/presets/facts.h"
#include "library/presets/pair.h"

namespace tremolux {

std::vector<NearPreset> NearestPresets(const RecordedShake &recorded, const std::filesystem::path &module_file,
                                       const std::function<void(double)> &progress) {
    const ShakeLevels wanted = recorded.Levels();
    const auto facts = ReadPresetFacts(module_file);
    const double rate = recorded.rate.PerSecond();
    Players alone(recorded.rate, recorded.Frames());
    std::unique_ptr<Players> pairs;
    const std::vector<CatalogEntry> catalog = ReadCatalog(&alone.First().CameraTag());
    std::vector<NearPreset> near;
    near.reserve(catalog.size());
    for (const CatalogEntry &entry : catalog) {
        progress(static_cast<double>(near.size()) / static_cast<double>(catalog.size()));
        const auto second = SecondOfEntry(entry, module_file, alone.First().CameraTag());
        if (second && !pairs) pairs = std::make_unique<Players>(recorded.rate, recorded.Frames(), 2);
        Players &players = second ? *pairs : alone;
        const auto fact = facts.find(entry.name);
        const bool is_known = fact != facts.end() && entry.category_value != ids::kCategoryUser;
        const double made_for = is_known && fact->second.frames_per_second > 0 ? fact->second.frames_per_second : rate;
        for (const auto &stage : players.Stages()) {
            ChoosePreset(entry, &stage->CameraTag());
            KeepHertz(made_for, rate, &stage->CameraTag());
            if (!second) continue;
            ApplyPresetValues(*second, stage->SecondTag());
            KeepHertz(made_for, rate, stage->SecondTag());
            FollowExactly(stage->SecondTag());
        }
        const ShakeLevels levels = players.Levels(0, kJudgedTakes);
        near.push_back({entry, DistanceOf(levels, wanted), levels});
    }
    progress(1);
    std::stable_sort(near.begin(), near.end(),
                     [](const NearPreset &a, const NearPreset &b) { return a.distance < b.distance; });
    return near;
}

}  // namespace tremolux
