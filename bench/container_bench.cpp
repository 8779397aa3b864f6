// Reading and writing one number of a tag's container, which every frame does a hundred times.
#include <benchmark/benchmark.h>

#include <iterator>

#include "bench/scene.h"
#include "generated/module_ids.h"

namespace {

// From all over the container: amounts, ratios, seed, clocks.
constexpr std::int32_t kIds[] = {ids::kPositionIntensity, ids::kPositionSlow, ids::kRatioX,    ids::kRatioB, ids::kSeed,
                                 ids::kShakeSpeed,        ids::kShakeSmooth,  ids::kShakeClock};

}  // namespace

static void ContainerRead(benchmark::State &state) {
    bench::Scene scene;
    const host::Container &data = scene.Tag().Data();
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(data.Real(kIds[next]));
        next = (next + 1) % std::size(kIds);
    }
}
BENCHMARK(ContainerRead);

static void ContainerWrite(benchmark::State &state) {
    bench::Scene scene;
    host::Container &data = scene.Tag().Data();
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        data.SetReal(kIds[next], static_cast<double>(next));
        next = (next + 1) % std::size(kIds);
    }
}
BENCHMARK(ContainerWrite);
