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
#include "tremolux/pictures/tool.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 1200, kHeight = 1100;  // of a sheet in pixels
constexpr std::size_t kMostPoints = 20000;    // of a curve; a longer move is drawn with frames left out

// Colours that people tell apart whatever their eyes (Okabe and Ito), and dashes and widths besides.
constexpr const char *kPlotStyle = R"(
set encoding utf8
set grid linecolor "#dddddd"
set border 3 linecolor "#666666"
set tics nomirror
set style line 1 linecolor "#8c9196" linewidth 3.5
set style line 2 linecolor "#d55e00" linewidth 1.4
set style line 3 linecolor "#0072b2" linewidth 1.2 dashtype (4,4)
set style line 4 linecolor "#0072b2" linewidth 1.8 dashtype 1 pointtype 5 pointsize 0.6
set style line 5 linecolor "#d55e00" linewidth 1.8 dashtype (8,4) pointtype 7 pointsize 0.6
set style line 6 linecolor "#009e73" linewidth 1.8 dashtype (2,3) pointtype 9 pointsize 0.7
)";

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

std::string Head(PlotFormat format) {
    const std::string size = std::to_string(kWidth) + "," + std::to_string(kHeight);
    const std::string terminal = format == PlotFormat::kSvg ? "svg dynamic" : "pngcairo";
    return "set terminal " + terminal + " background \"#ffffff\" size " + size + " font \"sans,13\"\n" + kPlotStyle;
}

std::string Draw(const std::string &script) {
    const TemporaryFolder folder;
    Tool gnuplot({"gnuplot"}, "gnuplot-nox", folder);
    gnuplot.Write(script);
    return gnuplot.Finish();
}

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
std::string VerticalRange(const PlayedMotion &motion, const Panel &panel) {
    double low = panel.value(motion.output.samples.front()), high = low;
    for (const CameraMove *move : {&motion.input, &motion.output}) {
        for (const CameraSample &sample : move->samples) {
            low = std::min(low, panel.value(sample));
            high = std::max(high, panel.value(sample));
        }
    }
    const double margin = std::max(0.06 * (high - low), 1e-3 * std::max(1.0, std::max(std::abs(low), std::abs(high))));
    return "set yrange [" + FormatNumber(low - margin) + ":" + FormatNumber(high + margin) + "]\n";
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

// Shares of the sheet.
std::string Margins(double left, double right, double bottom, double top) {
    return "set lmargin at screen " + FormatNumber(left) + "\nset rmargin at screen " + FormatNumber(right) +
           "\nset bmargin at screen " + FormatNumber(bottom) + "\nset tmargin at screen " + FormatNumber(top) + "\n";
}

// As many pixels a centimetre along as up: a map.
std::string MapRanges(const PlayedMotion &motion) {
    constexpr double kPixelsAlong = 0.88 * kWidth, kPixelsUp = 0.375 * kHeight, kMargin = 1.1, kLeast = 1;
    const host::Vector start = motion.output.samples.front().position;
    double left = start.x, right = start.x, near = start.z, far = start.z;
    for (const CameraMove *move : {&motion.input, &motion.output}) {
        for (const CameraSample &sample : move->samples) {
            left = std::min(left, sample.position.x);
            right = std::max(right, sample.position.x);
            near = std::min(near, sample.position.z);
            far = std::max(far, sample.position.z);
        }
    }
    const double pixel =
        kMargin * std::max({(right - left) / kPixelsAlong, (far - near) / kPixelsUp, kLeast / kPixelsAlong});
    const auto range = [pixel](const char *axis, double low, double high, double pixels) {
        const double middle = (low + high) / 2, half = pixel * pixels / 2;
        return std::string("set ") + axis + "range [" + FormatNumber(middle - half) + ":" +
               FormatNumber(middle + half) + "]\n";
    };
    return range("x", left, right, kPixelsAlong) + range("y", near, far, kPixelsUp);
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

std::string DrawMotion(const PlayedMotion &motion, PlotFormat format) {
    std::string script = Head(format) + Table(motion) + JoltMarks(motion);
    script += "set multiplot layout 4,2 rowsfirst margins 0.11,0.985,0.05,0.945 spacing 0.12,0.05\n";
    script += "set xrange [" + Seconds(motion.output, motion.output.first_frame) + ":" +
              Seconds(motion.output, std::max(motion.output.LastFrame(), motion.output.first_frame + 1)) + "]\n";
    for (std::size_t i = 0; i < std::size(kPanels); ++i) {
        const std::string columns = std::to_string(2 * i + 2), shaken = std::to_string(2 * i + 3);
        if (i == 0) script += "set key at screen 0.985, screen 0.985 right top horizontal samplen 3\n";
        if (i == 1) script += "unset key\n";
        if (i + 2 >= std::size(kPanels)) script += "set xlabel \"time, seconds\" offset 0,0.5\n";
        script.append(VerticalRange(motion, kPanels[i])).append("set ylabel \"").append(kPanels[i].title);
        script.append("\"\nplot $move using 1:").append(columns);
        script.append(" with lines linestyle 1 title \"input camera\", $move using 1:").append(shaken);
        script += " with lines linestyle 2 title \"shaken camera\"";
        if (i == 0 && !motion.jolts.empty()) script += ", NaN with lines linestyle 3 title \"jolt\"";
        script += "\n";
    }
    return Draw(script + "unset multiplot\n");
}

std::string DrawSpectrum(const PlayedMotion &motion, const AddedMotion &added, PlotFormat format) {
    const double rate = motion.output.rate.PerSecond();
    const std::vector<SpectrumRow> rows =
        SpectrumRows(added, rate, static_cast<double>(motion.output.samples.size()) / rate);
    std::string script = Head(format) + Table(motion) + SpectrumTable(rows);
    script += "set multiplot\nset key at screen 0.98, screen 0.99 right top horizontal samplen 3\n" +
              Margins(0.1, 0.98, 0.57, 0.945) +
              "set label 1 \"the path seen from above\" at screen 0.1, screen 0.975\n" + MapRanges(motion) +
              "set xlabel \"x, cm\" offset 0,0.5\nset ylabel \"z, cm\"\n"
              "plot $move using 2:10 with lines linestyle 1 title \"input camera\", "
              "$move using 3:11 with lines linestyle 2 title \"shaken camera\"\n"
              "set autoscale\nset logscale xy\nset format y \"%g\"\nset xlabel \"frequency, Hz\" offset 0,0.5\n" +
              Margins(0.1, 0.49, 0.06, 0.475) +
              "set key at graph 1, graph 1 right top vertical\n"
              "set label 1 \"added to the position\" at screen 0.1, screen 0.49\n";
    script += SpectrumPanel("RMS in a third of an octave, cm", added, rows, 0);
    script += Margins(0.6, 0.98, 0.06, 0.475) + "set label 1 \"added to the angles\" at screen 0.6, screen 0.49\n";
    script += SpectrumPanel("RMS in a third of an octave, degrees", added, rows, 3);
    return Draw(script + "unset multiplot\n");
}

}  // namespace tremolux
