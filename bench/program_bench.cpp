// What a user of the program waits for, by the clock on the wall: other programs and several cores are at work.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/services/child_process.h"
#include "host/value/text.h"

namespace {

namespace fs = std::filesystem;

constexpr int kFrames = 300, kShots = 40, kLongFrames = 1000000;

// A folder with the inputs, made when it is first needed.
class Place {
  public:
    Place() : folder_(fs::temp_directory_path() / "tremolux-bench") {
        fs::remove_all(folder_);
        fs::create_directories(folder_ / "shots");
        WriteMove(Path("move.csv"), kFrames);
        for (int i = 0; i < kShots; ++i) WriteMove(folder_ / "shots" / ("shot" + std::to_string(i) + ".csv"), kFrames);
    }
    ~Place() { fs::remove_all(folder_); }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;
    fs::path Path(const char *name) const { return folder_ / name; }

    static void WriteMove(const fs::path &file, int frames) {
        std::ofstream text(file);
        text << "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
        for (int i = 0; i < frames; ++i)
            text << i << ',' << 100 * std::sin(i / 90.0) << ",160," << 0.3 * i << ',' << 20 * std::sin(i / 99.0)
                 << ",0,0,36,500\n";
    }

  private:
    const fs::path folder_;
};

const Place &ThePlace() {
    static const Place place;
    return place;
}

void Run(benchmark::State &state, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), TREMOLUX_PROGRAM_FILE);
    const fs::path said = ThePlace().Path("said");
    for ([[maybe_unused]] auto _ : state) {
        host::ChildProcess program;
        if (program.Start(arguments, said, said) && program.Finish() == 0) continue;
        std::fprintf(stderr, "tremolux_bench: %s does not run\n", arguments[1].c_str());
        std::exit(1);
    }
}

std::string File(const char *name) { return host::PathText(ThePlace().Path(name)); }

}  // namespace

static void ProgramPreview(benchmark::State &state) {
    Run(state, {"preview", File("move.csv"), "--preset", "Nervous", "-o", File("film.mp4")});
}
BENCHMARK(ProgramPreview)->UseRealTime()->Iterations(1);

static void ProgramReport(benchmark::State &state) {
    Run(state, {"report", File("move.csv"), "--preset", "Nervous", "-o", File("page.html")});
}
BENCHMARK(ProgramReport)->UseRealTime()->Iterations(1);

static void ProgramShake(benchmark::State &state) {
    Run(state, {"shake", File("move.csv"), "--preset", "Nervous", "-o", File("shaken.csv")});
}
BENCHMARK(ProgramShake)->UseRealTime()->Iterations(5);

// By so many processes; 0: as many as there are cores.
static void ProgramBatch(benchmark::State &state) {
    std::vector<std::string> arguments = {"batch", File("shots"), "--preset", "Nervous", "-o", File("out")};
    if (state.range(0) > 0) arguments.insert(arguments.end(), {"--jobs", std::to_string(state.range(0))});
    Run(state, arguments);
}
BENCHMARK(ProgramBatch)->Arg(0)->Arg(1)->UseRealTime()->Iterations(1);

static void ProgramLongShake(benchmark::State &state) {
    const fs::path file = ThePlace().Path("long.csv");
    if (!fs::exists(file)) Place::WriteMove(file, kLongFrames);
    Run(state, {"shake", host::PathText(file), "-o", File("long_shaken.csv"), "--quiet"});
}
BENCHMARK(ProgramLongShake)->UseRealTime()->Iterations(1);
