#include "tremolux/pictures/fit_plot.h"

#include <algorithm>
#include <cmath>

#include "library/formats/numbers.h"
#include "library/measures/spectrum.h"
#include "tremolux/pictures/gnuplot.h"

namespace tremolux {
namespace {

constexpr int kRowHeight = 210, kFitHead = 60, kFitFoot = 50;  // pixels
constexpr double kHighest = 12;                                // hertz

// Two columns behind hertz or seconds: recorded and fitted.
struct FitCurves {
    std::string spectra, takes;
    double most = 0;                       // of the takes, either side of 0
    double quietest = 1e300, loudest = 0;  // of the spectra
};

FitCurves CurvesOf(std::vector<double> recorded, std::vector<double> fitted, double rate) {
    RemoveDrift(rate, &recorded);
    RemoveDrift(rate, &fitted);
    FitCurves curves;
    for (std::size_t i = 0; i < recorded.size(); ++i) {
        curves.takes += FormatNumber(static_cast<double>(i) / rate) + " " + FormatNumber(recorded[i]) + " " +
                        FormatNumber(fitted[i]) + "\n";
        curves.most = std::max({curves.most, std::abs(recorded[i]), std::abs(fitted[i])});
    }
    const Spectrum a = MeasureSpectrum(recorded, rate), b = MeasureSpectrum(fitted, rate);
    const double seconds = static_cast<double>(recorded.size()) / rate, side = std::pow(2, 1 / 6.0);
    for (int third = -10;; ++third) {
        const double middle = std::pow(2, third / 3.0);
        if (middle > std::min(kHighest, rate / 2)) break;
        if (middle * seconds < 2) continue;
        const double levels[] = {BandRms(a, middle / side, middle * side), BandRms(b, middle / side, middle * side)};
        curves.spectra += FormatNumber(middle);
        for (const double level : levels) {
            curves.spectra += level > kRoundingRms ? " " + FormatAllDigits(level) : " NaN";
            if (level <= kRoundingRms) continue;
            curves.quietest = std::min(curves.quietest, level);
            curves.loudest = std::max(curves.loudest, level);
        }
        curves.spectra += "\n";
    }
    return curves;
}

}  // namespace

std::string DrawFit(const RecordedShake &recorded, const AxisMotion &fitted, const PlotLook &look) {
    const ShakeLevels levels = recorded.Levels();
    std::vector<std::size_t> axes;
    for (std::size_t axis = 0; axis < kAxes; ++axis)
        if (!levels[axis].IsStill()) axes.push_back(axis);
    const int height = kFitHead + kFitFoot + kRowHeight * static_cast<int>(axes.size());
    const double rate = recorded.rate.PerSecond(), row = static_cast<double>(kRowHeight) / height;
    double top = 1 - static_cast<double>(kFitHead) / height;
    std::string script = PlotHead(look, height) + "set multiplot\n";
    for (const std::size_t axis : axes) {
        const FitCurves curves = CurvesOf(recorded.parts.front()[axis], fitted[axis], rate);
        const bool is_first = axis == axes.front(), is_last = axis == axes.back();
        const std::string unit = IsPosition(axis) ? "cm" : "degrees", data = "$axis" + std::to_string(axis);
        script += data + "s << EOD\n" + curves.spectra + "EOD\n" + data + "t << EOD\n" + curves.takes + "EOD\n";
        script += PlotMargins(0.075, 0.34, top - row * 0.82, top) +
                  "set logscale xy\nset xrange [0.15:12]\nset xtics (0.2, 0.5, 1, 2, 5, 10)\n";
        script += curves.loudest > 0
                      ? "set yrange [" + FormatAllDigits(curves.quietest / 2) + ":" +
                            FormatAllDigits(curves.loudest * 2) + "]\nset format y \"%g\"\nset ytics autofreq\n"
                      : "set yrange [0.1:1]\n";
        script += "set label 1 \"" + std::string(kAxisNames[axis]) + ", " + unit +
                  "\" at graph 0.97, graph 0.88 right textcolor @INK\n";
        script += is_last ? "set xlabel \"Hz, thirds of octaves\" offset 0,0.5 textcolor @INK\n" : "unset xlabel\n";
        script += is_first ? "set key at screen 0.985, screen " + FormatNumber(1 - 46.0 / height) +
                                 " right center horizontal maxrows 1 samplen 3\n"
                           : "unset key\n";
        script += "plot " + data + "s using 1:2 with lines linestyle 1 title \"recorded\", " + data +
                  "s using 1:3 with lines linestyle 2 title \"fitted\"\nunset label 1\nunset label 9\nunset key\nunset "
                  "logscale\n";
        const std::string most = FormatAllDigits(std::max(curves.most, kRoundingRms) * 1.05);
        const std::string seconds = FormatNumber(static_cast<double>(recorded.Frames()) / rate);
        for (int take = 0; take < 2; ++take) {
            const double high = top - row * 0.43 * take;
            const bool has_time = is_last && take == 1;
            script += PlotMargins(0.4, 0.985, high - row * 0.39, high) + "set xrange [0:" + seconds +
                      "]\nset xtics autofreq\nset yrange [-" + most + ":" + most + "]\nset ytics (0)\n" +
                      (has_time ? "set format x\nset xlabel \"seconds\" offset 0,0.5 textcolor @INK\n"
                                : "set format x \"\"\nunset xlabel\n") +
                      "plot " + data + "t using 1:" + std::to_string(take + 2) + " with lines linestyle " +
                      std::to_string(take + 1) + " notitle\n";
        }
        script += "set format x\n";
        top -= row;
    }
    return RunGnuplot(script + "unset multiplot\n");
}

}  // namespace tremolux
