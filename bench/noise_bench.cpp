// One sample of the noise that all shake is made of.
#include <benchmark/benchmark.h>

#include "host/services/noise.h"

// Sampled as the module does: whole numbers in space, a time that creeps on.
static void NoiseSample(benchmark::State &state) {
    double time = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(host::SignedNoise(1335, 5946, 87855, time));
        time += 0.035;
    }
}
BENCHMARK(NoiseSample);
