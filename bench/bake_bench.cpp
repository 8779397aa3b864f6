// What a bake costs a frame: from curves alone, and by playing the scene.
#include <benchmark/benchmark.h>

#include "bench/scene.h"
#include "generated/module_ids.h"

namespace {

// The press of the button, with every layer at work.
void Bake(benchmark::State &state, std::int32_t button) {
    bench::Scene scene;
    const std::int64_t frames = state.range(0);
    scene.SetLastFrame(frames - 1);
    for ([[maybe_unused]] auto _ : state) {
        scene.Press(button);
        state.PauseTiming();
        scene.Press(ids::kUnBake);
        state.ResumeTiming();
    }
    state.counters["of"] = static_cast<double>(frames);
}

}  // namespace

static void QuickBake(benchmark::State &state) { Bake(state, ids::kQuickBake); }
BENCHMARK(QuickBake)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

static void BruteForceBake(benchmark::State &state) { Bake(state, ids::kBruteForceBake); }
BENCHMARK(BruteForceBake)->Arg(10000)->Unit(benchmark::kMillisecond);
