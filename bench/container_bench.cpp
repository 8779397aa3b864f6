// Reading one number from a tag's container, which every frame does a hundred times.
#include <benchmark/benchmark.h>

#include <iterator>

#include "bench/scene.h"

static void ContainerRead(benchmark::State &state) {
    // From all over the container: amounts, ratios, seed, toggles, clocks.
    constexpr std::int32_t kIds[] = {6020, 6024, 6076, 6102, 6142, 6152, 6010, 6158, 10051};
    bench::Scene scene;
    const host::Container &data = scene.Tag().Data();
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(data.Real(kIds[next]));
        next = (next + 1) % std::size(kIds);
    }
}
BENCHMARK(ContainerRead);
