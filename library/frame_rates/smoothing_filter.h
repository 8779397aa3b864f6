// The module's smoothing filters, learned from what they do.
#pragma once

#include <functional>
#include <vector>

namespace tremolux {

// v(t) = v(t-1) + p (v(t-1) - v(t-2)) + q (goal(t) - v(t-1)): what a smoothing amount makes of a goal. q 1 and p 0 is
// no filter at all.
struct SmoothingFilter {
    double p = 0, q = 1;
};

// The filter that made `smoothed` of `goal`, by least squares; the same frames, at least four.
SmoothingFilter FitFilter(const std::vector<double> &goal, const std::vector<double> &smoothed);
// What is left of a sine of that many cycles a frame: q / |(1 - z)(1 - p z) + q z| with z = exp(-2 pi i cycles).
double GainOf(const SmoothingFilter &filter, double cycles);

// A parameter from 0 to 1 and the filters that its values make.
class SmoothingAmounts {
  public:
    // `play` is what the module makes of always the same goal with an amount; 0 leaves the goal as it is.
    explicit SmoothingAmounts(const std::function<std::vector<double>(double amount)> &play);
    SmoothingFilter At(double amount) const;

    struct Match {
        double amount;
        double off;  // by how much the gain is off where it is worst, as a share of it
    };
    // The amount whose gains at `rate` frames a second are nearest to those of `amount` at `made_for`, from 0.1 Hz to
    // 12 Hz or where the lower rate gives out. Amounts are found to the thousandth.
    Match Carried(double amount, double made_for, double rate) const;

  private:
    std::vector<SmoothingFilter> filters_;  // at evenly spaced amounts
};

}  // namespace tremolux
