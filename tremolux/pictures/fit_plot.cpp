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

struct SheetRow {
    double top, height;  // shares of the sheet
    bool is_first, is_last;
    int sheet_height;  // pixels
};

// The spectra on the left.
std::string SpectraPanel(const FitCurves &curves, const std::string &data, const std::string &title,
                         const SheetRow &row) {
    std::string script = PlotMargins(0.075, 0.34, row.top - row.height * 0.82, row.top) +
                         "set logscale xy\nset xrange [0.15:12]\nset xtics (0.2, 0.5, 1, 2, 5, 10)\n";
    script += curves.loudest > 0
                  ? "set yrange [" + FormatAllDigits(curves.quietest / 2) + ":" + FormatAllDigits(curves.loudest * 2) +
                        "]\nset format y \"%g\"\nset ytics autofreq\n"
                  : "set yrange [0.1:1]\n";
    script += "set label 1 \"" + title + "\" at graph 0.97, graph 0.88 right textcolor @INK\n";
    script += row.is_last ? "set xlabel \"Hz, thirds of octaves\" offset 0,0.5 textcolor @INK\n" : "unset xlabel\n";
    script += row.is_first ? "set key at screen 0.985, screen " + FormatNumber(1 - 46.0 / row.sheet_height) +
                                 " right center horizontal maxrows 1 samplen 3\n"
                           : "unset key\n";
    return script + "plot " + data + "s using 1:2 with lines linestyle 1 title \"recorded\", " + data +
           "s using 1:3 with lines linestyle 2 title \"fitted\"\nunset label 1\nunset label 9\nunset key\nunset "
           "logscale\n";
}

// On the right, the recorded take over the fitted one.
std::string TakePanel(const FitCurves &curves, const std::string &data, double seconds, const SheetRow &row, int take) {
    const double high = row.top - row.height * 0.43 * take;
    const std::string most = FormatAllDigits(std::max(curves.most, kRoundingRms) * 1.05);
    const bool has_time = row.is_last && take == 1;
    return PlotMargins(0.4, 0.985, high - row.height * 0.39, high) + "set xrange [0:" + FormatNumber(seconds) +
           "]\nset xtics autofreq\nset yrange [-" + most + ":" + most + "]\nset ytics (0)\n" +
           (has_time ? "set format x\nset xlabel \"seconds\" offset 0,0.5 textcolor @INK\n"
                     : "set format x \"\"\nunset xlabel\n") +
           "plot " + data + "t using 1:" + std::to_string(take + 2) + " with lines linestyle " +
           std::to_string(take + 1) + " notitle\n";
}

std::string AxisRow(const RecordedShake &recorded, const AxisMotion &fitted, std::size_t axis, const SheetRow &row) {
    const double rate = recorded.rate.PerSecond();
    const FitCurves curves = CurvesOf(recorded.parts.front()[axis], fitted[axis], rate);
    const std::string data = "$axis" + std::to_string(axis),
                      title = std::string(kAxisNames[axis]) + (IsPosition(axis) ? ", cm" : ", degrees");
    const double seconds = static_cast<double>(recorded.Frames()) / rate;
    return data + "s << EOD\n" + curves.spectra + "EOD\n" + data + "t << EOD\n" + curves.takes + "EOD\n" +
           SpectraPanel(curves, data, title, row) + TakePanel(curves, data, seconds, row, 0) +
           TakePanel(curves, data, seconds, row, 1) + "set format x\n";
}

}  // namespace

std::string DrawFit(const RecordedShake &recorded, const AxisMotion &fitted, const PlotLook &look) {
    const ShakeLevels levels = recorded.Levels();
    std::vector<std::size_t> axes;
    for (std::size_t axis = 0; axis < kAxes; ++axis)
        if (!levels[axis].IsStill()) axes.push_back(axis);
    const int height = kFitHead + kFitFoot + kRowHeight * static_cast<int>(axes.size());
    SheetRow row{1 - static_cast<double>(kFitHead) / height, static_cast<double>(kRowHeight) / height, true, false,
                 height};
    std::string script = PlotHead(look, height) + "set multiplot\n";
    for (const std::size_t axis : axes) {
        row.is_first = axis == axes.front();
        row.is_last = axis == axes.back();
        script += AxisRow(recorded, fitted, axis, row);
        row.top -= row.height;
    }
    return RunGnuplot(script + "unset multiplot\n");
}

}  // namespace tremolux
