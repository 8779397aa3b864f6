// Runs the measurements and prints their ratios. --keep: writes the ratios over the committed ones. Other arguments go
// to the benchmarks.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "bench/medians.h"
#include "bench/ratios.h"

namespace {

bool TakeArgument(std::vector<char *> *arguments, const char *name) {
    const auto given = std::find_if(arguments->begin(), arguments->end(),
                                    [name](const char *argument) { return std::strcmp(argument, name) == 0; });
    if (given == arguments->end()) return false;
    arguments->erase(given);
    return true;
}

// Repetitions of all measurements in mixed order: what disturbs the machine for a while falls on all alike.
char repetitions[] = "--benchmark_repetitions=7", mixed[] = "--benchmark_enable_random_interleaving=true",
     shortest[] = "--benchmark_min_time=0.05";

}  // namespace

int main(int argc, char **argv) {
    std::vector<char *> arguments(argv, argv + argc);
    const bool keep = TakeArgument(&arguments, "--keep");
    arguments.insert(arguments.begin() + 1, {repetitions, mixed, shortest});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    bench::Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    benchmark::Shutdown();

    const std::filesystem::path committed = TREMOLUX_RATIOS_FILE;
    bench::PrintRatios(medians, committed);
    return keep && !bench::WriteRatios(medians, committed) ? 1 : 0;
}
