// What a frame costs through the module, in playback and after a jump.
#include <benchmark/benchmark.h>

#include "bench/scene.h"
#include "generated/module_ids.h"

// Everything that the time slider sets off for one frame: tracks, the tag, the camera's matrix. Frames in order, as in
// playback; after the last key it starts over.
static void EvaluatedFrame(benchmark::State &state) {
    bench::Scene scene;
    std::int64_t frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        frame = (frame + 1) % 1000;
        scene.Evaluate(frame);
        benchmark::DoNotOptimize(scene.CameraPosition());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(EvaluatedFrame)->Unit(benchmark::kMicrosecond);

// The tag's own evaluation, as the host calls it.
static void EvaluatedTag(benchmark::State &state) {
    bench::Scene scene;
    host::Tag &tag = scene.Tag();
    std::int64_t frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        scene.Document().SetFrame(frame = (frame + 1) % 1000);
        benchmark::DoNotOptimize(
            tag.Registration().execute(tag.Plugin(), &tag, &scene.Document(), &scene.Camera(), nullptr, 0, 0));
    }
}
BENCHMARK(EvaluatedTag)->Unit(benchmark::kMicrosecond);

// Playback with one layer alone.
static void Layer(benchmark::State &state) {
    bench::Scene scene;
    scene.KeepLayer(static_cast<bench::Layer>(state.range(0)));
    std::int64_t frame = 0;
    for ([[maybe_unused]] auto _ : state) scene.Evaluate(frame = (frame + 1) % 1000);
}
BENCHMARK(Layer)->DenseRange(0, 8)->Unit(benchmark::kMicrosecond);

// With a seed that is new each time nothing is known of the clocks: they are counted from the start.
static void FirstJump(benchmark::State &state) {
    bench::Scene scene;
    scene.SetLastFrame(state.range(0));
    double seed = 0;
    for ([[maybe_unused]] auto _ : state) {
        scene.Tag().Data().SetReal(ids::kSeed, ++seed);
        scene.Evaluate(state.range(0) - static_cast<std::int64_t>(seed) % 2 * 10);
        benchmark::DoNotOptimize(scene.CameraPosition());
    }
}
BENCHMARK(FirstJump)->Arg(100)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// Neither frame follows the other, so each visit is a jump; the clocks of the first one are known.
static void LaterJump(benchmark::State &state) {
    bench::Scene scene;
    scene.SetLastFrame(state.range(0));
    scene.Evaluate(state.range(0));
    bool there = true;
    for ([[maybe_unused]] auto _ : state) {
        there = !there;
        scene.Evaluate(there ? state.range(0) : state.range(0) - 10);
        benchmark::DoNotOptimize(scene.CameraPosition());
    }
}
BENCHMARK(LaterJump)->Arg(100)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
