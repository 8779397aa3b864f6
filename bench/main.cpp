// Runs the measurements and ends with a figure that outlives the machine: a frame in units of 25 noise samples.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

// The usual table; remembers the fastest run of each measurement, in nanoseconds.
class RememberingReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run> &runs) override {
        benchmark::ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const double nanoseconds = run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
            const auto known = fastest_.try_emplace(run.run_name.function_name, nanoseconds).first;
            known->second = std::min(known->second, nanoseconds);
        }
    }

    // 0 for a measurement that was not run.
    double Nanoseconds(const std::string &name) const {
        const auto found = fastest_.find(name);
        return found == fastest_.end() ? 0.0 : found->second;
    }

  private:
    std::map<std::string, double> fastest_;
};

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RememberingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    const double sample = reporter.Nanoseconds("NoiseSample"), frame = reporter.Nanoseconds("EvaluatedFrame");
    if (sample > 0 && frame > 0)
        std::printf("\na frame costs %.2f times 25 noise samples (%.2f us against %.2f us)\n", frame / (25 * sample),
                    frame / 1e3, 25 * sample / 1e3);
    return 0;
}
