// What the library adds to the bare frames of its stage when a setting is changed and the shot played again.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/layers.h"
#include "bench/scene.h"
#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "library/shots/stage.h"
#include "tremolux/tremolux.h"

namespace {

constexpr std::size_t kFrames = 300;
constexpr int kFps = 30;

// A camera that walks and looks around; what it looks at and focuses on walks too.
tremolux::CameraMove Walk(double ahead) {
    tremolux::CameraMove move;
    for (std::size_t i = 0; i < kFrames; ++i) {
        const double t = static_cast<double>(i);
        move.samples.push_back({{100 * std::sin(t / 90), 150 + 20 * std::sin(t / 70), 3 * t + ahead},
                                {std::sin(t / 60), std::sin(t / 80) / 10, 0},
                                36 + std::sin(t / 50),
                                500});
    }
    return move;
}

void Require(bool is_right) {
    if (is_right) return;
    std::fprintf(stderr, "tremolux_bench: the library refuses the shot that is measured\n");
    std::exit(1);
}

tremolux_move NewMove(const tremolux::CameraMove &move) {
    std::vector<double> numbers;
    for (const tremolux::CameraSample &sample : move.samples) {
        for (const double number : {sample.position.x, sample.position.y, sample.position.z, sample.angles.x,
                                    sample.angles.y, sample.angles.z, sample.focal_length, sample.focus_distance})
            numbers.push_back(number);
    }
    const tremolux_move_info info = {sizeof(info), 0, kFrames, kFps, 1, move.aperture_width};
    tremolux_move made = nullptr;
    Require(tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &made) == TREMOLUX_OK);
    return made;
}

// Every other time another one, so that no two plays in a row are of the same settings.
double Intensity(bool is_odd) { return is_odd ? 1 : 0.9; }

}  // namespace

// The stage alone, in the host of this program.
static void StageFrames(benchmark::State &state) {
    const bench::Scene scene;
    tremolux::Stage stage(Walk(0));
    stage.AddTarget(Walk(400));
    stage.AddFocusObject(Walk(400));
    host::Tag &tag = stage.CameraTag();
    for (const bench::Amount &amount : bench::kEveryLayer)
        tag.SetParameter(host::MakeId(amount.parameter), host::Data(amount.value));
    tag.SetParameter(host::MakeId(ids::kSpeedVariation), host::Data(bench::kSpeedVariation));
    tag.SetParameter(host::MakeId(ids::kJoltInterval), host::Data(host::MakeTime(bench::kJoltIntervalFrames, kFps)));
    bool is_odd = false;
    for ([[maybe_unused]] auto _ : state) {
        is_odd = !is_odd;
        tag.Data().SetReal(ids::kPositionIntensity, Intensity(is_odd));
        for (std::size_t frame = 0; frame < kFrames; ++frame) {
            stage.PlayFrame(static_cast<std::int64_t>(frame));
            benchmark::DoNotOptimize(stage.Output());
        }
    }
    state.counters["of"] = static_cast<double>(kFrames);
}
BENCHMARK(StageFrames)->Unit(benchmark::kMillisecond);

static void ShotPlayedAgain(benchmark::State &state) {
    tremolux_move move = NewMove(Walk(0)), ahead = NewMove(Walk(400));
    tremolux_shot shot = nullptr;
    Require(tremolux_shot_new(move, &shot) == TREMOLUX_OK);
    Require(tremolux_shot_set_target(shot, ahead) == TREMOLUX_OK);
    Require(tremolux_shot_set_focus_object(shot, ahead) == TREMOLUX_OK);
    for (const bench::Amount &amount : bench::kEveryLayer)
        Require(tremolux_shot_set(shot, amount.parameter, amount.value) == TREMOLUX_OK);
    Require(tremolux_shot_set(shot, ids::kSpeedVariation, bench::kSpeedVariation) == TREMOLUX_OK);
    const double interval = static_cast<double>(bench::kJoltIntervalFrames) / kFps;
    Require(tremolux_shot_set(shot, ids::kJoltInterval, interval) == TREMOLUX_OK);
    std::vector<double> numbers(kFrames * TREMOLUX_NUMBERS_PER_FRAME);
    bool is_odd = false;
    for ([[maybe_unused]] auto _ : state) {
        is_odd = !is_odd;
        Require(tremolux_shot_set(shot, ids::kPositionIntensity, Intensity(is_odd)) == TREMOLUX_OK);
        Require(tremolux_shot_play(shot, nullptr, nullptr) == TREMOLUX_OK);
        Require(tremolux_shot_numbers(shot, numbers.data(), numbers.size()) == TREMOLUX_OK);
        benchmark::DoNotOptimize(numbers.data());
    }
    state.counters["of"] = static_cast<double>(kFrames);
    tremolux_shot_free(shot);
    tremolux_move_free(move);
    tremolux_move_free(ahead);
}
BENCHMARK(ShotPlayedAgain)->Unit(benchmark::kMillisecond);
