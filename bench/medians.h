// What each measurement took, over all its repetitions.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// Of one measurement: nanoseconds of the processor, or of the clock on the wall where it asks for that, and half the
// range of the middle half of the repetitions, as a share of the median.
struct Time {
    double median, noise;
};

// Shows how far the run is, and remembers. A measurement whose iteration is many of the same says how many in its
// counter "of".
class Medians : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;
    // NULL for a measurement that was not run.
    const Time *Find(const std::string &name) const;

  private:
    std::map<std::string, std::vector<double>> nanoseconds_;
    std::map<std::string, Time> times_;
};

}  // namespace bench
