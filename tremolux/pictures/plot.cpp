#include "tremolux/pictures/plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/measures/spectrum.h"
#include "tremolux/pictures/gnuplot.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kHeight = 1500, kSpectrumHeight = 1100, kHeardHeight = 150;  // of a sheet in pixels
constexpr std::size_t kMostPoints = 20000;  // of a curve; a longer move is drawn with frames left out

struct Panel {
    const char *title;
    double (*value)(const CameraSample &sample);
};
constexpr double kDegree = 1 / kRadiansPerDegree;
// In the order of the sheet: by rows, two in a row.
constexpr Panel kPanels[] = {{"x, cm", [](const CameraSample &s) { return s.position.x; }},
                             {"heading, degrees", [](const CameraSample &s) { return s.angles.x * kDegree; }},
                             {"y, cm", [](const CameraSample &s) { return s.position.y; }},
                             {"pitch, degrees", [](const CameraSample &s) { return s.angles.y * kDegree; }},
                             {"z, cm", [](const CameraSample &s) { return s.position.z; }},
                             {"bank, degrees", [](const CameraSample &s) { return s.angles.z * kDegree; }},
                             {"focal length, mm", [](const CameraSample &s) { return s.focal_length; }},
                             {"focus distance, cm", [](const CameraSample &s) { return s.focus_distance; }}};

std::size_t StrideOf(const PlayedMotion &motion) { return motion.output.samples.size() / kMostPoints + 1; }

// Columns: seconds, then each panel's input and output.
std::string Table(const PlayedMotion &motion) {
    std::string text = "$move << EOD\n";
    for (std::size_t i = 0; i < motion.output.samples.size(); i += StrideOf(motion)) {
        const double frame = static_cast<double>(motion.output.first_frame + static_cast<std::int64_t>(i));
        text += FormatNumber(frame / motion.output.rate.PerSecond());
        for (const Panel &panel : kPanels) {
            for (const CameraMove *move : {&motion.input, &motion.output})
                text += " " + FormatNumber(panel.value(move->samples[i]));
        }
        text += "\n";
    }
    return text + "EOD\n";
}

// A vertical line each, behind the curves.
std::string JoltMarks(const PlayedMotion &motion) {
    std::string text;
    for (const std::int64_t frame : motion.jolts) {
        const std::string at = FormatNumber(static_cast<double>(frame) / motion.output.rate.PerSecond());
        text.append("set arrow from ").append(at).append(", graph 0 to ").append(at);
        text += ", graph 1 nohead back linestyle 3\n";
    }
    return text;
}

// A range that is not empty, even for a value that never changes.
std::string VerticalAxis(double low, double high) {
    const double margin = std::max(0.06 * (high - low), 1e-3 * std::max(1.0, std::max(std::abs(low), std::abs(high))));
    return "set yrange [" + FormatNumber(low - margin) + ":" + FormatNumber(high + margin) + "]\n";
}

std::string VerticalRange(const PlayedMotion &motion, const Panel &panel) {
    double low = panel.value(motion.output.samples.front()), high = low;
    for (const CameraMove *move : {&motion.input, &motion.output}) {
        for (const CameraSample &sample : move->samples) {
            low = std::min(low, panel.value(sample));
            high = std::max(high, panel.value(sample));
        }
    }
    return VerticalAxis(low, high);
}

std::string AddedRange(const PlayedMotion &motion, const Panel &panel) {
    double low = 0, high = 0;
    for (std::size_t i = 0; i < motion.output.samples.size(); ++i) {
        const double added = panel.value(motion.output.samples[i]) - panel.value(motion.input.samples[i]);
        low = std::min(low, added);
        high = std::max(high, added);
    }
    // A small panel has room for three numbers.
    const double most = std::max({-low, high, 1e-3}), digit = std::pow(10, std::floor(std::log10(most)));
    const std::string tic = FormatNumber(std::floor(most / digit) * digit);
    return VerticalAxis(low, high) + "set ytics (-" + tic + ", 0, " + tic + ")\n";
}

std::string Seconds(const CameraMove &move, std::int64_t frame) {
    return FormatNumber(static_cast<double>(frame) / move.rate.PerSecond());
}

struct SpectrumRow {
    double hertz;
    std::array<double, std::tuple_size<decltype(AddedMotion::camera)>::value> rms;  // of the camera's channels
};

// Within a sixth of an octave to each side. None where the move is too short for any.
std::vector<SpectrumRow> SpectrumRows(const AddedMotion &added, double rate, double seconds) {
    std::vector<SpectrumRow> rows;
    // Short moves say nothing of slow motion: two whole turns must fit.
    for (int third = -12; std::pow(2, third / 3.0) < rate / 2; ++third) {
        const double middle = std::pow(2, third / 3.0), side = std::pow(2, 1 / 6.0);
        if (middle * seconds < 2) continue;
        SpectrumRow row{middle, {}};
        for (std::size_t c = 0; c < row.rms.size(); ++c)
            row.rms[c] = BandRms(added.camera[c].spectrum, middle / side, middle * side);
        rows.push_back(row);
    }
    return rows;
}

// Columns: hertz, then the RMS of each channel.
std::string SpectrumTable(const std::vector<SpectrumRow> &rows) {
    std::string text = "$spectrum << EOD\n";
    for (const SpectrumRow &row : rows) {
        text += FormatNumber(row.hertz);
        for (const double rms : row.rms) text += rms > kRoundingRms ? " " + FormatNumber(rms) : " NaN";
        text += "\n";
    }
    return text + "EOD\n";
}

std::string SpectrumPanel(const char *label, const AddedMotion &added, const std::vector<SpectrumRow> &rows,
                          std::size_t first) {
    bool moves = false, shows = false;
    for (std::size_t c = first; c < first + 3; ++c) {
        moves = moves || added.camera[c].rms > kRoundingRms;
        for (const SpectrumRow &row : rows) shows = shows || row.rms[c] > kRoundingRms;
    }
    std::string text = "set ylabel \"" + std::string(label) + "\"\n";
    if (!shows) {
        // A logarithmic axis has no place for nothing.
        const char *words = moves ? "the move is too short for a spectrum" : "nothing was added";
        return text + "set label 2 \"" + words +
               "\" at graph 0.5, graph 0.5 center\nplot [0.05:20] [0.001:1] NaN notitle\nunset label 2\n";
    }
    text += "plot ";
    for (std::size_t c = first; c < first + 3; ++c) {
        text += std::string(c > first ? ", " : "") + "$spectrum using 1:" + std::to_string(c + 2) +
                " with linespoints linestyle " + std::to_string(4 + c - first) + " title \"" + added.camera[c].name +
                "\"";
    }
    return text + "\n";
}

// What a map shows: the least and the greatest of both axes.
struct Extent {
    double left, right, near, far;
    void Add(double x, double z) {
        left = std::min(left, x);
        right = std::max(right, x);
        near = std::min(near, z);
        far = std::max(far, z);
    }
};

// As many pixels a centimetre along as up.
std::string MapRanges(const Extent &extent, double pixels_along, double pixels_up) {
    constexpr double kMargin = 1.1, kLeast = 1e-3;
    const double pixel = kMargin * std::max({(extent.right - extent.left) / pixels_along,
                                             (extent.far - extent.near) / pixels_up, kLeast / pixels_along});
    const auto range = [pixel](const char *axis, double low, double high, double pixels) {
        const double middle = (low + high) / 2, half = pixel * pixels / 2;
        return std::string("set ") + axis + "range [" + FormatNumber(middle - half) + ":" +
               FormatNumber(middle + half) + "]\n";
    };
    return range("x", extent.left, extent.right, pixels_along) + range("y", extent.near, extent.far, pixels_up);
}

Extent PathExtent(const PlayedMotion &motion) {
    const host::Vector start = motion.output.samples.front().position;
    Extent extent{start.x, start.x, start.z, start.z};
    for (const CameraMove *move : {&motion.input, &motion.output})
        for (const CameraSample &sample : move->samples) extent.Add(sample.position.x, sample.position.z);
    return extent;
}

Extent AddedExtent(const PlayedMotion &motion) {
    Extent extent{0, 0, 0, 0};
    for (std::size_t i = 0; i < motion.output.samples.size(); ++i) {
        const host::Vector added = motion.output.samples[i].position - motion.input.samples[i].position;
        extent.Add(added.x, added.z);
    }
    return extent;
}

// Columns: seconds, and how much of new there was in the sound; the greatest of several where there are many.
std::string HeardTable(const OnsetCurve &heard, double start) {
    std::string text = "$heard << EOD\n";
    const std::size_t stride = heard.novelty.size() / kMostPoints + 1;
    for (std::size_t i = 0; i < heard.novelty.size(); i += stride) {
        const auto begin = heard.novelty.begin() + static_cast<std::ptrdiff_t>(i);
        const auto end = begin + static_cast<std::ptrdiff_t>(std::min(stride, heard.novelty.size() - i));
        text += FormatNumber(start + static_cast<double>(i) * heard.step) + " " +
                FormatNumber(static_cast<double>(*std::max_element(begin, end))) + "\n";
    }
    return text + "EOD\n";
}

}  // namespace

PlotFormat PlotFormatOf(const fs::path &file) {
    const std::string extension = host::PathText(file.extension());
    if (extension == ".svg") return PlotFormat::kSvg;
    if (extension == ".png") return PlotFormat::kPng;
    throw Failure(kExitInput,
                  host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected .svg or .png");
}

fs::path SecondSheet(const fs::path &file) {
    fs::path name = file.stem();
    name += "-spectrum";
    name += file.extension();
    return file.parent_path() / name;
}

std::string DrawMotion(const PlayedMotion &motion, const PlotLook &look) {
    const double rate = motion.output.rate.PerSecond();
    const int height = kHeight + (look.heard ? kHeardHeight : 0);
    const double first = static_cast<double>(motion.output.first_frame),
                 foot = look.heard ? 1.0 * kHeardHeight / height : 0;
    std::string script = PlotHead(look, height) + Table(motion) + JoltMarks(motion);
    if (look.heard) script += HeardTable(*look.heard, first / rate);
    script += "set multiplot\nset xrange [" + Seconds(motion.output, motion.output.first_frame) + ":" +
              Seconds(motion.output, std::max(motion.output.LastFrame(), motion.output.first_frame + 1)) + "]\n";
    constexpr std::size_t kRows = std::size(kPanels) / 2;
    constexpr double kTop = 0.925, kBottom = 0.045, kAddedShare = 0.3, kBetween = 0.25;  // of a row
    const double row_height = (kTop - kBottom - foot) / kRows;
    for (std::size_t i = 0; i < std::size(kPanels); ++i) {
        const std::string columns = std::to_string(2 * i + 2), shaken = std::to_string(2 * i + 3);
        const double left = i % 2 == 0 ? 0.085 : 0.585, right = left + 0.4;
        const double top = kTop - std::floor(static_cast<double>(i) / 2) * row_height,
                     middle = top - row_height * (1 - kBetween) * (1 - kAddedShare);
        script += PlotMargins(left, right, middle, top) + "unset xlabel\nset format x \"\"\n";
        if (i == 0)
            script += "set key at screen 0.985, screen " + FormatNumber(1 - 46.0 / height) +
                      " right center horizontal maxrows 1 samplen 3\n";
        if (i == 1) script += "unset key\n";
        if (i < 2) {
            script += "set link x2 via x*" + FormatNumber(rate) + " inverse x/" + FormatNumber(rate) +
                      "\nset x2tics nomirror\nset x2label \"frames\" offset 0,-0.5 textcolor @INK\n";
        }
        script.append("set ytics autofreq\n")
            .append(VerticalRange(motion, kPanels[i]))
            .append("set ylabel \"")
            .append(kPanels[i].title);
        script.append("\"\nplot $move using 1:").append(columns);
        script.append(" with lines linestyle 1 title \"input camera\", $move using 1:").append(shaken);
        script += " with lines linestyle 2 title \"shaken camera\"";
        if (i == 0 && !motion.jolts.empty()) script += ", NaN with lines linestyle 3 title \"jolt\"";
        script += "\n";
        if (i < 2) script += "unset x2tics\nunset x2label\nunset link x2\n";
        script += "unset label 9\nset format x\n" +
                  PlotMargins(left, right, top - row_height * (1 - kBetween), middle - 0.006) +
                  AddedRange(motion, kPanels[i]) + "set ylabel \"added\" textcolor @INK\n";
        if (i + 2 >= std::size(kPanels) && !look.heard)
            script += "set xlabel \"time, seconds\" offset 0,0.5 textcolor @INK\n";
        script.append("plot $move using 1:($").append(shaken).append("-$").append(columns);
        script += ") with lines linestyle 2 notitle\n";
    }
    if (look.heard) {
        script += PlotMargins(0.085, 0.985, 0.045, foot + 0.005) +
                  "set xlabel \"time, seconds\" offset 0,0.5 textcolor @INK\nset ylabel \"heard\"\nset yrange "
                  "[0:*]\nset ytics (0, 1)\n"
                  "plot $heard using 1:2 with lines linestyle 4 notitle, 1 with lines linestyle 3 notitle\n";
    }
    return RunGnuplot(script + "unset multiplot\n");
}

std::string DrawSpectrum(const PlayedMotion &motion, const AddedMotion &added, const PlotLook &look) {
    const double rate = motion.output.rate.PerSecond();
    const std::vector<SpectrumRow> rows =
        SpectrumRows(added, rate, static_cast<double>(motion.output.samples.size()) / rate);
    const std::string ink = std::string(" textcolor \"") + PlotInk(look) + "\"\n";
    std::string script = PlotHead(look, kSpectrumHeight) + Table(motion) + SpectrumTable(rows);
    script += "set multiplot\nset key at screen 0.98, screen " + FormatNumber(1 - 46.0 / kSpectrumHeight) +
              " right center horizontal maxrows 1 samplen 3\n" + PlotMargins(0.085, 0.585, 0.57, 0.905) +
              "set label 1 \"the path seen from above\" at screen 0.085, screen 0.92" + ink +
              MapRanges(PathExtent(motion), 0.5 * kPlotWidth, 0.335 * kSpectrumHeight) +
              "set xlabel \"x, cm\" offset 0,0.5 textcolor @INK\nset ylabel \"z, cm\"\n"
              "plot $move using 2:10 with lines linestyle 1 title \"input camera\", "
              "$move using 3:11 with lines linestyle 2 title \"shaken camera\"\nunset key\nunset label 9\n" +
              PlotMargins(0.68, 0.98, 0.57, 0.905) +
              "set label 1 \"what was added to it\" at screen 0.68, screen 0.92" + ink +
              MapRanges(AddedExtent(motion), 0.3 * kPlotWidth, 0.335 * kSpectrumHeight) +
              "plot $move using ($3-$2):($11-$10) with lines linestyle 2 notitle\n"
              "set autoscale\nset logscale xy\nset format y \"%g\"\nset xlabel \"frequency, Hz\" offset 0,0.5 "
              "textcolor @INK\n" +
              PlotMargins(0.1, 0.49, 0.06, 0.475) +
              "set key at graph 1, graph 1 right top vertical\n"
              "set label 1 \"added to the position\" at screen 0.085, screen 0.49" +
              ink;
    if (rows.size() > 1)
        script += "set xrange [" + FormatNumber(rows.front().hertz) + ":" + FormatNumber(rows.back().hertz) + "]\n";
    script += SpectrumPanel("RMS in a third of an octave, cm", added, rows, 0);
    script +=
        PlotMargins(0.6, 0.98, 0.06, 0.475) + "set label 1 \"added to the angles\" at screen 0.6, screen 0.49" + ink;
    script += SpectrumPanel("RMS in a third of an octave, degrees", added, rows, 3);
    return RunGnuplot(script + "unset multiplot\n");
}

}  // namespace tremolux
