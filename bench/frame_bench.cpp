// What a frame costs through the module, in playback and after a jump.
#include <benchmark/benchmark.h>

#include "bench/scene.h"

// Everything that the time slider sets off for one frame: tracks, the tag, the camera's matrix. Frames in order, as in
// playback; after the last key it starts over.
static void EvaluatedFrame(benchmark::State &state) {
    bench::Scene scene;
    std::int64_t frame = 0;
    for (auto _ : state) {
        frame = (frame + 1) % 1000;
        scene.Evaluate(frame);
        benchmark::DoNotOptimize(scene.CameraPosition());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(EvaluatedFrame)->Unit(benchmark::kMicrosecond);

// Neither frame follows the other, so each visit is a jump with a run-up from the start.
static void JumpToFrame10000(benchmark::State &state) {
    bench::Scene scene;
    bool there = false;
    for (auto _ : state) {
        there = !there;
        scene.Evaluate(there ? 10000 : 9990);
        benchmark::DoNotOptimize(scene.CameraPosition());
    }
}
BENCHMARK(JumpToFrame10000)->Unit(benchmark::kMillisecond);
