// The panel, and a document with ten thousand keys.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include "bench/scene.h"
#include "host/animation/track.h"
#include "host/description/description.h"
#include "host/files/scenefile.h"
#include "host/value/descid.h"

namespace {

constexpr int kKeys = 10000;

void AddKeys(host::Object *camera) {
    std::unique_ptr<host::Track> track =
        host::Track::Create(camera, host::MakeId(host::kParamRelPosition, host::kVectorX));
    for (int frame = 0; frame < kKeys; ++frame)
        track->GetCurve()->AddKey(host::MakeTime(frame, 30))->SetValue(frame * 0.1);
    camera->InsertTrack(track.release());
}

void Expect(bool done, const std::string &error) {
    if (done) return;
    std::fprintf(stderr, "tremolux_bench: %s\n", error.c_str());
    std::exit(1);
}

}  // namespace

static void Panel(benchmark::State &state) {
    bench::Scene scene;
    for ([[maybe_unused]] auto _ : state) {
        host::Description description;
        benchmark::DoNotOptimize(host::BuildDescription(&scene.Tag(), nullptr, 0, &description));
    }
}
BENCHMARK(Panel)->Unit(benchmark::kMicrosecond);

static void SaveKeys(benchmark::State &state) {
    bench::Scene scene;
    AddKeys(&scene.Camera());
    std::string error;
    for ([[maybe_unused]] auto _ : state)
        Expect(host::SaveDocument(&scene.Document(), scene.UserFolder() / "keys.scene", &error), error);
    state.counters["of"] = kKeys;
}
BENCHMARK(SaveKeys)->Unit(benchmark::kMillisecond);

static void LoadKeys(benchmark::State &state) {
    bench::Scene scene;
    AddKeys(&scene.Camera());
    const std::filesystem::path file = scene.UserFolder() / "keys.scene";
    std::string error;
    Expect(host::SaveDocument(&scene.Document(), file, &error), error);
    for ([[maybe_unused]] auto _ : state) Expect(host::LoadDocument(file, &error) != nullptr, error);
    state.counters["of"] = kKeys;
}
BENCHMARK(LoadKeys)->Unit(benchmark::kMillisecond);
