#include "bench/medians.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace bench {
namespace {

double Quantile(const std::vector<double> &sorted, double share) {
    const double place = share * static_cast<double>(sorted.size() - 1);
    const std::size_t below = static_cast<std::size_t>(place), above = std::min(below + 1, sorted.size() - 1);
    return sorted[below] + (sorted[above] - sorted[below]) * (place - static_cast<double>(below));
}

Time TimeOf(std::vector<double> nanoseconds) {
    std::sort(nanoseconds.begin(), nanoseconds.end());
    const double median = Quantile(nanoseconds, 0.5);
    return {median, (Quantile(nanoseconds, 0.75) - Quantile(nanoseconds, 0.25)) / 2 / median};
}

bool Terminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace

void Medians::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const auto of = run.counters.find("of");
        const double times = of == run.counters.end() ? 1 : of->second.value;
        // A measurement says so where it is the clock on the wall that counts.
        const bool by_the_wall = run.run_name.time_type == "real_time";
        const double nanoseconds = (by_the_wall ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime()) * 1e9 /
                                   benchmark::GetTimeUnitMultiplier(run.time_unit);
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        nanoseconds_[name].push_back(nanoseconds / times);
        if (Terminal()) std::fprintf(stderr, "\rbench: %-48s", name.c_str());
    }
}

void Medians::Finalize() {
    if (Terminal()) std::fprintf(stderr, "\r%-56s\r", "");
    for (const auto &[name, nanoseconds] : nanoseconds_) times_[name] = TimeOf(nanoseconds);
}

const Time *Medians::Find(const std::string &name) const {
    const auto found = times_.find(name);
    return found == times_.end() ? nullptr : &found->second;
}

}  // namespace bench
