// What a thousand presets of the user's cost: the first tag after the start, which reads them all, and a copy of it.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "bench/scene.h"
#include "generated/module_ids.h"
#include "host/files/hyperfile.h"
#include "host/value/container.h"

namespace {

namespace fs = std::filesystem;

constexpr int kPresets = 1000;

// Every setting of the tag, as its "Save" writes them.
host::Container PresetOf(const host::Container &tag, const std::string &name) {
    host::Container preset;
    preset.Set(ids::kPresetName, host::Data(name));
    for (std::int32_t id = ids::kFirstPresetId; id <= ids::kLastPresetId; ++id) {
        const host::Data *value = tag.Find(id);
        if (value == nullptr || value->type == host::kDataLink) continue;
        preset.Set(id, *value);
        preset.Set(-id, host::Data(1));
    }
    return preset;
}

// Older than a few seconds, as presets are: what has just been written is read again to be sure.
void MakeOld(const fs::path &path) { fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(1)); }

class ManyPresets {
  public:
    ManyPresets() {
        const fs::path folder = scene_.UserFolder() / "plugins" / "TremoluxCam" / "User";
        for (int i = 0; i < kPresets; ++i) {
            const std::string name = std::to_string(1000 + i) + "_Preset";
            host::HyperFile file;
            const host::Container preset = PresetOf(scene_.Tag().Data(), name);
            file.Open(ids::kPresetFileCode, folder / name, host::FileMode::kWrite);
            file.WriteContainer(preset);
            file.Close();
            MakeOld(folder / name);
        }
        MakeOld(folder);
    }
    bench::Scene &Scene() { return scene_; }

  private:
    bench::Scene scene_;
};

}  // namespace

static void FirstTagWithAThousandPresets(benchmark::State &state) {
    ManyPresets presets;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        presets.Scene().RestartModule();
        state.ResumeTiming();
        presets.Scene().MakeTag();
    }
    state.counters["of"] = kPresets;
}
BENCHMARK(FirstTagWithAThousandPresets)->Unit(benchmark::kMillisecond);

static void CopyOfATagWithAThousandPresets(benchmark::State &state) {
    ManyPresets presets;
    presets.Scene().RestartModule();
    presets.Scene().MakeTag();
    for ([[maybe_unused]] auto _ : state) {
        host::Node *copy = presets.Scene().Tag().Clone(0, nullptr);
        benchmark::DoNotOptimize(copy);
        state.PauseTiming();
        delete copy;
        state.ResumeTiming();
    }
}
BENCHMARK(CopyOfATagWithAThousandPresets)->Unit(benchmark::kMicrosecond);
