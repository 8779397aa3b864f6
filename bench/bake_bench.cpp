// What a bake costs a frame: from curves alone, and by playing the scene.
#include <benchmark/benchmark.h>

#include "bench/scene.h"

namespace {

constexpr std::int32_t kQuickBake = 6046, kBruteForceBake = 6175, kUnBake = 6047;
constexpr std::int64_t kFrames = 10000;

// The press of the button, with every layer at work; one item is one frame.
void Bake(benchmark::State &state, std::int32_t button) {
    bench::Scene scene;
    scene.SetLastFrame(kFrames - 1);
    for (auto _ : state) {
        scene.Press(button);
        state.PauseTiming();
        scene.Press(kUnBake);
        state.ResumeTiming();
    }
    state.counters["per_frame"] =
        benchmark::Counter(kFrames, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace

static void QuickBakeOf10000Frames(benchmark::State &state) { Bake(state, kQuickBake); }
BENCHMARK(QuickBakeOf10000Frames)->Unit(benchmark::kMillisecond);

static void BruteForceBakeOf10000Frames(benchmark::State &state) { Bake(state, kBruteForceBake); }
BENCHMARK(BruteForceBakeOf10000Frames)->Unit(benchmark::kMillisecond);
